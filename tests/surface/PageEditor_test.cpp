// Placed objects under the mouse: where they are held, what a drag and its release make of them.
#include "surface/HoverZones.h"
#include "tests/fakes/RecordingCanvas.h"
#include "tests/surface/EditorFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

constexpr RectPx kPlace{100, 100, 100, 60};

TEST_F(PageEditorTest, ZonesOfThePointer) {
  using enum PointerShape;
  const struct {
    ObjectKind kind;
    PointPx point;
    PointerShape pointer;
  } cases[] = {
      // Frames of 100: a field's text ends at 197, a memo's at 199 and 159, a combo's at 199.
      {Field, {192, 110}, arrow},
      {Field, {193, 110}, eastWest},
      {Field, {199, 120}, eastWest},
      {Field, {150, 120}, arrow},
      {Combo, {195, 110}, arrow},
      {Combo, {196, 110}, eastWest},
      {Memo, {177, 150}, arrow},
      {Memo, {178, 150}, eastWest},
      {Memo, {177, 151}, northSouth},
      {Memo, {178, 151}, northWestSouthEast},
      {Picture, {195, 155}, PointerShape::area},
      {Picture, {196, 155}, eastWest},
      {Picture, {195, 156}, northSouth},
      {Picture, {196, 156}, northWestSouthEast},
      {Script, {150, 130}, PointerShape::area},
      {Script, {199, 159}, northWestSouthEast},
      {Square, {195, 155}, arrow},
      {Square, {196, 156}, northWestSouthEast},
      {Button, {196, 130}, eastWest},
      {Button, {150, 156}, northSouth},
      {CheckBox, {112, 112}, arrow},
      {Title, {117, 113}, arrow},
  };
  for (const auto& c : cases) {
    const ObjectRef object = d.add(c.kind, kPlace);
    if (c.kind == Title) d.document.titles.back().caption = "abc";
    move(c.point, hitOf(object));
    EXPECT_EQ(d.state.pointer, c.pointer) << object << " at " << c.point;
  }
  move({500, 400});
  EXPECT_EQ(d.state.pointer, standard);
}

TEST_F(PageEditorTest, EdgesSizeWithinTheirLeastSizes) {
  const struct {
    ObjectKind kind;
    PointPx from, to;
    SizePx frame;
    int shapeType = 0;
  } cases[] = {
      {Field, {198, 110}, {150, 180}, {53, 21}},
      {Field, {198, 110}, {50, 110}, {26, 21}},  // a text 20 wide
      {Combo, {198, 110}, {150, 180}, {50, 21}},
      {Combo, {198, 110}, {101, 110}, {30, 21}},
      {Memo, {190, 155}, {250, 200}, {151, 101}},
      {Memo, {190, 120}, {250, 200}, {151, 60}},
      {Memo, {120, 155}, {250, 200}, {100, 101}},
      {Memo, {190, 155}, {90, 90}, {24, 22}},
      {Picture, {197, 157}, {250, 200}, {150, 100}},
      {Picture, {197, 157}, {90, 90}, {20, 20}},
      {Picture, {197, 130}, {250, 200}, {150, 60}},
      {Script, {150, 157}, {250, 90}, {100, 20}},
      {Button, {197, 157}, {110, 250}, {20, 150}},
      {Square, {197, 157}, {250, 200}, {150, 100}},
      {Square, {197, 157}, {90, 90}, {1, 1}},
      {Square, {197, 157}, {250, 220}, {150, 150}, 1},
      {Square, {197, 130}, {180, 220}, {80, 80}, 3},
      {Square, {150, 157}, {180, 220}, {120, 120}, 3},
      {Square, {197, 157}, {250, 220}, {150, 120}, 5},
  };
  for (const auto& c : cases) {
    const ObjectRef object = d.add(c.kind, kPlace);
    if (c.kind == Square) d.document.squares.back().shapeType = static_cast<std::int16_t>(c.shapeType);
    d.settle();
    drag(object, c.from, c.to);
    EXPECT_EQ(d.place(object), (RectPx{100, 100, c.frame.width, c.frame.height}))
        << shortName(object) << " from " << c.from << " to " << c.to;
    EXPECT_EQ(d.history.undoWords(), "sizing of " + shortName(object));
    EXPECT_EQ(d.history.steps(), 1u);
  }
}

TEST_F(PageEditorTest, ReleaseBringsObjectsBackAndOntoTheGrid) {
  const struct {
    ObjectKind kind;
    int grid;
    PointPx to;  // the pointer came from 10, 10 within the object
    RectPx place;
  } cases[] = {
      {Field, 0, {154, 136}, {144, 126, 104, 21}},
      {Field, 0, {5, -20}, {0, 0, 104, 21}},
      {Memo, 0, {-20, 60}, {0, 50, 104, 66}},
      {Picture, 0, {5, 5}, {0, 0, 104, 66}},
      {Square, 0, {5, 5}, {0, 0, 104, 66}},
      {CheckBox, 0, {5, 40}, {0, 30, 13, 13}},
      {Title, 0, {2, 40}, {0, 30, 30, 14}},
      {Field, 10, {154, 136}, {140, 130, 100, 21}},
      {Combo, 10, {154, 136}, {140, 130, 104, 21}},
      {Memo, 10, {154, 136}, {140, 130, 100, 70}},
      {Picture, 10, {154, 136}, {140, 130, 100, 70}},
      {Script, 10, {154, 136}, {140, 130, 100, 70}},
      {Square, 10, {154, 136}, {140, 130, 100, 70}},
      {Button, 10, {154, 136}, {140, 130, 100, 70}},
      {CheckBox, 10, {154, 136}, {140, 130, 13, 13}},
      {Title, 10, {154, 136}, {140, 130, 30, 14}},
      {Picture, 1000, {900, 136}, {1000, 0, 1000, 1000}},  // no side snaps to nothing
  };
  for (const auto& c : cases) {
    const ObjectRef object = d.add(c.kind, {100, 100, 104, 66});
    if (c.kind == Title) d.document.titles.back().caption = "Label";
    d.settle();
    grid(c.grid);
    drag(object, {110, 110}, c.to);
    EXPECT_EQ(d.place(object), c.place) << shortName(object) << " to " << c.to << " grid " << c.grid;
    EXPECT_EQ(d.history.undoWords(), "move of " + shortName(object));
    EXPECT_EQ(selectedObject(d.state, d.document), object);
  }
}

TEST_F(PageEditorTest, AClickChangesNothingButTheSelection) {
  const ObjectRef memo = d.add(Memo, {103, 104, 97, 63});
  d.settle();
  grid(10);
  press({110, 110}, hitOf(memo));
  release({110, 110});
  EXPECT_EQ(d.place(memo), (RectPx{103, 104, 97, 63}));
  EXPECT_EQ(d.state.selKind, 2);
  EXPECT_EQ(d.state.placeTool, kToolNone);
  EXPECT_GT(d.view.selections, 0);
  EXPECT_FALSE(d.history.canUndo());
  press({400, 400});
  release({400, 400});
  EXPECT_EQ(d.state.selKind, kSelNone);
}

TEST_F(PageEditorTest, MovesTellOnlyPlaces) {
  const ObjectRef field = d.add(Field, kPlace);
  d.settle();
  press({110, 110}, hitOf(field));
  const int objects = d.view.objects;
  dragTo({120, 120});
  dragTo({121, 120});
  EXPECT_EQ(d.view.objects, objects);
  EXPECT_EQ(d.view.moves, 2);
  EXPECT_EQ(d.view.readouts, 2);
  EXPECT_EQ(d.view.documents, 0) << "the step comes at the release";
  move({130, 120});  // the release got lost
  EXPECT_EQ(d.place(field), (RectPx{111, 110, 100, 21}));
  EXPECT_EQ(d.history.steps(), 1u);
}

TEST_F(PageEditorTest, AGestureThatIsCutOffDoesNotHoldTheMouse) {
  const ObjectRef field = d.add(Field, kPlace), memo = d.add(Memo, {300, 300, 100, 60});
  d.settle();
  press({110, 110}, hitOf(field));
  dragTo({120, 120});
  press({310, 310}, hitOf(memo));
  EXPECT_EQ(selectedObject(d.state, d.document), memo);
  EXPECT_EQ(d.history.undoWords(), "move of F1");
  dragTo({320, 310});
  area.selectAll();
  dragTo({400, 400});
  EXPECT_EQ(d.place(memo).left, 310);
  EXPECT_EQ(d.history.undoWords(), "move of M2");
  area.leave();
  press({110, 125}, hitOf(field));
  EXPECT_EQ(selectedObject(d.state, d.document), field);
}

TEST_F(PageEditorTest, EscapePutsADraggedObjectBack) {
  const ObjectRef field = d.add(Field, kPlace);
  d.document.fields.back().left += 7;  // less than a pixel, as other programs leave it
  d.settle();
  const ProjectDocument before = d.document;
  press({110, 110}, hitOf(field));
  dragTo({300, 300});
  EXPECT_TRUE(key(kEscapeKey));
  release({300, 300});
  EXPECT_EQ(d.document.fields, before.fields);
  EXPECT_FALSE(d.history.canUndo());
}

TEST_F(PageEditorTest, LockedObjectsAreSelectedOnly) {
  const ObjectRef field = d.add(Field, kPlace);
  const ObjectRef line = d.add(Line, {300, 300, 100, 0});
  d.settle();
  d.state.locked = true;
  move({110, 110}, hitOf(field));
  EXPECT_EQ(d.state.pointer, PointerShape::standard);
  drag(field, {110, 110}, {200, 200});
  drag(field, {198, 110}, {150, 110});
  EXPECT_EQ(selectedObject(d.state, d.document), field);
  drag(line, {310, 300}, {200, 200});
  EXPECT_EQ(selectedObject(d.state, d.document), line);
  EXPECT_FALSE(key(kRightKey));
  editor.pad(1, 0, false);
  EXPECT_FALSE(d.history.canUndo());
}

TEST_F(PageEditorTest, LabelsAreTypedInPlaceAfterTheirRelease) {
  const ObjectRef label = d.add(Title, kPlace);
  d.document.titles.back().caption = "Name";
  d.settle();
  press({105, 105}, hitOf(label));
  EXPECT_EQ(d.state.editedTitle, -1);
  release({105, 105});
  EXPECT_EQ(d.state.editedTitle, label.index);
  editor.typeLabel("N");
  editor.typeLabel("");
  EXPECT_EQ(d.document.titles.back().caption, "");
  editor.typeLabel("City");
  EXPECT_EQ(d.history.steps(), 1u);
  EXPECT_EQ(d.history.undoWords(), "typing in L6");
  editor.endLabel();
  EXPECT_EQ(d.state.editedTitle, -1);
  EXPECT_TRUE(key(kF2Key));
  editor.typeLabel("Town");
  EXPECT_EQ(d.history.steps(), 2u);
  press({400, 400});
  EXPECT_EQ(d.state.editedTitle, -1);
  editor.typeLabel("Lost");
  EXPECT_EQ(d.document.titles.back().caption, "Town");
  EXPECT_FALSE(key(kF2Key)) << "no label is selected";
}

TEST_F(PageEditorTest, LabelsOffThePageAreHidden) {
  const struct {
    PointPx to;
    bool hidden;
  } cases[] = {{{-19, 50}, true}, {{-8, 50}, false}, {{50, -10}, true}, {{50, -9}, false}};
  for (const auto& c : cases) {
    const ObjectRef label = d.add(Title, {100, 100, 0, 0});
    d.document.titles.back().caption = "abc";  // 18 by 14
    drag(label, {105, 105}, c.to);
    EXPECT_EQ(isHidden(d.state, label), c.hidden) << "to " << c.to;
    EXPECT_EQ(d.document.titles.back().visible, !c.hidden);
    EXPECT_EQ(d.state.editedTitle, c.hidden ? -1 : label.index);
  }
}

TEST_F(PageEditorTest, LinkedLabelsAnswerThePointer) {
  const ObjectRef plain = d.add(Title, kPlace), linked = d.add(Title, kPlace);
  d.document.titles.back().tag = "mailto:F1";
  move({105, 105}, hitOf(linked));
  EXPECT_EQ(d.state.hoverLabel, linked);
  const int overlays = d.view.overlays;
  move({106, 105}, hitOf(linked));
  EXPECT_EQ(d.view.overlays, overlays);
  move({105, 105}, hitOf(plain));
  EXPECT_EQ(d.state.hoverLabel.index, -1);
  move({105, 105}, hitOf(linked));
  press({105, 105}, hitOf(linked));
  EXPECT_EQ(d.state.hoverLabel.index, -1);
}

TEST_F(PageEditorTest, RightButtonSelectsAndOpensTheMenu) {
  const ObjectRef field = d.add(Field, kPlace);
  editor.mouseDown({2, 0, 110, 110}, hitOf(field));
  EXPECT_EQ(selectedObject(d.state, d.document), field);
  EXPECT_EQ(d.view.popup, (PointPx{110, 110}));
  editor.mouseDown({2, 0, 400, 300}, {});
  EXPECT_EQ(selectedObject(d.state, d.document), field) << "the menu is for it";
  EXPECT_EQ(d.view.popups, 2);
  EXPECT_FALSE(d.state.locked);
}

TEST_F(PageEditorTest, RightButtonLocksWhileTheAreaShows) {
  const ObjectRef field = d.add(Field, kPlace);
  area.show({field});
  for (const bool locked : {true, false}) {
    editor.mouseDown({2, 0, 110, 110}, hitOf(field));
    EXPECT_EQ(d.state.locked, locked);
    EXPECT_TRUE(area.active());
  }
  EXPECT_EQ(d.view.popups, 2);
}

TEST_F(PageEditorTest, DoubleClickOpensTheProperties) {
  const ObjectRef label = d.add(Title, kPlace), line = d.add(Line, {300, 300, 50, 0});
  press({105, 105}, hitOf(label));
  release({105, 105});
  editor.doubleClick({1, 0, 105, 105}, hitOf(label));
  EXPECT_EQ(d.state.editedTitle, -1);
  release({105, 105});
  EXPECT_EQ(d.state.editedTitle, -1) << "the dialog is open";
  editor.doubleClick({1, 0, 320, 302}, hitOf(line));
  editor.doubleClick({1, 0, 500, 400}, {});
  EXPECT_EQ(d.view.opened, (std::vector{label, line}));
}

TEST_F(PageEditorTest, MarksShowWhatCanBeDone) {
  const auto boxes = [this] {
    RecordingCanvas canvas;
    editor.paintOverlay(canvas);
    return canvas.calls;
  };
  EXPECT_TRUE(boxes().empty());
  const struct {
    ObjectKind kind;
    std::size_t marks;  // the frame and its handles, or a line's two markers
  } cases[] = {{Field, 2},  {Combo, 2}, {Memo, 4},     {Picture, 4},
               {Square, 4}, {Title, 1}, {CheckBox, 1}, {Line, 2}};
  for (const auto& c : cases) {
    editor.selectObject(d.add(c.kind, kPlace));
    EXPECT_EQ(boxes().size(), c.marks) << kindInfo(c.kind).noun;
  }
  const ObjectRef field = d.add(Field, kPlace);
  editor.selectObject(field);
  EXPECT_EQ(boxes().front(), "box 98,98 104x25 pen solid 1 #0078d7 brush none");
  d.state.locked = true;
  EXPECT_EQ(boxes(), std::vector<std::string>{"box 98,98 104x25 pen solid 1 #808080 brush none"});
  d.state.currentPage = 2;
  EXPECT_TRUE(boxes().empty());
  d.state.currentPage = 0;
  d.state.locked = false;
  area.show({field, d.add(Button, {300, 100, 50, 50})});
  EXPECT_EQ(boxes().size(), 7u) << "two members, the rectangle and its corners";
}

}  // namespace
}  // namespace plinth
