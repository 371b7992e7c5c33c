// The page's size stands in the project twice, as an entry of the menu and in twips; what frames the page
// follows it.
#include "surface/PageSetup.h"

#include <algorithm>
#include <utility>

#include "model/PaperSize.h"
#include "surface/Units.h"
#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

constexpr int kPortrait = 19, kLandscape = 20, kCustom = 22;
constexpr int kNoTiles = 3;
constexpr float kLeastForm = 2000;  // twips, the smallest window of an application
constexpr int kFirstMovingTitle = 2;

// Page 0 alone keeps in the project what is hidden there. The status line and the help bar have a switch of
// their own. True when something was.
bool revealFirstPage(ProjectDocument& document) {
  bool changed = false;
  forEachTable(document, [&](ObjectKind kind, auto& rows) {
    const std::size_t first = kind == ObjectKind::Title ? kFirstMovingTitle : 0;
    for (std::size_t i = first; i < rows.size(); ++i) {
      if constexpr (requires { rows[i].visible; })
        if (rows[i].page == 0 && !std::exchange(rows[i].visible, true)) changed = true;
    }
  });
  return changed;
}

}  // namespace

// "\xC2\xBD" is one half.
const std::vector<PaperEntry>& paperEntries() {
  static const std::vector<PaperEntry> entries{
      {0, "Letter, 8\xC2\xBD x 11 in."},
      {1, "Tabloid, 11 x 17 in."},
      {2, "Ledger, 17 x 11 in."},
      {3, "Legal, 8\xC2\xBD x 14 in."},
      {4, "Statement, 5\xC2\xBD x 8\xC2\xBD in. "},
      {5, "Executive, 7\xC2\xBD x 10\xC2\xBD in."},
      {6, "Note, 8\xC2\xBD x 11 in."},
      {7, "Folio, 8\xC2\xBD x 13 in."},
      {8, "U.S. Standard Fanfold, 14 7/8 x 11 in."},
      {9, "German Standard Fanfold, 8\xC2\xBD x 12 in."},
      {10, "German Legal Fanfold, 8\xC2\xBD x 13 in. "},
      {11, "A3, 297 x 420 mm"},
      {12, "A4, 297 x 210 mm"},
      {13, "A5, 148 x 210 mm"},
      {14, "A6, 105 x 148 mm"},
      {15, "B4, 250 x 354 mm"},
      {16, "B5, 182 x 257 mm"},
      {17, "Quarto, 215 x 275 mm"},
      {kPortrait, "Portrait..."},
      {kLandscape, "Landscape..."},
      {kCustom, "Custom..."},
  };
  return entries;
}

void PageSetup::showPage(int page) {
  if (page < 0 || page >= kPages) return;
  DesignState& state = c_.state;
  // A drag that the keyboard interrupts here has no release of its own.
  if (const auto objects = selectedObjects(state, c_.document); !objects.empty())
    finish(c_, "move of " + shortName(objects));
  const bool labelEdited = state.editedTitle >= 0, hid = !state.hidden.empty();
  selectNothing(state);
  revealHidden(c_);
  const bool revealed = page == 0 && revealFirstPage(c_.document);
  // What hid them is no step, so that coming back is none either.
  if (hid || revealed) c_.history.adopt(c_.document);
  c_.history.seal();
  state.currentPage = page;
  state.pointer = PointerShape::standard;
  if (labelEdited) c_.view.labelEditing();
  c_.view.pageChanged();
  c_.view.objectsChanged();
  c_.view.selectionChanged();
  c_.view.overlayChanged();
  c_.view.pointerChanged();
}

void PageSetup::choosePaper(int index) {
  ProjectDocument& d = c_.document;
  const bool turns = index == kPortrait || index == kLandscape;
  if (!turns && !paperSize(index, false)) return;
  const bool landscape = turns ? index == kLandscape : d.pageSize20;
  if (!turns) d.pageSizeCode = static_cast<std::int16_t>(index);
  SizePx size = pageSizePx(d);
  if (const auto paper = paperSize(d.pageSizeCode, landscape))
    size = {pageSidePx(paper->width), pageSidePx(paper->height)};
  else if (landscape != d.pageSize20)
    std::swap(size.width, size.height);
  d.pageSize20 = landscape;
  setPageSize(size);
}

bool PageSetup::paperChecked(int index) const {
  const ProjectDocument& d = c_.document;
  if (index == kPortrait || index == kLandscape) return d.pageSize20 == (index == kLandscape);
  if (index == kCustom) return !paperSize(d.pageSizeCode, false);
  return index == d.pageSizeCode && paperSize(index, false);
}

void PageSetup::customPaper(const std::string& width, const std::string& height) {
  ProjectDocument& d = c_.document;
  // Left as they came, in landscape they would turn the page.
  if (d.pageSizeCode == kCustom && std::array{width, height} == customTexts()) return;
  SizePx size{pixelsOfReadout(width, c_.state.scaleUnit), pixelsOfReadout(height, c_.state.scaleUnit)};
  if (d.pageSize20) std::swap(size.width, size.height);
  d.pageSizeCode = kCustom;
  setPageSize(size);
}

std::array<std::string, 2> PageSetup::customTexts() const {
  const SizePx size = pageSizePx(c_.document);
  return {readout(size.width, c_.state.scaleUnit), readout(size.height, c_.state.scaleUnit)};
}

// Guide, scroll bar and the window of the finished application lie around the page.
void PageSetup::setPageSize(SizePx size) {
  ProjectDocument& d = c_.document;
  const float width = pixelsToTwips(pageSidePx(pixelsToTwips(size.width)));
  const float height = pixelsToTwips(pageSidePx(pixelsToTwips(size.height)));
  d.formWidth = std::max(kLeastForm, d.formWidth + width - d.pageWidth);
  d.formHeight = std::max(kLeastForm, d.formHeight + height - d.pageHeight);
  d.pageWidth = d.guideWidth = d.scrollLeft = width;
  d.pageHeight = d.scrollHeight = height;
  if (finish(c_, "paper size")) c_.view.pageChanged();
}

void PageSetup::chooseUnit(ScaleUnit unit) {
  plinth::chooseUnit(c_.state, unit);
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
}

void PageSetup::chooseGrid(int choice) {
  if (std::ranges::find(kGridChoices, choice) == kGridChoices.end()) return;
  plinth::chooseGrid(c_.state, choice);
  c_.view.overlayChanged();
}

void PageSetup::pageColor(std::int32_t color) {
  c_.document.pageColor[static_cast<std::size_t>(c_.state.currentPage)] = color;
  if (finish(c_, "page colour")) c_.view.pageChanged();
}

void PageSetup::background(const std::string& path, int tileMode) {
  if (tileMode < 0 || tileMode > kNoTiles) return;
  if (!path.empty()) c_.document.tileImage = path;
  c_.document.tileMode = static_cast<std::int16_t>(tileMode);
  if (finish(c_, "background")) c_.view.pageChanged();
}

void PageSetup::pageCaption(int page, const std::string& caption) {
  if (page < 0 || page >= kPages) return;
  c_.document.pageCaptions[static_cast<std::size_t>(page)] = caption;
  const std::string words = "name of page " + std::to_string(page + 1);
  if (finish(c_, words, words)) c_.view.pageChanged();
}

}  // namespace plinth
