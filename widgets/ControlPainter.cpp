// Shades are made of the colours that come in, so that dark surroundings need nothing of their own.
#include "widgets/ControlPainter.h"

#include <algorithm>

#include "widgets/PagePainter.h"
#include "widgets/PaintTools.h"
#include "widgets/RubberBand.h"

namespace plinth {

namespace {

constexpr int kHandle = 5, kTabCorner = 3;

// Halfway between two colours; what cannot be used is drawn so.
std::int32_t blended(std::int32_t a, std::int32_t b) {
  std::int32_t out = 0;
  for (int shift = 0; shift < 24; shift += 8)
    out |= (((a >> shift & 0xFF) + (b >> shift & 0xFF)) / 2) << shift;
  return out;
}

std::int32_t ink(const ControlColors& colors, const ControlState& state, std::int32_t back) {
  return state.enabled ? colors.fore : blended(colors.fore, back);
}

bool isDark(std::int32_t color) {
  return ((color & 0xFF) + (color >> 8 & 0xFF) + (color >> 16 & 0xFF)) / 3 < 100;
}

// Lines that are seen on a face, be it light or dark.
std::int32_t lineOn(std::int32_t face) { return shaded(face, isDark(face) ? 40 : -40); }

// A bar's own directions as those of the canvas.
struct Bar {
  Canvas& canvas;
  int breadth;
  const ScrollLook& look;
  RectPx rect(int from, int length, int across, int wide) const {
    return look.upright ? RectPx{across, from, wide, length} : RectPx{from, across, length, wide};
  }
  RectPx part(int from, int length) const { return rect(from, length, 0, breadth); }
  std::int32_t face() const { return shaded(look.colors.back, -6); }
  void raised(const RectPx& area, bool pressed) const {
    const std::int32_t light = shaded(face(), isDark(face()) ? 22 : 60), dark = shaded(face(), -40);
    fill(canvas, area, face());
    edges(canvas, area, pressed ? dark : light, pressed ? light : dark);
  }
};

void paintTrack(const Bar& bar, int length) {
  for (int step = 10; step <= 250; step += 10) {
    const int from = bar.breadth * (step - 10) / 250, to = bar.breadth * step / 250;
    fill(bar.canvas, bar.rect(0, length, from, to - from), rampColor(bar.look.colors.back, step));
  }
}

void paintArrow(const Bar& bar, int from, int length, bool back, bool pressed) {
  if (length < 3 || bar.breadth < 3) return;
  const RectPx area = bar.part(from, length);
  bar.raised(area, pressed);
  const int side = std::max(3, std::min(length, bar.breadth) * 7 / 17), depth = (side + 1) / 2;
  const int shift = pressed ? 1 : 0;
  const RectPx sign =
      bar.rect(from + (length - depth) / 2 + shift, depth, (bar.breadth - side) / 2 + shift, side);
  const char direction = bar.look.upright ? (back ? 'u' : 'd') : (back ? 'l' : 'r');
  triangle(bar.canvas, sign, direction, ink(bar.look.colors, bar.look.state, bar.face()));
}

void paintThumb(const Bar& bar, int from, int length, bool pressed) {
  Canvas& canvas = bar.canvas;
  const RectPx area = bar.part(from, length);
  const std::int32_t dark = lineOn(bar.face());
  switch (static_cast<ThumbPattern>(bar.look.pattern)) {
    case ThumbPattern::round:
      canvas.box(inflated(area, -1), {LineStyle::solid, 1, dark},
                 {FillStyle::solid, pressed ? shaded(bar.face(), -15) : bar.face(), false, 0},
                 std::max(1, (bar.breadth - 2) / 2));
      break;
    case ThumbPattern::flat:
      fill(canvas, bar.rect(from, length, 2, std::max(1, bar.breadth - 4)),
           pressed ? dark : shaded(dark, 25));
      break;
    case ThumbPattern::hatched:
      bar.raised(area, pressed);
      canvas.box(inflated(area, -2), kNoPen, {FillStyle::downwardDiagonal, dark, true, bar.face()});
      break;
    case ThumbPattern::grip:
      bar.raised(area, pressed);
      for (int i = -1; i <= 1; ++i) {
        const int at = from + length / 2 + 3 * i, wide = std::max(1, bar.breadth - 8);
        fill(canvas, bar.rect(at, 1, 4, wide), dark);
        fill(canvas, bar.rect(at + 1, 1, 4, wide), shaded(bar.face(), 60));
      }
      break;
    default:
      bar.raised(area, pressed);
      break;
  }
  if (bar.look.state.focused) canvas.box(area, {LineStyle::solid, 2, bar.look.colors.mark}, kNoBrush);
}

}  // namespace

std::int32_t rampColor(std::int32_t backColor, int step) {
  const int share = 750 + step;  // thousandths
  std::int32_t out = 0;
  for (int shift = 0; shift < 24; shift += 8) out |= ((backColor >> shift & 0xFF) * share / 1000) << shift;
  return out;
}

void paintScrollBar(Canvas& canvas, int breadth, const ScrollBarModel& model, const ScrollLook& look) {
  const Bar bar{canvas, breadth, look};
  const int length = model.length(), arrow = model.arrowLength();
  paintTrack(bar, length);
  paintArrow(bar, 0, arrow, true, look.pressed == ScrollZone::backArrow);
  paintArrow(bar, length - arrow, arrow, false, look.pressed == ScrollZone::forwardArrow);
  if (model.thumbLength() > 0)
    paintThumb(bar, model.thumbPos(), model.thumbLength(), look.pressed == ScrollZone::thumb);
  else if (look.state.focused)
    canvas.box(bar.part(0, length), {LineStyle::solid, 1, look.colors.mark}, kNoBrush);
}

int comboInset(int borderStyle) { return borderStyle <= 0 ? 0 : borderStyle == 1 ? 1 : 3; }

void paintComboBorder(Canvas& canvas, SizePx size, const Frame& border, const ControlColors& colors,
                      const ControlState& state) {
  const RectPx whole{0, 0, size.width, size.height};
  fill(canvas, whole, colors.back);
  paintFrame(canvas, whole, border, colors.back);
  if (state.focused && border.style > 0) canvas.box(whole, {LineStyle::solid, 1, colors.mark}, kNoBrush);
}

void paintDropArrow(Canvas& canvas, const RectPx& rect, const ControlColors& colors,
                    const ControlState& state) {
  const std::int32_t face = state.pressed ? shaded(colors.surround, -15) : colors.surround;
  fill(canvas, rect, face);
  const int side = std::max(3, std::min(rect.width, rect.height) * 7 / 17), depth = (side + 1) / 2;
  triangle(canvas, {rect.left + (rect.width - side) / 2, rect.top + (rect.height - depth) / 2, side, depth},
           'd', ink(colors, state, face));
}

void paintMyFrame(Canvas& canvas, SizePx size, const FrameLook& look, const ControlColors& colors,
                  const ControlState& state) {
  const RectPx whole{0, 0, size.width, size.height};
  fill(canvas, whole, look.caption.empty() ? look.fill : colors.surround);
  const std::string caption = withoutAccessKey(look.caption);
  const SizePx letters = caption.empty() ? SizePx{0, 0} : canvas.measure(caption, look.font);
  const RectPx frame{0, letters.height / 2, size.width, std::max(0, size.height - letters.height / 2)};
  if (look.border.style > 0)
    paintFrame(canvas, frame, look.border, look.fill);
  else
    fill(canvas, frame, look.fill);
  if (caption.empty()) return;
  constexpr int kIndent = 8, kAround = 3;
  const RectPx gap{kIndent, 0, std::min(letters.width + 2 * kAround, std::max(0, size.width - 2 * kIndent)),
                   letters.height};
  fill(canvas, {gap.left, frame.top, gap.width, std::max(0, std::min(3, frame.height))}, look.fill);
  canvas.text({gap.left + kAround, 0, std::max(0, gap.width - kAround), gap.height}, caption, look.font,
              ink(colors, state, look.fill));
}

void paintOptionBox(Canvas& canvas, SizePx size, bool checked, int appearance, const ControlColors& colors,
                    const ControlState& state) {
  fill(canvas, {0, 0, size.width, size.height}, colors.surround);
  const int side = std::min(size.width, size.height);
  const RectPx box{(size.width - side) / 2, (size.height - side) / 2, side, side};
  const std::int32_t back = !state.enabled  ? blended(colors.back, colors.surround)
                            : state.pressed ? shaded(colors.back, -12)
                                            : colors.back;
  const std::int32_t dark = lineOn(back), line = blended(colors.fore, back);
  fill(canvas, box, back);
  if (appearance == 0) {
    edges(canvas, box, line, line);
  } else {
    edges(canvas, box, dark, shaded(back, -12));
    edges(canvas, inflated(box, -1), line, back);
  }
  // Two strokes, thicker in a larger box.
  const int unit = std::max(1, side / 13), x = box.left + side / 2 - 3 * unit, y = box.top + side / 2 - unit;
  if (checked)
    for (int i = 0; i < 7 * unit; ++i)
      fill(canvas, {x + i, y + (i < 3 * unit ? i : 5 * unit - 1 - i) - unit, 1, 3 * unit},
           ink(colors, state, back));
  if (state.focused) canvas.box(box, {LineStyle::solid, unit, colors.mark}, kNoBrush);
}

void paintTabButton(Canvas& canvas, SizePx size, const TabLook& look, const ControlColors& colors,
                    const ControlState& state) {
  const int wide = size.width, high = size.height;
  const std::int32_t face = look.selected ? look.selectedBack : colors.back;
  const std::int32_t line = shaded(lineOn(colors.back), 30);
  fill(canvas, {0, 0, wide, high}, colors.surround);
  fill(canvas, {0, kTabCorner, wide, high - kTabCorner}, face);
  for (int i = 0; i < kTabCorner; ++i)
    fill(canvas, {kTabCorner - i, i, wide - 2 * (kTabCorner - i), 1}, face);
  // Left, cut corner, top, cut corner, right; and the edge of the page below, where the tab is not open to
  // it.
  const Pen pen{LineStyle::solid, 1, line};
  canvas.line({0, high}, {0, kTabCorner}, pen);
  canvas.line({0, kTabCorner}, {kTabCorner, 0}, pen);
  canvas.line({kTabCorner, 0}, {wide - 1 - kTabCorner, 0}, pen);
  canvas.line({wide - 1 - kTabCorner, 0}, {wide - 1, kTabCorner}, pen);
  canvas.line({wide - 1, kTabCorner}, {wide - 1, high}, pen);
  if (!look.selected) canvas.line({0, high - 1}, {wide, high - 1}, pen);
  if (look.selected) fill(canvas, {kTabCorner, 1, wide - 2 * kTabCorner, 2}, colors.mark);
  const std::int32_t letters = ink(colors, state, face);
  RectPx text = inflated({0, 0, wide, high}, -2);
  if (state.pressed) ++text.left, ++text.top;
  canvas.text(text, withoutAccessKey(look.caption), look.font, letters, TextAlign::center, false, true);
  if (state.focused) canvas.box(inflated({0, 0, wide, high}, -4), {LineStyle::dot, 1, letters}, kNoBrush);
}

void paintUserSel(Canvas& canvas, SizePx size, int borderStyle, const ControlColors& colors) {
  const RectPx whole{0, 0, size.width, size.height};
  // Light below the dashes: so they are seen on any page.
  canvas.box(whole, {LineStyle::solid, 1, colors.back}, kNoBrush);
  canvas.box(whole, {borderStyle == 0 ? LineStyle::dash : LineStyle::solid, 1, colors.fore}, kNoBrush);
  if (std::min(size.width, size.height) < 4 * kBandEdge) return;
  for (const int y : {0, (size.height - kHandle) / 2, size.height - kHandle})
    for (const int x : {0, (size.width - kHandle) / 2, size.width - kHandle})
      if (bandPointerAt(size, {x + kHandle / 2, y + kHandle / 2}) != 15)
        canvas.box({x, y, kHandle, kHandle}, {LineStyle::solid, 1, colors.fore},
                   {FillStyle::solid, colors.back, false, 0});
}

}  // namespace plinth
