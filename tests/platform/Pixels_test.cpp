// Reduced pictures keep their light: every source pixel counts by the area it covers.
#include "platform/Pixels.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

TEST(Pixels, reducesByArea) {
  const std::uint32_t black = 0xFF000000, white = 0xFFFFFFFF;
  // A white line in a black picture of 3 x 2, halves and thirds.
  const Pixels line{{3, 2}, {black, white, black, black, white, black}};
  EXPECT_EQ(reduced(line, {1, 1}).argb, (std::vector<std::uint32_t>{0xFF555555}));
  EXPECT_EQ(reduced(line, {3, 1}).argb, (std::vector<std::uint32_t>{black, white, black}));
  EXPECT_EQ(reduced(line, {2, 2}).argb, (std::vector<std::uint32_t>(4, 0xFF555555)));
  EXPECT_EQ(reduced(line, {9, 9}).argb, line.argb) << "never enlarged";
  EXPECT_EQ(reduced(line, {0, -5}).size.width, 1);
  EXPECT_TRUE(reduced({}, {4, 4}).argb.empty());
}

TEST(Pixels, multipliesByAlpha) {
  Pixels pixels{{3, 1}, {0xFF102030, 0x80FF8000, 0x00FFFFFF}};
  EXPECT_TRUE(premultiply(pixels));
  EXPECT_EQ(pixels.argb, (std::vector<std::uint32_t>{0xFF102030, 0x80804000, 0}));
  Pixels opaque{{1, 1}, {0xFF123456}};
  EXPECT_FALSE(premultiply(opaque));
}

}  // namespace
}  // namespace plinth
