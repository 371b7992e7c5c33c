// Start-up as one list of steps. The payload is the only thing that can stop it: everything else that fails
// leaves the application poorer (a picture less, no help file), but running.
#include "engine/StartUp.h"

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Text.h"
#include "builder/payload/PayloadFile.h"
#include "engine/CfgFile.h"

namespace plinth {
namespace {

// The command line without quotes and without the "-paste" switch.
std::string bareCommandLine(const std::string& commandLine) {
  std::string text = replaceAll(commandLine, "\"", "");
  const std::size_t paste = lowerAscii(text).find("-paste");
  if (paste != std::string::npos) text.erase(paste, 6);
  return trim(text);
}

bool endsWithNoCase(const std::string& text, const std::string& end) {
  return text.size() > end.size() &&
         equalAsciiNoCase(std::string_view(text).substr(text.size() - end.size()), end);
}

// The name under which a file exists in a folder when only the case of letters differs.
std::string existingName(const Files& files, const std::string& folder, const std::string& name,
                         int codePage) {
  if (files.exists(folder + name)) return name;
  for (const std::string& candidate : files.list(folder.empty() ? "." : folder))
    if (compareFolded(candidate, name, codePage) == 0) return candidate;
  return name;
}

// File names are 8-bit text where "\\" separates, UTF-8 where "/" does. A name that the page cannot say stays
// as it is.
std::string properName(const std::string& name, const std::string& folder, int codePage) {
  if (folder.empty() || folder.back() != '/') return properCase(name, codePage);
  const std::string text = fromUtf8(name, codePage);
  return toUtf8(text, codePage) == name ? toUtf8(properCase(text, codePage), codePage) : name;
}

// An embedded file goes beside the program under its stored name, unless one is there already: an edited
// picture beside the application wins over the one in the payload.
std::string extract(const EmbeddedFile& file, const std::string& folder, bool write, Files& files) {
  const std::string name = safeFileName(file.storedName);
  if (name.empty()) return {};
  const std::string path = folder + name;
  if (write && !file.bytes.empty() && !files.exists(path)) static_cast<void>(files.write(path, file.bytes));
  return path;
}

void extractAll(StartUp& start, const StartRequest& request, Files& files) {
  const Payload& payload = start.application.payload;
  const std::string& folder = start.names.appPath;
  for (const PayloadPicture& picture : payload.pictures)
    if (Application::live(picture.page)) extract(picture.image, folder, request.extractFiles, files);
  start.background = extract(payload.background, folder, request.extractFiles, files);
  if (!start.background.empty() && !files.exists(start.background)) start.background.clear();
  const std::string blank = folder + "0.jpg";
  if (files.exists(blank)) start.blankPicture = blank;
  const std::string help = safeFileName(payload.application.helpFile);
  if (!help.empty() && files.exists(folder + help)) start.helpFile = folder + help;
}

void stop(const StartUp& start, Messages& messages, const std::string& reason) {
  const std::string text = runMessage(start.application, 21, reason);
  // The application's own message need not have a place for the reason.
  messages.show(contains(text, reason) ? text : text + reason, MessageIcon::error);
}

// Reads the program's own file; false after a message.
bool readApplication(StartUp& start, const StartRequest& request, Files& files, Messages& messages) {
  const Result<Bytes> image = files.read(request.exePath);
  if (!image) {
    stop(start, messages, fromUtf8(image.error().text, start.application.codePage));
    return false;
  }
  PayloadResult payload = readPayloadPart(*image);
  start.application = makeApplication(std::move(payload.payload));
  if (!payload.complete) {
    stop(start, messages, payload.problem);
    return false;
  }
  return true;
}

}  // namespace

ProgramNames programNames(const StartRequest& request, char separator) {
  ProgramNames names;
  names.appPath = folderOf(request.exePath);
  if (names.appPath.empty()) names.appPath = std::string(".") + separator;
  const std::string ownName = withoutExtension(fileNameOf(request.exePath));
  names.exeBase = names.appPath + ownName;
  const std::string lower = lowerAscii(bareCommandLine(request.commandLine));
  names.exeStem = contains(lower, ".exe") ? trim(replaceAll(lower, ".exe", "")) : ownName;
  names.paste = contains(lowerAscii(request.commandLine), "-paste");
  return names;
}

DataFile dataFileAt(const std::string& path, char separator) {
  DataFile data{folderOf(path), fileNameOf(path), true};
  if (data.folder.empty()) data.folder = std::string(".") + separator;
  return data;
}

DataFile dataFileOf(const StartRequest& request, const ProgramNames& names, const std::string& extension,
                    int codePage, const Files& files) {
  const std::string named = bareCommandLine(request.commandLine);
  if (!extension.empty() && endsWithNoCase(named, "." + extension)) {
    const bool bare = folderOf(named).empty();
    DataFile data = dataFileAt(named, files.separator());
    // A bare name on the command line means the folder that the person stands in.
    if (bare) data.folder = files.currentFolder() + files.separator();
    return data;
  }
  DataFile data;
  const std::string folder = folderOf(names.exeStem);
  data.folder = folder.empty() ? names.appPath : folder;
  const std::string stem = safeFileName(fileNameOf(names.exeStem));
  const std::string name =
      properName(extension.empty() ? stem : stem + "." + extension, data.folder, codePage);
  data.name = existingName(files, data.folder, name, codePage);
  return data;
}

std::string baseNameOf(const DataFile& data, int codePage) {
  return withoutExtension(properName(data.name, data.folder, codePage));
}

std::string pictureFolderOf(const DataFile& data, int codePage, char separator) {
  return data.folder + baseNameOf(data, codePage) + "Pics" + separator;
}

StartUp startUp(const StartRequest& request, Files& files, Messages& messages) {
  StartUp start;
  start.names = programNames(request, files.separator());
  start.cfgPath = start.names.exeBase + ".cfg";
  if (!readApplication(start, request, files, messages)) return start;
  const Application& application = start.application;
  for (const std::string& problem : application.problems)
    messages.show(runMessage(application, 17, "'" + problem + "'"), MessageIcon::warning);
  extractAll(start, request, files);
  start.form = makeRecordForm(application);
  start.users = initialUsers(application);
  if (files.exists(start.cfgPath)) {
    const Result<Bytes> cfg = files.read(start.cfgPath);
    if (!cfg) {
      // Its tables may ask for a password: without them nobody can be let in.
      stop(start, messages, fromUtf8(cfg.error().text, start.application.codePage));
      return start;
    }
    readCfg(*cfg, application, start.form, start.users);
  }
  start.loginRequired = loginRequired(start.users);
  start.data = dataFileOf(request, start.names, application.payload.application.dataExtension,
                          application.codePage, files);
  start.proceed = true;
  return start;
}

std::string pictureFile(const StartUp& start, const PayloadPicture& picture) {
  const std::string name = safeFileName(picture.image.storedName);
  return name.empty() ? std::string() : start.names.appPath + name;
}

}  // namespace plinth
