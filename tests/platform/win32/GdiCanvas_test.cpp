// Canvas calls, judged by the pixels they leave on a bitmap.
#include "platform/win32/GdiCanvas.h"

#include <gtest/gtest.h>

#include "platform/win32/Screenshot.h"
#include "platform/win32/WicPictures.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

constexpr std::int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kWhite = 0xFFFFFF;

// A white bitmap to paint on.
class GdiCanvasTest : public testing::Test {
 protected:
  GdiCanvasTest() : bitmap_(SizePx{60, 40}), canvas_(bitmap_.dc()) {
    canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kWhite});
  }
  // What a pixel shows: 'r', 'g', '.' white, '#' else.
  char at(int x, int y) const {
    switch (bitmap_.pixels().argb[static_cast<std::size_t>(y) * 60 + x]) {
      case 0xFFFF0000:
        return 'r';
      case 0xFF00FF00:
        return 'g';
      case 0xFFFFFFFF:
        return '.';
      default:
        return '#';
    }
  }
  std::string row(int y, int from, int to) const {
    std::string all;
    for (int x = from; x < to; ++x) all += at(x, y);
    return all;
  }
  int count(char what) const {
    int sum = 0;
    for (int y = 0; y < 40; ++y)
      for (const char c : row(y, 0, 60)) sum += c == what;
    return sum;
  }
  static constexpr Pen kNoPen{LineStyle::none};
  GdiBitmap bitmap_;
  GdiCanvas canvas_;
};

TEST_F(GdiCanvasTest, boxesStayInsideTheirRectangle) {
  for (const int width : {1, 2, 3, 4, 5}) {
    SCOPED_TRACE(width);
    canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kWhite});
    canvas_.box({10, 10, 20, 15}, {LineStyle::solid, width, kRed}, {FillStyle::solid, kGreen});
    EXPECT_EQ(count('r') + count('g'), 20 * 15);
    EXPECT_EQ(count('g'), (20 - 2 * width) * (15 - 2 * width));
    EXPECT_EQ(row(17, 8, 12 + width).substr(0, 3), "..r");
    EXPECT_EQ(row(17, 29, 32), "r..");
  }
  canvas_.box({40, 30, 10, 5}, kNoPen, {FillStyle::solid, kRed});
  EXPECT_EQ(row(30, 39, 51), ".rrrrrrrrrr.");
  EXPECT_EQ(row(34, 39, 51), ".rrrrrrrrrr.");
  EXPECT_EQ(row(35, 39, 51), "............");
}

TEST_F(GdiCanvasTest, linesReachBothEnds) {
  canvas_.line({5, 5}, {9, 5}, {LineStyle::solid, 1, kRed});
  EXPECT_EQ(row(5, 4, 11), ".rrrrr.");
  canvas_.line({5, 20}, {15, 20}, {LineStyle::solid, 3, kGreen});
  EXPECT_EQ(at(10, 19), 'g');
  EXPECT_EQ(at(10, 21), 'g');
  EXPECT_EQ(at(10, 22), '.');
  canvas_.line({30, 5}, {55, 5}, {LineStyle::dash, 1, kRed});
  const std::string dashed = row(5, 30, 55);
  EXPECT_NE(dashed.find('.'), dashed.npos);
  EXPECT_NE(dashed.find('r'), dashed.npos);
}

TEST_F(GdiCanvasTest, hatchesShowOrCoverWhatIsBehind) {
  canvas_.box({0, 0, 30, 30}, kNoPen, {FillStyle::horizontal, kRed});
  EXPECT_EQ(count('g'), 0);
  EXPECT_GT(count('.'), 30 * 40);
  canvas_.box({0, 0, 30, 30}, kNoPen, {FillStyle::cross, kRed, true, kGreen});
  EXPECT_GT(count('g'), 400);
  EXPECT_EQ(count('g') + count('r'), 900);
}

TEST_F(GdiCanvasTest, roundedCornersAndEllipsesLeaveTheCornersFree) {
  canvas_.box({0, 0, 30, 30}, {LineStyle::solid, 1, kRed}, {FillStyle::solid, kGreen}, 10);
  EXPECT_EQ(at(0, 0), '.');
  EXPECT_EQ(at(29, 29), '.');
  EXPECT_EQ(at(15, 0), 'r');
  EXPECT_EQ(at(15, 29), 'r');
  EXPECT_EQ(at(15, 15), 'g');
  canvas_.ellipse({30, 0, 30, 30}, {LineStyle::solid, 1, kRed}, {FillStyle::none});
  EXPECT_EQ(at(30, 0), '.');
  EXPECT_EQ(at(30, 15), 'r');
  EXPECT_EQ(at(59, 15), 'r');
  EXPECT_EQ(at(45, 15), '.');
}

TEST_F(GdiCanvasTest, textStaysInItsRectangleAndAligns) {
  const FontSpec font{"Arial", 9};
  const auto leftAndRightInk = [&](TextAlign align) {
    canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kWhite});
    canvas_.text({10, 10, 40, 20}, "II", font, 0, align);
    int left = 60, right = -1;
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 60; ++x)
        if (at(x, y) != '.') left = std::min(left, x), right = std::max(right, x);
    return std::pair(left, right);
  };
  EXPECT_LT(leftAndRightInk(TextAlign::left).first, 14);
  EXPECT_GT(leftAndRightInk(TextAlign::right).second, 45);
  const auto [left, right] = leftAndRightInk(TextAlign::center);
  EXPECT_NEAR(left + right, 60, 4);
  canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kWhite});
  canvas_.text({20, 15, 10, 6}, "WWWWWWWW & more\nlines", font, 0, TextAlign::left, true, true);
  for (int y = 0; y < 40; ++y) {
    const std::string outside = row(y, 0, 20) + row(y, 30, 60) + (y < 15 || y >= 21 ? row(y, 20, 30) : "");
    EXPECT_EQ(outside.find_first_not_of('.'), std::string::npos) << y;
  }
}

TEST_F(GdiCanvasTest, measuresByFontScaleAndLines) {
  const FontSpec font{"Arial", 10}, large{"Arial", 20};
  const SizePx one = canvas_.measure("Plinth", font);
  EXPECT_GT(one.width, 20);
  EXPECT_NEAR(canvas_.measure("Plinth", large).width, 2 * one.width, 4);
  EXPECT_EQ(canvas_.measure("Plinth\r\nx", font).height, 2 * one.height);
  EXPECT_EQ(canvas_.measure("", font).height, one.height);
  EXPECT_EQ(canvas_.measure("", font).width, 0);
  GdiCanvas printer(bitmap_.dc(), 600 / 96.0);
  EXPECT_NEAR(printer.measure("Plinth", font).width, one.width, 2) << "in units, not in dots";
  const FontSpec cyrillic{"Arial", 10, false, false, false, 204};
  EXPECT_NE(canvas_.measure("\xE4\xE4\xE4\xE4", cyrillic).width,
            canvas_.measure("\xE9\xE9\xE9\xE9\xE9", font).width);
  FontCache cache;
  EXPECT_EQ(cache.get(font, 13), cache.get(font, 13));
  cache.get(cyrillic, 13);
  EXPECT_EQ(cache.size(), 2u);
}

TEST_F(GdiCanvasTest, clipsNest) {
  canvas_.pushClip({10, 10, 20, 20});
  canvas_.pushClip({20, 0, 40, 40});
  canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kRed});
  EXPECT_EQ(count('r'), 10 * 20);
  canvas_.popClip();
  canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kGreen});
  EXPECT_EQ(count('g'), 20 * 20);
  canvas_.popClip();
  canvas_.popClip();  // one too many does no harm
  canvas_.box({0, 0, 60, 40}, kNoPen, {FillStyle::solid, kGreen});
  EXPECT_EQ(count('g'), 60 * 40);
}

TEST_F(GdiCanvasTest, picturesStretchAndBlend) {
  canvas_.picture({0, 0, 20, 10}, GdiImage({{2, 1}, {0xFFFF0000, 0xFF00FF00}}, false));
  EXPECT_EQ(at(0, 5), 'r');
  EXPECT_EQ(at(19, 5), 'g');
  EXPECT_EQ(at(20, 5), '.');
  canvas_.picture({30, 0, 20, 20}, GdiImage({{1, 1}, {0}}, true));
  EXPECT_EQ(at(40, 10), '.') << "nothing to see of a transparent picture";
  canvas_.picture({30, 20, 10, 10}, GdiImage({{1, 1}, {0x80800000}}, true));
  EXPECT_EQ(at(35, 25), '#') << "half red on white";
  EXPECT_EQ(at(35, 25), at(39, 29));
}

TEST_F(GdiCanvasTest, scalesAndMovesItsUnits) {
  GdiCanvas twice(bitmap_.dc(), 2, {10, 4});
  twice.box({1, 1, 4, 3}, kNoPen, {FillStyle::solid, kRed});
  EXPECT_EQ(count('r'), 8 * 6);
  EXPECT_EQ(row(6, 11, 21), ".rrrrrrrr.");
}

LRESULT CALLBACK paintRed(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message != WM_PAINT) return ::DefWindowProcA(window, message, wide, longer);
  BufferedPaint paint(window);
  GdiCanvas(paint.dc()).box({20, 10, 30, 20}, {LineStyle::none}, {FillStyle::solid, kRed});
  return 0;
}

TEST(Screenshot, showsWhatAWindowPainted) {
  WNDCLASSA kind = {};
  kind.lpfnWndProc = paintRed;
  kind.hInstance = ::GetModuleHandleA(nullptr);
  kind.lpszClassName = "PlinthPaintTest";
  ::RegisterClassA(&kind);
  const HWND window = ::CreateWindowA("PlinthPaintTest", "", WS_POPUP | WS_VISIBLE, 10, 10, 100, 60, nullptr,
                                      nullptr, kind.hInstance, nullptr);
  ASSERT_TRUE(window);
  const RECT part{0, 0, 100, 20};  // the buffer has to land where only a part is painted
  ::UpdateWindow(window);
  ::InvalidateRect(window, &part, FALSE);
  const TempFolder folder;
  EXPECT_TRUE(saveScreenshot(window, folder / "shot.png"));
  ::DestroyWindow(window);
  const auto shot =
      std::dynamic_pointer_cast<GdiImage>(WicDecoder().decode(*systemFiles().read(folder / "shot.png")));
  ASSERT_TRUE(shot);
  ASSERT_EQ(shot->size().width, 100);
  const auto pixel = [&](int x, int y) { return shot->pixels().argb[static_cast<std::size_t>(y) * 100 + x]; };
  EXPECT_EQ(pixel(20, 10), 0xFFFF0000);
  EXPECT_EQ(pixel(49, 29), 0xFFFF0000);
  EXPECT_NE(pixel(50, 29), 0xFFFF0000);
  EXPECT_NE(pixel(19, 10), 0xFFFF0000);
}

}  // namespace
}  // namespace plinth
