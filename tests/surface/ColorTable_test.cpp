// The colour table: swatches of the project, six digits, and places for colours of one's own.
#include "surface/ColorTable.h"

#include <gtest/gtest.h>

#include "model/ProjectDocument.h"

namespace plinth {
namespace {

TEST(ColorTable, ShowsSwatchesAsDigits) {
  ProjectDocument document;
  ColorTable table(document.palette);
  const struct {
    int swatch;
    const char* digits;
  } cases[] = {{0, "000000"}, {8, "0000FF"}, {13, "004080"}, {39, "FF0000"}, {82, "3399FF"}, {95, "FFFFFF"}};
  for (const auto& c : cases) {
    table.choose(c.swatch);
    EXPECT_EQ(table.digits(), c.digits) << c.swatch;
    EXPECT_EQ(table.chosen(), table.color(c.swatch));
    EXPECT_EQ(table.chosenSwatch(), c.swatch);
  }
  for (const int none : {-1, 96}) table.choose(none);
  EXPECT_EQ(table.chosenSwatch(), 95);
}

TEST(ColorTable, TakesDigitsAndRefusesWhatIsNoColor) {
  ProjectDocument document;
  ColorTable table(document.palette);
  const struct {
    const char* typed;
    bool taken;
    const char* digits;
  } cases[] = {{"ff8000", true, "FF8000"}, {"ff", true, "0000FF"},      {"", false, "0000FF"},
               {"-1", false, "0000FF"},    {"12345G", false, "0000FF"}, {"1234567", false, "0000FF"},
               {" 1", false, "0000FF"},    {"0", true, "000000"}};
  for (const auto& c : cases) {
    EXPECT_EQ(table.typeDigits(c.typed), c.taken) << c.typed;
    EXPECT_EQ(table.digits(), c.digits) << c.typed;
  }
  EXPECT_EQ(table.chosenSwatch(), -1);
  table.chooseColor(-2147483643);
  EXPECT_EQ(table.digits().size(), 6u);
  EXPECT_GE(table.chosen(), 0);
}

TEST(ColorTable, KeepsColorsInFreeSwatchesOnly) {
  ProjectDocument document;
  const auto before = document.palette;
  ColorTable table(document.palette);
  table.chooseColor(0x123456);
  for (const int refused : {-1, 0, 82, 96}) EXPECT_FALSE(table.keep(refused)) << refused;
  EXPECT_EQ(document.palette, before);
  for (const int free : {83, 95}) {
    EXPECT_TRUE(table.keep(free));
    EXPECT_EQ(document.palette[static_cast<std::size_t>(free)], 0x123456);
    EXPECT_EQ(table.chosenSwatch(), free);
  }
}

}  // namespace
}  // namespace plinth
