// Only where the pixels begin must be worked out; whether they are whole is the decoder's to say.
#include "platform/DibFile.h"

namespace plinth {
namespace {

constexpr std::size_t kFileHeader = 14, kInfoHeader = 40;
constexpr std::uint32_t kBitFields = 3, kAlphaBitFields = 6;

std::uint32_t u32(std::span<const std::uint8_t> bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8 | bytes[at + i - 1];
  return value;
}

void putU32(Bytes& bytes, std::size_t at, std::uint64_t value) {
  for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

Bytes bitmapFileOf(std::span<const std::uint8_t> bitmap) {
  if (bitmap.size() < kInfoHeader || bitmap.size() > 0x7FFFFFFF) return {};
  const std::uint64_t header = u32(bitmap, 0);
  const unsigned bits = bitmap[14] | bitmap[15] << 8;
  const std::uint32_t compression = u32(bitmap, 16);
  std::uint64_t colors = u32(bitmap, 32);
  if (header < kInfoHeader || bits > 32) return {};
  if (colors == 0 && bits <= 8) colors = std::uint64_t{1} << bits;
  // Longer headers hold the masks themselves.
  std::uint64_t masks = 0;
  if (header == kInfoHeader) masks = compression == kBitFields ? 12 : compression == kAlphaBitFields ? 16 : 0;
  const std::uint64_t pixels = header + masks + colors * 4;
  if (pixels >= bitmap.size()) return {};
  Bytes file(kFileHeader);
  file[0] = 'B';
  file[1] = 'M';
  putU32(file, 2, kFileHeader + bitmap.size());
  putU32(file, 10, kFileHeader + pixels);
  file.insert(file.end(), bitmap.begin(), bitmap.end());
  return file;
}

}  // namespace plinth
