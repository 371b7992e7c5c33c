// Lines under the mouse: which one is met, which of its ends is meant, and the two markers (Linend) that drag
// the ends of the selected one.
#pragma once

#include <array>
#include <optional>

#include "surface/DesignContext.h"
#include "surface/ObjectPlaces.h"

namespace plinth {

enum class LineEnd { start, end };

// The first line by index that shows on the page and runs within three pixels of the point.
std::optional<ObjectRef> lineAt(const DesignContext& context, PointPx point);

// Which end of a line follows a press at this point: the one of the nearer half.
LineEnd nearEnd(const LineEnds& ends, PointPx point);

// Linend(0) and Linend(1), page pixels: before the start, behind the end.
std::array<RectPx, 2> lineMarkers(const LineEnds& ends);
// The marker of the selected line at a point; nullopt while they are not shown.
std::optional<LineEnd> markerAt(const DesignContext& context, PointPx point);

// Brings one end of a line to a point of the page, limited to the page.
void dragLineEnd(DesignContext& context, int index, LineEnd end, PointPx to);
// What a release does: both ends to the grid, and the left one becomes the start.
void settleLine(DesignContext& context, int index);

}  // namespace plinth
