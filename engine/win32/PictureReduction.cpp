#include "engine/win32/PictureReduction.h"

#include "engine/DataPictures.h"
#include "platform/win32/PictureEncoder.h"
#include "platform/win32/WicPictures.h"

namespace plinth {
namespace {

bool beginsWith(const Bytes& bytes, std::uint8_t first, std::uint8_t second) {
  return bytes.size() > 2 && bytes[0] == first && bytes[1] == second;
}

}  // namespace

Bytes reducedPicture(const Bytes& bytes, const Image& image, SizePx box, bool keepRatio) {
  const auto* decoded = dynamic_cast<const GdiImage*>(&image);
  const SizePx size = reducedSize(image.size(), box, keepRatio);
  if (!decoded || (size.width == image.size().width && size.height == image.size().height)) return bytes;
  const PictureFormat format = beginsWith(bytes, 0xFF, 0xD8) ? PictureFormat::jpeg : PictureFormat::png;
  Bytes smaller = encodePicture(reduced(decoded->pixels(), size), format);
  return smaller.empty() ? bytes : smaller;
}

Bytes compactPicture(Bytes bytes, ImageDecoder& decoder) {
  if (!beginsWith(bytes, 'B', 'M')) return bytes;
  const std::shared_ptr<Image> image = decoder.decode(bytes);
  const auto* decoded = dynamic_cast<const GdiImage*>(image.get());
  if (!decoded) return bytes;
  Bytes compact = encodePicture(decoded->pixels(), PictureFormat::png);
  return compact.empty() ? bytes : compact;
}

}  // namespace plinth
