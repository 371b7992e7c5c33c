// The rectangle on the page: what it collects, how it moves, and how its members are lined up.
#include "surface/AreaSelection.h"

#include <gtest/gtest.h>

#include "surface/ObjectPlaces.h"
#include "surface/Units.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

std::string text(const RectPx& r) {
  return std::to_string(r.left) + "," + std::to_string(r.top) + " " + std::to_string(r.width) + "x" +
         std::to_string(r.height);
}

class AreaSelectionTest : public testing::Test, protected DesignFixture {
 protected:
  void press(int x, int y) { area.mouseDown({.button = 1, .x = x, .y = y}); }
  void drag(int x, int y) { area.mouseMove({.button = 1, .x = x, .y = y}); }
  void release(int x, int y) { area.mouseUp({.button = 1, .x = x, .y = y}); }
  void sweep(PointPx from, PointPx to) {
    if (!area.active()) area.toggle();
    press(from.x, from.y);
    drag((from.x + to.x) / 2, (from.y + to.y) / 2);
    drag(to.x, to.y);
    release(to.x, to.y);
  }
  std::string members() const {
    std::string all;
    for (const ObjectRef object : state.multiSel) all += (all.empty() ? "" : " ") + shortName(object);
    return all;
  }
  std::string placeText(ObjectRef object) const { return text(place(object)); }

  AreaSelection area{context};
};

TEST_F(AreaSelectionTest, CollectsWhatLiesFullyInsideInItsOrder) {
  for (const ObjectKind kind : {Script, Button, Combo, CheckBox, Memo, Field, Picture, Square, Title, Line})
    add(kind, {100, 100, 60, 60});
  document.titles.back().caption = "Name";
  const ObjectRef other = add(Square, {100, 100, 30, 30}, 1);
  add(Square, {110, 100, 30, 30}, kPageAll);
  const ObjectRef hidden = add(Button, {100, 100, 30, 30}), across = add(Memo, {141, 100, 60, 60});
  hideObject(context, hidden);
  sweep({100, 100}, {200, 200});
  EXPECT_EQ(members(), "Line 1 L6 square 0 square 2 P0 F1 M2 K0 C1 button 0 script 1");
  EXPECT_EQ(state.selKind, kSelArea);
  EXPECT_GT(view.selections, 0);

  sweep({301, 301}, {300, 300});  // as large as nothing
  EXPECT_EQ(members(), "");
  EXPECT_TRUE(state.userSelVisible);
  state.currentPage = 1;
  area.selectAll();
  EXPECT_EQ(text(state.userSel), "0,0 640x480");
  EXPECT_EQ(members(), "square 1 square 2");
  document.memos[static_cast<std::size_t>(across.index)].page = 1;
  area.leave();
  sweep({100, 100}, {202, 162});
  EXPECT_EQ(members(), "square 1 square 2 M3");
  setPage(document, other, kPageDeleted);
  area.collect();
  EXPECT_EQ(members(), "square 2 M3");
}

TEST_F(AreaSelectionTest, TheRectangleFollowsThePointerGridAndPage) {
  const struct {
    PointPx from, to;
    int grid;
    const char* expected;
  } cases[] = {{{10, 20}, {50, 70}, 0, "10,20 40x50"},       {{50, 70}, {10, 20}, 0, "10,20 40x50"},
               {{50, 20}, {10, 70}, 0, "10,20 40x50"},       {{50, 50}, {53, 90}, 0, "50,50 10x40"},
               {{50, 50}, {50, 50}, 0, "50,50 10x10"},       {{-5, -5}, {30, 30}, 0, "0,0 30x30"},
               {{600, 400}, {900, 900}, 0, "600,400 40x80"}, {{12, 18}, {58, 66}, 10, "10,20 50x50"},
               {{33, 33}, {11, 72}, 20, "20,40 20x40"}};
  for (const auto& c : cases) {
    plinth::chooseGrid(state, c.grid);
    sweep(c.from, c.to);
    EXPECT_EQ(text(state.userSel), c.expected);
    area.leave();
  }
  EXPECT_FALSE(history.canUndo());
}

TEST_F(AreaSelectionTest, EntersAndLeavesWithPointerAndPanel) {
  const ObjectRef field = add(Field, {10, 10, 60, 21});
  select(state, field);
  state.lineEndsShown = true;
  area.toggle();
  EXPECT_TRUE(area.active());
  EXPECT_EQ(state.pointer, PointerShape::area);
  EXPECT_FALSE(state.lineEndsShown);
  EXPECT_EQ(view.selections, 1);
  sweep({5, 5}, {100, 100});
  const struct {
    ScaleUnit unit;
    int x;
    PointerShape pointer;
  } cases[] = {
      {ScaleUnit::pixels, 3, PointerShape::sizeAll},        {ScaleUnit::pixels, 2, PointerShape::area},
      {ScaleUnit::pixels, 101, PointerShape::sizeAll},      {ScaleUnit::pixels, 102, PointerShape::area},
      {ScaleUnit::millimeters, 106, PointerShape::sizeAll}, {ScaleUnit::inches, 290, PointerShape::sizeAll},
      {ScaleUnit::inches, 293, PointerShape::area}};
  for (const auto& c : cases) {
    state.scaleUnit = c.unit;
    area.mouseMove({.button = 0, .x = c.x, .y = 50});
    EXPECT_EQ(state.pointer, c.pointer) << c.x;
  }
  area.toggle();
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_EQ(state.pointer, PointerShape::standard);
  EXPECT_FALSE(state.userSelVisible);
  EXPECT_EQ(members(), "");
}

TEST_F(AreaSelectionTest, MembersMoveWithTheRectangleAsOneStep) {
  const ObjectRef memo = add(Memo, {20, 20, 50, 50}), line = add(Line, {80, 90, -40, 0});
  const ObjectRef below = add(Square, {120, 20, 10, 10});
  settle();
  sweep({10, 10}, {100, 100});
  press(9, 10);
  EXPECT_EQ(state.pointer, PointerShape::sizeAll);
  drag(50, 40);
  drag(109, 15);
  EXPECT_FALSE(history.canUndo());
  EXPECT_EQ(view.moved, (std::vector<ObjectRef>{line, memo}));
  release(109, 15);
  EXPECT_EQ(text(state.userSel), "110,15 90x90");
  EXPECT_EQ(placeText(memo), "120,25 50x50");
  EXPECT_EQ(lineEnds(document, line.index).from.x, 180);
  EXPECT_EQ(lineEnds(document, line.index).to.x, 140);
  EXPECT_EQ(history.undoWords(), "move of 2 objects");
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(members(), "Line 1 M2");  // not what it came to lie over

  press(150, 50);
  release(150, 50);
  EXPECT_EQ(members(), "Line 1 square 0 M2") << "a click looks anew";
  EXPECT_EQ(history.steps(), 1u);
  history.undo(document);
  EXPECT_EQ(placeText(memo), "20,20 50x50");
  EXPECT_EQ(placeText(below), "120,20 10x10");
}

TEST_F(AreaSelectionTest, TheRectangleAloneIsLimitedToThePage) {
  const struct {
    PointPx by;
    const char* rectangle;
    const char* member;
  } cases[] = {{{-500, 0}, "0,100 200x100", "50,110 20x20"},
               {{0, -500}, "100,0 200x100", "150,10 20x20"},
               {{900, 0}, "620,100 200x100", "670,110 20x20"},
               {{7, 900}, "107,460 200x100", "157,470 20x20"},
               {{-3, 4}, "97,104 200x100", "147,114 20x20"}};
  const ObjectRef square = add(Square, {150, 110, 20, 20});
  settle();
  for (const auto& c : cases) {
    for (const bool byKeys : {true, false}) {
      sweep({100, 100}, {300, 200});
      if (byKeys) {
        area.moveBy(c.by.x, c.by.y);
      } else {
        press(120, 120);
        drag(120 + c.by.x, 120 + c.by.y);
        release(120 + c.by.x, 120 + c.by.y);
      }
      EXPECT_EQ(text(state.userSel), c.rectangle);
      EXPECT_EQ(placeText(square), c.member);
      EXPECT_TRUE(history.undo(document));
      EXPECT_EQ(placeText(square), "150,110 20x20");
      area.leave();
    }
  }
  // Objects that were pasted beyond the edge come back only by a move of their own.
  moveTo(document, square, {-40, -40});
  area.show({square});
  area.moveBy(5, -5);
  EXPECT_EQ(text(state.userSel), "-35,-40 20x20");
}

TEST_F(AreaSelectionTest, NudgesBecomeOneStepPerSelection) {
  const ObjectRef first = add(Button, {20, 20, 30, 30}), second = add(Button, {120, 20, 30, 30});
  settle();
  area.show({first});
  for (int i = 0; i < 5; ++i) area.moveBy(1, 0);
  area.show({second});
  for (int i = 0; i < 5; ++i) area.moveBy(0, 1);
  EXPECT_EQ(history.steps(), 2u);
  history.undo(document);
  EXPECT_EQ(placeText(second), "120,20 30x30");
  EXPECT_EQ(placeText(first), "25,20 30x30");
  EXPECT_EQ(history.undoWords(), "move of button 0");
}

TEST_F(AreaSelectionTest, AnInterruptedDragIsStillAStep) {
  add(Button, {20, 20, 30, 30});
  settle();
  sweep({10, 10}, {60, 60});
  press(30, 30);
  drag(40, 40);
  area.leave();
  EXPECT_EQ(history.undoWords(), "move of button 0");
  release(40, 40);
  EXPECT_FALSE(area.active());
  EXPECT_EQ(history.steps(), 1u);
}

TEST_F(AreaSelectionTest, TellsTheLastPicturesPathForEachPictureFound) {
  add(Picture, {10, 10, 20, 20}), add(Picture, {40, 10, 20, 20}), add(Picture, {300, 300, 20, 20});
  document.pictures[0].picturePath = "first.jpg";
  sweep({5, 5}, {100, 100});
  EXPECT_TRUE(messages.shown.empty()) << "the last one has no file";
  document.pictures[2].picturePath = "last.jpg";
  sweep({200, 200}, {250, 250});
  EXPECT_TRUE(messages.shown.empty());
  sweep({5, 5}, {100, 100});
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"last.jpg", "last.jpg"}));
  area.collect();
  area.show({{Picture, 0}});
  EXPECT_EQ(messages.shown.size(), 2u);
  area.selectAll();
  EXPECT_EQ(messages.shown.size(), 5u);
}

TEST_F(AreaSelectionTest, LockedControlsAreSelectedButStay) {
  const ObjectRef a = add(Button, {20, 20, 30, 30}), b = add(Button, {80, 50, 30, 30});
  settle();
  state.locked = true;
  area.toggle();
  EXPECT_FALSE(area.active());
  area.selectAll();
  EXPECT_EQ(members(), "button 0 button 1");
  press(30, 30);
  drag(90, 90);
  release(90, 90);
  area.moveBy(1, 1);
  area.align(Alignment::top);
  EXPECT_EQ(placeText(a) + " " + placeText(b), "20,20 30x30 80,50 30x30");
  EXPECT_FALSE(history.canUndo());
}

TEST_F(AreaSelectionTest, LinesUpSpreadsAndSizes) {
  using enum Alignment;
  // Of a button, a memo, a line drawn upwards, and a label.
  const struct {
    Alignment alignment;
    std::string words, places;
  } cases[] = {
      {left, "alignment", "10,10 40x20; 10,60 71x50; 10,120 30x10; 10,31 24x14; "},
      {right, "alignment", "231,10 40x20; 200,60 71x50; 241,120 30x10; 247,31 24x14; "},
      {top, "alignment", "10,10 40x20; 200,10 71x50; 60,10 30x10; 130,10 24x14; "},
      {bottom, "alignment", "10,110 40x20; 200,80 71x50; 60,120 30x10; 130,116 24x14; "},
      {centerHorizontal, "alignment", "120,10 40x20; 105,60 71x50; 125,120 30x10; 128,31 24x14; "},
      {centerVertical, "alignment", "10,60 40x20; 200,45 71x50; 60,65 30x10; 130,63 24x14; "},
      {evenHorizontal, "even spacing", "10,10 40x20; 200,60 71x50; 82,120 30x10; 144,31 24x14; "},
      {evenVertical, "even spacing", "10,10 40x20; 200,61 71x50; 60,120 30x10; 130,39 24x14; "},
      {sameWidth, "sizing", "10,10 40x20; 200,60 40x50; 60,120 30x10; 130,31 24x14; "},
      {sameHeight, "sizing", "10,10 40x20; 200,60 71x20; 60,120 30x10; 130,31 24x14; "},
      {sameSize, "sizing", "10,10 40x20; 200,60 40x20; 60,120 30x10; 130,31 24x14; "},
  };
  const std::vector<ObjectRef> all{add(Button, {10, 10, 40, 20}), add(Memo, {200, 60, 71, 50}),
                                   add(Line, {60, 130, 30, -10}), add(Title, {130, 31, 0, 0})};
  document.titles.back().caption = "Name";
  settle();
  for (const auto& c : cases) {
    area.show(all);
    area.align(c.alignment);
    std::string places;
    for (const ObjectRef object : all) places += placeText(object) + "; ";
    EXPECT_EQ(places, c.places) << c.words;
    EXPECT_GT(lineEnds(document, 1).from.y, lineEnds(document, 1).to.y);
    EXPECT_EQ(history.undoWords(), c.words + " of 4 objects");
    const std::string rectangle = text(state.userSel);
    area.show(all);
    EXPECT_EQ(rectangle, text(state.userSel)) << "the members' bounds";
    history.undo(document);
    EXPECT_FALSE(history.canUndo()) << "one step";
  }
}

TEST_F(AreaSelectionTest, ArrangesOnlyWhereThereIsSomethingToArrange) {
  const ObjectRef circle = add(Square, {10, 50, 20, 20}), field = add(Field, {60, 10, 90, 21}),
                  check = add(CheckBox, {200, 10, 0, 0});
  document.squares[0].shapeType = 3;
  settle();
  area.show({circle, field});
  area.align(Alignment::evenHorizontal);
  area.leave();
  area.align(Alignment::left);
  area.show({circle});
  area.align(Alignment::right);
  area.show({circle, check});  // the circle is the only one with a size
  area.align(Alignment::sameSize);
  EXPECT_FALSE(history.canUndo());
  area.show({circle, field, check});
  area.align(Alignment::sameSize);
  EXPECT_EQ(placeText(circle), "10,50 90x90");  // stays round
  EXPECT_EQ(placeText(field), "60,10 90x21");   // has no height to change
  EXPECT_EQ(placeText(check), "200,10 13x13");
  EXPECT_EQ(history.steps(), 1u);
}

}  // namespace
}  // namespace plinth
