// Offsets come from the file: each is checked before it is followed.
#include "builder/payload/ImageHeader.h"

#include <algorithm>

namespace plinth {
namespace {

constexpr std::size_t kHeaderPointer = 60, kOptionalHeader = 24, kCheckSum = 64;
constexpr std::uint32_t kPlainMagic = 0x10B, kWideMagic = 0x20B;
constexpr std::size_t kPlainDirectories = 96, kWideDirectories = 112, kDirectory = 8, kSecurity = 4;

// A little-endian number of `bytes` bytes; nullopt when some lie outside.
std::optional<std::uint32_t> number(std::span<const std::uint8_t> image, std::size_t offset,
                                    std::size_t bytes) {
  if (image.size() < bytes || offset > image.size() - bytes) return std::nullopt;
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i > 0; --i) value = value << 8 | image[offset + i - 1];
  return value;
}

}  // namespace

std::optional<ImageHeader> findImageHeader(std::span<const std::uint8_t> image) {
  const auto start = number(image, kHeaderPointer, 4);
  if (number(image, 0, 2) != 0x5A4Du || !start || number(image, *start, 4) != 0x4550u) return std::nullopt;
  const std::size_t optional = std::size_t{*start} + kOptionalHeader;
  const auto magic = number(image, optional, 2);
  if (magic != kPlainMagic && magic != kWideMagic) return std::nullopt;
  ImageHeader header{optional + kCheckSum, 0};
  if (!number(image, header.checkSum, 4)) return std::nullopt;
  const std::size_t directories = optional + (magic == kWideMagic ? kWideDirectories : kPlainDirectories);
  const std::size_t security = directories + kSecurity * kDirectory;
  const auto count = number(image, directories - 4, 4);
  if (count && *count > kSecurity && number(image, security + 4, 4)) header.certificates = security;
  return header;
}

std::optional<std::size_t> certificateTable(std::span<const std::uint8_t> image, const ImageHeader& header) {
  if (header.certificates == 0) return std::nullopt;
  const auto offset = number(image, header.certificates, 4), size = number(image, header.certificates + 4, 4);
  if (!offset || !size || *offset == 0 || *size == 0) return std::nullopt;
  if (std::uint64_t{*offset} + *size > image.size()) return std::nullopt;
  return *offset;
}

void clearSignedFields(std::span<std::uint8_t> image, const ImageHeader& header) {
  std::ranges::fill(image.subspan(header.checkSum, 4), std::uint8_t{0});
  if (header.certificates != 0) std::ranges::fill(image.subspan(header.certificates, 8), std::uint8_t{0});
}

}  // namespace plinth
