// A bitmap in memory with its own device context: what is painted into it can be read as pixels, and the
// other way round. Screenshots, double buffers and pictures stand on it.
#pragma once

#include <optional>

#include "platform/Pixels.h"
#include "platform/win32/Handles.h"

namespace plinth {

class GdiBitmap {
 public:
  // 32 bits a pixel, black at first. Without memory ok() is false and dc() nullptr.
  explicit GdiBitmap(SizePx size);
  explicit GdiBitmap(const Pixels& pixels);
  ~GdiBitmap();
  GdiBitmap(const GdiBitmap&) = delete;
  GdiBitmap& operator=(const GdiBitmap&) = delete;

  bool ok() const { return bits_ != nullptr; }
  HDC dc() const { return ok() ? dc_.get() : nullptr; }
  SizePx size() const { return size_; }
  // The pixels as painted; opaque, since GDI leaves no alpha.
  Pixels pixels() const;

 private:
  SizePx size_;
  MemoryDc dc_;
  BitmapHandle bitmap_;
  HGDIOBJ before_ = nullptr;
  std::uint32_t* bits_ = nullptr;
};

// Paints a window without flicker: everything goes to a bitmap and onto the window at the end.
//   case WM_PAINT: { BufferedPaint paint(window); GdiCanvas canvas(paint.dc()); ... }
class BufferedPaint {
 public:
  // Begins WM_PAINT of a window. dc() has the window's client coordinates; only what needs painting is kept.
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;
  HDC dc() const;
  RECT area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
  std::optional<GdiBitmap> buffer_;
};

}  // namespace plinth
