// See Stamping.h. The scans look for the first byte of a place with memchr and compare the rest only there:
// the engine is scanned seven times for each application.
#include "builder/Stamping.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "basic/CodePage.h"

namespace plinth {

namespace {

constexpr std::size_t kComparedCharacters = 15;
constexpr std::size_t kTailUnsearched = 81;  // a place must leave room for a whole placeholder
constexpr std::size_t kZeroBytes = 80;
constexpr std::size_t kLongestStampedName = 11;  // "Application.exe" less ".exe"

// The offset of the first `byte` in [from, to), or `to`.
std::size_t findByte(const Bytes& image, std::size_t from, std::size_t to, std::uint8_t byte) {
  if (from >= to) return to;
  const void* found = std::memchr(image.data() + from, byte, to - from);
  return found ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - image.data()) : to;
}

// Low bytes alone decide, so that a place is found whatever its high bytes were made by.
bool matchesAt(const Bytes& image, std::size_t offset, std::string_view searchText) {
  const std::size_t compared = std::min(searchText.size(), kComparedCharacters);
  for (std::size_t k = 0; k < compared; ++k) {
    if (image[offset + 2 * k] != static_cast<std::uint8_t>(searchText[k])) return false;
  }
  return true;
}

Bytes paddedUtf16(std::string_view value, std::size_t width, int codePage) {
  Bytes bytes;
  for (const char16_t unit : toUtf16(value, codePage)) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  }
  bytes.resize(std::max(bytes.size() + kZeroBytes, width), 0);
  bytes.resize(width);
  return bytes;
}

std::size_t number(const Bytes& image, std::size_t offset, std::size_t width) {
  std::size_t value = 0;
  if (offset > image.size() || image.size() - offset < width) return 0;
  for (std::size_t k = width; k-- > 0;) value = value << 8 | image[offset + k];
  return value;
}

// Where the resources of a program lie, as [from, to); the whole image when it is no program that says so.
// Outside of them the rules for places would also meet tables by which numbers are written as text: every
// second byte of the digit pairs "00010203..." reads like the placeholder of the trademarks, and 1/10 in 128
// bits is a row of the icon's filler.
std::pair<std::size_t, std::size_t> resourcePart(const Bytes& image) {
  constexpr std::size_t kSectionRow = 40, kSectionRows = 24;
  const std::size_t header = number(image, 0x3C, 4);
  const std::pair<std::size_t, std::size_t> whole{0, image.size()};
  if (number(image, 0, 2) != 0x5A4D || number(image, header, 4) != 0x4550) return whole;
  const std::size_t sections = number(image, header + 6, 2);
  std::size_t row = header + kSectionRows + number(image, header + 20, 2);
  for (std::size_t i = 0; i < sections && row + kSectionRow <= image.size(); ++i, row += kSectionRow) {
    if (std::memcmp(image.data() + row, ".rsrc\0\0\0", 8) != 0) continue;
    const std::size_t size = number(image, row + 16, 4), from = number(image, row + 20, 4);
    if (from < image.size()) return {from, from + std::min(size, image.size() - from)};
  }
  return whole;
}

}  // namespace

std::int64_t ReplaceBin(Bytes& image, std::string_view searchText, std::string_view value, int codePage) {
  const std::size_t width = 2 * searchText.size();
  if (searchText.empty() || image.size() <= std::max(kTailUnsearched, width)) return -1;
  const Bytes stamp = paddedUtf16(value, width, codePage);
  const std::size_t end = image.size() - std::max(kTailUnsearched, width) + 1;
  const auto first = static_cast<std::uint8_t>(searchText[0]);
  std::int64_t last = -1;
  for (std::size_t i = findByte(image, 1, end, first); i < end; i = findByte(image, i + 1, end, first)) {
    if (!matchesAt(image, i, searchText)) continue;
    std::copy(stamp.begin(), stamp.end(), image.begin() + static_cast<std::ptrdiff_t>(i));
    last = static_cast<std::int64_t>(i);
  }
  return last;
}

int stampIcon(Bytes& image, std::span<const std::uint8_t> iconBytes) {
  if (iconBytes.size() <= kIconPixels || image.empty()) return 0;
  const std::span<const std::uint8_t> pixels = iconBytes.subspan(kIconPixels);
  int stamped = 0;
  std::size_t i = findByte(image, 1, image.size(), kIconFiller);
  while (i < image.size()) {
    std::size_t runEnd = i;
    while (runEnd < image.size() && image[runEnd] == kIconFiller) ++runEnd;
    std::size_t next = runEnd;
    if (runEnd - i >= kIconFillerRun) {
      // A short icon leaves filler behind itself, where the scan goes on and finds a place again.
      const std::size_t length = std::min(pixels.size(), runEnd - i);
      std::copy_n(pixels.begin(), length, image.begin() + static_cast<std::ptrdiff_t>(i));
      next = i + length;
      ++stamped;
    }
    i = findByte(image, next, image.size(), kIconFiller);
  }
  return stamped;
}

void stampStub(Bytes& stub, std::span<const std::uint8_t> iconBytes, const FileProperties& properties,
               std::string_view appName, int codePage) {
  const struct {
    std::string_view placeholder;
    std::size_t comment;
  } versionTexts[] = {
      {"COMPANY-NAME-FIELD-PLACEHOLDER-ABCDEFGHI", 0}, {"FILE-DESCRIPTION-FIELD-PLACEHOLDER-ABCDE", 1},
      {"LEGAL-COPYRIGHT-FIELD-PLACEHOLDER-ABCDEF", 2}, {"9999012345678901234567890123456789012345", 4},
      {"0123456789012345678901234567890123456789", 3},
  };
  const auto [from, to] = resourcePart(stub);
  Bytes part(stub.begin() + static_cast<std::ptrdiff_t>(from),
             stub.begin() + static_cast<std::ptrdiff_t>(to));
  stampIcon(part, iconBytes);
  for (const auto& text : versionTexts)
    ReplaceBin(part, text.placeholder, properties.comments[text.comment], codePage);
  if (appName.size() <= kLongestStampedName) {
    ReplaceBin(part, "Application.exe", std::string(appName) + ".exe", codePage);
  }
  std::copy(part.begin(), part.end(), stub.begin() + static_cast<std::ptrdiff_t>(from));
}

}  // namespace plinth
