// The marks of the selection, above the objects of the page.
#pragma once

#include "platform/Canvas.h"
#include "surface/DesignContext.h"

namespace plinth {

// A frame around the selected object with handles where it can be sized, the ends of a line, the rectangle
// UserSel and frames around its members. While all is locked the marks are grey and have no handles.
void paintSelection(Canvas& canvas, const DesignContext& context);

}  // namespace plinth
