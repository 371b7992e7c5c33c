// Canvas calls as GDI calls. Pens and brushes are made for each call: GDI makes them fast, and a cache would
// have to outlive unknown contexts.
#include "platform/win32/GdiCanvas.h"

#include <algorithm>
#include <cmath>

#include "basic/CodePage.h"
#include "platform/win32/WicPictures.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr std::size_t kMostFonts = 300;

DWORD gdiStyle(LineStyle style) {
  static constexpr DWORD kStyles[] = {PS_NULL, PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT};
  return kStyles[static_cast<int>(style)];
}

int gdiHatch(FillStyle style) {
  static constexpr int kHatches[] = {-1,           -1,           HS_HORIZONTAL, HS_VERTICAL,
                                     HS_BDIAGONAL, HS_FDIAGONAL, HS_CROSS,      HS_DIAGCROSS};
  return kHatches[static_cast<int>(style)];
}

BrushHandle makeBrush(const Brush& brush) {
  if (brush.style == FillStyle::solid) return BrushHandle(::CreateSolidBrush(gdiColor(brush.color)));
  return BrushHandle(::CreateHatchBrush(gdiHatch(brush.style), gdiColor(brush.color)));
}

// How the gaps of hatches and dashes are painted, put back at the end.
class BackMode {
 public:
  BackMode(HDC dc, bool opaque, std::int32_t color)
      : dc_(dc),
        mode_(::SetBkMode(dc, opaque ? OPAQUE : TRANSPARENT)),
        color_(::SetBkColor(dc, gdiColor(color))) {}
  ~BackMode() {
    ::SetBkMode(dc_, mode_);
    ::SetBkColor(dc_, color_);
  }
  BackMode(const BackMode&) = delete;
  BackMode& operator=(const BackMode&) = delete;

 private:
  HDC dc_;
  int mode_;
  COLORREF color_;
};

UINT drawFlags(TextAlign align, bool wrap) {
  static constexpr UINT kAlign[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
  return kAlign[static_cast<int>(align)] | DT_NOPREFIX | DT_EXPANDTABS | (wrap ? DT_WORDBREAK : 0);
}

}  // namespace

COLORREF gdiColor(std::int32_t color) {
  return color < 0 ? ::GetSysColor(color & 0xFF) : static_cast<COLORREF>(color & 0xFFFFFF);
}

HFONT FontCache::get(const FontSpec& font, int heightPixels) {
  const std::string key = std::to_string(heightPixels) + (font.bold ? "b" : "-") + (font.italic ? "i" : "-") +
                          (font.underline ? "u" : "-") + std::to_string(font.charSet) + " " + font.name;
  if (const auto found = fonts_.find(key); found != fonts_.end()) return found->second.get();
  if (fonts_.size() >= kMostFonts) fonts_.clear();
  LOGFONTW wanted = {};
  wanted.lfHeight = -heightPixels;  // negative: of the letters, not of the line
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfItalic = font.italic;
  wanted.lfUnderline = font.underline;
  wanted.lfCharSet = static_cast<BYTE>(font.charSet);
  wanted.lfQuality = CLEARTYPE_QUALITY;
  const std::wstring name = toWide(font.name, codePageOfCharSet(font.charSet));
  name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  return (fonts_[key] = FontHandle(::CreateFontIndirectW(&wanted))).get();
}

FontCache& threadFonts() {
  thread_local FontCache fonts;
  return fonts;
}

GdiCanvas::GdiCanvas(HDC dc, double scale, PointPx origin, FontCache& fonts)
    : dc_(dc), scale_(scale), origin_(origin), fonts_(fonts) {}

GdiCanvas::~GdiCanvas() {
  if (!clips_.empty()) ::RestoreDC(dc_, clips_.front());
}

int GdiCanvas::length(int units) const { return static_cast<int>(std::lround(units * scale_)); }

POINT GdiCanvas::device(PointPx point) const {
  return {origin_.x + length(point.x), origin_.y + length(point.y)};
}

// Edges are scaled, not sizes: neighbours stay neighbours.
RECT GdiCanvas::device(const RectPx& rect) const {
  const POINT from = device(PointPx{rect.left, rect.top}), to = device(PointPx{rect.right(), rect.bottom()});
  return {from.x, from.y, to.x, to.y};
}

HFONT GdiCanvas::font(const FontSpec& font) {
  return fonts_.get(font, std::max(1, static_cast<int>(std::lround(font.points * 96 / 72 * scale_))));
}

PenHandle GdiCanvas::makePen(const Pen& pen) const {
  const int width = std::max(1, length(pen.width));
  if (width == 1) return PenHandle(::CreatePen(gdiStyle(pen.style), 1, gdiColor(pen.color)));
  // Only geometric pens have dashes wider than a pixel; corners of boxes are to be square.
  const LOGBRUSH color{BS_SOLID, gdiColor(pen.color), 0};
  return PenHandle(::ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER | gdiStyle(pen.style),
                                  static_cast<DWORD>(width), &color, 0, nullptr));
}

void GdiCanvas::line(PointPx from, PointPx to, const Pen& pen) {
  if (pen.style == LineStyle::none) return;
  const PenHandle handle = makePen(pen);
  const Selected selected(dc_, handle.get());
  const BackMode gaps(dc_, false, 0);
  const POINT begin = device(from), end = device(to);
  ::MoveToEx(dc_, begin.x, begin.y, nullptr);
  ::LineTo(dc_, end.x, end.y);
  // GDI leaves the last pixel of a thin line out.
  if (length(pen.width) <= 1 && pen.style == LineStyle::solid)
    ::SetPixelV(dc_, end.x, end.y, gdiColor(pen.color));
}

void GdiCanvas::shape(Shape shape, const RECT& rect, int diameter) {
  if (shape == Shape::ellipse)
    ::Ellipse(dc_, rect.left, rect.top, rect.right, rect.bottom);
  else if (diameter > 0)
    ::RoundRect(dc_, rect.left, rect.top, rect.right, rect.bottom, diameter, diameter);
  else
    ::Rectangle(dc_, rect.left, rect.top, rect.right, rect.bottom);
}

// Two passes, so that the gaps of a dashed outline show the fill.
void GdiCanvas::fillAndOutline(Shape kind, const RectPx& area, const Pen& pen, const Brush& brush,
                               int radius) {
  RECT rect = device(area);
  const int diameter = 2 * length(radius);
  if (rect.right <= rect.left || rect.bottom <= rect.top) return;
  if (brush.style != FillStyle::none) {
    const BrushHandle handle = makeBrush(brush);
    const Selected fill(dc_, handle.get()), outline(dc_, ::GetStockObject(NULL_PEN));
    const BackMode gaps(dc_, brush.opaqueBack, brush.backColor);
    // Without a pen GDI stops one pixel short at the right and below.
    shape(kind, {rect.left, rect.top, rect.right + 1, rect.bottom + 1}, diameter);
  }
  if (pen.style == LineStyle::none) return;
  // The pen runs along the middle of the line; half its width goes inside at each edge.
  const int width = std::max(1, length(pen.width));
  rect = {rect.left + width / 2, rect.top + width / 2, rect.right - (width - 1) / 2,
          rect.bottom - (width - 1) / 2};
  const PenHandle handle = makePen(pen);
  const Selected fill(dc_, ::GetStockObject(NULL_BRUSH)), outline(dc_, handle.get());
  const BackMode gaps(dc_, false, 0);
  shape(kind, rect, diameter);
}

void GdiCanvas::box(const RectPx& rect, const Pen& pen, const Brush& brush, int radius) {
  fillAndOutline(Shape::box, rect, pen, brush, radius);
}

void GdiCanvas::ellipse(const RectPx& rect, const Pen& pen, const Brush& brush) {
  fillAndOutline(Shape::ellipse, rect, pen, brush, 0);
}

void GdiCanvas::text(const RectPx& area, std::string_view text, const FontSpec& spec, std::int32_t color,
                     TextAlign align, bool wrap, bool middle) {
  const std::wstring wide = toWide(text, codePageOfCharSet(spec.charSet));
  if (wide.empty()) return;
  const Selected selected(dc_, font(spec));
  const BackMode gaps(dc_, false, 0);
  const COLORREF before = ::SetTextColor(dc_, gdiColor(color));
  const RECT rect = device(area);
  const UINT flags = drawFlags(align, wrap);
  RECT lines = rect;
  if (middle) {
    ::DrawTextW(dc_, wide.data(), static_cast<int>(wide.size()), &lines, flags | DT_CALCRECT);
    const LONG above = std::max<LONG>(0, (rect.bottom - rect.top - (lines.bottom - lines.top)) / 2);
    lines = {rect.left, rect.top + above, rect.right, rect.bottom};
  }
  ::DrawTextW(dc_, wide.data(), static_cast<int>(wide.size()), &lines, flags);
  ::SetTextColor(dc_, before);
}

SizePx GdiCanvas::measure(std::string_view text, const FontSpec& spec) {
  const Selected selected(dc_, font(spec));
  // An empty text is as high as a line.
  const std::wstring wide = toWide(text.empty() ? " " : text, codePageOfCharSet(spec.charSet));
  RECT rect = {};
  ::DrawTextW(dc_, wide.data(), static_cast<int>(wide.size()), &rect,
              drawFlags(TextAlign::left, false) | DT_CALCRECT);
  const auto units = [&](LONG pixels) { return static_cast<int>(std::ceil(pixels / scale_)); };
  return {text.empty() ? 0 : units(rect.right), units(rect.bottom)};
}

void GdiCanvas::picture(const RectPx& area, const Image& image) {
  const auto* picture = dynamic_cast<const GdiImage*>(&image);
  const RECT rect = device(area);
  const int width = rect.right - rect.left, height = rect.bottom - rect.top;
  if (!picture || width <= 0 || height <= 0) return;
  const GdiBitmap& bitmap = picture->bitmapFor({width, height});
  if (!bitmap.ok()) return;
  const SizePx from = bitmap.size();
  if (picture->transparent()) {
    constexpr BLENDFUNCTION kOver{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    if (::GdiAlphaBlend(dc_, rect.left, rect.top, width, height, bitmap.dc(), 0, 0, from.width, from.height,
                        kOver))
      return;
  }
  // Also where a printer cannot blend.
  const int mode = ::SetStretchBltMode(dc_, HALFTONE);
  ::SetBrushOrgEx(dc_, 0, 0, nullptr);
  ::StretchBlt(dc_, rect.left, rect.top, width, height, bitmap.dc(), 0, 0, from.width, from.height, SRCCOPY);
  ::SetStretchBltMode(dc_, mode);
}

void GdiCanvas::pushClip(const RectPx& area) {
  const RECT rect = device(area);
  clips_.push_back(::SaveDC(dc_));
  ::IntersectClipRect(dc_, rect.left, rect.top, rect.right, rect.bottom);
}

void GdiCanvas::popClip() {
  if (clips_.empty()) return;
  ::RestoreDC(dc_, clips_.back());
  clips_.pop_back();
}

}  // namespace plinth
