// Start of the designer and the choice of its language: what must be there before the first project.
// Opening and saving stand in DesignerFiles.cpp.
#include "model/DesignerShell.h"

#include <algorithm>

#include "basic/FileName.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "model/DerivedTexts.h"
#include "model/ProjectRepairs.h"

namespace plinth {
namespace {

constexpr const char* kSection = "Settings";

// The template window has its places from of old; the others stand side by side, so that none hides another.
constexpr WindowPosition kWindowPositions[] = {
    {"Form1Left", 600},         {"Form1Top", 600},       {"Form4Left", 1800},  {"Form4Top", 1800},
    {"Form5Left", 2100},        {"Form5Top", 2100},      {"Form6Left", 2400},  {"Form6Top", 2400},
    {"Form7Left", 2700},        {"Form7Top", 2700},      {"Form9Left", 3000},  {"Form9Top", 3000},
    {"Form11Left", 3300},       {"Form11Top", 3300},     {"ConfigLeft", 3600}, {"ConfigTop", 3600},
    {"CheckboxerLeft", 3900},   {"CheckboxerTop", 3900}, {"ButtonFrm", 4200},  {"XTempWindow", 240, true},
    {"YTempWindow", 2300, true}};

const WindowPosition* positionOf(std::string_view key) {
  const auto found = std::ranges::find(kWindowPositions, key, &WindowPosition::key);
  return found == std::ranges::end(kWindowPositions) ? nullptr : found;
}

std::vector<std::string> namesWith(const Files& files, const std::string& folder,
                                   const std::string& extension) {
  std::vector<std::string> names = files.list(folder);
  std::erase_if(names,
                [&](const std::string& name) { return !equalAsciiNoCase(extensionOf(name), extension); });
  return names;
}

// Left behind by runs that ended early. A file that stays is written over when its name comes again.
void emptyPictureFolders(Files& files, const std::string& folder) {
  std::vector<std::string> folders{folder};
  for (const std::string& name : files.listFolders(folder))
    folders.push_back(folder + files.separator() + name);
  for (const std::string& each : folders)
    for (const std::string& name : files.list(each)) (void)files.removeFile(each + files.separator() + name);
}

// A further designer gets a folder of its own: projects of two designers may hold other pictures under one
// name. A file says that a folder is taken, since it may hold no picture yet.
std::string ownPictureFolder(Files& files, const std::string& shared) {
  constexpr int kSecond = 2, kLast = 99;
  for (int number = kSecond; number <= kLast; ++number) {
    const std::string folder = shared + std::to_string(number);
    if (!files.list(folder).empty()) continue;
    if (!files.makeFolder(folder).ok()) break;
    const std::string own = folder + files.separator();
    if (files.write(own + "taken", {}).ok()) return own;
  }
  return shared;
}

}  // namespace

std::span<const WindowPosition> windowPositions() { return kWindowPositions; }

std::string withoutQuotes(const std::string& commandLine) {
  std::string path = trim(commandLine);
  if (path.size() >= 2 && path.front() == '"' && path.back() == '"') path = path.substr(1, path.size() - 2);
  return path;
}

DesignerShell::DesignerShell(DesignerServices services, DesignerView& view)
    : services_(std::move(services)), view_(view) {}

bool DesignerShell::start(const std::string& commandLine) {
  loadIcon();
  if (!makePictureFolder()) return false;
  if (services_.files.exists(beside("main.jpg"))) defaultImage_ = beside("main.jpg");
  readIni();
  listLanguages();
  makeDefaultProject();
  const std::string path = withoutQuotes(commandLine);
  if (path.empty() || !openPath(path)) newProject();
  if (services_.firstInstance) offerSafetyCopy();
  return true;
}

void DesignerShell::loadIcon() {
  const Result<Bytes> icon = services_.files.read(inFolder("Icons", "Default.ico"));
  if (icon.ok())
    defaultIcon_ = *icon;
  else if (services_.builtInIcon)
    defaultIcon_ = services_.builtInIcon();
}

bool DesignerShell::makePictureFolder() {
  Files& files = services_.files;
  const std::string folder = files.temporaryFolder() + "PicTemp";
  picTempDir_ = folder + files.separator();
  if (!files.isFolder(folder) && !files.makeFolder(folder).ok()) {
    services_.messages.show("Could not find '" + picTempDir_ + "' Directory", MessageIcon::error);
    return false;
  }
  if (services_.firstInstance)
    emptyPictureFolders(files, folder);
  else
    picTempDir_ = ownPictureFolder(files, picTempDir_);
  pictures_ = std::make_unique<DiskPictures>(files, picTempDir_);
  const std::string copies = files.temporaryFolder() + "PlinthSafety" + files.separator();
  safety_ = std::make_unique<SafetyCopy>(files, copies);
  return true;
}

void DesignerShell::readIni() {
  const Result<Bytes> bytes = services_.files.read(beside("Plinth.ini"));
  if (bytes.ok())
    recent_ = readRecentFiles(*bytes);
  else
    writeIni();
  view_.recentFilesChanged();
}

void DesignerShell::writeIni() {
  // Recent files are a comfort: a program folder that cannot be written must not stop the work.
  (void)services_.files.write(beside("Plinth.ini"), writeRecentFiles(recent_));
}

void DesignerShell::listLanguages() {
  for (const std::string& name : namesWith(services_.files, beside("Languages"), "txt"))
    languages_.push_back(withoutExtension(name));
  if (recent_.language.empty() && !languages_.empty()) {
    std::string chosen = view_.chooseLanguage(languages_);
    if (chosen.empty()) {
      const bool english = std::find(languages_.begin(), languages_.end(), "English") != languages_.end();
      chosen = english ? "English" : languages_.front();
    }
    recent_.language = chosen;
    writeIni();
  }
  loadLanguage(recent_.language, false);
}

bool DesignerShell::loadLanguage(const std::string& name, bool fromMenu) {
  const Result<Bytes> bytes = services_.files.read(inFolder("Languages", name + ".txt"));
  if (!bytes.ok()) return false;
  texts_.load(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
  document_.languageCode = languageCodeOf(name, document_.languageCode, fromMenu);
  document_.charSet = texts_.charSet();
  if (!texts_.fontName().empty()) document_.options.fonttext = texts_.fontName();
  view_.languageChanged();
  return true;
}

bool DesignerShell::chooseLanguage(const std::string& name) {
  if (!loadLanguage(name, true)) {
    services_.messages.show(texts_.text(181, inFolder("Languages", name + ".txt")), MessageIcon::warning);
    return false;
  }
  recent_.language = name;
  writeIni();
  spreadDefaultFont(document_);
  applyLabels(texts_, document_);
  changed();
  return true;
}

void DesignerShell::makeDefaultProject() {
  if (services_.files.exists(defaultProject())) return;
  ProjectDocument empty = freshDocument();
  const WriteOptions options{defaultProject(), today()};
  (void)services_.files.write(defaultProject(), writeProject(empty, *pictures_, options).bytes);
}

// The empty project, as far as possible also when its file cannot be written or read.
ProjectDocument DesignerShell::freshDocument() const {
  ProjectDocument empty = emptyDocument(texts_, services_.clock.now());
  empty.languageCode = document_.languageCode;
  empty.appIcon = defaultIcon_;
  empty.appIconPath = inFolder("Icons", "Default.ico");
  empty.defaultImagePath = defaultImage_;
  return empty;
}

std::int32_t DesignerShell::today() const { return static_cast<std::int32_t>(services_.clock.now()); }

std::string DesignerShell::inFolder(const std::string& folder, const std::string& name) const {
  return beside(folder) + services_.files.separator() + name;
}

std::string DesignerShell::helpFile() const {
  const std::string own = inFolder("Languages", languageName() + ".chm");
  return services_.files.exists(own) ? own : inFolder("Languages", "English.chm");
}

std::vector<std::string> DesignerShell::examples() const {
  std::vector<std::string> paths;
  for (const std::string& name : namesWith(services_.files, beside("Examples"), "qvf"))
    paths.push_back(inFolder("Examples", name));
  return paths;
}

std::vector<std::string> DesignerShell::testTemplates() const {
  std::vector<std::string> captions;
  for (const DocumentTemplate& document : document_.documents) {
    const bool complete = !document.plateExt.empty() && !document.templatePath.empty();
    captions.push_back(complete ? texts_.text(137) + document.plateExt + texts_.text(106) : "");
  }
  return captions;
}

Settings& DesignerShell::settingsOf(const std::string& key) const {
  const WindowPosition* known = positionOf(key);
  const bool apart = known && known->ofTemplateList && services_.templateSettings;
  return apart ? *services_.templateSettings : services_.settings;
}

int DesignerShell::position(const std::string& key) const {
  const WindowPosition* known = positionOf(key);
  return position(key, known ? known->fallback : 0);
}

int DesignerShell::position(const std::string& key, int fallback) const {
  const std::string text = settingsOf(key).get(kSection, key, std::to_string(fallback));
  return static_cast<int>(std::clamp(val(text), -32768.0, 32767.0));
}

void DesignerShell::keepPosition(const std::string& key, int value) {
  settingsOf(key).set(kSection, key, std::to_string(value));
}

}  // namespace plinth
