// Where the pixels of a clipboard picture begin, and headers that lie.
#include "platform/DibFile.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

Bytes bitmap(std::uint32_t header, int bits, int compression, std::uint32_t colors, std::size_t size) {
  Bytes bytes(size);
  const auto put = [&](std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4 && at + i < size; ++i)
      bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
  };
  put(0, header);
  put(14, static_cast<std::uint32_t>(bits));
  put(16, static_cast<std::uint32_t>(compression));
  put(32, colors);
  return bytes;
}

TEST(DibFile, FindsWhereThePixelsBegin) {
  const struct {
    const char* what;
    Bytes bitmap;
    std::uint32_t pixels;  // offset in the file, 0: refused
  } rows[] = {
      {"24 bits", bitmap(40, 24, 0, 0, 100), 54},
      {"palette by depth", bitmap(40, 4, 0, 0, 200), 54 + 64},
      {"palette by count", bitmap(40, 8, 0, 3, 200), 54 + 12},
      {"masks behind the header", bitmap(40, 32, 3, 0, 100), 54 + 12},
      {"masks in the header", bitmap(124, 32, 3, 0, 200), 14 + 124},
      {"too short", bitmap(40, 24, 0, 0, 20), 0},
      {"no pixels", bitmap(40, 24, 0, 0, 40), 0},
      {"header beyond the end", bitmap(0xFFFFFFF0, 24, 0, 0, 100), 0},
      {"old header", bitmap(12, 24, 0, 0, 100), 0},
      {"palette beyond the end", bitmap(40, 8, 0, 0xFFFFFFFF, 100), 0},
      {"depth", bitmap(40, 200, 0, 0, 100), 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const Bytes file = bitmapFileOf(row.bitmap);
    ASSERT_EQ(file.empty(), row.pixels == 0);
    if (file.empty()) continue;
    EXPECT_EQ(file.size(), row.bitmap.size() + 14);
    EXPECT_EQ(static_cast<std::uint32_t>(file[10] | file[11] << 8), row.pixels);
  }
}

}  // namespace
}  // namespace plinth
