// Bitmaps and buffers on DIB sections.
#include "platform/win32/GdiBitmap.h"

#include <algorithm>

namespace plinth {

GdiBitmap::GdiBitmap(SizePx size) : size_(size), dc_(::CreateCompatibleDC(nullptr)) {
  if (!dc_ || size.width <= 0 || size.height <= 0) return;
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  bitmap_ = BitmapHandle(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap_) return;
  before_ = ::SelectObject(dc_.get(), bitmap_.get());
  bits_ = static_cast<std::uint32_t*>(bits);
}

GdiBitmap::GdiBitmap(const Pixels& pixels) : GdiBitmap(pixels.size) {
  if (ok()) std::copy(pixels.argb.begin(), pixels.argb.end(), bits_);
}

GdiBitmap::~GdiBitmap() {
  if (before_) ::SelectObject(dc_.get(), before_);
}

Pixels GdiBitmap::pixels() const {
  if (!ok()) return {};
  ::GdiFlush();
  Pixels out{size_, {bits_, bits_ + static_cast<std::size_t>(size_.width) * size_.height}};
  for (std::uint32_t& pixel : out.argb) pixel |= 0xFF000000u;
  return out;
}

BufferedPaint::BufferedPaint(HWND window) : window_(window) {
  ::BeginPaint(window, &paint_);
  const RECT& area = paint_.rcPaint;
  buffer_.emplace(SizePx{static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)});
  if (buffer_->ok()) ::SetViewportOrgEx(buffer_->dc(), -area.left, -area.top, nullptr);
}

BufferedPaint::~BufferedPaint() {
  if (buffer_->ok()) {
    const RECT& area = paint_.rcPaint;
    ::SetViewportOrgEx(buffer_->dc(), 0, 0, nullptr);
    ::SelectClipRgn(buffer_->dc(), nullptr);
    ::BitBlt(paint_.hdc, area.left, area.top, area.right - area.left, area.bottom - area.top, buffer_->dc(),
             0, 0, SRCCOPY);
  }
  ::EndPaint(window_, &paint_);
}

HDC BufferedPaint::dc() const { return buffer_->ok() ? buffer_->dc() : paint_.hdc; }

}  // namespace plinth
