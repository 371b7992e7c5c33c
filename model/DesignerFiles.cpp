// Opening and saving as a person sees them: questions, messages, caption, recent files. The bytes are
// ProjectFile's.

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Text.h"
#include "model/DesignerShell.h"

namespace plinth {
namespace {

// Shows that the designer is at work, until the end of the scope.
class Busy {
 public:
  Busy(DesignerView& view, Progress& progress, const std::string& title) : view_(view), progress_(progress) {
    view_.setBusy(true);
    progress_.title(title);
  }
  ~Busy() {
    progress_.title("");
    view_.setBusy(false);
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  DesignerView& view_;
  Progress& progress_;
};

}  // namespace

bool DesignerShell::newProject() {
  if (!mayLeaveProject()) return false;
  if (!services_.files.exists(defaultProject()) || !load(defaultProject(), true)) {
    takeDocument(freshDocument(), "");
  }
  lastPath_.clear();
  document_.projectPath.clear();
  return true;
}

bool DesignerShell::open() {
  const auto path = services_.chooser.choose({.save = false,
                                              .title = replaceAll(texts_.text(153), "&", ""),
                                              .button = texts_.text(341),
                                              .pattern = "*.qvf;*.mrf",
                                              .initialName = "",
                                              .initialFolder = folderOf(lastPath_)});
  return path && openPath(*path);
}

bool DesignerShell::openPath(const std::string& path) {
  if (!services_.files.exists(path)) {
    services_.messages.show(texts_.text(181, path), MessageIcon::warning);
    return false;
  }
  if (!mayLeaveProject() || !load(path, false)) return false;
  lastPath_ = isDefaultProject(path) ? "" : path;
  rememberFile(path);
  return true;
}

bool DesignerShell::openRecent(int number) {
  if (number < 1 || number > kRecentFiles) return false;
  const std::string path = recent_.paths[number - 1];
  return !path.empty() && services_.files.exists(path) && openPath(path);
}

bool DesignerShell::openExample(const std::string& path) {
  if (!services_.files.exists(path) || !mayLeaveProject() || !load(path, false)) return false;
  lastPath_.clear();  // Save must not write over an example
  return true;
}

bool DesignerShell::load(const std::string& path, bool keepLook, const std::string& asPath) {
  const Result<Bytes> bytes = services_.files.read(path);
  if (!bytes.ok()) {
    services_.messages.show(texts_.text(327, path) + "\n" + fromUtf8(bytes.error().text, services_.codePage),
                            MessageIcon::error);
    return false;
  }
  LoadResult result;
  {
    const Busy busy(view_, services_.progress, texts_.text(333));
    result = readProject(*bytes, *pictures_,
                         {.keepLook = keepLook,
                          .fontName = document_.options.fonttext,
                          .charSet = document_.charSet,
                          .checkPaths = true,
                          .defaultImage = defaultImage_,
                          .labels = &texts_});
  }
  if (!result.accepted) {
    services_.messages.show(texts_.text(329), MessageIcon::error);
    return false;
  }
  if (keepLook) result.document.languageCode = document_.languageCode;
  takeDocument(std::move(result.document), asPath);
  for (const LoadMessage& message : result.messages)
    services_.messages.show(message.text(texts_), MessageIcon::warning);
  if (!result.complete) services_.messages.show(texts_.text(331), MessageIcon::warning);
  return true;
}

void DesignerShell::takeDocument(ProjectDocument document, const std::string& path) {
  document_ = std::move(document);
  if (document_.appIcon.empty()) document_.appIcon = defaultIcon_;  // older files have none
  document_.projectPath = path;
  // Nobody was asked about what a save could not write.
  if (saveBrokeOff_)
    safety_->leave();
  else
    safety_->discard();
  document_.dirty = saveBrokeOff_ = false;
  setCaption("Rvn Plinth : " + (path.empty() ? defaultProject() : path) + " : ");
  view_.projectChanged();
}

void DesignerShell::rememberFile(const std::string& path) {
  if (isDefaultProject(path) || !services_.files.exists(path) || !recent_.add(path)) return;
  writeIni();
  view_.recentFilesChanged();
}

bool DesignerShell::save() { return lastPath_.empty() ? saveAs() : saveTo(lastPath_); }

bool DesignerShell::saveAs() {
  const std::string& known = lastPath_.empty() ? document_.projectPath : lastPath_;
  const auto chosen = services_.chooser.choose({.save = true,
                                                .title = texts_.text(283),
                                                .button = texts_.text(284),
                                                .pattern = "*.qvf",
                                                .initialName = fileNameOf(known),
                                                .initialFolder = folderOf(known)});
  if (!chosen || fileNameOf(*chosen).empty()) return false;
  const std::string path = withoutExtension(*chosen) + ".qvf";
  if (services_.files.exists(path) && !services_.messages.ask(texts_.text(326, path), MessageIcon::warning))
    return false;
  return saveTo(path);
}

bool DesignerShell::saveTo(const std::string& path) {
  SaveResult saved;
  Result<void> written;
  {
    const Busy busy(view_, services_.progress, texts_.text(334));
    // An existing file is overwritten in place: what stood behind the new end stays.
    const Result<Bytes> old =
        services_.files.exists(path) ? services_.files.read(path) : Result<Bytes>(Bytes());
    saved = writeProject(document_, *pictures_, {path, today()}, old.ok() ? *old : Bytes());
    written = services_.files.write(path, saved.bytes);
  }
  if (!written.ok()) {
    // A file that could not even be opened leaves the project as changed as it was. A write that broke off
    // leaves it marked as saved, since the mark goes with the file's header.
    const ErrorKind kind = written.error().kind;
    if (kind == ErrorKind::full || kind == ErrorKind::failed) {
      document_.dirty = false;
      saveBrokeOff_ = true;  // nobody will ask at the end, so the copy stays
      (void)safety_->write(document_, *pictures_, lastPath_);
    }
    services_.messages.show(
        texts_.text(328, path) + "\n" + fromUtf8(written.error().text, services_.codePage),
        MessageIcon::error);
    return false;
  }
  for (const std::string& picture : saved.unreadablePictures)
    services_.messages.show("Correct Picture File " + picture, MessageIcon::warning);
  if (saved.cutBytes > 0) services_.messages.show(texts_.text(339), MessageIcon::warning);
  document_.dirty = saveBrokeOff_ = false;
  document_.projectPath = lastPath_ = path;
  safety_->discard();
  setCaption(projectCaption(path));
  rememberFile(path);
  view_.projectSaved();
  return true;
}

// A new project takes the place of the open one: changes that were not saved would be gone.
bool DesignerShell::mayLeaveProject() {
  if (!document_.dirty) return true;
  if (!services_.messages.ask(texts_.text(165), MessageIcon::question)) return true;
  return save();
}

bool DesignerShell::mayExit() {
  if (!mayLeaveProject()) return false;
  if (safety_ && !saveBrokeOff_) safety_->discard();
  return true;
}

void DesignerShell::tick(std::int64_t seconds) {
  if (safety_ && !safety_->tick(document_, *pictures_, lastPath_, seconds))
    services_.messages.show("The safety copy of the project could not be written.", MessageIcon::warning);
}

// Copies are offered one after the other until one is opened; what is left then waits for the next start.
void DesignerShell::offerSafetyCopy() {
  while (const std::optional<SafetyCopy::Found> found = safety_->find()) {
    const std::string name = found->originalPath.empty() ? "a new project" : found->originalPath;
    if (services_.messages.ask(
            "Plinth was not closed properly. Open the safety copy of " + name + "? If not, it is removed.",
            MessageIcon::question)) {
      if (!load(found->copyPath, false, found->originalPath)) return;
      safety_->take(*found);
      lastPath_ = found->originalPath;
      document_.dirty = true;
      return;
    }
    if (!safety_->remove(*found)) return;
  }
}

bool DesignerShell::isDefaultProject(const std::string& path) const {
  return equalAsciiNoCase(path, defaultProject());
}

void DesignerShell::setCaption(std::string caption) {
  caption_ = std::move(caption);
  view_.captionChanged(caption_);
}

}  // namespace plinth
