// Each direction by itself: -1 the edge before, 1 the edge behind, 0 between.
#include "widgets/RubberBand.h"

#include <algorithm>

namespace plinth {

namespace {

int edgeAt(int size, int position) {
  if (size < 4 * kBandEdge) return 0;
  return position < kBandEdge ? -1 : position >= size - kBandEdge ? 1 : 0;
}

void dragSide(int& start, int& size, int edge, int move, int least) {
  if (edge < 0) {
    const int shift = std::min(move, size - least);
    start += shift;
    size -= shift;
  } else {
    size = std::max(least, size + move);
  }
}

}  // namespace

int bandPointerAt(SizePx size, PointPx point) {
  if (!RectPx{0, 0, size.width, size.height}.contains(point)) return 0;
  const int x = edgeAt(size.width, point.x), y = edgeAt(size.height, point.y);
  if (x == 0 && y == 0) return 15;
  if (x == 0) return 7;
  if (y == 0) return 9;
  return x == y ? 8 : 6;
}

RectPx draggedBand(const RectPx& band, PointPx at, PointPx move, int least) {
  const int x = edgeAt(band.width, at.x), y = edgeAt(band.height, at.y);
  RectPx out = band;
  if (x == 0 && y == 0) {
    out.left += move.x;
    out.top += move.y;
  }
  if (x != 0) dragSide(out.left, out.width, x, move.x, least);
  if (y != 0) dragSide(out.top, out.height, y, move.y, least);
  return out;
}

}  // namespace plinth
