// What a list makes of its rows, of keys and of the mouse.
#include "widgets/ListModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace plinth {
namespace {

using Rows = std::vector<std::int32_t>;

constexpr int kLetterA = 65;

// As many rows as one likes, made up when they are asked for.
struct Numbers : ListSource {
  explicit Numbers(std::int32_t count) : count(count) {}
  std::int32_t rows() const override { return count; }
  std::int32_t rowId(std::int32_t row) const override { return row + 1; }
  std::string cell(std::int32_t row, int) const override {
    ++asked;
    return std::to_string(row * 7919LL % count);
  }
  std::int32_t count;
  mutable int asked = 0;
};

// 100 rows of 10 pixels below a head of 20: ten are seen, with 11 columns of 50 in 200 pixels.
struct List {
  explicit List(const ListSource& source, bool mSelect = false) {
    model.setColumns({{"No.", 50, true, false},
                      {"Name", 50, false, false},
                      {"Amount", 50, true, false},
                      {"Day", 50, false, true}});
    model.setRowHeights(10, 20);
    model.setSize({217, 120}, 17);
    model.setMultiSelect(mSelect);
    model.setSource(&source);
  }
  ListOutcome press(int x, int y, unsigned shift = 0, bool twice = false) {
    return model.press({1, shift, x, y}, twice);
  }
  ListOutcome click(int x, int y, unsigned shift = 0) {
    press(x, y, shift);
    return model.release({x, y});
  }
  Rows marked() const { return model.markedCount() > 0 ? model.selectedRows() : Rows(); }
  ListModel model;
};

Rows order(const ListModel& model) {
  Rows rows;
  for (std::int32_t i = 0; i < model.listCount(); ++i) rows.push_back(model.rowAt(i));
  return rows;
}

TEST(ListArray, TakesARecordNumberAndElevenTextsFromALine) {
  ListArray array;
  array.addArray({"7,Ann,,x y", "12", "", "3,a,b,c,d,e,f,g,h,i,j,k,l,m", "99999999999,big"});
  ASSERT_EQ(array.rows(), 5);
  const struct {
    std::int32_t row, id;
    int column;
    const char* text;
  } kCells[] = {
      {0, 7, 1, "Ann"}, {0, 7, 2, ""},   {0, 7, 3, "x y"}, {0, 7, 11, ""}, {1, 12, 1, ""},
      {2, 0, 11, ""},   {3, 3, 11, "k"}, {3, 3, 12, ""},   {3, 3, 0, ""},  {4, 2147483647, 1, "big"},
      {5, 0, 1, ""},    {-1, 0, 1, ""}};
  for (const auto& one : kCells) {
    EXPECT_EQ(array.rowId(one.row), one.id) << one.row;
    EXPECT_EQ(array.cell(one.row, one.column), one.text) << one.row << " " << one.column;
  }
  array.append({"8~Smith, John~5"}, '~');
  EXPECT_EQ(array.cell(5, 1), "Smith, John");
  EXPECT_TRUE(array.removeText(0));
  EXPECT_FALSE(array.removeText(5));
  EXPECT_EQ(array.getArrayItem(0), "12");
  array.addArray({"1,only"});
  EXPECT_EQ(array.rows(), 1);
}

TEST(ListModel, SortsTextsNumbersAndDatesAsTheirColumnSays) {
  ListArray array;
  array.addArray({"30~beta~9~1/2/2020", "20~Alpha~-10~12/31/1999", "10~alphab~1,000.5~", "40~alpha~~2/1/2020",
                  std::string("5~al\0~x~3 Feb 1990", 18)},
                 '~');
  const struct {
    int column;
    bool descending;
    Rows rows;
  } kSorts[] = {{0, false, {4, 2, 1, 0, 3}}, {1, false, {4, 1, 3, 2, 0}}, {1, true, {0, 2, 1, 3, 4}},
                {2, false, {3, 4, 1, 0, 2}}, {3, false, {2, 4, 1, 0, 3}}, {3, true, {3, 0, 1, 4, 2}},
                {9, false, {0, 1, 2, 3, 4}}};
  List list(array);
  list.model.setCaret(2);
  for (const auto& one : kSorts) {
    list.model.sortBy(one.column, one.descending);
    EXPECT_EQ(order(list.model), one.rows) << one.column << one.descending;
    EXPECT_EQ(list.model.rowAt(list.model.caret()), 2);  // stays with its row
  }
  list.model.sortBy(12, false);
  EXPECT_EQ(list.model.sorting()->column, 9);
}

TEST(ListModel, SortsManyRowsInAnyOrderTheyComeIn) {
  const std::function<std::string(std::int32_t)> kKinds[] = {
      [](std::int32_t) { return std::string("same"); },
      [](std::int32_t row) { return std::to_string(100000 + row); },
      [](std::int32_t row) { return std::to_string(900000 - row); },
      [](std::int32_t row) { return "common beginning " + std::to_string(row * 31 % 977); }};
  struct Made : ListSource {
    std::int32_t rows() const override { return 5000; }
    std::int32_t rowId(std::int32_t row) const override { return row; }
    std::string cell(std::int32_t row, int) const override { return (*kind)(row); }
    const std::function<std::string(std::int32_t)>* kind = nullptr;
  } source;
  for (const auto& kind : kKinds) {
    source.kind = &kind;
    std::minstd_rand random;
    Rows expected(5000);
    for (std::int32_t i = 0; i < 5000; ++i) expected[static_cast<std::size_t>(i)] = i;
    std::stable_sort(expected.begin(), expected.end(), [&](auto a, auto b) { return kind(a) < kind(b); });
    EXPECT_EQ(sortedRows(source, 5000, {1}, {}, 0, random), expected) << kind(1);
  }
}

TEST(ListModel, KeysMoveTheCaretAndKeepItInView) {
  const Numbers numbers(100);
  List list(numbers);
  EXPECT_EQ(list.model.caret(), 0);
  const struct {
    int key;
    std::int32_t caret, first;
  } kSteps[] = {{kUpKey, 0, 0},         {kDownKey, 1, 0},     {kPageDownKey, 9, 0}, {kPageDownKey, 19, 10},
                {kDownKey, 20, 11},     {kPageUpKey, 11, 11}, {kPageUpKey, 1, 1},   {kEndKey, 99, 90},
                {kPageDownKey, 99, 90}, {kHomeKey, 0, 0}};
  for (const auto& one : kSteps) {
    EXPECT_TRUE(list.model.key({one.key, 0}).handled);
    EXPECT_EQ(list.model.caret(), one.caret) << one.key;
    EXPECT_EQ(list.model.firstRow(), one.first) << one.key;
  }
  list.model.wheel(30);
  EXPECT_EQ(list.model.firstRow(), 30);
  EXPECT_EQ(list.model.caret(), 0);  // out of view, until a key is pressed
  EXPECT_TRUE(list.model.key({kDownKey, 0}).selectionChanged);
  EXPECT_EQ(list.model.firstRow(), 1);
  EXPECT_FALSE(list.model.key({kEndKey, kAlt}).handled);
  EXPECT_FALSE(list.model.key({kLetterA, kCtrl}).handled);  // nothing to mark
  EXPECT_TRUE(list.model.key({kEnterKey, 0}).chosen);
  list.model.wheel(2147483647);
  EXPECT_EQ(list.model.firstRow(), 90);
}

TEST(ListModel, TypedLettersLeadToTheNextRowThatBeginsSo) {
  ListArray array;
  array.addArray({"1,Beta", "2,alpha", "3,Bern bridge", "4,berlin", "5,x"});
  List list(array);
  const struct {
    const char* character;
    std::uint32_t milliseconds;
    std::int32_t caret;
  } kTyped[] = {{"b", 5000, 2}, {"E", 5400, 2},  {"r", 5800, 2},  {"l", 6200, 3}, {"b", 8000, 0},
                {"q", 9900, 0}, {" ", 12000, 0}, {"x", 12100, 4}, {"b", 14000, 0}};
  for (const auto& one : kTyped) {
    list.model.type(one.character, one.milliseconds);
    EXPECT_EQ(list.model.caret(), one.caret) << one.character << one.milliseconds;
  }
  const ListArray none;
  EXPECT_FALSE(List(none).model.type("b", 9000).selectionChanged);
}

TEST(ListModel, MarksRowsByShiftAndCtrl) {
  const Numbers numbers(100);
  const struct {
    const char* name;
    std::function<void(List&)> act;
    Rows marked;
    std::int32_t caret;
  } kWays[] = {
      {"click", [](List& l) { l.click(5, 45); }, {2}, 2},
      {"shift click",
       [](List& l) {
         l.click(5, 45);
         l.click(5, 75, kShift);
         l.click(5, 25, kShift);
       },
       {0, 1, 2},
       0},
      {"ctrl click",
       [](List& l) {
         l.click(5, 45);
         l.click(5, 75, kCtrl);
         l.click(5, 45, kCtrl);
       },
       {5},
       2},
      {"both",
       [](List& l) {
         l.click(5, 25);
         l.click(5, 55, kCtrl);
         l.click(5, 75, kCtrl | kShift);
       },
       {0, 3, 4, 5},
       5},
      {"keys",
       [](List& l) {
         l.model.key({kDownKey, 0});
         l.model.key({kDownKey, kShift});
       },
       {1, 2},
       2},
      {"space",
       [](List& l) {
         l.click(5, 25);
         l.model.key({kDownKey, kCtrl});
         l.model.key({kDownKey, kCtrl});
         l.model.key({kSpaceKey, kCtrl});
       },
       {0, 2},
       2},
      {"drag",
       [](List& l) {
         l.press(5, 45);
         l.model.drag({5, 95});
         l.model.drag({5, 65});
       },
       {2, 3, 4},
       4},
      {"drag out",
       [](List& l) {
         l.press(5, 115);
         l.model.drag({5, 999});
         l.model.drag({5, 999});
       },
       {9, 10, 11},
       11},
      {"right",
       [](List& l) {
         l.click(5, 25);
         l.click(5, 35, kCtrl);
         l.model.press({2, 0, 5, 25});
       },
       {0, 1},
       1},
  };
  for (const auto& one : kWays) {
    List list(numbers, true);
    one.act(list);
    EXPECT_EQ(list.marked(), one.marked) << one.name;
    EXPECT_EQ(list.model.caret(), one.caret) << one.name;
  }
  List list(numbers, true);
  EXPECT_EQ(list.model.selectedRows().size(), 100u);  // none marked: all
  list.model.key({kLetterA, kCtrl});
  EXPECT_EQ(list.model.markedCount(), 100);
  list.click(5, 45);
  list.model.sortBy(1, true);
  EXPECT_EQ(list.marked(), Rows({2}));  // stays with its row
  list.model.setMultiSelect(false);
  EXPECT_EQ(list.model.markedCount(), 0);
}

TEST(ListModel, TellsOnlyOfPlainClicksThatARowWasChosen) {
  const Numbers numbers(100);
  List list(numbers, true);
  EXPECT_TRUE(list.click(5, 45).chosen);
  EXPECT_FALSE(list.click(5, 55, kCtrl).chosen);
  EXPECT_TRUE(list.press(5, 45, 0, true).activated);
  EXPECT_FALSE(list.model.release({5, 45}).chosen);
  list.press(5, 45);
  list.model.drag({5, 65});
  EXPECT_FALSE(list.model.release({5, 65}).chosen);
  list.press(5, 45);
  list.model.cancel();
  EXPECT_FALSE(list.model.release({5, 45}).chosen);
  // The last row is cut off: a press brings it up, away from below the pointer, which has not moved.
  list.model.setSize({217, 125}, 17);
  list.press(5, 124);
  EXPECT_EQ(list.model.firstRow(), 1);
  EXPECT_FALSE(list.model.drag({5, 123}).selectionChanged);
  EXPECT_TRUE(list.model.release({5, 123}).chosen);
  EXPECT_EQ(list.model.caret(), 10);
}

TEST(ListModel, HeadsSortAndTheirEdgesSizeColumns) {
  const Numbers numbers(100);
  List list(numbers);
  EXPECT_TRUE(list.click(60, 5).sorted);
  EXPECT_EQ(list.model.sorting()->column, 1);
  EXPECT_EQ(list.model.caret(), 0);  // nobody has set it: the list begins at its beginning
  EXPECT_FALSE(list.model.sorting()->descending);
  list.click(60, 5);
  EXPECT_TRUE(list.model.sorting()->descending);
  list.click(60, 5);
  EXPECT_FALSE(list.model.sorting()->descending);
  list.press(60, 5);
  EXPECT_EQ(list.model.pressedHead(), 1);
  EXPECT_FALSE(list.model.release({130, 5}).sorted);
  EXPECT_EQ(list.press(99, 5, 0, true).fitColumn, 1);
  list.press(101, 5);
  EXPECT_TRUE(list.model.drag({141, 200}).columnSized);
  EXPECT_EQ(list.model.columns()[1].width, 90);
  EXPECT_TRUE(list.model.horizontalBar());
  list.model.setOffset(1000);
  EXPECT_EQ(list.model.offset(), 40);
  list.model.drag({-5000, 5});
  EXPECT_EQ(list.model.columns()[1].width, kLeastColumn);
  EXPECT_EQ(list.model.offset(), 0);
  EXPECT_FALSE(list.model.release({0, 5}).sorted);
}

TEST(ListModel, KeepsItsPlaceWhileTheSourceChanges) {
  Numbers numbers(100);
  List list(numbers, true);
  list.model.setCaret(60);
  list.model.key({kDownKey, kShift});
  numbers.count = 200;
  list.model.rowsChanged();
  EXPECT_EQ(list.model.caret(), 61);
  EXPECT_EQ(list.marked(), Rows({60, 61}));
  list.model.sortBy(1, false);
  numbers.count = 300;
  list.model.rowsChanged();
  Rows rows = order(list.model);
  EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(),
                             [&](auto a, auto b) { return numbers.cell(a, 1) < numbers.cell(b, 1); }));
  EXPECT_EQ(list.model.rowAt(list.model.caret()), 61);
  numbers.count = 61;
  EXPECT_EQ(list.model.getItem(list.model.positionOf(250), 1), "");  // nobody has told yet
  list.model.rowsChanged();
  rows = order(list.model);
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows.back(), 60);
  EXPECT_EQ(rows.size(), 61u);
  EXPECT_EQ(list.marked(), Rows({60}));
  EXPECT_LT(list.model.caret(), 61);
  for (numbers.count = 60; numbers.count >= 0; --numbers.count) {
    list.model.rowRemoved(numbers.count / 2);
    ASSERT_EQ(list.model.listCount(), numbers.count);
    ASSERT_EQ(list.model.caret() < 0, numbers.count == 0);
    ASSERT_LT(list.model.caret(), std::max(1, numbers.count));
  }
  EXPECT_EQ(list.model.getContentNo(list.model.caret()), 0);
  for (const int key : {kEnterKey, kSpaceKey, kEndKey, kUpKey, kPageDownKey, kLetterA})
    EXPECT_FALSE(list.model.key({key, kCtrl}).chosen);
  EXPECT_FALSE(list.click(5, 45).chosen);
  list.model.setSource(nullptr);
  EXPECT_EQ(list.model.caret(), -1);
}

TEST(ListModel, AMillionRowsCostNothingUntilTheyAreSeen) {
  const Numbers numbers(1000000);
  List list(numbers, true);
  list.model.key({kEndKey, 0});
  EXPECT_EQ(list.model.firstRow(), 999990);
  EXPECT_EQ(list.marked(), Rows({999999}));
  EXPECT_EQ(numbers.asked, 0);
  EXPECT_EQ(list.model.getContentNo(999999), 1000000);
}

TEST(ListModel, BarsComeWhereTheyAreNeeded) {
  const struct {
    SizePx size;
    std::int32_t rows;
    bool upright, across;
  } kSizes[] = {{{217, 120}, 10, false, false}, {{217, 120}, 11, true, false}, {{199, 120}, 9, true, true},
                {{199, 120}, 8, false, true},   {{199, 120}, 10, true, true},  {{200, 120}, 11, true, true},
                {{0, 0}, 5, true, true}};
  for (const auto& one : kSizes) {
    const Numbers numbers(one.rows);
    List list(numbers);
    list.model.setSize(one.size, 17);
    EXPECT_EQ(list.model.verticalBar(), one.upright) << one.size.width << " " << one.rows;
    EXPECT_EQ(list.model.horizontalBar(), one.across) << one.size.width << " " << one.rows;
  }
}

}  // namespace
}  // namespace plinth
