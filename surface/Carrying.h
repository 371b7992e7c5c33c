// A new object in hand: it follows the pointer, takes its size while the left button is held, and is put down
// at the release. And what a release makes of any object's place.
#pragma once

#include "surface/DesignContext.h"

namespace plinth {

// Brings the carried object to the pointer (page pixels): behind it by two pixels, on the grid where its kind
// keeps to the grid in hand. held: the left button is down; then only labels and check boxes still follow.
void carry(DesignContext& context, ObjectRef object, PointPx pointer, bool held);

// The press: from where a rubber band spans.
void beginSizing(DesignContext& context, ObjectRef object, PointPx pointer);
// Sizes the carried object between its left top corner, or that of the press, and the pointer. Nothing for
// kinds that have no size, nor before the pointer has left the place of the press, so that a click drops the
// object as it is.
void sizeCarried(DesignContext& context, ObjectRef object, PointPx pointer);
// The release: what is too small to be seen grows, lines are put in order.
void dropCarried(DesignContext& context, ObjectRef object);

// What a release does to a placed object that was moved or sized: back onto the page when it lies left of it
// or above, then place and size to the grid.
void settleObject(DesignContext& context, ObjectRef object);
// A label of which nothing is left on the page, to the left or above.
bool isLabelOffPage(const DesignContext& context, ObjectRef object);

}  // namespace plinth
