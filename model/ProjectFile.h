// The project file as bytes: any version in, the newest out. Damage yields a partial document and a count,
// never a refusal, but for a file that does not begin as a project does. The order of the elements is
// ProjectWalk.h alone.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "model/LanguageTexts.h"
#include "model/PictureStore.h"
#include "model/ProjectDocument.h"

namespace plinth {

// What the person should hear of a load; label is the number of the language text that goes before the path.
struct LoadMessage {
  int label = 0;  // 191 picture missing, 330 background image missing
  std::string path;
  // The whole message.
  std::string text(const LanguageTexts& texts) const;
};

// What stands in a file beside the document.
struct FileFacts {
  std::string caption;        // of the designer's window when it was saved
  std::int32_t saveDate = 0;  // days since 1899-12-30
  std::int64_t size = 0;      // bytes of the file
  std::int64_t end = 0;       // bytes that were read; what stands behind is left from an older file
};

struct ReadOptions {
  // For a new project made from the empty one: font and character set of the file are not applied, these
  // stay.
  bool keepLook = false;
  std::string fontName = "Arial";
  std::int16_t charSet = 0;
  // Clears paths of background and pictures whose files are gone, with a message, and puts `defaultImage` in
  // the place of a default image that is gone. Off: paths stay as they are in the file.
  bool checkPaths = true;
  std::string defaultImage = {};          // path of "main.jpg", "" for none
  const LanguageTexts* labels = nullptr;  // applied to files below version 6
};

struct LoadResult {
  ProjectDocument document;  // projectPath is left empty, dirty is false
  bool accepted = false;     // false: not a project file (label 329); document is then an empty one
  bool complete = false;     // nothing was skipped
  int skipped = 0;           // elements that were missing or damaged
  std::vector<LoadMessage> messages;
  FileFacts facts;
};

// Reads a project of any version. Embedded images go to `pictures` under names that cannot leave its folder.
// Memory and time are linear in the bytes, whatever the counts in them claim.
LoadResult readProject(std::span<const std::uint8_t> bytes, PictureStore& pictures,
                       const ReadOptions& options = {});

struct WriteOptions {
  std::string path;           // of the file to be: goes into the caption and the help file's name
  std::int32_t saveDate = 0;  // days since 1899-12-30
};

struct SaveResult {
  Bytes bytes;
  std::vector<std::string> unreadablePictures;  // "Correct Picture File " and each of these is the message
  std::size_t cutBytes = 0;                     // of texts above 32767 bytes
};

// The file's bytes in the newest version. Deleted rows (page 95 and more) of lines, titles, squares, check
// boxes and buttons are left out, and references in the file follow the numbers that the others get by it; a
// picture whose file has vanished loses its path in `document`. old: the image of the file that is overwritten
// in place: what no element covers stays, also behind the new end; empty for a new file.
SaveResult writeProject(ProjectDocument& document, const PictureStore& pictures, const WriteOptions& options,
                        std::span<const std::uint8_t> old = {});

// "Rvn Plinth V2.0 : " and the path: the caption of the designer's window and the first text of each file.
std::string projectCaption(const std::string& path);
// The path with ".chm" in the place of its extension.
std::string helpFileOf(const std::string& path);

}  // namespace plinth
