// The distances are those that projects were laid out with; pages of older projects depend on them.
#include "widgets/PagePlaces.h"

#include <algorithm>
#include <cmath>

#include "widgets/PageItems.h"

namespace plinth {

int placePx(float twips) {
  constexpr float kReach = 30000.0f * kTwipsPerPixel;
  return std::isfinite(twips) ? twipsToPixels(std::clamp(twips, -kReach, kReach)) : 0;
}

RectPx placePx(float left, float top, float width, float height) {
  return {placePx(left), placePx(top), std::max(0, placePx(width)), std::max(0, placePx(height))};
}

int pageSidePx(float twips) { return std::clamp(placePx(twips), 32, 20000); }

RectPx fieldFrame(const RectPx& text) { return inflated(text, 3); }

RectPx comboFrame(const RectPx& text, int style) { return inflated(text, style < 2 ? 1 : 3); }

RectPx memoFrame(const RectPx& text, int style) {
  if (style < 2) return {text.left - 3, text.top - 1, text.width + 4, text.height + 2};
  return inflated(text, style == 2 ? 2 : 3);
}

}  // namespace plinth
