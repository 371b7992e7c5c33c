// One function for each kind of object; the kinds' order in pageItems() is the stacking order.
#include "surface/PageView.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "model/PaperSize.h"
#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

constexpr int kNearLine = 3;
constexpr int kHelpBar = 1, kFirstShownTitle = 1;

float points(float size) { return std::isfinite(size) ? std::clamp(size, 1.0f, 200.0f) : 8.25f; }

template <class Row>
FontSpec fontOf(const Row& row, int charSet) {
  return {row.fontName, points(row.fontSize), row.fontBold, row.fontItalic, false, charSet};
}

template <class Row>
FontSpec underlinedFontOf(const Row& row, int charSet) {
  FontSpec font = fontOf(row, charSet);
  font.underline = row.fontUnderline;
  return font;
}

struct Builder {
  const ProjectDocument& document;
  int page;
  PageImages& images;
  const TextMeasure& measure;
  PageItems items;

  void add(ObjectKind kind, int index, ItemShape shape) {
    items.push_back({{static_cast<int>(kind), index}, std::move(shape)});
  }
  // Calls make(row) for every row from `first` on that shows on the page.
  template <class Row, class Make>
  void each(ObjectKind kind, const std::vector<Row>& rows, int first, Make make) {
    for (int i = first; i < static_cast<int>(rows.size()); ++i) {
      const Row& row = rows[static_cast<std::size_t>(i)];
      bool visible = true;
      if constexpr (requires { row.visible; }) visible = row.visible;
      // The page switch leaves the help bar alone: shown once, it shows on all pages.
      const bool helpBar = kind == ObjectKind::Title && i == kHelpBar && isLivePage(row.page) && visible;
      if (helpBar || showsOnPage(row.page, visible, page)) add(kind, i, make(row));
    }
  }

  ItemShape square(const SquareRow& row) const {
    return SquareItem{placePx(row.left, row.top, row.width, row.height), shapeFormOf(row.shapeType),
                      squarePen(row.borderStyle, row.borderWidth, row.borderColor),
                      squareBrush(row.backStyle, row.backColor, row.fillStyle, row.fillColor)};
  }
  ItemShape line(const LineRow& row) const {
    return LineItem{{placePx(row.x1), placePx(row.y1)},
                    {placePx(row.x2), placePx(row.y2)},
                    {LineStyle::solid, 1, plainColor(row.borderColor)}};
  }
  ItemShape picture(const PictureRow& row) const {
    std::shared_ptr<Image> image = images.at(row.picturePath);
    if (!image && row.picFlag) image = images.at(document.defaultImagePath);
    return PictureItem{placePx(row.left, row.top, row.width, row.height),
                       image,
                       row.pictureMode != 0,
                       row.picBorder,
                       row.picFlag || row.picturePath.empty(),
                       row.picField};
  }
  ItemShape title(const TitleRow& row) const {
    TitleItem item{
        {}, row.caption, titleFont(row, document.charSet), plainColor(row.foreColor), alignOf(row.alignment)};
    const SizePx size = measure(item.text, item.font);
    item.rect = {placePx(row.left), placePx(row.top), size.width, size.height};
    return item;
  }
  ItemShape field(const FieldRow& row) const {
    const RectPx text = placePx(row.left, row.top, row.width, row.height);
    return BoxItem{fieldFrame(text),
                   text,
                   {row.frameStyle, plainColor(row.frameColor)},
                   row.defaultText,
                   fontOf(row, document.charSet),
                   plainColor(row.foreColor),
                   plainColor(row.backColor),
                   alignOf(row.alignment)};
  }
  ItemShape combo(const ComboRow& row) const {
    const FontSpec font = fontOf(row, document.charSet);
    const RectPx text{placePx(row.left), placePx(row.top), std::max(0, placePx(row.width)),
                      comboTextHeight(row.fontSize)};
    return ComboItem{comboFrame(text, row.frameStyle),
                     text,
                     {row.frameStyle, plainColor(row.frameColor)},
                     "",
                     font,
                     plainColor(row.foreColor),
                     plainColor(row.backColor)};
  }
  ItemShape memo(const MemoRow& row) const {
    const RectPx text = placePx(row.left, row.top, row.width, row.height);
    return BoxItem{memoFrame(text, row.frameStyle),
                   text,
                   {row.frameStyle, plainColor(row.frameColor)},
                   "",
                   fontOf(row, document.charSet),
                   plainColor(row.foreColor),
                   plainColor(row.backColor),
                   TextAlign::left,
                   true};
  }
  ItemShape check(const CheckRow& row) const {
    return CheckItem{
        {placePx(row.left), placePx(row.top), kCheckBoxSize, kCheckBoxSize}, false, row.appearance != 0};
  }
  ItemShape button(const ButtonRow& row) const {
    return ButtonItem{placePx(row.left, row.top, row.width, row.height),
                      row.caption,
                      underlinedFontOf(row, document.charSet),
                      plainColor(row.foreColor),
                      plainColor(row.backColor),
                      buttonIconOf(row.buttonIcon)};
  }
  ItemShape script(const ScriptRow& row) const {
    return ScriptItem{placePx(row.left, row.top, row.width, row.height), row.tag};
  }
};

double distanceToLine(const LineItem& line, PointPx p) {
  const double dx = line.to.x - line.from.x, dy = line.to.y - line.from.y;
  const double length = dx * dx + dy * dy;
  const double along = length > 0 ? ((p.x - line.from.x) * dx + (p.y - line.from.y) * dy) / length : 0;
  const double t = std::clamp(along, 0.0, 1.0);
  return std::hypot(p.x - (line.from.x + t * dx), p.y - (line.from.y + t * dy));
}

bool covers(const ItemShape& shape, PointPx point) {
  if (const auto* line = std::get_if<LineItem>(&shape)) return distanceToLine(*line, point) <= kNearLine;
  return boundsOf(shape).contains(point);
}

template <class Row>
const Row* rowAt(const std::vector<Row>& rows, int index) {
  const bool there = index >= 0 && index < static_cast<int>(rows.size());
  const Row* row = there ? &rows[static_cast<std::size_t>(index)] : nullptr;
  return row && isLivePage(row->page) ? row : nullptr;
}

template <class Row>
std::string nameOf(const std::vector<Row>& rows, int index, std::string lead, std::string Row::*label) {
  const Row* row = rowAt(rows, index);
  if (!row) return "";
  const std::string& text = row->*label;
  return text.empty() ? lead : lead + " " + text.substr(0, text.find_first_of("\r\n"));
}

// Calls fn(page) for the page of every object of every kind.
template <class F>
void forEachPage(const ProjectDocument& d, F fn) {
  const auto walk = [&fn](const auto& rows) {
    for (const auto& row : rows) fn(static_cast<int>(row.page));
  };
  walk(d.fields), walk(d.memos), walk(d.combos), walk(d.pictures), walk(d.checks);
  walk(d.titles), walk(d.lines), walk(d.squares), walk(d.scripts), walk(d.buttons);
}

}  // namespace

std::shared_ptr<Image> StoredImages::at(const std::string& path) {
  if (path.empty()) return nullptr;
  const auto known = images_.find(path);
  if (known != images_.end()) return known->second;
  const std::optional<Bytes> bytes = load_(path);
  return images_[path] = bytes ? decoder_.decode(*bytes) : nullptr;
}

// That of a line in the font; reckoned, so that pages are laid out alike on every machine.
int comboTextHeight(float fontSize) {
  return static_cast<int>(std::lround(points(fontSize) * 96 / 72 * 1.27f)) + kComboPadding;
}

FontSpec titleFont(const TitleRow& row, int charSet) { return underlinedFontOf(row, charSet); }

bool showsOnPage(int objectPage, bool visible, int page) {
  if (objectPage == kPageAll) return true;
  return objectPage == page && page >= 0 && page < kPages && (page != 0 || visible);
}

PageItems pageItems(const ProjectDocument& document, int page, PageImages& images,
                    const TextMeasure& measure) {
  Builder b{document, page, images, measure, {}};
  b.each(ObjectKind::Square, document.squares, 0, [&](const SquareRow& row) { return b.square(row); });
  b.each(ObjectKind::Line, document.lines, 0, [&](const LineRow& row) { return b.line(row); });
  b.each(ObjectKind::Picture, document.pictures, 0, [&](const PictureRow& row) { return b.picture(row); });
  b.each(ObjectKind::Title, document.titles, kFirstShownTitle,
         [&](const TitleRow& row) { return b.title(row); });
  b.each(ObjectKind::Field, document.fields, 1, [&](const FieldRow& row) { return b.field(row); });
  b.each(ObjectKind::Combo, document.combos, 1, [&](const ComboRow& row) { return b.combo(row); });
  b.each(ObjectKind::Memo, document.memos, 1, [&](const MemoRow& row) { return b.memo(row); });
  b.each(ObjectKind::CheckBox, document.checks, 0, [&](const CheckRow& row) { return b.check(row); });
  b.each(ObjectKind::Button, document.buttons, 0, [&](const ButtonRow& row) { return b.button(row); });
  b.each(ObjectKind::Script, document.scripts, 1, [&](const ScriptRow& row) { return b.script(row); });
  return std::move(b.items);
}

SizePx pageSizePx(const ProjectDocument& document) {
  const std::optional<PaperSize> paper = paperSize(document.pageSizeCode, document.pageSize20);
  if (paper) return {pageSidePx(paper->width), pageSidePx(paper->height)};
  return {pageSidePx(document.pageWidth), pageSidePx(document.pageHeight)};
}

std::int32_t pageColorOf(const ProjectDocument& document, int page) {
  return plainColor(document.pageColor[static_cast<std::size_t>(std::clamp(page, 0, kPages - 1))]);
}

std::string objectName(const ProjectDocument& d, ObjectKind kind, int index) {
  const std::string number = std::to_string(index);
  switch (kind) {
    case ObjectKind::Field:
      return nameOf(d.fields, index, "F" + number, &FieldRow::tag);
    case ObjectKind::Memo:
      return nameOf(d.memos, index, "M" + number, &MemoRow::tag);
    case ObjectKind::Combo:
      return nameOf(d.combos, index, "C" + number, &ComboRow::tag);
    case ObjectKind::Picture:
      return nameOf(d.pictures, index, "P" + number, &PictureRow::picField);
    case ObjectKind::CheckBox:
      return nameOf(d.checks, index, "K" + number, &CheckRow::tag);
    case ObjectKind::Title:
      return nameOf(d.titles, index, "L" + number, &TitleRow::caption);
    case ObjectKind::Line:
      return rowAt(d.lines, index) ? "Line " + number : "";
    case ObjectKind::Square:
      return rowAt(d.squares, index) ? "Square " + number : "";
    case ObjectKind::Script:
      return rowAt(d.scripts, index) ? "Script " + number : "";
    case ObjectKind::Button:
      return nameOf(d.buttons, index, "Button " + number, &ButtonRow::caption);
  }
  return "";
}

int objectsOnPage(const ProjectDocument& document, int page) {
  int count = 0;
  forEachPage(document, [&](int objectPage) { count += objectPage == page || objectPage == kPageAll; });
  return count;
}

int objectsInProject(const ProjectDocument& document) {
  int count = 0;
  forEachPage(document, [&](int objectPage) { count += isLivePage(objectPage); });
  return count;
}

int itemAt(const PageItems& items, PointPx point) {
  for (int i = static_cast<int>(items.size()) - 1; i >= 0; --i)
    if (covers(items[static_cast<std::size_t>(i)].shape, point)) return i;
  return -1;
}

}  // namespace plinth
