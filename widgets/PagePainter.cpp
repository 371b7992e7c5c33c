// Each item kind has one function; a new kind does not compile until it has one.
#include "widgets/PagePainter.h"

#include <algorithm>

#include "widgets/PaintTools.h"

namespace plinth {

namespace {

constexpr int kScrollWidth = 16, kDropWidth = 17, kRadius = 10;
constexpr std::int32_t kFaceColor = 0xF0F0F0, kDarkColor = 0x808080, kInkColor = 0x404040;

RectPx centredSquare(const RectPx& rect) {
  const int side = std::min(rect.width, rect.height);
  return {rect.left + (rect.width - side) / 2, rect.top + (rect.height - side) / 2, side, side};
}

void paint(const SquareItem& item, Canvas& canvas) {
  switch (item.form) {
    case ShapeForm::rectangle:
      return canvas.box(item.rect, item.pen, item.brush);
    case ShapeForm::square:
      return canvas.box(centredSquare(item.rect), item.pen, item.brush);
    case ShapeForm::oval:
      return canvas.ellipse(item.rect, item.pen, item.brush);
    case ShapeForm::circle:
      return canvas.ellipse(centredSquare(item.rect), item.pen, item.brush);
    case ShapeForm::roundedRectangle:
      return canvas.box(item.rect, item.pen, item.brush, kRadius);
    case ShapeForm::roundedSquare:
      return canvas.box(centredSquare(item.rect), item.pen, item.brush, kRadius);
  }
}

void paint(const LineItem& item, Canvas& canvas) { canvas.line(item.from, item.to, item.pen); }

// A place that holds a picture of each record: a sun over a hill says so in every language.
void paintHolder(const PictureItem& item, Canvas& canvas) {
  fill(canvas, item.rect, 0xFFFFFF);
  const int side = std::clamp(std::min(item.rect.width, item.rect.height) / 3, 8, 48);
  const RectPx sign{item.rect.left + (item.rect.width - side) / 2,
                    item.rect.top + (item.rect.height - side) / 2, side, side};
  constexpr std::int32_t kPale = 0xD8D0C8;
  canvas.box(sign, {LineStyle::solid, 1, kPale}, {FillStyle::none, 0, false, 0}, 3);
  const int sun = std::max(2, side / 5);
  canvas.ellipse({sign.left + side / 5, sign.top + side / 5, sun, sun}, kNoPen,
                 {FillStyle::solid, kPale, false, 0});
  triangle(canvas, {sign.left + side / 4, sign.top + side / 2, side * 5 / 8, side * 3 / 8}, 'u', kPale);
}

void paint(const PictureItem& item, Canvas& canvas) {
  if (item.holder && !item.image) paintHolder(item, canvas);
  if (item.image) {
    const SizePx size = item.image->size();
    canvas.pushClip(item.rect);
    canvas.picture(item.stretch ? item.rect : RectPx{item.rect.left, item.rect.top, size.width, size.height},
                   *item.image);
    canvas.popClip();
  } else if (!item.placeholder.empty()) {
    const FontSpec small{.points = 8};
    const int high = canvas.measure(item.placeholder, small).height;
    canvas.text({item.rect.left + 3, item.rect.bottom() - high - 2, std::max(0, item.rect.width - 6), high},
                item.placeholder, small, kDarkColor, TextAlign::center);
  }
  if (item.border > 0)
    canvas.box(item.rect, {LineStyle::solid, 1, kDarkColor}, {FillStyle::none, 0, false, 0});
}

// On a denser device the letters do not grow quite in step: its own measure keeps the last one whole.
void paint(const TitleItem& item, Canvas& canvas) {
  const SizePx size = canvas.measure(item.text, item.font);
  const RectPx rect{item.rect.left, item.rect.top, std::max(item.rect.width, size.width),
                    std::max(item.rect.height, size.height)};
  canvas.text(rect, item.text, item.font, item.color, item.align);
}

// Looks as the scroll bar of an edit box that has nothing to scroll.
void paintIdleScrollBar(Canvas& canvas, const RectPx& rect) {
  fill(canvas, rect, kFaceColor);
  const int arrow = std::min(kScrollWidth, rect.height / 2), middle = rect.left + (rect.width - 7) / 2;
  triangle(canvas, {middle, rect.top + (arrow - 4) / 2, 7, 4}, 'u', kDarkColor);
  triangle(canvas, {middle, rect.bottom() - (arrow + 4) / 2, 7, 4}, 'd', kDarkColor);
}

void paint(const BoxItem& item, Canvas& canvas) {
  paintFrame(canvas, item.rect, item.frame, item.backColor);
  if (item.frame.style == 0) fill(canvas, item.textRect, item.backColor);
  RectPx text = item.textRect;
  if (item.memo && text.width > 2 * kScrollWidth) {
    text.width -= kScrollWidth;
    paintIdleScrollBar(canvas, {text.right(), text.top, kScrollWidth, text.height});
  }
  if (item.text.empty()) return;
  text.left += 1;
  text.width = std::max(0, text.width - 2);
  canvas.text(text, item.text, item.font, item.foreColor, item.align, item.memo, !item.memo);
}

void paint(const ComboItem& item, Canvas& canvas) {
  paintFrame(canvas, item.rect, item.frame, item.backColor);
  if (item.frame.style == 0) fill(canvas, item.textRect, item.backColor);
  RectPx text = item.textRect;
  if (text.width > 2 * kDropWidth) {
    text.width -= kDropWidth;
    const RectPx drop{text.right(), text.top, kDropWidth, text.height};
    fill(canvas, drop, kFaceColor);
    triangle(canvas, {drop.left + (drop.width - 7) / 2, drop.top + (drop.height - 4) / 2, 7, 4}, 'd',
             kInkColor);
  }
  if (item.text.empty()) return;
  text.left += 2;
  text.width = std::max(0, text.width - 3);
  canvas.text(text, item.text, item.font, item.foreColor, TextAlign::left, false, true);
}

void paint(const CheckItem& item, Canvas& canvas) {
  fill(canvas, item.rect, 0xFFFFFF);
  if (item.sunken) {
    edges(canvas, item.rect, kDarkColor, 0xE0E0E0);
    edges(canvas, inflated(item.rect, -1), kInkColor, 0xFFFFFF);
  } else {
    edges(canvas, item.rect, kInkColor, kInkColor);
  }
  if (!item.checked) return;
  const int x = item.rect.left + item.rect.width / 2 - 3, y = item.rect.top + item.rect.height / 2 - 1;
  for (int i = 0; i < 7; ++i) fill(canvas, {x + i, y + (i < 3 ? i : 4 - i) - 1, 1, 3}, 0);
}

void paint(const ButtonItem& item, Canvas& canvas) {
  const std::int32_t light = shaded(item.backColor, 60), dark = shaded(item.backColor, -35);
  const std::int32_t ink = item.enabled ? item.foreColor : kDarkColor;
  fill(canvas, item.rect, item.backColor);
  canvas.box(item.rect, {LineStyle::solid, 1, shaded(item.backColor, -50)}, {FillStyle::none, 0, false, 0},
             2);
  edges(canvas, inflated(item.rect, -1), item.pressed ? dark : light, item.pressed ? light : dark);
  const int shift = item.pressed ? 1 : 0;
  RectPx text = inflated(item.rect, -3);
  text.left += shift;
  text.top += shift;
  const std::string caption = withoutAccessKey(item.caption);
  if (item.icon != ButtonIcon::none) {
    const int size = std::clamp(item.rect.height - 12, 8, 16), gap = 5;
    const int wide = caption.empty() ? 0 : canvas.measure(caption, item.font).width + gap;
    const int left = text.left + std::max(1, (text.width - size - wide) / 2);
    paintButtonIcon(canvas, {left, text.top + (text.height - size) / 2}, size, item.icon, ink);
    const int taken = left + size + gap - text.left;
    text.left += taken;
    text.width = std::max(0, text.width - taken);
    canvas.text(text, caption, item.font, ink, TextAlign::left, false, true);
  } else {
    canvas.text(text, caption, item.font, ink, TextAlign::center, false, true);
  }
  if (item.focused)
    canvas.box(inflated(item.rect, -4), {LineStyle::dot, 1, dark}, {FillStyle::none, 0, false, 0});
}

void paint(const ScriptItem& item, Canvas& canvas) {
  canvas.box(item.rect, {LineStyle::dash, 1, 0xC08040}, {FillStyle::solid, 0xFFF8F0, false, 0xFFF8F0});
  canvas.text(inflated(item.rect, -3), item.text, {.name = "Courier New", .points = 8}, 0x804000,
              TextAlign::left, true);
}

void paint(const TabItem& item, Canvas& canvas) {
  const std::int32_t face = item.selected ? 0xFFFFFF : 0xE4E4E4;
  fill(canvas, item.rect, face);
  edges(canvas, item.rect, 0xB0B0B0, 0xB0B0B0);
  // The chosen tab opens into the page below it.
  if (item.selected) fill(canvas, {item.rect.left + 1, item.rect.bottom() - 1, item.rect.width - 2, 1}, face);
  canvas.text(inflated(item.rect, -2), item.caption, item.font, item.selected ? 0x000000 : kInkColor,
              TextAlign::center, false, true);
}

void paintArrows(Canvas& canvas, const RectPx& r, int count, char direction, std::int32_t color) {
  const int wide = r.width / count;
  for (int i = 0; i < count; ++i)
    triangle(canvas, {r.left + i * wide, r.top, wide, r.height}, direction, color);
}

struct IconPen {
  Canvas& canvas;
  PointPx at;
  int size;
  std::int32_t color;
  // Coordinates in sixteenths of the icon's size.
  RectPx rect(int x, int y, int w, int h) const {
    return {at.x + x * size / 16, at.y + y * size / 16, std::max(1, w * size / 16),
            std::max(1, h * size / 16)};
  }
  void outline(int x, int y, int w, int h) const {
    canvas.box(rect(x, y, w, h), {LineStyle::solid, 1, color}, {FillStyle::solid, 0xFFFFFF, false, 0});
  }
  void bar(int x, int y, int w, int h) const { fill(canvas, rect(x, y, w, h), color); }
  void stroke(int x1, int y1, int x2, int y2, int width = 1) const {
    canvas.line({at.x + x1 * size / 16, at.y + y1 * size / 16},
                {at.x + x2 * size / 16, at.y + y2 * size / 16}, {LineStyle::solid, width, color});
  }
};

void paintToolIcon(const IconPen& pen, ButtonIcon icon) {
  switch (icon) {
    case ButtonIcon::newRecord:
      pen.bar(6, 1, 4, 14);
      pen.bar(1, 6, 14, 4);
      break;
    case ButtonIcon::find:
      pen.canvas.ellipse(pen.rect(1, 1, 10, 10), {LineStyle::solid, 2, pen.color},
                         {FillStyle::none, 0, false, 0});
      pen.stroke(9, 9, 15, 15, 2);
      break;
    case ButtonIcon::print:
      pen.outline(4, 0, 8, 7);
      pen.bar(1, 6, 14, 6);
      pen.outline(3, 10, 10, 6);
      break;
    case ButtonIcon::mail:
      pen.outline(0, 3, 16, 11);
      pen.stroke(0, 3, 8, 9);
      pen.stroke(15, 3, 8, 9);
      break;
    case ButtonIcon::copy:
      pen.outline(1, 1, 9, 11);
      pen.outline(5, 4, 9, 11);
      break;
    case ButtonIcon::calendar:
      pen.outline(1, 2, 14, 13);
      pen.bar(1, 2, 14, 4);
      for (int y = 8; y < 14; y += 3)
        for (int x = 3; x < 13; x += 4) pen.bar(x, y, 2, 2);
      break;
    case ButtonIcon::help:
      pen.stroke(5, 5, 5, 3, 2);
      pen.stroke(5, 2, 10, 2, 2);
      pen.stroke(11, 3, 11, 6, 2);
      pen.stroke(10, 7, 8, 9, 2);
      pen.stroke(8, 9, 8, 11, 2);
      pen.bar(7, 13, 2, 2);
      break;
    case ButtonIcon::document:
      pen.outline(2, 0, 12, 16);
      for (int y = 4; y < 14; y += 3) pen.bar(4, y, 8, 1);
      break;
    case ButtonIcon::calculator:
      pen.outline(2, 0, 12, 16);
      pen.bar(4, 2, 8, 3);
      for (int y = 7; y < 14; y += 3)
        for (int x = 4; x < 12; x += 3) pen.bar(x, y, 2, 2);
      break;
    case ButtonIcon::sort:
      for (int i = 0; i < 4; ++i) pen.bar(1, 2 + 4 * i, 3 + 2 * i, 2);
      pen.stroke(13, 1, 13, 14, 2);
      pen.stroke(10, 11, 13, 14, 2);
      pen.stroke(16, 11, 13, 14, 2);
      break;
    default:
      break;
  }
}

}  // namespace

std::int32_t shaded(std::int32_t color, int percent) {
  std::int32_t out = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const int part = (color >> shift) & 0xFF;
    out |= (part + ((percent > 0 ? 255 - part : part) * percent) / 100) << shift;
  }
  return out;
}

void paintFrame(Canvas& canvas, const RectPx& rect, const Frame& frame, std::int32_t fillColor) {
  if (frame.style <= 0) return;
  fill(canvas, rect, fillColor);
  const std::int32_t light = shaded(frame.color, 70), color = frame.color;
  switch (frame.style) {
    case 1:
      edges(canvas, rect, color, color);
      break;
    case 2:
      edges(canvas, rect, color, light);
      edges(canvas, inflated(rect, -1), shaded(color, -50), fillColor);
      break;
    case 3:
      edges(canvas, rect, light, color);
      break;
    case 4:
      edges(canvas, rect, color, light);
      edges(canvas, inflated(rect, -1), light, color);
      break;
    default:
      edges(canvas, rect, color, color);
      edges(canvas, inflated(rect, -2), color, color);
      break;
  }
}

void paintButtonIcon(Canvas& canvas, PointPx at, int size, ButtonIcon icon, std::int32_t color) {
  const RectPx whole{at.x, at.y + size / 8, size, size * 3 / 4};
  const int bar = std::max(2, size / 8);
  switch (icon) {
    case ButtonIcon::none:
      return;
    case ButtonIcon::first:
      fill(canvas, {whole.left, whole.top, bar, whole.height}, color);
      return paintArrows(canvas, {whole.left + bar + 1, whole.top, whole.width - bar - 1, whole.height}, 1,
                         'l', color);
    case ButtonIcon::fastBack:
      return paintArrows(canvas, whole, 2, 'l', color);
    case ButtonIcon::back:
      return paintArrows(canvas, {whole.left + size / 4, whole.top, size / 2, whole.height}, 1, 'l', color);
    case ButtonIcon::next:
      return paintArrows(canvas, {whole.left + size / 4, whole.top, size / 2, whole.height}, 1, 'r', color);
    case ButtonIcon::fastNext:
      return paintArrows(canvas, whole, 2, 'r', color);
    case ButtonIcon::last:
      fill(canvas, {whole.right() - bar, whole.top, bar, whole.height}, color);
      return paintArrows(canvas, {whole.left, whole.top, whole.width - bar - 1, whole.height}, 1, 'r', color);
    default:
      return paintToolIcon({canvas, at, size, color}, icon);
  }
}

void paintTiles(Canvas& canvas, const Image& tile, int tileMode, SizePx page, const RectPx& clip) {
  const SizePx size = tile.size();
  if (tileMode < 0 || tileMode > 2 || size.width <= 0 || size.height <= 0) return;
  const RectPx area = intersection({0, 0, page.width, page.height}, clip);
  if (area.width == 0 || area.height == 0) return;
  const int right = tileMode == 1 ? std::min(area.right(), size.width) : area.right();
  const int bottom = tileMode == 2 ? std::min(area.bottom(), size.height) : area.bottom();
  // A tile of one pixel is a plain colour: stretched, it need not be painted a million times.
  const int wide = size.width == 1 ? right : size.width, high = size.height == 1 ? bottom : size.height;
  canvas.pushClip(area);
  for (int y = area.top / high * high; y < bottom; y += high)
    for (int x = area.left / wide * wide; x < right; x += wide) canvas.picture({x, y, wide, high}, tile);
  canvas.popClip();
}

void paintItem(const ItemShape& shape, Canvas& canvas) {
  std::visit([&](const auto& item) { paint(item, canvas); }, shape);
}

void paintPage(const PageItems& items, Canvas& canvas, const RectPx& clip) {
  canvas.pushClip(clip);
  for (const PageItem& item : items) {
    const RectPx seen = intersection(boundsOf(item.shape), clip);
    if (seen.width > 0 && seen.height > 0) paintItem(item.shape, canvas);
  }
  canvas.popClip();
}

}  // namespace plinth
