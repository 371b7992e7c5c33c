// Paints page items on any canvas: the designer's whole page, and in a finished application whatever is not a
// window of its own. The same code serves screen, printer and tests.
#pragma once

#include "widgets/PageItems.h"

namespace plinth {

// Paints the items in their order, each only when it meets `clip` (pixels of the page), clipped to it.
void paintPage(const PageItems& items, Canvas& canvas, const RectPx& clip);

// One item, unclipped.
void paintItem(const ItemShape& shape, Canvas& canvas);

// A frame around a box: the area inside `rect` is filled with `fill`, then the frame is drawn by its style.
void paintFrame(Canvas& canvas, const RectPx& rect, const Frame& frame, std::int32_t fill);

// A button picture in the square of `size` pixels at a point.
void paintButtonIcon(Canvas& canvas, PointPx at, int size, ButtonIcon icon, std::int32_t color);

// How a background image fills a page: 0 everywhere, 1 one column down the left edge, 2 one row along the
// top, other values not at all. Paints only what meets `clip`.
void paintTiles(Canvas& canvas, const Image& tile, int tileMode, SizePx page, const RectPx& clip);

// The colour moved towards white (percent 1 to 100) or black (-1 to -100).
std::int32_t shaded(std::int32_t color, int percent);

}  // namespace plinth
