// One function for each kind of object; the kinds' order in pageItems() is the stacking order.
#include "surface/PageView.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

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
  PageImages& images;
  const TextMeasure& measure;

  ItemShape shapeOf(const SquareRow& row) const {
    return SquareItem{placePx(row.left, row.top, row.width, row.height), shapeFormOf(row.shapeType),
                      squarePen(row.borderStyle, row.borderWidth, row.borderColor),
                      squareBrush(row.backStyle, row.backColor, row.fillStyle, row.fillColor)};
  }
  ItemShape shapeOf(const LineRow& row) const {
    return LineItem{{placePx(row.x1), placePx(row.y1)},
                    {placePx(row.x2), placePx(row.y2)},
                    {LineStyle::solid, 1, plainColor(row.borderColor)}};
  }
  ItemShape shapeOf(const PictureRow& row) const {
    std::shared_ptr<Image> image = images.at(row.picturePath);
    if (!image && row.picFlag) image = images.at(document.defaultImagePath);
    return PictureItem{placePx(row.left, row.top, row.width, row.height),
                       image,
                       row.pictureMode != 0,
                       row.picBorder,
                       row.picFlag || row.picturePath.empty(),
                       row.picField};
  }
  ItemShape shapeOf(const TitleRow& row) const {
    TitleItem item{
        {}, row.caption, titleFont(row, document.charSet), plainColor(row.foreColor), alignOf(row.alignment)};
    const SizePx size = measure(item.text, item.font);
    item.rect = {placePx(row.left), placePx(row.top), size.width, size.height};
    return item;
  }
  ItemShape shapeOf(const FieldRow& row) const {
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
  ItemShape shapeOf(const ComboRow& row) const {
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
  ItemShape shapeOf(const MemoRow& row) const {
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
  ItemShape shapeOf(const CheckRow& row) const {
    return CheckItem{
        {placePx(row.left), placePx(row.top), kCheckBoxSize, kCheckBoxSize}, false, row.appearance != 0};
  }
  ItemShape shapeOf(const ButtonRow& row) const {
    return ButtonItem{placePx(row.left, row.top, row.width, row.height),
                      row.caption,
                      underlinedFontOf(row, document.charSet),
                      plainColor(row.foreColor),
                      plainColor(row.backColor),
                      buttonIconOf(row.buttonIcon)};
  }
  ItemShape shapeOf(const ScriptRow& row) const {
    return ScriptItem{placePx(row.left, row.top, row.width, row.height), row.tag};
  }
};

template <class Row>
bool showsAt(const Row& row, ObjectKind kind, int index, int page) {
  bool visible = true;
  if constexpr (requires { row.visible; }) visible = row.visible;
  // The page switch leaves the help bar alone: shown once, it shows on all pages.
  const bool helpBar =
      kind == ObjectKind::Title && index == kHelpBar && isLivePage(static_cast<int>(row.page)) && visible;
  return helpBar || showsOnPage(static_cast<int>(row.page), visible, page);
}

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

TextMeasure remembering(TextMeasure measure) {
  constexpr std::size_t kMost = 20000;
  using Known = std::map<std::string, SizePx, std::less<>>;
  return [measure = std::move(measure), known = std::make_shared<Known>()](std::string_view text,
                                                                           const FontSpec& font) {
    std::string key = font.name + '\0' + std::to_string(font.points) + (font.bold ? 'b' : ' ') +
                      (font.italic ? 'i' : ' ') + std::to_string(font.charSet) + ' ';
    key += text;
    const auto found = known->find(key);
    if (found != known->end()) return found->second;
    if (known->size() >= kMost) known->clear();
    return known->emplace(std::move(key), measure(text, font)).first->second;
  };
}

bool showsOnPage(int objectPage, bool visible, int page) {
  if (objectPage == kPageAll) return true;
  return objectPage == page && page >= 0 && page < kPages && (page != 0 || visible);
}

std::optional<ItemShape> itemOf(const ProjectDocument& document, ObjectRef object, PageImages& images,
                                const TextMeasure& measure) {
  const Builder builder{document, images, measure};
  std::optional<ItemShape> shape;
  withRow(document, object, [&](const auto& row) { shape = builder.shapeOf(row); });
  return shape;
}

PageItems pageItems(const ProjectDocument& document, int page, PageImages& images,
                    const TextMeasure& measure) {
  using enum ObjectKind;
  constexpr std::pair<ObjectKind, int> kBackToFront[] = {
      {Square, 0},   {Line, 0},   {Picture, 0}, {Title, kFirstShownTitle}, {Field, 1}, {Combo, 1}, {Memo, 1},
      {CheckBox, 0}, {Button, 0}, {Script, 1}};
  const Builder builder{document, images, measure};
  PageItems items;
  for (const auto& level : kBackToFront) {
    const ObjectKind kind = level.first;
    visitTable(document, kind, [&](const auto& rows) {
      for (int i = level.second; i < static_cast<int>(rows.size()); ++i) {
        const auto& row = rows[static_cast<std::size_t>(i)];
        if (showsAt(row, kind, i, page)) items.push_back({itemRef({kind, i}), builder.shapeOf(row)});
      }
    });
  }
  return items;
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
