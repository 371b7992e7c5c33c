// show, check, convert, new and create: everything that works on a project file.
#include <optional>

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Json.h"
#include "basic/Text.h"
#include "builder/CreateApplication.h"
#include "model/DerivedTexts.h"
#include "model/ProjectDescription.h"
#include "model/ProjectFile.h"
#include "programs/plinth/ContactsExample.h"
#include "programs/plinth/ProjectCheck.h"
#include "programs/plinth/Tool.h"
#include "programs/plinth/ToolMessages.h"
#include "programs/plinth/ToolPictures.h"

namespace plinth {
namespace {

int fail(ToolMachine& machine, const std::string& text) {
  machine.err << "plinth: " << text << "\n";
  return kFailed;
}

LanguageTexts englishTexts(const ToolMachine& machine) {
  LanguageTexts texts;
  texts.load({reinterpret_cast<const char*>(machine.englishTexts.data()), machine.englishTexts.size()});
  return texts;
}

// A project and the images that came out of its file.
struct OpenProject {
  MemoryPictures pictures;
  LoadResult load;
  int codePage = 1252;
};

// Reads options.file; nullopt after a message.
std::optional<OpenProject> openProject(const ToolOptions& options, ToolMachine& machine,
                                       const LanguageTexts& texts) {
  const std::string path = machine.systemPath(options.file);
  const Result<Bytes> bytes = machine.files.read(path);
  if (!bytes) {
    fail(machine, options.file + ": " + bytes.error().text);
    return std::nullopt;
  }
  std::optional<OpenProject> project(std::in_place);
  ReadOptions read;
  read.checkPaths = false;  // paths are those of the designer's machine
  read.labels = &texts;
  project->load = readProject(*bytes, project->pictures, read);
  if (!project->load.accepted) {
    fail(machine, options.file + " is not a project file");
    return std::nullopt;
  }
  project->load.document.projectPath = path;
  project->codePage = codePageOfCharSet(project->load.document.charSet);
  return project;
}

void tellSkipped(const OpenProject& project, ToolMachine& machine) {
  if (!project.load.complete) {
    machine.err << "plinth: the file is damaged: " << project.load.skipped << " elements could not be read\n";
  }
}

int show(const ToolOptions& options, ToolMachine& machine) {
  const std::optional<OpenProject> project = openProject(options, machine, englishTexts(machine));
  if (!project) return kFailed;
  tellSkipped(*project, machine);
  const ProjectDocument& document = project->load.document;
  const std::string text = options.json ? describeProject(document, project->pictures, project->load.facts)
                                        : showProject(document);
  machine.out << text;
  if (text.empty() || text.back() != '\n') machine.out << "\n";
  return kDone;
}

int check(const ToolOptions& options, ToolMachine& machine) {
  const std::optional<OpenProject> project = openProject(options, machine, englishTexts(machine));
  if (!project) return kFailed;
  std::vector<std::string> findings;
  if (!project->load.complete) {
    findings.push_back("damaged: " + std::to_string(project->load.skipped) + " elements could not be read");
  }
  std::vector<std::string> found = checkProject(project->load.document);
  const std::vector<std::string> missing = missingPictures(project->load.document, project->pictures);
  found.insert(found.end(), missing.begin(), missing.end());
  for (const std::string& finding : found) findings.push_back(toUtf8(finding, project->codePage));
  if (options.json) {
    JsonWriter json;
    json.beginObject().key("version").whole(project->load.document.formatVersion);
    json.key("skipped").whole(project->load.skipped).key("findings").beginArray();
    for (const std::string& finding : findings) json.text(finding);
    machine.out << json.endArray().endObject().str() << "\n";
  } else {
    for (const std::string& finding : findings) machine.out << oneLine(finding) << "\n";
    if (findings.empty()) machine.out << "nothing found\n";
  }
  return project->load.complete ? kDone : kFailed;  // what a person left unfinished is no failure
}

// Writes a document under a path as the person named it, so that equal documents give equal bytes. The file
// holds that path in its own code page.
int save(ProjectDocument& document, const PictureStore& pictures, const std::string& name,
         ToolMachine& machine) {
  WriteOptions write;
  write.path = fromUtf8(name, codePageOfCharSet(document.charSet));
  write.saveDate = static_cast<std::int32_t>(machine.clock.now());
  const SaveResult saved = writeProject(document, pictures, write);
  for (const std::string& picture : saved.unreadablePictures) {
    machine.err << "plinth: Correct Picture File " << machine.pathUtf8(picture) << "\n";
  }
  const Result<void> written = machine.files.write(machine.systemPath(name), saved.bytes);
  return written ? kDone : fail(machine, name + ": " + written.error().text);
}

int convert(const ToolOptions& options, ToolMachine& machine) {
  std::optional<OpenProject> project = openProject(options, machine, englishTexts(machine));
  if (!project) return kFailed;
  tellSkipped(*project, machine);
  for (const std::string& missing : missingPictures(project->load.document, project->pictures)) {
    machine.err << "plinth: " << oneLine(toUtf8(missing, project->codePage)) << "; it is left out\n";
  }
  return save(project->load.document, project->pictures, options.outFile, machine);
}

int makeNew(const ToolOptions& options, ToolMachine& machine) {
  if (machine.files.exists(machine.systemPath(options.file))) {
    return fail(machine, options.file + " exists already");
  }
  ProjectDocument document = emptyDocument(englishTexts(machine), machine.clock.now());
  document.appIcon.assign(machine.defaultIcon.begin(), machine.defaultIcon.end());
  if (options.example == "contacts") layOutContacts(document);
  MemoryPictures pictures;
  return save(document, pictures, options.file, machine);
}

// Reads the icon that --icon names; false after a message.
bool readIcon(const ToolOptions& options, ToolMachine& machine, Bytes& icon) {
  if (options.icon.empty()) return true;
  Result<Bytes> bytes = machine.files.read(machine.systemPath(options.icon));
  if (!bytes) {
    fail(machine, options.icon + ": " + bytes.error().text);
    return false;
  }
  icon = std::move(*bytes);
  return true;
}

int create(const ToolOptions& options, ToolMachine& machine) {
  if (machine.stub.empty()) return fail(machine, "this tool was built without the run-time engine");
  const LanguageTexts texts = englishTexts(machine);
  std::optional<OpenProject> project = openProject(options, machine, texts);
  if (!project) return kFailed;
  tellSkipped(*project, machine);
  ProjectDocument& document = project->load.document;
  CreateRequest request;
  if (!readIcon(options, machine, request.iconBytes)) return kFailed;
  const std::string fallback = withoutExtension(fileNameOf(options.file));
  request.name =
      options.name.empty() ? initialApplicationName(document) : fromUtf8(options.name, project->codePage);
  if (request.name.empty()) request.name = fromUtf8(fallback, project->codePage);
  request.folder = machine.systemPath(options.output);
  if (!request.folder.empty()) {
    const Result<void> made = machine.files.makeFolder(request.folder);
    if (!made) return fail(machine, options.output + ": " + made.error().text);
  }
  ToolMessages messages(machine.err, project->codePage, true);
  ToolProgress progress(machine.err, machine.progressBar);
  const auto systemName = [&](const std::string& name) {
    return machine.systemPath(toUtf8(name, project->codePage));
  };
  ToolPictures pictures(project->pictures, machine.files, systemName);
  CompileApp compile({machine.files, messages, progress, pictures,
                      [&texts](int number) { return texts.text(number); }, machine.programFolder, "English",
                      machine.stub, machine.defaultIcon, nullptr, systemName});
  if (!compile.bigEnough(document)) return kFailed;
  const CreateResult result = compile.run(document, request);
  for (const std::string& note : result.notes)
    machine.err << "plinth: " << oneLine(toUtf8(note, project->codePage)) << "\n";
  if (!result.ok()) {
    return messages.shown() > 0 ? kFailed : fail(machine, "no application was created");
  }
  machine.out << machine.pathUtf8(result.executable) << "\n";
  return kDone;
}

}  // namespace

int runProjectCommand(const ToolOptions& options, ToolMachine& machine) {
  switch (options.command) {
    case Command::show:
      return show(options, machine);
    case Command::check:
      return check(options, machine);
    case Command::convert:
      return convert(options, machine);
    case Command::newProject:
      return makeNew(options, machine);
    case Command::create:
      return create(options, machine);
    default:
      return kWrongUsage;
  }
}

}  // namespace plinth
