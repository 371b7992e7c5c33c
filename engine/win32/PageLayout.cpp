// Rows of the payload to the items and places of a page.
#include "engine/win32/PageLayout.h"

#include <algorithm>

#include "widgets/PagePlaces.h"

namespace plinth {
namespace {

constexpr int kDateButtonWidth = 18;

constexpr int kOverhang = 2;

// Boxes without a frame of ours may have the thin border of older projects.
template <class Row>
Frame lookOf(const Row& row) {
  if (row.frame.present) return {row.frame.style, plainColor(row.frame.color)};
  return {row.borderStyle != 0 ? 1 : 0, 0};
}

void add(PageItems& items, PagePart part, int index, ItemShape shape) {
  items.push_back({{static_cast<int>(part), index}, std::move(shape)});
}

BoxItem frameItem(const BoxPlace& place, std::int32_t backColor) {
  BoxItem item;
  item.rect = place.frame;
  item.textRect = place.text;
  item.frame = place.look;
  item.backColor = plainColor(backColor);
  return item;
}

}  // namespace

PageLayout::PageLayout(const Application& application, Measure measure)
    : application_(application), measure_(std::move(measure)) {}

SizePx PageLayout::pageSize() const {
  const PayloadHeader& header = application_.payload.header;
  return {pageSidePx(header.pageWidth), pageSidePx(header.pageHeight)};
}

FontSpec PageLayout::font(const PayloadFont& font) const {
  return {font.name,           std::clamp(font.size, 1.0f, 200.0f), font.bold, font.italic, font.underline,
          application_.charSet};
}

FontSpec PageLayout::labelFont(const VariableLabel& label) const {
  return {application_.payload.header.fontName, static_cast<float>(std::clamp(label.fontSize, 1, 200)),
          label.bold, label.italic, label.underline, label.charSet};
}

BoxPlace PageLayout::field(int n) const {
  const PayloadField& row = application_.field(n);
  const RectPx text = placePx(row.left, row.top, row.width, row.height);
  return {text, fieldFrame(text), lookOf(row)};
}

BoxPlace PageLayout::combo(int n) const {
  const PayloadCombo& row = application_.combo(n);
  const RectPx text{placePx(row.left), placePx(row.top), std::max(0, placePx(row.width)),
                    lineHeight(row.font) + kComboPadding};
  return {text, comboFrame(text, row.frameStyle), {row.frameStyle, plainColor(row.frameColor)}};
}

BoxPlace PageLayout::memo(int n) const {
  const PayloadMemo& row = application_.memo(n);
  const Frame look = lookOf(row);
  const RectPx text = placePx(row.left, row.top, row.width, row.height);
  return {text, memoFrame(text, look.style), look};
}

RectPx PageLayout::dateButton(int n) const {
  const RectPx text = field(n).text;
  const int width = std::min(kDateButtonWidth, text.width / 2);
  return {text.right() - width, text.top, width, text.height};
}

RectPx PageLayout::check(int n) const {
  const PayloadCheck& row = application_.check(n);
  return {placePx(row.left), placePx(row.top), kCheckBoxSize, kCheckBoxSize};
}

RectPx PageLayout::button(int n) const {
  const PayloadButton& row = application_.button(n);
  return placePx(row.left, row.top, row.width, row.height);
}

RectPx PageLayout::picture(int n) const {
  const PayloadPicture& row = application_.picture(n);
  return placePx(row.left, row.top, row.width, row.height);
}

RectPx PageLayout::title(int n, const RecordForm& form) const {
  const PayloadTitle& row = application_.titleRow(n);
  const SizePx size = measure_(form.titles[static_cast<std::size_t>(n)], font(row.font));
  // The last letter may reach over its measure.
  return {placePx(row.left), placePx(row.top), size.width > 0 ? size.width + kOverhang : 0, size.height};
}

void PageLayout::addShapes(PageItems& items, int page) const {
  const Payload& payload = application_.payload;
  for (std::size_t i = 0; i < payload.squares.size(); ++i) {
    const PayloadSquare& row = payload.squares[i];
    if (!Application::onPage(row.page, page)) continue;
    add(items, PagePart::square, static_cast<int>(i),
        SquareItem{placePx(row.left, row.top, row.width, row.height), shapeFormOf(row.shapeType),
                   squarePen(row.borderStyle, row.borderWidth, row.borderColor),
                   squareBrush(row.backStyle, row.backColor, row.fillStyle, row.fillColor)});
  }
  for (std::size_t i = 0; i < payload.lines.size(); ++i) {
    const PayloadLine& row = payload.lines[i];
    if (!Application::onPage(row.page, page)) continue;
    add(items, PagePart::line, static_cast<int>(i),
        LineItem{{placePx(row.x1), placePx(row.y1)},
                 {placePx(row.x2), placePx(row.y2)},
                 {LineStyle::solid, 1, plainColor(row.borderColor)}});
  }
}

void PageLayout::addPictures(PageItems& items, int page, PagePictures& pictures) const {
  for (int n = 0; n <= application_.pictureCount(); ++n) {
    const PayloadPicture& row = application_.picture(n);
    if (!Application::onPage(row.page, page)) continue;
    PictureItem item;
    item.rect = picture(n);
    item.image = row.isData() ? pictures.dataPicture(n) : pictures.fixedPicture(n);
    item.stretch = row.stretch != 0;
    item.border = row.borderStyle;
    item.holder = row.isData();
    add(items, PagePart::picture, n, std::move(item));
  }
}

void PageLayout::addTitles(PageItems& items, const RecordForm& form, int page) const {
  for (int n = 1; n <= application_.titleCount(); ++n) {
    const PayloadTitle& row = application_.titleRow(n);
    if (!Application::onPage(row.page, page)) continue;
    add(items, PagePart::title, n,
        TitleItem{title(n, form), form.titles[static_cast<std::size_t>(n)], font(row.font),
                  plainColor(row.foreColor), alignOf(row.alignment)});
  }
}

void PageLayout::addFrames(PageItems& items, int page) const {
  for (int n = 1; n <= application_.fieldCount(); ++n)
    if (Application::onPage(application_.field(n).page, page))
      add(items, PagePart::field, n, frameItem(field(n), application_.field(n).backColor));
  for (int n = 1; n <= application_.comboCount(); ++n)
    if (Application::onPage(application_.combo(n).page, page))
      add(items, PagePart::combo, n, frameItem(combo(n), application_.combo(n).backColor));
  for (int n = 1; n <= application_.memoCount(); ++n)
    if (Application::onPage(application_.memo(n).page, page))
      add(items, PagePart::memo, n, frameItem(memo(n), application_.memo(n).backColor));
}

void PageLayout::addFree(PageItems& items, const RecordForm& form, int page, PagePictures& pictures) const {
  for (std::size_t i = 0; i < form.variablePictures.size(); ++i) {
    const VariablePicture& row = form.variablePictures[i];
    if (!row.visible || !Application::onPage(row.page, page)) continue;
    PictureItem item;
    item.rect = placePx(static_cast<float>(row.left), static_cast<float>(row.top),
                        static_cast<float>(row.width), static_cast<float>(row.height));
    item.image = pictures.freePicture(row.image);
    item.stretch = true;
    add(items, PagePart::freePicture, static_cast<int>(i), std::move(item));
  }
  for (std::size_t i = 0; i < form.labels.size(); ++i) {
    const VariableLabel& row = form.labels[i];
    if (!row.visible || !Application::onPage(row.page, page)) continue;
    const SizePx size = labelSize(row);
    add(items, PagePart::label, static_cast<int>(i),
        TitleItem{{placePx(static_cast<float>(row.left)), placePx(static_cast<float>(row.top)), size.width,
                   size.height},
                  row.text,
                  labelFont(row),
                  plainColor(row.foreColor),
                  TextAlign::left});
  }
}

PageItems PageLayout::items(const RecordForm& form, int page, PagePictures& pictures) const {
  PageItems items;
  addShapes(items, page);
  addPictures(items, page, pictures);
  addTitles(items, form, page);
  addFrames(items, page);
  addFree(items, form, page, pictures);
  return items;
}

int PageLayout::linkAt(PointPx point, const RecordForm& form, int page) const {
  for (int n = application_.titleCount(); n >= 1; --n) {
    if (!application_.titleIsLink[static_cast<std::size_t>(n)]) continue;
    if (Application::onPage(application_.titleRow(n).page, page) && title(n, form).contains(point)) return n;
  }
  return 0;
}

int PageLayout::dataPictureAt(PointPx point, int page) const {
  for (int n = application_.pictureCount(); n >= 0; --n) {
    const PayloadPicture& row = application_.picture(n);
    if (row.isData() && Application::onPage(row.page, page) && picture(n).contains(point)) return n;
  }
  return -1;
}

}  // namespace plinth
