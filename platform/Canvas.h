// One drawing interface for screen, printer and document: pages, reports and controls are painted by the same
// code everywhere. Coordinates are the canvas's own units (pixels on a screen canvas) after its scale and
// origin; colours RGB with red in the low byte; texts 8-bit of the given character set.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "basic/Geometry.h"
#include "basic/Slots.h"

namespace plinth {

struct FontSpec {
  std::string name = "Arial";
  float points = 9;
  bool bold = false, italic = false, underline = false;
  int charSet = 0;
};

enum class LineStyle { none, solid, dash, dot, dashDot, dashDotDot };
enum class FillStyle {
  none,
  solid,
  horizontal,
  vertical,
  upwardDiagonal,
  downwardDiagonal,
  cross,
  diagonalCross
};

struct Pen {
  LineStyle style = LineStyle::solid;
  int width = 1;
  std::int32_t color = 0;
};

struct Brush {
  FillStyle style = FillStyle::solid;
  std::int32_t color = 0xFFFFFF;
  bool opaqueBack = false;  // hatches: paint backColor between the lines
  std::int32_t backColor = 0xFFFFFF;
};

enum class TextAlign { left, right, center };

// A decoded picture that a canvas of the same kind can paint.
class Image {
 public:
  virtual ~Image() = default;
  virtual SizePx size() const = 0;
};

class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void line(PointPx from, PointPx to, const Pen& pen) = 0;
  // Outline inside the rectangle, then filled inside the outline. radius > 0 rounds the corners.
  virtual void box(const RectPx& rect, const Pen& pen, const Brush& brush, int radius = 0) = 0;
  virtual void ellipse(const RectPx& rect, const Pen& pen, const Brush& brush) = 0;
  // One or more lines of text clipped to the rectangle; wrap breaks at blanks; vertically from the top
  // unless middle.
  virtual void text(const RectPx& rect, std::string_view text, const FontSpec& font, std::int32_t color,
                    TextAlign align = TextAlign::left, bool wrap = false, bool middle = false) = 0;
  virtual SizePx measure(std::string_view text, const FontSpec& font) = 0;
  // Stretched into the rectangle.
  virtual void picture(const RectPx& rect, const Image& image) = 0;
  virtual void pushClip(const RectPx& rect) = 0;
  virtual void popClip() = 0;
};

// Decodes BMP, GIF, JPEG, PNG, TIFF and ICO bytes; nullptr when they are none of these or damaged.
class ImageDecoder {
 public:
  virtual ~ImageDecoder() = default;
  virtual std::shared_ptr<Image> decode(const Bytes& bytes) = 0;
};

}  // namespace plinth
