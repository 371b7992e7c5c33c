// What of a list is drawn, told by a canvas that writes its calls down.
#include "widgets/ListPainter.h"

#include <gtest/gtest.h>

#include "basic/Text.h"
#include "tests/fakes/RecordingCanvas.h"

namespace plinth {
namespace {

const FontSpec kFont{"Arial", 9, false, false, false, 0};  // letters 6 wide, lines 14 high

struct Cells : ListSource {
  std::int32_t rows() const override { return count; }
  std::int32_t rowId(std::int32_t row) const override { return row + 1; }
  std::string cell(std::int32_t, int column) const override {
    ++asked;
    return column == 1 ? text : "12.50";
  }
  std::int32_t count = 1000000;
  std::string text = "abcdefghijklmnop";
  mutable int asked = 0;
};

ListModel modelOf(const ListSource& source) {
  ListModel model;
  model.setColumns({{"", 0, false, false}, {"Name", 80, false, false}, {"Amount", 80, true, false}});
  RecordingCanvas canvas;
  const ListHeights heights = listHeights(canvas, kFont);
  model.setRowHeights(heights.row, heights.head);
  model.setSize({177, heights.head + 10 * heights.row}, 17);
  model.setSource(&source);
  return model;
}

std::vector<std::string> painted(const ListModel& model, const std::string& kind, bool focused = true) {
  RecordingCanvas canvas;
  paintList(canvas, {177, 240}, model, {{}, {true, focused, false}, kFont});
  std::vector<std::string> found;
  for (const std::string& call : canvas.calls)
    if (call.starts_with(kind)) found.push_back(call);
  return found;
}

TEST(ListPainter, CutsACellToTheShareOfItsLettersThatHasRoom) {
  const struct {
    std::string text, shown;
  } kCells[] = {{"abcdefghij", "abcdefghij"},        // 60 pixels of 80 - 20
                {"abcdefghijklmnop", "abcdefghij"},  // 16 * 60 / 96
                {std::string(10000, 'w'), std::string(10, 'w')},
                {std::string("a\0b\r\nc,d", 8), "a b c,d"}};
  for (const auto& one : kCells) {
    Cells cells;
    cells.text = one.text;
    const ListModel model = modelOf(cells);
    EXPECT_TRUE(contains(painted(model, "text")[0], "\"" + one.shown + "\"")) << one.shown;
  }
}

TEST(ListPainter, DrawsOnlyWhatIsInView) {
  Cells cells;
  ListModel model = modelOf(cells);
  model.setFirstRow(500000);
  EXPECT_EQ(painted(model, "text").size(), 2 * 11 + 2u);  // a part of the eleventh row, two heads
  EXPECT_EQ(cells.asked, 22);
  model.setColumnWidth(1, 500);
  model.setOffset(420);
  cells.asked = 0;
  EXPECT_FALSE(painted(model, "text").empty());
  const int withBoth = cells.asked;
  model.setOffset(0);
  cells.asked = 0;
  painted(model, "text");
  EXPECT_EQ(2 * cells.asked, withBoth);  // the other column is beyond the right edge
  cells.count = 0;                       // nobody has told the list
  EXPECT_LE(painted(model, "text").size(), 2u);
}

TEST(ListPainter, ShowsSelectionFocusAndLightRows) {
  Cells cells;
  cells.count = 100;
  ListModel model = modelOf(cells);
  const auto has = [&](bool focused, const char* what) {
    for (const std::string& call : painted(model, "box", focused))
      if (contains(call, what)) return true;
    return false;
  };
  EXPECT_TRUE(has(true, "solid #0078d7"));
  EXPECT_FALSE(has(false, "solid #0078d7"));
  EXPECT_TRUE(has(true, "pen dot"));
  EXPECT_FALSE(has(false, "pen dot"));
  EXPECT_TRUE(has(true, "0,40 160x18 pen none brush solid #fafafa"));  // the second row, below a head of 22
  model.setMultiSelect(true);
  EXPECT_FALSE(has(true, "solid #0078d7"));
  EXPECT_TRUE(has(true, "pen dot"));
  const auto boxes = painted(model, "box").size();
  model.sortBy(0, false);  // not shown
  EXPECT_EQ(painted(model, "box").size(), boxes);
  model.sortBy(2, false);
  EXPECT_GT(painted(model, "box").size(), boxes);  // the sign
}

TEST(ListPainter, AFittingColumnCutsNothing) {
  Cells cells;
  ListModel model = modelOf(cells);
  RecordingCanvas canvas;
  EXPECT_EQ(fittingWidth(canvas, model, 1, kFont), 16 * 6 + 20);
  model.setColumnWidth(1, fittingWidth(canvas, model, 1, kFont));
  EXPECT_TRUE(contains(painted(model, "text")[0], cells.text));
  cells.text.assign(10000, 'x');
  EXPECT_EQ(fittingWidth(canvas, model, 1, kFont), model.view().width);
  EXPECT_EQ(fittingWidth(canvas, model, 7, kFont), 0);
}

TEST(ListPainter, NoSizeIsTooSmall) {
  const Cells cells;
  ListModel model = modelOf(cells);
  for (const SizePx size : {SizePx{0, 0}, {5, 5}, {177, 10}, {10, 240}}) {
    model.setSize(size, 17);
    RecordingCanvas canvas;
    paintList(canvas, size, model, {{}, {}, kFont});
    for (const std::string& call : canvas.calls) EXPECT_FALSE(contains(call, "x-")) << call;
  }
}

}  // namespace
}  // namespace plinth
