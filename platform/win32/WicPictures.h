// Pictures through the system's imaging component: decoding all common formats from memory, writing PNG
// files.
#pragma once

#include <optional>
#include <string>

#include "platform/Canvas.h"
#include "platform/Pixels.h"
#include "platform/win32/GdiBitmap.h"

namespace plinth {

// A decoded picture for GdiCanvas. Keeps the last reduced size ready, since pages are painted again and
// again.
class GdiImage : public Image {
 public:
  // Takes pixels with premultiplied alpha; `transparent` as premultiply() told.
  GdiImage(Pixels pixels, bool transparent) : pixels_(std::move(pixels)), transparent_(transparent) {}
  SizePx size() const override { return pixels_.size; }
  bool transparent() const { return transparent_; }
  const Pixels& pixels() const { return pixels_; }
  // The bitmap to stretch into `size` pixels: already that small where the picture is larger.
  const GdiBitmap& bitmapFor(SizePx size) const;

 private:
  Pixels pixels_;
  bool transparent_;
  mutable std::optional<GdiBitmap> bitmap_;
};

// Decodes the first picture of a file, of an icon the largest. Pictures above 100 million pixels are refused.
class WicDecoder : public ImageDecoder {
 public:
  std::shared_ptr<Image> decode(const Bytes& bytes) override;
};

// Writes pixels as a PNG file, without alpha. False when it cannot be written.
bool savePng(const Pixels& pixels, const std::string& path);

}  // namespace plinth
