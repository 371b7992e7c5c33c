// Create Application: turns the open project into one executable in a folder of its own, with the help file
// and the images that belong to it. Portable: the machine, the engine's bytes and the dialog's answers come
// in as values.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basic/Slots.h"
#include "model/ProjectDocument.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Progress.h"

namespace plinth {

class PictureStore;

// What the name dialog answers.
struct CreateRequest {
  std::string name;  // as typed, in the project's code page; the application's name is what stands before the
                     // first "."
  std::string folder;  // chosen folder, in which the application's own folder is made; "" is the current one
  Bytes iconBytes;     // of the chosen ".ico" file; empty: the project's icon, else the default icon
  bool setup = false;  // "setup" check box: wrap the result into an installer
};

// What an installer step gets to know.
struct InstallerInput {
  std::string appName;
  std::string folder;  // output folder, with trailing separator
};

// Wraps a finished application into a setup program. There is none yet: a request for one is answered by a
// message.
class InstallerStep {
 public:
  virtual ~InstallerStep() = default;
  virtual void run(const InstallerInput& input, ProjectDocument& document) = 0;
};

// What Create Application works with. References must outlive the object that holds them.
struct CreateEnvironment {
  Files& files;
  Messages& messages;
  Progress& progress;
  PictureStore& pictures;
  std::function<std::string(int)> labelText;  // LabelText by its number, 101 to 400
  std::string programFolder;         // of the designer, with trailing separator: Languages, Images, main.jpg
  std::string language = "English";  // name of the chosen language: "<language>b.chm"
  std::span<const std::uint8_t> stub;         // resource "CUSTOM" 101
  std::span<const std::uint8_t> defaultIcon;  // resource "CUSTOM" 103
  InstallerStep* installer = nullptr;
  // The form of a file name that `files` takes for one in the project's code page; {} when they are the same.
  std::function<std::string(const std::string&)> fileName = {};
};

enum class CreateStatus {
  created,
  tooSmall,  // the records would hold less than 30 characters
  noName,    // nothing was typed: the run stopped silently
  badName,   // nothing usable is left of the name
  inUse,     // the earlier build runs or is locked
  refused,   // the person wanted to keep what lies in the folder
  cancelled,
  failed,  // the executable could not be made or written
};

struct CreateResult {
  CreateStatus status = CreateStatus::failed;
  std::string appName;
  std::string folder;              // output folder, with trailing separator
  std::string executable;          // path of the finished application
  std::vector<std::string> notes;  // steps passed over and texts cut, for people
  std::string problem;             // for `failed`: why
  bool ok() const { return status == CreateStatus::created; }
};

class CompileApp {
 public:
  explicit CompileApp(CreateEnvironment environment);

  // True when records can hold at least 30 characters; else shows label 398. Call before the name dialog.
  bool bigEnough(const ProjectDocument& document);
  // All steps behind the dialog. The document changes by default names and becomes dirty. Messages are shown
  // as they arise; what fails beside the executable itself is passed over and noted. Files of the user that
  // lie in the output folder (data files, settings) are kept; nothing outside the output folder is touched.
  CreateResult run(ProjectDocument& document, const CreateRequest& request);

 private:
  CreateEnvironment environment_;
};

// The dialog's first name: the first 60 characters of the project's title.
std::string initialApplicationName(const ProjectDocument& document);
// The application's name from the name as typed: reduced to a plain file name and cut at the first "."; ""
// when nothing is left.
std::string applicationName(std::string_view typed);
// Content of an ".ico" file; of the default icon when `path` is empty or cannot be read.
Bytes LoadIconFile(const Files& files, const std::string& path, std::span<const std::uint8_t> defaultIcon);

}  // namespace plinth
