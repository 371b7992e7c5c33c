// A rubber band under the mouse: which part is pressed, and where the band goes then.
#pragma once

#include "basic/Geometry.h"

namespace plinth {

inline constexpr int kBandEdge = 5;  // pixels of an edge that size the band

// The part of a band of a size at a point, by the number of the pointer that shows it: 15 inside (moves), 7
// upper and lower edge, 9 left and right edge, 8 and 6 corners, 0 outside. A band too small for edges has
// only an inside.
int bandPointerAt(SizePx size, PointPx point);

// The band after the mouse went by `move` since it was pressed on `at`, a point in the band. Sides stay at
// `least` pixels or more, the opposite edge where it is.
RectPx draggedBand(const RectPx& band, PointPx at, PointPx move, int least);

}  // namespace plinth
