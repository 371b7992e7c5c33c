// Positions and sizes with their unit in the name: twips in files and output (1440 an inch, 15 a pixel),
// whole pixels on the surface, points for fonts (20 twips).
#pragma once

namespace plinth {

inline constexpr int kTwipsPerPixel = 15;
inline constexpr int kTwipsPerPoint = 20;

struct PointPx {
  int x = 0, y = 0;
};
struct SizePx {
  int width = 0, height = 0;
};
struct RectPx {
  int left = 0, top = 0, width = 0, height = 0;
  int right() const { return left + width; }
  int bottom() const { return top + height; }
  bool contains(PointPx p) const { return p.x >= left && p.y >= top && p.x < right() && p.y < bottom(); }
};

// Twips to whole pixels at 96 dpi, rounded to nearest, halves away from zero.
inline int twipsToPixels(float twips) {
  const float px = twips / kTwipsPerPixel;
  return static_cast<int>(px < 0 ? px - 0.5f : px + 0.5f);
}
inline float pixelsToTwips(int pixels) { return static_cast<float>(pixels) * kTwipsPerPixel; }

}  // namespace plinth
