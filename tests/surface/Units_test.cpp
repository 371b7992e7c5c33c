// Read-outs in four units, and rounding to the grid.
#include "surface/Units.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

using enum ScaleUnit;

TEST(Units, ReadoutsShowAtMostThreeDecimalsAndReadBack) {
  const struct {
    int pixels;
    ScaleUnit unit;
    const char* text;
  } cases[] = {{37, pixels, "37"},
               {-5, pixels, "-5"},
               {1000, pixels, "1000"},
               {96, inches, "1"},
               {0, inches, "0"},
               {100, inches, "1.042"},
               {24, inches, "0.25"},
               {1, millimeters, "0.265"},
               {480, millimeters, "127"},
               {1, centimeters, "0.026"},
               {-48, centimeters, "-1.27"},
               {9600, millimeters, "2540"}};
  for (const auto& c : cases) {
    EXPECT_EQ(readout(c.pixels, c.unit), c.text);
    EXPECT_EQ(pixelsOfReadout(c.text, c.unit), c.pixels) << c.text;
  }
  EXPECT_EQ(pixelsOfReadout(" 2,54 ", centimeters), 96);
  EXPECT_EQ(pixelsOfReadout("12.6", pixels), 13);
  EXPECT_EQ(pixelsOfReadout("12 px", pixels), 12);
  for (const char* none : {"", "x", "-", "."}) EXPECT_EQ(pixelsOfReadout(none, inches), 0) << none;
  EXPECT_EQ(pixelsOfReadout("1e300", inches), 30000);
}

TEST(Units, GridChoicesAreSizesInTheUnit) {
  const struct {
    int choice;
    ScaleUnit unit;
    const char* caption;
    double step;
  } cases[] = {{15, pixels, "15 x 15px", 15},
               {5, inches, "1/10 x 1/10 Inc", 9.6},
               {10, inches, "1/4 x 1/4 Inc", 24},
               {20, inches, "1 x 1 Inc", 96},
               {5, millimeters, "1 x 1mm", 96 / 25.4},
               {15, millimeters, "3 x 3mm", 288 / 25.4},
               {15, centimeters, "3/4 x 3/4cm", 720 / 25.4},
               {0, centimeters, "None", 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(gridCaption(c.choice, c.unit), c.caption);
    EXPECT_DOUBLE_EQ(gridStep(c.choice, c.unit), c.step) << c.caption;
  }
}

TEST(Units, GridFollowsChoiceAndUnit) {
  DesignState state;
  EXPECT_EQ(snapped(state, 7), 7);
  chooseGrid(state, 10);
  EXPECT_TRUE(state.gridOn());
  const struct {
    int from, to;
  } cases[] = {{4, 0}, {5, 0}, {6, 10}, {15, 20}, {25, 20}, {-5, 0}, {-6, -10}, {-15, -20}, {30, 30}};
  for (const auto& c : cases) EXPECT_EQ(snapped(state, c.from), c.to) << c.from;
  chooseUnit(state, inches);
  EXPECT_EQ(SnapPoint(state, {13, 11}).x, 24);
  EXPECT_EQ(SnapPoint(state, {13, 11}).y, 0);
  chooseGrid(state, 5);
  EXPECT_EQ(snapped(state, 30), 28);  // 28.8
  chooseGrid(state, 7);               // not on the menu
  EXPECT_FALSE(state.gridOn());
  EXPECT_EQ(snapped(state, 13), 13);
}

// Points that are whole pixels must not fall to the pixel before, and no point may wander when it is rounded
// again.
TEST(Units, GridPointsStayWhereTheyAre) {
  for (const ScaleUnit unit : {pixels, inches, millimeters, centimeters})
    for (const int choice : {5, 10, 15, 20}) {
      DesignState state;
      chooseUnit(state, unit);
      chooseGrid(state, choice);
      EXPECT_EQ(snapped(state, 28800), 28800) << gridCaption(choice, unit);
      for (int x = -50; x < 3000; x += 7) {
        const int once = snapped(state, x);
        EXPECT_EQ(snapped(state, once), once) << x << " " << gridCaption(choice, unit);
      }
    }
}

}  // namespace
}  // namespace plinth
