// The tool panel as a person shows, moves and hides it.
#include "surface/ToolFrame.h"

#include "tests/surface/DesignerFixture.h"

namespace plinth {
namespace {

class ToolFrameTest : public DesignerFixture {
 protected:
  void SetUp() override {
    DesignerFixture::SetUp();
    ASSERT_FALSE(shown());
    ASSERT_TRUE(command(Command::toolPanel));
  }
  bool shown() const { return designer.surface().toolFrame().shown(); }
  bool selected() const { return designer.surface().state().selKind == kSelFrame3; }
  std::string undoWords() const { return designer.surface().history().undoWords(); }
  // "left top" in pixels.
  std::string at() const {
    const RectPx place = toolFramePlace(document());
    return std::to_string(place.left) + " " + std::to_string(place.top);
  }
  bool key(int code, unsigned shift = 0) { return designer.keyDown({code, shift}); }
  std::string painted() {
    RecordingCanvas canvas;
    designer.surface().page().paint(canvas, {0, 0, 1400, 1000});
    return canvas.recording();
  }
};

TEST_F(ToolFrameTest, ShowsOnEveryPageAndHidesToItsFirstPlace) {
  EXPECT_EQ(document().options.check5, 1);
  EXPECT_TRUE(selected());
  EXPECT_EQ(designer.surface().selectionWords(), "tool panel");
  EXPECT_EQ(undoWords(), "tool panel");
  EXPECT_EQ(at(), "2 184");
  ASSERT_TRUE(command(Command::nextPage));
  EXPECT_FALSE(selected());
  EXPECT_NE(painted().find("\"/ 1\""), std::string::npos);
  drag(20, 190, 60, 250);
  EXPECT_EQ(at(), "42 244");
  EXPECT_TRUE(selected());

  ASSERT_TRUE(command(Command::toolPanel));
  EXPECT_EQ(document().options.check5, 0);
  EXPECT_FALSE(selected());
  EXPECT_EQ(at(), "2 184");
  EXPECT_EQ(painted().find("\"/ 1\""), std::string::npos);
  click(20, 190);
  EXPECT_FALSE(selected());
  ASSERT_TRUE(command(Command::undo));
  EXPECT_TRUE(shown());
  EXPECT_EQ(at(), "42 244");
}

TEST_F(ToolFrameTest, IsDraggedAsOneStepAndStaysWithinTheLeftTopCorner) {
  const struct {
    PointPx from, to;
    const char* at;
  } cases[] = {{{20, 190}, {120, 240}, "102 234"},
               {{102, 234}, {40, 50}, "40 50"},
               {{37, 47}, {-60, -60}, "1 1"},  // by its grip
               {{10, 10}, {60, 0}, "51 1"}};
  for (const auto& c : cases) {
    const std::size_t steps = designer.surface().history().steps();
    const std::string before = at();
    drag(c.from.x, c.from.y, c.to.x, c.to.y);
    EXPECT_EQ(at(), c.at);
    EXPECT_EQ(designer.surface().panel().control(PanelId::left).text + " " +
                  designer.surface().panel().control(PanelId::top).text,
              c.at);
    EXPECT_EQ(designer.surface().history().steps(), steps + 1);
    EXPECT_EQ(undoWords(), "move of the tool panel");
    ASSERT_TRUE(command(Command::undo));
    EXPECT_EQ(at(), before);
    EXPECT_TRUE(selected());
    ASSERT_TRUE(command(Command::redo));
  }
  const std::size_t steps = designer.surface().history().steps();
  click(60, 10);
  EXPECT_EQ(designer.surface().history().steps(), steps);
}

TEST_F(ToolFrameTest, LetsGoOfADragThatIsCutOff) {
  press(20, 190);
  move(80, 190, 1);
  EXPECT_TRUE(key(kEscapeKey));
  move(90, 190, 1);
  release(90, 190);
  EXPECT_EQ(at(), "2 184");
  EXPECT_EQ(undoWords(), "tool panel");

  press(20, 190);
  move(-80, 200, 1);
  ASSERT_TRUE(command(Command::nextPage));
  EXPECT_EQ(at(), "1 194");
  EXPECT_EQ(undoWords(), "move of the tool panel");
  move(300, 300, 1);
  EXPECT_EQ(at(), "1 194");

  press(20, 200);
  move(40, 200, 1);
  move(200, 500);  // the release went elsewhere
  EXPECT_EQ(at(), "21 194");

  messages.answers = {false};
  press(40, 200);
  designer.openPath("/projects/contacts.qvf");
  const std::string opened = at();
  move(90, 290, 1);
  release(90, 290);
  EXPECT_EQ(at(), opened);
}

TEST_F(ToolFrameTest, LeavesTheMouseToWhatElseIsUnderWay) {
  place(Tool::field, 60, 190);  // a click on the panel that carries an object
  const ObjectRef field{ObjectKind::Field, document().fieldCount() - 1};
  EXPECT_FALSE(selected());
  click(70, 195);  // the panel lies above the field
  EXPECT_TRUE(selected());
  ASSERT_TRUE(command(Command::selectArea));
  drag(5, 186, 300, 300);
  EXPECT_EQ(designer.surface().state().selKind, kSelArea);
  ASSERT_TRUE(command(Command::selectArea));
  ASSERT_TRUE(command(Command::lock));
  click(70, 195);
  EXPECT_FALSE(selected());
  EXPECT_EQ(at(), "2 184");
  EXPECT_TRUE(isLive(document(), field));
}

TEST_F(ToolFrameTest, MovesByKeysAsFarAsThePageGoes) {
  const SizePx page = pageSizePx(document());
  const struct {
    int key, times;
    unsigned shift;
    std::string at;
  } cases[] = {{kRightKey, 3, 0, "5 184"},
               {kDownKey, 2, kShift, "5 204"},
               {kLeftKey, 9, 0, "1 204"},
               {kUpKey, 30, kShift, "1 1"},
               {kRightKey, 2000, kShift, std::to_string(page.width - 317) + " 1"}};
  for (const auto& c : cases) {
    for (int i = 0; i < c.times; ++i) EXPECT_TRUE(key(c.key, c.shift));
    EXPECT_EQ(at(), c.at);
  }
  designer.surface().pad(-1, 1, true);
  EXPECT_EQ(at(), std::to_string(page.width - 327) + " 11");
  ASSERT_TRUE(command(Command::undo));  // keys that follow each other are one step
  EXPECT_EQ(at(), "2 184");
  ASSERT_TRUE(command(Command::lock));
  key(kRightKey);
  EXPECT_EQ(at(), "2 184");
}

}  // namespace
}  // namespace plinth
