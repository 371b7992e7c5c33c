// Where the pointer lies within a placed object: at an edge that sizes it, or on the part that moves it. And
// what a drag of the edge makes of the object's size.
#pragma once

#include "surface/DesignContext.h"

namespace plinth {

// The pointer over an object: northSouth, northWestSouthEast or eastWest at its bottom, corner and right
// edge, as far as the kind can be sized there; elsewhere the one that the kind shows. Page pixels; lines and
// what is no object: arrow.
PointerShape pointerOver(const DesignContext& context, ObjectRef object, PointPx point);

// Whether a press under this pointer sizes the object.
bool isEdge(PointerShape pointer);

// Size of the frame when one of those edges is dragged to a point of the page.
SizePx sizeAtEdge(const DesignContext& context, ObjectRef object, PointerShape edge, PointPx point);

}  // namespace plinth
