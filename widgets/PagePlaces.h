// Where the objects of a page lie, in pixels, by the twips that files hold. One reckoning for both programs,
// so that an application shows the page that was designed.
#pragma once

#include "basic/Geometry.h"

namespace plinth {

inline constexpr int kCheckBoxSize = 13;  // pixels, of the square of a check box
inline constexpr int kComboPadding = 5;   // pixels, of a combo over a line in its font

// Twips to pixels. Anything may stand in a file, but no page reaches further than 30,000 pixels; 0 for what
// is no number.
int placePx(float twips);
// The same of a place; a negative width or height counts as 0.
RectPx placePx(float left, float top, float width, float height);
// Width or height of a page, 32 to 20,000 pixels.
int pageSidePx(float twips);
// The frame's outside around the rectangle of a box's text, by the frame's style (see Frame).
RectPx fieldFrame(const RectPx& text);
RectPx comboFrame(const RectPx& text, int style);
RectPx memoFrame(const RectPx& text, int style);

}  // namespace plinth
