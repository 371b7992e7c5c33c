// Shades are made of the colours that come in, but for the light ground of every other row on white.
#include "widgets/ListPainter.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "widgets/PagePainter.h"
#include "widgets/PaintTools.h"

namespace plinth {

namespace {

constexpr std::int32_t kWhite = 0xFFFFFF, kLightRow = 0xFAFAFA;
constexpr int kCellRoom = 20;  // pixels of a column that its text leaves free
constexpr int kIndent = 6;
constexpr int kMarkWidth = 7, kMarkHeight = 4;  // of the sign at the head of the sorted column

bool isDark(std::int32_t color) {
  return ((color & 0xFF) * 3 + (color >> 8 & 0xFF) * 6 + (color >> 16 & 0xFF)) / 10 < 128;
}

std::int32_t lineOn(std::int32_t face) { return shaded(face, isDark(face) ? 25 : -15); }

struct Ground {
  std::int32_t back, ink;
};

Ground groundOf(const ListModel& model, std::int32_t position, const ListLook& look) {
  const ControlColors& colors = look.colors;
  const std::int32_t ink =
      look.state.enabled ? colors.fore : shaded(colors.fore, isDark(colors.back) ? -50 : 50);
  if (model.isSelected(position)) {
    if (!look.state.focused || !look.state.enabled)
      return {shaded(colors.back, isDark(colors.back) ? 25 : -15), ink};
    return {colors.mark, isDark(colors.mark) ? kWhite : 0};
  }
  if (position % 2 == 0) return {colors.back, ink};
  if (colors.back == kWhite) return {kLightRow, ink};
  return {shaded(colors.back, isDark(colors.back) ? 4 : -2), ink};
}

// A cell is cut at the share of its letters that the column has room for. A control character would break
// the line. No letter is narrower than a pixel: what cannot be seen of a long text is not even measured.
std::string cutToColumn(Canvas& canvas, const std::string& cell, const FontSpec& font, int width) {
  const std::string text = oneLine(std::string_view(cell).substr(0, 2 * static_cast<std::size_t>(width)));
  const int room = std::max(0, width - kCellRoom), wide = canvas.measure(text, font).width;
  if (wide <= room) return text;
  const int page = codePageOfCharSet(font.charSet);
  const std::u16string letters = toUtf16(text, page);
  return fromUtf16(std::u16string_view(letters).substr(
                       0, letters.size() * static_cast<std::size_t>(room) / static_cast<std::size_t>(wide)),
                   page);
}

// The shown columns that meet the view.
struct Place {
  int column, left, width;
  bool right;
};

std::vector<Place> placesInView(const ListModel& model) {
  std::vector<Place> places;
  int left = -model.offset();
  for (std::size_t i = 0; i < model.columns().size(); ++i) {
    const ListColumn& column = model.columns()[i];
    if (column.width > 0 && left < model.view().width && left + column.width > 0)
      places.push_back({static_cast<int>(i), left, column.width, column.alignRight});
    left += column.width;
  }
  return places;
}

void paintRow(Canvas& canvas, const ListModel& model, std::int32_t position, const std::vector<Place>& places,
              const ListLook& look) {
  const RectPx row{0, model.headHeight() + (position - model.firstRow()) * model.rowHeight(),
                   model.view().width, model.rowHeight()};
  const Ground ground = groundOf(model, position, look);
  fill(canvas, row, ground.back);
  for (const Place& place : places) {
    const std::string text =
        cutToColumn(canvas, model.getItem(position, place.column), look.font, place.width);
    const RectPx cell{place.left + kIndent, row.top, std::max(0, place.width - 2 * kIndent), row.height};
    if (!text.empty() && cell.width > 0)
      canvas.text(cell, text, look.font, ground.ink, place.right ? TextAlign::right : TextAlign::left, false,
                  true);
    fill(canvas, {place.left + place.width - 1, row.top, 1, row.height}, lineOn(ground.back));
  }
  if (position == model.caret() && look.state.focused)
    canvas.box(row, {LineStyle::dot, 1, ground.ink}, kNoBrush);
}

void paintHead(Canvas& canvas, const ListModel& model, const Place& place, const ListLook& look) {
  const std::int32_t face = look.colors.surround, line = lineOn(face);
  const int high = model.headHeight();
  const RectPx head{place.left, 0, place.width, high};
  const bool pressed = model.pressedHead() == place.column;
  fill(canvas, head, pressed ? shaded(face, isDark(face) ? 15 : -10) : face);
  fill(canvas, {head.right() - 1, 0, 1, high}, line);
  const std::int32_t ink =
      look.state.enabled ? look.colors.fore : shaded(look.colors.fore, isDark(face) ? -50 : 50);
  RectPx text{head.left + kIndent, 0, head.width - 2 * kIndent, high};
  const auto sorting = model.sorting();
  if (sorting && sorting->column == place.column) {
    // At the side away from the letters' beginning.
    const int left = place.right ? text.left : text.right() - kMarkWidth;
    if (text.width >= kMarkWidth)
      triangle(canvas, {left, (high - kMarkHeight) / 2, kMarkWidth, kMarkHeight},
               sorting->descending ? 'd' : 'u', ink);
    text.width -= kMarkWidth + kIndent;
    if (place.right) text.left += kMarkWidth + kIndent;
  }
  const std::string header = oneLine(model.columns()[static_cast<std::size_t>(place.column)].header);
  if (pressed) ++text.left, ++text.top;
  if (text.width <= 0 || header.empty()) return;
  // Of a name that is too long its beginning is seen.
  const bool right = place.right && canvas.measure(header, look.font).width <= text.width;
  canvas.text(text, header, look.font, ink, right ? TextAlign::right : TextAlign::left, false, true);
}

}  // namespace

ListHeights listHeights(Canvas& canvas, const FontSpec& font) {
  const int letters = std::max(1, canvas.measure("Ag", font).height);
  return {letters + 4, letters + 8};
}

void paintList(Canvas& canvas, SizePx size, const ListModel& model, const ListLook& look) {
  const SizePx view = model.view();
  fill(canvas, {0, 0, size.width, size.height}, look.colors.back);
  const std::vector<Place> places = placesInView(model);
  canvas.pushClip({0, 0, view.width, view.height});
  // One more than fits whole: what is left below shows a part of it.
  const int lines = (view.height - model.headHeight()) / model.rowHeight() + 1;
  for (int line = 0; line < lines && line < model.listCount() - model.firstRow(); ++line)
    paintRow(canvas, model, model.firstRow() + line, places, look);
  const std::int32_t face = look.colors.surround;
  fill(canvas, {0, 0, view.width, model.headHeight()}, face);
  for (const Place& place : places) paintHead(canvas, model, place, look);
  fill(canvas, {0, model.headHeight() - 1, view.width, 1}, lineOn(face));
  if (look.state.focused && model.listCount() == 0)
    canvas.box({0, model.headHeight(), view.width, std::max(0, view.height - model.headHeight())},
               {LineStyle::dot, 1, look.colors.fore}, kNoBrush);
  canvas.popClip();
  fill(canvas, {view.width, view.height, size.width - view.width, size.height - view.height}, face);
}

int fittingWidth(Canvas& canvas, const ListModel& model, int column, const FontSpec& font) {
  if (column < 0 || column >= static_cast<int>(model.columns().size())) return 0;
  int widest = canvas.measure(oneLine(model.columns()[static_cast<std::size_t>(column)].header), font).width +
               kMarkWidth + kIndent;
  const int lines = (model.view().height - model.headHeight()) / model.rowHeight() + 1;
  const std::size_t most = static_cast<std::size_t>(std::max(0, 2 * model.view().width));
  for (int line = 0; line < lines && line < model.listCount() - model.firstRow(); ++line) {
    const std::string cell = model.getItem(model.firstRow() + line, column);
    widest = std::max(widest, canvas.measure(oneLine(std::string_view(cell).substr(0, most)), font).width);
  }
  // No wider than what can be seen at once.
  return std::min(widest + kCellRoom, std::max(kLeastColumn, model.view().width));
}

}  // namespace plinth
