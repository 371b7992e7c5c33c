// The few shapes that all our controls are drawn with.
#pragma once

#include "platform/Canvas.h"

namespace plinth {

inline constexpr Pen kNoPen{LineStyle::none, 1, 0};
inline constexpr Brush kNoBrush{FillStyle::none, 0, false, 0};

// Nothing where the rectangle is empty.
void fill(Canvas& canvas, const RectPx& rect, std::int32_t color);
// Lines of one pixel along the inside of the rectangle.
void edges(Canvas& canvas, const RectPx& rect, std::int32_t topLeft, std::int32_t bottomRight);
// A solid triangle that points to the 'l'eft, 'r'ight, 'u'p or 'd'own.
void triangle(Canvas& canvas, const RectPx& rect, char direction, std::int32_t color);

}  // namespace plinth
