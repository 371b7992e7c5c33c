// Commands run one at a time; what the shell tells comes in through DesignerView and goes on to window and
// drawing area.
#include "surface/DesignerController.h"

#include <utility>

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Text.h"
#include "surface/DesignerCommands.h"

namespace plinth {

class DesignerController::Turn {
 public:
  explicit Turn(DesignerController& designer) : designer_(designer), mine_(!designer.busy_) {
    designer_.busy_ = true;
  }
  ~Turn() {
    if (mine_) designer_.busy_ = false;
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  explicit operator bool() const { return mine_; }

 private:
  DesignerController& designer_;
  bool mine_;
};

void DesignerController::run(const std::function<void()>& command) {
  const Turn turn(*this);
  if (!turn) return;
  result_.clear();
  command();
  window_.menusChanged();
  window_.statusChanged();
}

DesignerController::DesignerController(DesignerParts parts, DesignerWindow& window)
    : parts_(std::move(parts)),
      window_(window),
      shell_(parts_.services, *this),
      images_([this](const std::string& path) { return shell_.pictures().get(path); }, parts_.decoder),
      surface_({shell_.document(), images_, parts_.services.messages, parts_.services.clock, parts_.clipboard,
                parts_.locale, remembering(parts_.measure), labels(), [this] { return choosePicture(); }},
               window) {}

bool DesignerController::start(const std::string& commandLine) {
  bool started = false;
  run([&] { started = shell_.start(commandLine); });
  return started;
}

void DesignerController::newProject() {
  run([this] { shell_.newProject(); });
}
void DesignerController::open() {
  run([this] { shell_.open(); });
}
void DesignerController::save() {
  run([this] { shell_.save(); });
}
void DesignerController::saveAs() {
  run([this] { shell_.saveAs(); });
}
void DesignerController::openRecent(int number) {
  run([this, number] { shell_.openRecent(number); });
}
void DesignerController::openPath(const std::string& path) {
  run([this, &path] { shell_.openPath(path); });
}
void DesignerController::exit() {
  run([this] {
    if (shell_.mayExit()) window_.end();
  });
}

bool DesignerController::mayEnd() {
  bool may = !shell_.document().dirty;
  run([&] { may = shell_.mayExit(); });
  return may;
}

void DesignerController::openExample(int index) {
  run([this, index] {
    const std::vector<std::string> examples = shell_.examples();
    if (index >= 0 && index < static_cast<int>(examples.size()))
      shell_.openExample(examples[static_cast<std::size_t>(index)]);
  });
}
void DesignerController::chooseLanguage(int index) {
  run([this, index] {
    if (index < 0 || index >= static_cast<int>(shell_.languages().size())) return;
    shell_.chooseLanguage(shell_.languages()[static_cast<std::size_t>(index)]);
    surface_.finished("language");
  });
}

bool DesignerController::keyDown(const KeyEvent& event) {
  const int command = commandOfKey(event);
  if (command != 0) return runCommand(*this, command);
  return !busy_ && surface_.keyDown(event);
}

void DesignerController::tick(std::int64_t seconds) {
  if (busy_) return;
  surface_.tick();
  if (!surface_.inGesture()) shell_.tick(seconds);
}

std::string DesignerController::text(int label, const char* english) const {
  const std::string& found = shell_.texts().text(label);
  return found.empty() ? english : found;
}

LabelSource DesignerController::labels() const {
  return [this](int label, const char* english) { return text(label, english); };
}

bool DesignerController::runDialog(DialogSpec spec) {
  spec.codePage = languageCodePage();
  return parts_.dialogs.run(spec);
}

int DesignerController::languageCodePage() const { return codePageOfCharSet(shell_.texts().charSet()); }

void DesignerController::fileProperties() {
  run([this] {
    FileProperties properties = shell_.document().fileProp;
    if (!runDialog(filePropertiesDialog(properties, labels()))) return;
    shell_.document().fileProp = properties;
    surface_.finished("file properties");
  });
}

void DesignerController::about() {
  run([this] { runDialog(aboutDialog(parts_.version, labels())); });
}

CreateEnvironment DesignerController::createEnvironment() {
  DesignerServices& s = parts_.services;
  return {s.files,
          s.messages,
          s.progress,
          shell_.pictures(),
          [this](int label) { return shell_.texts().text(label); },
          s.programFolder,
          shell_.languageName().empty() ? "English" : shell_.languageName(),
          parts_.stub,
          parts_.defaultIcon};
}

void DesignerController::createApplication() {
  run([this] {
    CompileApp compiler(createEnvironment());
    if (!compiler.bigEnough(shell_.document())) return;
    Files& files = parts_.services.files;
    const std::string iconFolder = parts_.services.programFolder + "Icons" + files.separator();
    CreateChoices choices{initialApplicationName(shell_.document()), folderOf(shell_.lastPath()), {}, ""};
    if (choices.folder.empty()) choices.folder = files.currentFolder();
    for (const std::string& name : files.list(iconFolder))
      if (equalAsciiNoCase(extensionOf(name), "ico")) choices.icons.push_back(name);
    const auto iconBytes = [&](const std::string& name) {
      return name.empty() ? shell_.document().appIcon
                          : LoadIconFile(files, iconFolder + name, parts_.defaultIcon);
    };
    FileProperties properties = shell_.document().fileProp;
    const auto editProperties = [&] {
      FileProperties edited = properties;
      if (runDialog(filePropertiesDialog(edited, labels()))) properties = edited;
    };
    const auto image = [&](const std::string& name) { return parts_.decoder.decode(iconBytes(name)); };
    if (!runDialog(createDialog(choices, labels(), image, editProperties)) || choices.name.empty()) return;
    shell_.document().fileProp = properties;
    if (!choices.icon.empty()) {
      shell_.document().appIcon = iconBytes(choices.icon);
      shell_.document().appIconPath = iconFolder + choices.icon;
    }
    report(compiler.run(shell_.document(), {choices.name, choices.folder, shell_.document().appIcon, false}));
    surface_.finished("icon and file properties");
  });
}

void DesignerController::tryProject() {
  run([this] {
    CompileApp compiler(createEnvironment());
    if (!compiler.bigEnough(shell_.document())) return;
    ProjectDocument copy = shell_.document();  // trying changes nothing
    Files& files = parts_.services.files;
    const std::string folder = files.temporaryFolder() + "PlinthTest";
    (void)files.makeFolder(folder);  // a failure is told by what needs the folder
    std::string name = applicationName(initialApplicationName(copy));
    if (name.empty()) name = "Test";
    const CreateResult result = compiler.run(copy, {name, folder, copy.appIcon, false});
    report(result);
    if (result.ok() && !parts_.shell.open(result.executable))
      parts_.services.messages.show(
          replaceAll(text(227, "The program * could not be started."), "*", result.executable),
          MessageIcon::warning);
  });
}

// Problems were told as they arose; what was passed over is no reason to stop anybody.
void DesignerController::report(const CreateResult& result) {
  if (!result.ok()) return;
  result_ = text(337, "The application was created.") + " " + result.executable;
  if (!result.notes.empty()) result_ += " (" + result.notes.front() + ")";
  window_.statusChanged();
}

std::vector<std::string> DesignerController::status() const {
  const ProjectDocument& document = shell_.document();
  const int page = surface_.state().currentPage;
  const SizePx size = pageSizePx(document);
  const int system = parts_.systemCodePage;
  std::string project = shell_.lastPath().empty() ? shell_.projectPath() : shell_.lastPath();
  if (project.empty()) project = "New project";
  return {result_.empty() ? toUtf8(project, system) + (document.dirty ? " *" : "") : toUtf8(result_, system),
          toUtf8(surface_.selectionWords(), codePageOfCharSet(document.charSet)),
          std::to_string(size.width) + " x " + std::to_string(size.height) + " px",
          std::to_string(objectsOnPage(document, page)) + " / " + std::to_string(objectsInProject(document)) +
              " objects",
          toUtf8(pointed_, codePageOfCharSet(document.charSet))};
}

void DesignerController::setPointed(const std::string& name) {
  pointed_ = name;
  window_.statusChanged();
}

void DesignerController::projectChanged() {
  images_.clear();
  surface_.projectChanged();
  window_.menusChanged();
  window_.wordsChanged();
  window_.statusChanged();
}

void DesignerController::projectSaved() { surface_.saved(); }

void DesignerController::captionChanged(const std::string& caption) {
  window_.showCaption(toUtf8(caption, parts_.systemCodePage));
}

void DesignerController::recentFilesChanged() { window_.menusChanged(); }

void DesignerController::languageChanged() {
  surface_.textsChanged();
  window_.menusChanged();
  window_.wordsChanged();
}

void DesignerController::setBusy(bool busy) { window_.setBusy(busy); }

std::string DesignerController::chooseLanguage(const std::vector<std::string>& names) {
  if (names.size() == 1) return names.front();  // nothing to choose
  std::string chosen = names.empty() ? "" : names.front();
  return runDialog(languageDialog(chosen, names, labels())) ? chosen : "";
}

}  // namespace plinth
