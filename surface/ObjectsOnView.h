// Which objects a person sees on the page on view, and the order in which the keys reach them.
#pragma once

#include <vector>

#include "surface/DesignContext.h"

namespace plinth {

// Shows on the page on view and is not hidden.
bool isOnView(const DesignContext& context, ObjectRef object);

// All objects on view: fields, memos, combos and check boxes by their tab positions, those without one after
// them, then labels, buttons, pictures, lines, squares and scripts by index.
std::vector<ObjectRef> tabWalk(const DesignContext& context);

// The point brought onto the page.
PointPx onPage(const DesignContext& context, PointPx point);

}  // namespace plinth
