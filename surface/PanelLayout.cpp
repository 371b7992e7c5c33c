// One table says what stands beside what; one pass places it.
#include "surface/PanelLayout.h"

#include <algorithm>
#include <span>

namespace plinth {

namespace {

constexpr int kHeading = 20, kGroupGap = 16, kCheckGap = 4, kIcon = 24, kToggle = 28, kToggleGap = 2;
constexpr int kPad = 78, kNumber = 24, kSwatchCaption = 16, kMostCaption = 45;  // percent of the row

enum class CellKind {
  box,     // its caption at the left, takes what is left of the row
  fixed,   // a box of its own width, at the right end
  toggle,  // a small square button; those of a row stand together
  swatch,  // a third of the row, its caption below
  check    // a row of its own, as high as its text
};

struct Cell {
  PanelId id;
  CellKind kind;
  int width = 0;  // of fixed ones; of toggles: more room before it
};

constexpr CellKind kBox = CellKind::box, kToggleCell = CellKind::toggle;
constexpr Cell kSelItem[] = {{PanelId::selItem, kBox}};
constexpr Cell kName[] = {{PanelId::fieldLabel, kBox}};
constexpr Cell kLeft[] = {{PanelId::left, kBox}};
constexpr Cell kTop[] = {{PanelId::top, kBox}};
constexpr Cell kWidth[] = {{PanelId::width, kBox}};
constexpr Cell kHeight[] = {{PanelId::height, kBox}};
constexpr Cell kColors[] = {{PanelId::color1, CellKind::swatch},
                            {PanelId::color2, CellKind::swatch},
                            {PanelId::color3, CellKind::swatch}};
constexpr Cell kFont[] = {{PanelId::fontName, kBox}, {PanelId::fontSize, CellKind::fixed, 58}};
constexpr Cell kStyle[] = {{PanelId::bold, kToggleCell},        {PanelId::italic, kToggleCell},
                           {PanelId::underline, kToggleCell},   {PanelId::alignLeft, kToggleCell, 12},
                           {PanelId::alignCenter, kToggleCell}, {PanelId::alignRight, kToggleCell}};
constexpr Cell kBorder[] = {{PanelId::borderStyle, kBox}};
constexpr Cell kLength[] = {{PanelId::fieldLength, kBox}, {PanelId::tabOrder, kBox}};
constexpr Cell kPrint[] = {{PanelId::printOn, CellKind::check}};
constexpr Cell kAllPages[] = {{PanelId::allPages, CellKind::check}};
constexpr Cell kSearch[] = {{PanelId::noSearch, CellKind::check}};
constexpr Cell kLock[] = {{PanelId::lockEnabled, CellKind::check}};
constexpr Cell kChart[] = {{PanelId::noChart, CellKind::check}};

struct Row {
  PanelGroup group;
  std::span<const Cell> cells;
};

constexpr Row kRows[] = {
    {PanelGroup::selected, kSelItem}, {PanelGroup::selected, kName},  {PanelGroup::place, kLeft},
    {PanelGroup::place, kTop},        {PanelGroup::place, kWidth},    {PanelGroup::place, kHeight},
    {PanelGroup::colors, kColors},    {PanelGroup::text, kFont},      {PanelGroup::text, kStyle},
    {PanelGroup::box, kBorder},       {PanelGroup::box, kLength},     {PanelGroup::options, kPrint},
    {PanelGroup::options, kAllPages}, {PanelGroup::options, kSearch}, {PanelGroup::options, kLock},
    {PanelGroup::options, kChart}};

class Placer {
 public:
  Placer(const std::vector<PanelControl>& controls, int width, const PanelMeasure& measure)
      : controls_(controls), width_(width), measure_(measure) {}

  PanelLayout run() {
    y_ = kPanelMargin;
    for (int group = 0; group < kPanelGroups; ++group) placeGroup(static_cast<PanelGroup>(group));
    layout_.height = y_ - kGroupGap + kPanelMargin;
    return std::move(layout_);
  }

 private:
  const PanelControl& controlAt(PanelId id) const { return controls_[static_cast<std::size_t>(id)]; }
  bool shown(PanelId id) const { return controlAt(id).shown; }
  RectPx& controlOf(PanelId id) { return layout_.control[static_cast<std::size_t>(id)]; }
  RectPx& captionOf(PanelId id) { return layout_.caption[static_cast<std::size_t>(id)]; }

  std::vector<Cell> shownCells(const Row& row) const {
    std::vector<Cell> cells;
    for (const Cell& cell : row.cells)
      if (shown(cell.id)) cells.push_back(cell);
    return cells;
  }

  void placeGroup(PanelGroup group) {
    const int from = y_;
    y_ += kHeading + kPanelGap / 2;
    const int first = y_;
    // A column of captions is as wide as its widest.
    captions_ = 0;
    for (const Row& row : kRows)
      if (row.group == group)
        for (const Cell& cell : shownCells(row)) captions_ = std::max(captions_, captionWidth(cell));
    right_ = width_ - kPanelMargin - (group == PanelGroup::place ? kPad + kPanelGap : 0);
    if (group == PanelGroup::selected) placeIcon();
    for (const Row& row : kRows)
      if (row.group == group) placeRow(shownCells(row));
    if (y_ == first) {
      y_ = from;
      return;
    }
    if (group == PanelGroup::place) {
      layout_.pad = {right_ + kPanelGap, first, kPad, kPad};
      y_ = std::max(y_, first + kPad + kPanelGap);
    }
    layout_.headings.push_back({group, {kPanelMargin, from, width_ - 2 * kPanelMargin, kHeading}});
    y_ += kGroupGap - kPanelGap;
  }

  int captionWidth(const Cell& cell) const {
    if (cell.kind != CellKind::box || panelCaption(controlAt(cell.id)).english[0] == '\0') return 0;
    return std::min(measure_.captionWidth(cell.id), width_ * kMostCaption / 100) + kPanelGap;
  }

  void placeIcon() {
    layout_.icon = {kPanelMargin, y_, kIcon, kIcon};
    if (!shown(PanelId::selItem)) y_ += kPanelRow + kPanelGap;
  }

  void placeRow(const std::vector<Cell>& cells) {
    if (cells.empty()) return;
    switch (cells.front().kind) {
      case CellKind::toggle:
        placeToggles(cells);
        break;
      case CellKind::swatch:
        placeSwatches(cells);
        return;
      case CellKind::check:
        placeCheck(cells.front().id);
        return;
      default:
        placeBoxes(cells);
        break;
    }
    y_ += kPanelRow + kPanelGap;
  }

  void placeToggles(const std::vector<Cell>& cells) {
    int x = kPanelMargin;
    for (const Cell& cell : cells) {
      if (x > kPanelMargin) x += cell.width;
      controlOf(cell.id) = {x, y_, kToggle, kPanelRow};
      x += kToggle + kToggleGap;
    }
  }

  void placeSwatches(const std::vector<Cell>& cells) {
    const int wide = (right_ - kPanelMargin - 2 * kPanelGap) / 3;
    int x = kPanelMargin;
    for (const Cell& cell : cells) {
      controlOf(cell.id) = {x, y_, wide, kPanelRow};
      captionOf(cell.id) = {x - kPanelGap / 2, y_ + kPanelRow + 2, wide + kPanelGap, kSwatchCaption};
      x += wide + kPanelGap;
    }
    y_ += kPanelRow + 2 + kSwatchCaption + kPanelGap;
  }

  void placeCheck(PanelId id) {
    const int wide = width_ - 2 * kPanelMargin;
    const int high = std::max(kPanelRow - kCheckGap, measure_.checkHeight(id, wide));
    controlOf(id) = {kPanelMargin, y_, wide, high};
    y_ += high + kCheckGap;
  }

  void placeBoxes(const std::vector<Cell>& cells) {
    int x = kPanelMargin, right = right_;
    if (cells.front().id == PanelId::selItem) x += kIcon + kPanelGap;
    int boxes = 0;
    for (auto cell = cells.rbegin(); cell != cells.rend(); ++cell) {
      boxes += cell->kind == CellKind::box;
      if (cell->kind != CellKind::fixed) continue;
      controlOf(cell->id) = {right - cell->width, y_, cell->width, kPanelRow};
      right -= cell->width + kPanelGap;
    }
    for (const Cell& cell : cells) {
      if (cell.kind != CellKind::box) continue;
      const int end = x + (right - x - (boxes - 1) * kPanelGap) / boxes;
      --boxes;
      // The first of a row keeps to the column, others follow close behind.
      const int own = captionWidth(cell);
      const int caption = own > 0 && x == kPanelMargin ? captions_ : own;
      if (caption > 0) captionOf(cell.id) = {x, y_, caption - kPanelGap, kPanelRow};
      const int number = cell.id == PanelId::borderStyle ? kNumber : 0;
      controlOf(cell.id) = {x + caption, y_, end - x - caption - number, kPanelRow};
      if (number > 0) layout_.borderNumber = {end - number, y_, number, kPanelRow};
      x = end + kPanelGap;
    }
  }

  const std::vector<PanelControl>& controls_;
  int width_, y_ = 0, captions_ = 0, right_ = 0;
  const PanelMeasure& measure_;
  PanelLayout layout_;
};

}  // namespace

PanelLayout layoutPanel(const std::vector<PanelControl>& controls, int width, const PanelMeasure& measure) {
  return Placer(controls, width, measure).run();
}

const std::vector<PanelId>& panelOrder() {
  static const std::vector<PanelId> order = [] {
    std::vector<PanelId> ids;
    for (const Row& row : kRows)
      for (const Cell& cell : row.cells) ids.push_back(cell.id);
    return ids;
  }();
  return order;
}

bool opensGroup(PanelId id) {
  const Row* before = nullptr;
  for (const Row& row : kRows) {
    if (row.cells.front().id == id) return !before || before->group != row.group;
    before = &row;
  }
  return false;
}

PanelCaption panelCaption(const PanelControl& control) {
  if (control.captionEnglish[0] != '\0') return {control.caption, control.captionEnglish};
  const bool readout = control.id >= PanelId::left && control.id <= PanelId::height;
  if (readout || control.input == PanelInput::button) return {control.label, control.english};
  return {};
}

PanelCaption panelHeading(PanelGroup group) {
  static constexpr std::array<PanelCaption, kPanelGroups> kHeadings{
      {{0, "Selected"}, {0, "Place"}, {0, "Colors"}, {343, "Text"}, {0, "Box"}, {317, "Options"}}};
  return kHeadings[static_cast<std::size_t>(group)];
}

}  // namespace plinth
