// The designer's commands on the page and its objects.
#include "basic/CodePage.h"
#include "model/DerivedTexts.h"
#include "surface/CommandTable.h"
#include "surface/DesignerController.h"

namespace plinth {

namespace {

constexpr const char* kPictureFiles = "*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.tif;*.tiff;*.ico";
constexpr int kNoTile = 3;

}  // namespace

void DesignerController::showPage(int page) {
  surface_.run([&] { surface_.setup().showPage(page); });
}

void DesignerController::showNextPage(int step) {
  showPage((surface_.state().currentPage + step + kPages) % kPages);
}

std::string DesignerController::pageName(int page) const {
  const std::string& caption = shell_.document().pageCaptions[static_cast<std::size_t>(page)];
  return caption.empty() ? "Page " + std::to_string(page + 1) : projectText(*this, caption);
}

void DesignerController::place(Tool tool) {
  placement([tool](Placement& p) { p.place(tool); });
}

void DesignerController::selectArea() {
  surface_.run([this] { surface_.area().toggle(); });
}
void DesignerController::selectAll() {
  surface_.run([this] { surface_.area().selectAll(); });
}
void DesignerController::alignArea(Alignment alignment) {
  surface_.run([&] { surface_.area().align(alignment); });
}
void DesignerController::moveToPage(int page) {
  surface_.run([&] { surface_.objects().moveToPage(page); });
}
void DesignerController::editLabel() {
  surface_.run([this] { surface_.editor().editLabel(); });
}
void DesignerController::choosePaper(int index) {
  surface_.run([&] { surface_.setup().choosePaper(index); });
}
void DesignerController::chooseUnit(ScaleUnit unit) {
  surface_.run([&] { surface_.setup().chooseUnit(unit); });
}
void DesignerController::chooseGrid(int choice) {
  surface_.run([&] { surface_.setup().chooseGrid(choice); });
}
void DesignerController::tileBackground(int tileMode) {
  surface_.run([&] { surface_.setup().background("", tileMode); });
}

void DesignerController::namePage() {
  run([this] {
    const int page = surface_.state().currentPage;
    std::string caption = shell_.document().pageCaptions[static_cast<std::size_t>(page)];
    DialogSpec spec = namePageDialog(caption, labels());
    spec.codePage = codePageOfCharSet(shell_.document().charSet);
    if (!parts_.dialogs.run(spec)) return;
    surface_.run([&] { surface_.setup().pageCaption(page, caption); });
  });
}

void DesignerController::customPaper() {
  run([this] {
    std::array<std::string, 2> size = surface_.setup().customTexts();
    if (!runDialog(paperDialog(size, labels()))) return;
    surface_.run([&] { surface_.setup().customPaper(size[0], size[1]); });
  });
}

void DesignerController::choosePageColor() {
  surface_.waitForPageColor();
  window_.showColorTable();
}

std::string DesignerController::choosePicture() {
  const auto chosen = parts_.services.chooser.choose({.save = false,
                                                      .title = "Picture Art...",
                                                      .button = text(394, "&Open"),
                                                      .pattern = kPictureFiles,
                                                      .initialName = "",
                                                      .initialFolder = ""});
  return chosen.value_or("");
}

void DesignerController::chooseBackground() {
  run([this] {
    const std::string path = choosePicture();
    if (path.empty()) return;
    const int mode = shell_.document().tileMode == kNoTile ? 0 : shell_.document().tileMode;
    surface_.run([&] { surface_.setup().background(path, mode); });
  });
}

void DesignerController::beginWords(int id) {
  surface_.run([&] { surface_.menuWords().begin(id); });
  window_.wordsChanged();
}

void DesignerController::changeWords(const std::string& words) {
  surface_.run([&] { surface_.menuWords().change(words); });
  window_.wordsChanged();
}

void DesignerController::endWords() {
  surface_.run([this] { surface_.menuWords().end(); });
  window_.wordsChanged();
}

void DesignerController::commonLabels() {
  run([this] {
    const LanguageTexts before = shell_.texts();
    CommonLabels labels(shell_.texts());
    window_.editCommonLabels(labels);
    for (int number = kFirstLabel; number <= kLastLabel; ++number)
      if (shell_.texts().text(number) != before.text(number))
        applyLabel(number, shell_.texts().text(number), shell_.document());
    surface_.finished("common labels");
    languageChanged();
  });
}

bool DesignerController::helpThere() const { return parts_.services.files.exists(shell_.helpFile()); }

void DesignerController::help() {
  run([this] {
    if (!helpThere() || !parts_.shell.open(shell_.helpFile()))
      parts_.services.messages.show(text(231, "The help file was not found."), MessageIcon::warning);
  });
}

}  // namespace plinth
