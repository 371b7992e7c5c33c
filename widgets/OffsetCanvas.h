// A canvas moved by an offset onto another: page coordinates in, the window's out.
#pragma once

#include "platform/Canvas.h"

namespace plinth {

class OffsetCanvas : public Canvas {
 public:
  // `target` must outlive this. offset: where the point 0, 0 comes to lie on the target.
  OffsetCanvas(Canvas& target, PointPx offset) : target_(target), offset_(offset) {}

  void line(PointPx from, PointPx to, const Pen& pen) override { target_.line(moved(from), moved(to), pen); }
  void box(const RectPx& rect, const Pen& pen, const Brush& brush, int radius = 0) override {
    target_.box(moved(rect), pen, brush, radius);
  }
  void ellipse(const RectPx& rect, const Pen& pen, const Brush& brush) override {
    target_.ellipse(moved(rect), pen, brush);
  }
  void text(const RectPx& rect, std::string_view text, const FontSpec& font, std::int32_t color,
            TextAlign align = TextAlign::left, bool wrap = false, bool middle = false) override {
    target_.text(moved(rect), text, font, color, align, wrap, middle);
  }
  SizePx measure(std::string_view text, const FontSpec& font) override { return target_.measure(text, font); }
  void picture(const RectPx& rect, const Image& image) override { target_.picture(moved(rect), image); }
  void pushClip(const RectPx& rect) override { target_.pushClip(moved(rect)); }
  void popClip() override { target_.popClip(); }

 private:
  PointPx moved(PointPx p) const { return {p.x + offset_.x, p.y + offset_.y}; }
  RectPx moved(const RectPx& r) const { return {r.left + offset_.x, r.top + offset_.y, r.width, r.height}; }
  Canvas& target_;
  PointPx offset_;
};

}  // namespace plinth
