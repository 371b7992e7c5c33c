// What a page paints, told by a canvas that writes its calls down.
#include "widgets/PagePainter.h"

#include <gtest/gtest.h>

#include "tests/fakes/RecordingCanvas.h"
#include "widgets/OffsetCanvas.h"

namespace plinth {
namespace {

std::string painted(const ItemShape& shape) {
  RecordingCanvas canvas;
  paintItem(shape, canvas);
  return canvas.recording();
}

TEST(PagePainter, KeepsOrderAndLeavesOutWhatLiesOutsideTheClip) {
  const Pen pen;
  const PageItems items{{{0, 1}, SquareItem{{0, 0, 50, 20}, ShapeForm::oval, pen, {}}},
                        {{0, 2}, TitleItem{{500, 0, 10, 10}, "outside", {}}},
                        {{0, 3}, LineItem{{10, 40}, {10, 5}, pen}}};
  RecordingCanvas canvas;
  OffsetCanvas moved(canvas, {100, 200});
  paintPage(items, moved, {0, 0, 60, 60});
  EXPECT_EQ(canvas.recording(),
            "clip 100,200 60x60\n"
            "ellipse 100,200 50x20 pen solid 1 #000000 brush solid #ffffff\n"
            "line 110,240 110,205 pen solid 1 #000000\n"
            "unclip\n");
}

TEST(PagePainter, SquaresTakeTheirSixForms) {
  const struct {
    int stored;
    const char* begins;
    bool round;
  } cases[] = {{0, "box 10,20 40x30", false},     {1, "box 15,20 30x30", false},
               {2, "ellipse 10,20 40x30", false}, {3, "ellipse 15,20 30x30", false},
               {4, "box 10,20 40x30", true},      {5, "box 15,20 30x30", true},
               {6, "box 10,20 40x30", false},     {-1, "box 10,20 40x30", false}};
  for (const auto& c : cases) {
    const std::string call = painted(SquareItem{{10, 20, 40, 30}, shapeFormOf(c.stored), {}, {}});
    EXPECT_EQ(call.rfind(c.begins, 0), 0u) << c.stored << ": " << call;
    EXPECT_EQ(call.find("radius") != std::string::npos, c.round) << c.stored;
  }
}

TEST(PagePainter, StoredNumbersBecomePensAndBrushes) {
  // backStyle, fillStyle: what the inside of a square is filled with.
  EXPECT_EQ(squareBrush(1, 0xAA, 1, 0xBB).color, 0xAA);             // opaque back, no fill
  EXPECT_EQ(squareBrush(0, 0xAA, 1, 0xBB).style, FillStyle::none);  // neither
  EXPECT_EQ(squareBrush(0, 0xAA, 0, 0xBB).color, 0xBB);             // solid fill wins over the back
  const Brush hatch = squareBrush(1, 0xAA, 7, 0xBB);
  EXPECT_EQ(hatch.style, FillStyle::diagonalCross);
  EXPECT_TRUE(hatch.opaqueBack && hatch.backColor == 0xAA && hatch.color == 0xBB);
  EXPECT_EQ(squareBrush(1, 0xAA, 99, 0xBB).color, 0xAA);  // unknown fill: as none
  EXPECT_EQ(squarePen(0, 3, 1).style, LineStyle::none);
  EXPECT_EQ(squarePen(6, 0, 1).width, 1);
  EXPECT_EQ(squarePen(5, 1, 1).style, LineStyle::dashDotDot);
  EXPECT_EQ(plainColor(static_cast<std::int32_t>(0x80000005)), 0xFFFFFF);  // window
  EXPECT_EQ(plainColor(static_cast<std::int32_t>(0x800000FF)), 0xFFFFFF);  // no such system colour
  EXPECT_EQ(withoutAccessKey("Save && E&xit&"), "Save & Exit");
}

TEST(PagePainter, BoxesShowTextFrameAndColours) {
  BoxItem box{{7, 7, 106, 21}, {10, 10, 100, 15}, {1, 0x808080},   "12.50", {},
              0x0000FF,        0xFFFFFF,          TextAlign::right};
  const std::string field = painted(box);
  EXPECT_NE(field.find("box 7,7 106x21 pen none brush solid #ffffff"), std::string::npos);
  EXPECT_NE(field.find("text 11,10 98x15 \"12.50\" Arial 9 #ff0000 right middle"), std::string::npos);
  box.frame.style = 0;  // without a frame only the text's own area is filled
  EXPECT_EQ(painted(box).find("box 7,7"), std::string::npos);
  EXPECT_NE(painted(box).find("box 10,10 100x15"), std::string::npos);
  box.memo = true;
  EXPECT_NE(painted(box).find("text 11,10 82x15 \"12.50\" Arial 9 #ff0000 right wrap"), std::string::npos);
}

TEST(PagePainter, PicturesStretchOrKeepTheirSize) {
  PictureItem item{{0, 0, 40, 30}, std::make_shared<FakeImage>(SizePx{100, 80}, "logo"), true, 0, false, ""};
  EXPECT_NE(painted(item).find("picture 0,0 40x30 logo"), std::string::npos);
  item.stretch = false;
  EXPECT_EQ(painted(item), "clip 0,0 40x30\npicture 0,0 100x80 logo\nunclip\n");
  item.image = nullptr;
  item.placeholder = "Photo";
  EXPECT_NE(painted(item).find("\"Photo\""), std::string::npos);
}

TEST(PagePainter, ButtonsCentreIconAndCaptionTogether) {
  const std::string plain = painted(ButtonItem{{0, 0, 100, 30}, "&New", {}});
  EXPECT_NE(plain.find("\"New\" Arial 9 #000000 center middle"), std::string::npos);
  const std::string icon =
      painted(ButtonItem{{0, 0, 100, 30}, "New", {}, 0, 0xF0F0F0, ButtonIcon::newRecord});
  EXPECT_NE(icon.find("\"New\" Arial 9 #000000 left middle"), std::string::npos);
  for (int number = 1; number <= 20; ++number)  // each number has a picture
    EXPECT_NE(painted(ButtonItem{{0, 0, 100, 30}, "", {}, 0, 0xF0F0F0, buttonIconOf(number)}),
              painted(ButtonItem{{0, 0, 100, 30}, "", {}, 0, 0xF0F0F0, ButtonIcon::none}))
        << number;
}

TEST(PagePainter, TitlesGrowToWhatTheirDeviceNeeds) {
  EXPECT_EQ(painted(TitleItem{{5, 6, 10, 3}, "Name", {}, 0xFF, TextAlign::center}),
            "text 5,6 24x14 \"Name\" Arial 9 #ff0000 center\n");
  EXPECT_EQ(painted(TitleItem{{5, 6, 50, 30}, "Name", {}}), "text 5,6 50x30 \"Name\" Arial 9 #000000 left\n");
}

TEST(PagePainter, TilesFillByTheirMode) {
  const FakeImage tile({20, 10}, "t");
  const struct {
    int mode;
    long tiles;
  } cases[] = {{0, 3 * 5}, {1, 5}, {2, 3}, {3, 0}, {-1, 0}};
  for (const auto& c : cases) {
    RecordingCanvas canvas;
    paintTiles(canvas, tile, c.mode, {60, 50}, {0, 0, 1000, 1000});
    EXPECT_EQ(std::count_if(canvas.calls.begin(), canvas.calls.end(),
                            [](const std::string& call) { return call.rfind("picture", 0) == 0; }),
              c.tiles)
        << c.mode;
  }
  RecordingCanvas canvas;  // only what is seen, from where the pattern has it
  paintTiles(canvas, tile, 0, {60, 50}, {25, 25, 1, 1});
  EXPECT_EQ(canvas.recording(), "clip 25,25 1x1\npicture 20,20 20x10 t\nunclip\n");
}

TEST(PagePainter, ShapesWithoutRoomDoNotPaintBackwards) {
  for (const ItemShape& shape :
       {ItemShape(CheckItem{{0, 0, 1, 1}}), ItemShape(ButtonItem{{0, 0, 2, 2}, "x", {}}),
        ItemShape(BoxItem{{0, 0, 0, 0}, {}, {5, 0}, "x", {}}),
        ItemShape(PictureItem{{0, 0, 3, 3}, nullptr, false, 1, true, "x"})})
    EXPECT_EQ(painted(shape).find("x-"), std::string::npos) << painted(shape);
}

}  // namespace
}  // namespace plinth
