// Filled boxes only: every canvas has them.
#include "widgets/PaintTools.h"

#include <algorithm>

namespace plinth {

void fill(Canvas& canvas, const RectPx& rect, std::int32_t color) {
  if (rect.width <= 0 || rect.height <= 0) return;
  canvas.box(rect, kNoPen, {FillStyle::solid, color, false, color});
}

void edges(Canvas& canvas, const RectPx& r, std::int32_t topLeft, std::int32_t bottomRight) {
  fill(canvas, {r.left, r.top, r.width, 1}, topLeft);
  fill(canvas, {r.left, r.top, 1, r.height}, topLeft);
  fill(canvas, {r.left, r.bottom() - 1, r.width, 1}, bottomRight);
  fill(canvas, {r.right() - 1, r.top, 1, r.height}, bottomRight);
}

void triangle(Canvas& canvas, const RectPx& r, char direction, std::int32_t color) {
  const bool sideways = direction == 'l' || direction == 'r';
  const int depth = sideways ? r.width : r.height, breadth = sideways ? r.height : r.width;
  for (int i = 0; i < depth; ++i) {
    const bool growing = direction == 'l' || direction == 'u';
    const int step = growing ? i : depth - 1 - i;
    const int span = std::max(1, breadth * (step + 1) / depth), from = (breadth - span) / 2;
    fill(canvas,
         sideways ? RectPx{r.left + i, r.top + from, 1, span} : RectPx{r.left + from, r.top + i, span, 1},
         color);
  }
}

}  // namespace plinth
