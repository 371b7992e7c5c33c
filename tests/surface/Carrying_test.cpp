// New objects in the hand of the mouse: where they hang, how the drop sizes them, what is left of the
// gesture.
#include "tests/surface/EditorFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

TEST_F(PageEditorTest, CarriedObjectsHangBehindThePointer) {
  const struct {
    ObjectKind kind;
    int grid;
    PointPx pointer, corner;
  } cases[] = {
      {Field, 0, {101, 103}, {103, 105}},
      {Memo, 0, {101, 103}, {103, 105}},
      {Combo, 0, {101, 103}, {103, 105}},
      {Picture, 0, {101, 103}, {103, 105}},
      {CheckBox, 0, {101, 103}, {103, 105}},
      {Title, 0, {101, 103}, {103, 105}},
      {Line, 0, {101, 103}, {103, 105}},
      {Square, 0, {101, 103}, {103, 105}},
      {Script, 0, {101, 103}, {103, 105}},
      {Button, 0, {101, 103}, {103, 105}},
      // 105 lies half way between two grid points and goes to the even one.
      {Field, 10, {101, 103}, {100, 100}},
      {Square, 10, {101, 103}, {100, 100}},
      {Line, 10, {104, 113}, {110, 120}},
      {Button, 20, {107, 109}, {100, 120}},
      {Title, 10, {101, 103}, {103, 105}},
      {CheckBox, 10, {101, 103}, {103, 105}},
      // Outside the page, which is 640 by 480: from its edge, and never out of reach.
      {Field, 0, {-30, -5}, {2, 2}},
      {Picture, 0, {900, 700}, {630, 470}},
  };
  for (const auto& c : cases) {
    grid(c.grid);
    const ObjectRef object = carried(c.kind, {10, 10, 90, 50});
    move(c.pointer);
    EXPECT_EQ(cornerOf(d.document, object), c.corner) << shortName(object) << " grid " << c.grid;
    EXPECT_EQ(d.state.placePhase, PlacePhase::carried);
    EXPECT_EQ(d.view.moved, std::vector{object});
  }
}

TEST_F(PageEditorTest, TheDropSizesByTheKind) {
  const struct {
    ObjectKind kind;
    int grid;
    PointPx press, to;
    RectPx place;  // of lines: start and way to the end
  } cases[] = {
      {Field, 0, {100, 100}, {200, 180}, {102, 102, 98, 21}},
      {Field, 0, {100, 100}, {107, 100}, {102, 102, 15, 21}},
      {Field, 0, {100, 100}, {60, 100}, {102, 102, 150, 21}},
      {Field, 10, {101, 103}, {204, 180}, {100, 100, 100, 21}},
      {Field, 20, {101, 101}, {107, 101}, {100, 100, 20, 21}},
      {Combo, 0, {100, 100}, {200, 180}, {102, 102, 98, 21}},
      {Combo, 0, {100, 100}, {103, 180}, {102, 102, 150, 21}},
      {Memo, 0, {100, 100}, {200, 180}, {102, 102, 98, 78}},
      {Memo, 0, {100, 100}, {120, 110}, {102, 102, 60, 40}},
      {Memo, 0, {100, 100}, {200, 103}, {102, 102, 150, 60}},
      {Picture, 0, {100, 100}, {200, 180}, {102, 102, 98, 78}},
      {Picture, 10, {101, 103}, {204, 178}, {100, 100, 100, 80}},
      {Picture, 0, {100, 100}, {107, 106}, {102, 102, 5, 4}},
      {Picture, 20, {98, 98}, {106, 107}, {100, 100, 20, 20}},
      {Button, 0, {100, 100}, {200, 180}, {102, 102, 98, 78}},
      {Button, 0, {100, 100}, {200, 90}, {102, 102, 150, 60}},
      {Square, 0, {100, 100}, {200, 180}, {102, 102, 98, 78}},
      {Square, 0, {100, 100}, {50, 60}, {50, 60, 52, 42}},
      {Square, 0, {100, 100}, {200, 60}, {102, 60, 98, 42}},
      {Square, 10, {101, 103}, {204, 178}, {100, 100, 100, 80}},
      {Square, 10, {101, 103}, {48, 62}, {50, 60, 50, 40}},
      {Square, 0, {100, 100}, {200, 102}, {102, 102, 10, 10}},
      {Square, 0, {100, 100}, {101, 99}, {102, 102, 10, 10}},
      {Script, 0, {100, 100}, {50, 60}, {50, 60, 52, 42}},
      {Script, 0, {100, 100}, {200, 102}, {102, 102, 10, 10}},
      {Script, 0, {100, 100}, {101, 99}, {102, 102, 150, 60}},
      {Line, 0, {100, 100}, {200, 180}, {102, 102, 98, 78}},
      {Line, 0, {100, 100}, {50, 60}, {50, 60, 52, 42}},
      {Line, 10, {101, 103}, {204, 178}, {100, 100, 100, 80}},
      {Line, 0, {100, 100}, {102, 98}, {102, 102, 150, 60}},
      {Title, 0, {100, 100}, {200, 180}, {200, 180, 30, 14}},
      {Title, 0, {100, 100}, {100, 100}, {102, 102, 30, 14}},
      {CheckBox, 0, {100, 100}, {200, 180}, {202, 182, 13, 13}},
  };
  for (const auto& c : cases) {
    grid(c.grid);
    const ObjectRef object = carried(c.kind, {10, 10, 150, 60});
    move(c.press);
    press(c.press);
    dragTo(c.to);
    release(c.to);
    EXPECT_EQ(c.kind == Line ? ends(object) : d.place(object), c.place)
        << shortName(object) << " from " << c.press << " to " << c.to << " grid " << c.grid;
    EXPECT_FALSE(d.state.placingActive);
    EXPECT_EQ(d.state.lineEndsShown, c.kind == Line);
  }
}

TEST_F(PageEditorTest, TheDropBelongsToTheStepThatPlaced) {
  const ObjectRef field = carried(Field, {10, 10, 150, 21});
  move({300, 200});
  press({300, 200});
  release({300, 200});
  EXPECT_EQ(d.place(field), (RectPx{302, 202, 150, 21}));
  EXPECT_EQ(d.history.steps(), 1u);
  EXPECT_EQ(d.history.undoWords(), "placing of F1");
  EXPECT_EQ(d.state.placeTool, kToolNone);
  EXPECT_EQ(selectedObject(d.state, d.document), field);
  move({10, 10});
  EXPECT_EQ(d.place(field).left, 302) << "it has left the hand";
}

TEST_F(PageEditorTest, EscapeTakesTheCarriedObjectBack) {
  carried(Field, {10, 10, 150, 21});
  move({300, 200});
  press({300, 200});
  dragTo({400, 200});
  EXPECT_TRUE(key(kEscapeKey));
  EXPECT_EQ(d.document.fieldCount(), 0);
  EXPECT_FALSE(d.state.placingActive);
  EXPECT_EQ(d.state.selKind, kSelNone);
  release({400, 200});
  EXPECT_FALSE(d.history.canUndo());

  // Something was done to it meanwhile: it stays in the project, out of sight.
  const ObjectRef memo = carried(Memo, {10, 10, 150, 60});
  d.document.memos.back().tag = "Notes";
  finish(d.context, "name of M2");
  EXPECT_TRUE(key(kEscapeKey));
  EXPECT_TRUE(isLive(d.document, memo));
  EXPECT_TRUE(isHidden(d.state, memo));
  EXPECT_FALSE(key(kEscapeKey)) << "nothing is left to give up";
}

TEST_F(PageEditorTest, KeysPutACarriedObjectDownWhereItIs) {
  const ObjectRef first = carried(Field, {10, 10, 150, 21});
  EXPECT_TRUE(key(kEnterKey));
  EXPECT_FALSE(d.state.placingActive);
  EXPECT_EQ(d.place(first), (RectPx{10, 10, 150, 21}));
  EXPECT_FALSE(key(kEnterKey));
  const ObjectRef second = carried(Field, {10, 10, 150, 21});
  EXPECT_TRUE(key(kRightKey));
  EXPECT_EQ(d.place(second), (RectPx{11, 10, 150, 21}));
  EXPECT_EQ(d.history.undoWords(), "move of F2");
}

TEST_F(PageEditorTest, ThePointerTellsALineUnderTheCarriedObject) {
  const ObjectRef line = d.add(Line, {0, 100, 200, 0});
  carried(Field, {10, 10, 150, 21});
  move({100, 100}, hitOf(line));
  EXPECT_EQ(d.state.pointer, PointerShape::upArrow);
  move({100, 200});
  EXPECT_EQ(d.state.pointer, PointerShape::standard);
  const ObjectRef own = carried(Line, {10, 10, 90, 0});
  move({100, 200}, hitOf(own));
  EXPECT_EQ(d.state.pointer, PointerShape::standard);
}

}  // namespace
}  // namespace plinth
