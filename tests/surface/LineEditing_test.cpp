// Lines by their ends.
#include "surface/LineEditing.h"

#include "tests/surface/EditorFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

TEST_F(PageEditorTest, APressTakesTheEndOfTheNearerHalf) {
  const struct {
    RectPx line;  // start, and the way to the end
    PointPx press, to;
    RectPx after;
    int grid = 0;
  } cases[] = {
      {{100, 100, 100, 0}, {120, 101}, {90, 150}, {90, 150, 110, -50}},
      {{100, 100, 100, 0}, {149, 100}, {90, 150}, {90, 150, 110, -50}},
      {{100, 100, 100, 0}, {150, 100}, {180, 150}, {100, 100, 80, 50}},
      {{100, 100, 100, 0}, {190, 98}, {50, 120}, {50, 120, 50, -20}},      // from right to left: swapped
      {{200, 100, -100, 50}, {110, 145}, {90, 160}, {90, 160, 110, -60}},  // stored the wrong way round
      {{100, 100, 0, 80}, {100, 110}, {100, 60}, {100, 60, 0, 120}},
      {{100, 100, 0, 80}, {101, 170}, {130, 200}, {100, 100, 30, 100}},
      {{103, 104, 100, 0}, {190, 104}, {237, 151}, {100, 100, 140, 50}, 10},
      {{100, 100, 100, 0}, {190, 100}, {900, -40}, {100, 100, 540, -100}},  // limited to the page
  };
  for (const auto& c : cases) {
    const ObjectRef line = d.add(Line, c.line);
    d.settle();
    grid(c.grid);
    drag(line, c.press, c.to);
    EXPECT_EQ(ends(line), c.after) << "line " << c.line << " from " << c.press << " to " << c.to;
    EXPECT_EQ(d.history.undoWords(), "sizing of " + shortName(line));
    EXPECT_EQ(d.state.placeTool, kToolNone);
    EXPECT_TRUE(d.state.lineEndsShown);
    setPage(d.document, line, kPageDeleted);  // out of the next one's way
  }
}

TEST_F(PageEditorTest, MarkersDragByTheirDifference) {
  const struct {
    PointPx press, to;
    RectPx after;
  } cases[] = {{{95, 93}, {105, 113}, {110, 120, 90, -20}},
               {{208, 108}, {218, 138}, {100, 100, 110, 30}},
               {{201, 101}, {51, 101}, {50, 100, 50, 0}}};
  for (const auto& c : cases) {
    const ObjectRef line = d.add(Line, {100, 100, 100, 0});
    // An object below the marker does not take the press.
    const ObjectRef below = d.add(Picture, {90, 90, 130, 60});
    editor.selectObject(line);
    drag(below, c.press, c.to);
    EXPECT_EQ(ends(line), c.after) << "from " << c.press;
    EXPECT_EQ(d.place(below), (RectPx{90, 90, 130, 60}));
    setPage(d.document, line, kPageDeleted);
  }
}

TEST_F(PageEditorTest, TheFirstLineThatIsMetIsSelected) {
  const ObjectRef first = d.add(Line, {100, 100, 100, 0}), second = d.add(Line, {150, 50, 0, 100}),
                  elsewhere = d.add(Line, {100, 102, 100, 0}, 1);
  const ObjectRef square = d.add(Square, {0, 0, 300, 300}), picture = d.add(Picture, {0, 0, 300, 300});
  const struct {
    PointPx press;
    ItemRef hit;
    ObjectRef selected;
  } cases[] = {{{150, 100}, hitOf(second), first},
               {{150, 104}, hitOf(second), second},
               {{110, 103}, {}, first},
               {{110, 104}, hitOf(square), square},
               {{110, 100}, hitOf(square), first},
               {{110, 100}, hitOf(picture), picture}};
  for (const auto& c : cases) {
    press(c.press, c.hit);
    release(c.press);
    EXPECT_EQ(selectedObject(d.state, d.document), c.selected) << "at " << c.press;
  }
  d.state.currentPage = 1;
  press({110, 100});
  EXPECT_EQ(selectedObject(d.state, d.document), elsewhere);
  EXPECT_TRUE(d.state.lineEndStart);
}

TEST_F(PageEditorTest, ThePointerTellsLinesAndMarkers) {
  const ObjectRef line = d.add(Line, {100, 100, 100, 0});
  move({150, 101}, hitOf(line));
  EXPECT_EQ(d.state.pointer, PointerShape::upArrow);
  move({95, 95});
  EXPECT_EQ(d.state.pointer, PointerShape::standard);
  editor.selectObject(line);
  move({95, 95});
  EXPECT_EQ(d.state.pointer, PointerShape::sizeAll);
}

}  // namespace
}  // namespace plinth
