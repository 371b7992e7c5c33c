// Objects by the keyboard and the direction pad.
#include "surface/ObjectsOnView.h"
#include "surface/Units.h"
#include "tests/surface/EditorFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

TEST_F(PageEditorTest, ArrowsMoveWithinThePage) {
  const struct {
    PointPx from;
    int key;
    unsigned shift;
    int grid;
    PointPx to;
  } cases[] = {
      {{100, 100}, kLeftKey, 0, 0, {99, 100}},        {{100, 100}, kRightKey, 0, 0, {101, 100}},
      {{100, 100}, kUpKey, 0, 0, {100, 99}},          {{100, 100}, kDownKey, 0, 0, {100, 101}},
      {{0, 100}, kLeftKey, 0, 0, {0, 100}},           {{100, 0}, kUpKey, 0, 0, {100, 0}},
      {{639, 100}, kRightKey, 0, 0, {640, 100}},      {{640, 100}, kRightKey, 0, 0, {640, 100}},
      {{100, 480}, kDownKey, 0, 0, {100, 480}},       {{100, 100}, kRightKey, 0, 20, {101, 100}},
      {{100, 100}, kRightKey, kShift, 0, {110, 100}}, {{100, 100}, kDownKey, kShift, 15, {100, 115}},
      {{4, 100}, kLeftKey, kShift, 0, {0, 100}},      {{700, 100}, kLeftKey, 0, 0, {699, 100}},
  };
  for (const auto& c : cases) {
    const ObjectRef field = d.add(Field, {c.from.x, c.from.y, 100, 21});
    grid(c.grid);
    editor.selectObject(field);
    EXPECT_TRUE(key(c.key, c.shift));
    EXPECT_EQ(cornerOf(d.document, field), c.to) << "from " << c.from << " by key " << c.key;
  }
}

TEST_F(PageEditorTest, NudgesAreOneStep) {
  const ObjectRef line = d.add(Line, {100, 100, 50, 20});
  d.settle();
  EXPECT_FALSE(key(kLeftKey)) << "nothing is selected";
  editor.selectObject(line);
  for (int i = 0; i < 3; ++i) key(kRightKey);
  key(kDownKey);
  EXPECT_EQ(ends(line), (RectPx{103, 101, 50, 20}));
  EXPECT_EQ(d.history.steps(), 1u);
  EXPECT_EQ(d.history.undoWords(), "move of Line 1");
  EXPECT_FALSE(key(kRightKey, kCtrl)) << "left to the commands";
  EXPECT_FALSE(key(65));
}

TEST_F(PageEditorTest, ThePadMovesByUnitsWithinThePage) {
  using enum ScaleUnit;
  const struct {
    ScaleUnit unit;
    int dx, dy;
    bool ten;
    PointPx corner;
  } cases[] = {
      {pixels, 1, -1, false, {101, 99}},      {pixels, -1, 0, true, {90, 100}},
      {inches, 1, 0, false, {196, 100}},      {inches, 1, 1, true, {540, 459}},
      {inches, -1, -1, true, {0, 0}},         {millimeters, 0, 1, false, {100, 104}},
      {millimeters, 0, 1, true, {100, 138}},  {centimeters, 1, 0, false, {138, 100}},
      {centimeters, -1, 0, false, {62, 100}}, {pixels, 0, 0, true, {100, 100}},
  };
  for (const auto& c : cases) {
    const ObjectRef field = d.add(Field, {100, 100, 100, 21});
    chooseUnit(d.state, c.unit);
    editor.selectObject(field);
    editor.pad(c.dx, c.dy, c.ten);
    EXPECT_EQ(cornerOf(d.document, field), c.corner) << "unit " << static_cast<int>(c.unit);
  }
  // What lies beyond the edge comes back only when it is moved that way.
  const ObjectRef out = d.add(Field, {600, 100, 100, 21});
  chooseUnit(d.state, pixels);
  editor.selectObject(out);
  editor.pad(1, 1, false);
  EXPECT_EQ(cornerOf(d.document, out), (PointPx{600, 101}));
  editor.pad(-1, 0, false);
  EXPECT_EQ(cornerOf(d.document, out), (PointPx{540, 101}));
}

TEST_F(PageEditorTest, KeysAndPadMoveTheWholeArea) {
  const ObjectRef field = d.add(Field, {100, 100, 100, 21}), line = d.add(Line, {100, 200, 50, 0});
  d.settle();
  EXPECT_FALSE(key(kRightKey));
  area.show({field, line});
  EXPECT_TRUE(key(kRightKey));
  editor.pad(0, 1, true);
  EXPECT_EQ(cornerOf(d.document, field), (PointPx{101, 110}));
  EXPECT_EQ(ends(line), (RectPx{101, 210, 50, 0}));
  EXPECT_TRUE(key(kEscapeKey));
  EXPECT_FALSE(area.active());
}

TEST_F(PageEditorTest, TabWalksThePage) {
  const ObjectRef field = d.add(Field, {0, 0, 50, 21}), memo = d.add(Memo, {0, 0, 50, 50}),
                  combo = d.add(Combo, {0, 0, 50, 0}), check = d.add(CheckBox, {0, 0, 0, 0}),
                  label = d.add(Title, {0, 0, 0, 0}), button = d.add(Button, {0, 0, 50, 50}),
                  square = d.add(Square, {0, 0, 50, 50}), all = d.add(Field, {0, 0, 50, 21}, kPageAll);
  d.add(Field, {0, 0, 50, 21}, 3);
  d.document.fields[1].tabOrder = 3;
  d.document.memos[2].tabOrder = 1;
  d.document.checks[0].tabOrder = 3;
  const ObjectRef hidden = d.add(Line, {0, 0, 50, 50});
  hideObject(d.context, hidden);
  const std::vector<ObjectRef> walk{memo, field, check, all, combo, label, button, square};
  EXPECT_EQ(tabWalk(d.context), walk);
  for (const ObjectRef expected : walk) {
    editor.selectNext(1);
    EXPECT_EQ(selectedObject(d.state, d.document), expected);
  }
  editor.selectNext(1);
  EXPECT_EQ(selectedObject(d.state, d.document), memo);
  editor.selectNext(-1);
  EXPECT_EQ(selectedObject(d.state, d.document), square);
  EXPECT_TRUE(key(kEscapeKey));
  editor.selectNext(-1);
  EXPECT_EQ(selectedObject(d.state, d.document), square);
}

}  // namespace
}  // namespace plinth
