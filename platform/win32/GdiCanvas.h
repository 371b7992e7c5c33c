// The canvas of screens, bitmaps and printers. Texts are drawn as UTF-16 from the code page of their font's
// character set, so that they look the same whatever page the system uses.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/win32/Handles.h"

namespace plinth {

// Fonts by what they look like; making one costs more than drawing a line with it. One cache may serve many
// canvases of one thread.
class FontCache {
 public:
  // The font for a height in device pixels. Valid until clear() or the cache's end.
  HFONT get(const FontSpec& font, int heightPixels);
  void clear() { fonts_.clear(); }
  std::size_t size() const { return fonts_.size(); }

 private:
  std::map<std::string, FontHandle> fonts_;
};

// The cache that canvases use when they are given none; it lives as long as its thread.
FontCache& threadFonts();

// A colour for GDI: negative values name system colours, by the low byte.
COLORREF gdiColor(std::int32_t color);

class GdiCanvas : public Canvas {
 public:
  // Paints on a context that must outlive the canvas. One unit is 1/96 inch and `scale` device pixels: 1 on a
  // plain screen, 600 / 96.0 on a 600 dpi printer. `origin`: where (0, 0) lies, in device pixels.
  explicit GdiCanvas(HDC dc, double scale = 1, PointPx origin = {}, FontCache& fonts = threadFonts());
  ~GdiCanvas() override;
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  void line(PointPx from, PointPx to, const Pen& pen) override;
  void box(const RectPx& rect, const Pen& pen, const Brush& brush, int radius = 0) override;
  void ellipse(const RectPx& rect, const Pen& pen, const Brush& brush) override;
  void text(const RectPx& rect, std::string_view text, const FontSpec& font, std::int32_t color,
            TextAlign align = TextAlign::left, bool wrap = false, bool middle = false) override;
  SizePx measure(std::string_view text, const FontSpec& font) override;
  // Paints only images of WicDecoder; others leave the rectangle as it is.
  void picture(const RectPx& rect, const Image& image) override;
  void pushClip(const RectPx& rect) override;
  void popClip() override;

  HDC dc() const { return dc_; }

 private:
  enum class Shape { box, ellipse };
  int length(int units) const;
  POINT device(PointPx point) const;
  RECT device(const RectPx& rect) const;
  HFONT font(const FontSpec& font);
  PenHandle makePen(const Pen& pen) const;
  void shape(Shape shape, const RECT& rect, int diameter);
  void fillAndOutline(Shape kind, const RectPx& rect, const Pen& pen, const Brush& brush, int radius);

  HDC dc_;
  double scale_;
  PointPx origin_;
  FontCache& fonts_;
  std::vector<int> clips_;  // saved states of the context, the outermost first
};

}  // namespace plinth
