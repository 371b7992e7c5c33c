// Commands that come while the mouse holds or carries something.
#include "tests/surface/DesignerFixture.h"

namespace plinth {
namespace {

RectPx placeOnPage(const ProjectDocument& document, ObjectRef object) {
  return placeOf(document, object, [](std::string_view, const FontSpec&) { return SizePx{}; });
}

TEST_F(DesignerFixture, CommandsReleaseWhatTheMouseHolds) {
  const struct {
    const char* name;
    std::function<void()> command;
  } cases[] = {{"delete", [this] { command(Command::remove); }},
               {"undo of a deletion", [this] { command(Command::undo); }},
               {"cut", [this] { command(Command::cut); }},
               {"select all", [this] { command(Command::selectAll); }},
               {"page", [this] { command(Command::nextPage); }}};
  for (const auto& c : cases) {
    messages.answers = {false};
    designer.openPath("/projects/contacts.qvf");
    for (int i = 0; i < 3; ++i) place(Tool::field, 20, 60 + 30 * i);
    const int last = document().fieldCount();
    click(60, 68);
    ASSERT_TRUE(command(Command::remove));
    // The one that took the removed field's number.
    const RectPx held = placeOnPage(document(), {ObjectKind::Field, last - 2});
    press(held.left + 20, held.top + 8);
    move(held.left + 30, held.top + 8, 1);
    c.command();
    const ProjectTables after = document();
    const std::string step = designer.surface().history().undoWords();
    move(300, 300, 1);
    designer.keyDown({kEscapeKey, 0});
    release(300, 300);
    EXPECT_EQ(document().fields, after.fields) << c.name;
    EXPECT_EQ(designer.surface().history().undoWords(), step) << c.name;
  }
}

TEST_F(DesignerFixture, NothingIsCutThatCouldNotBeCopied) {
  place(Tool::field, 20, 60);
  const ProjectTables before = document();
  clipboard.held = true;
  command(Command::cut);
  EXPECT_EQ(document().fields, before.fields);
  clipboard.held = false;
  command(Command::cut);
  EXPECT_LT(document().fields.size(), before.fields.size());
}

TEST_F(DesignerFixture, GivingUpAnObjectWithItsOwnSlotTakesNothingElse) {
  const auto giveUps = {std::function([this] {
                          designer.keyDown({kEscapeKey, 0});
                        }),
                        std::function([this] { command(Command::undo); })};
  const ObjectRef box{ObjectKind::Memo, 1};
  for (const auto& giveUp : giveUps) {
    messages.answers = {false};
    designer.openPath("/projects/contacts.qvf");
    ASSERT_TRUE(command(Command::documentBox));
    click(50, 50);
    place(Tool::field, 20, 300);
    const ProjectTables before = document();
    ASSERT_TRUE(command(Command::documentBox));
    move(200, 200);
    ASSERT_NE(document().memos, before.memos) << "it is carried";
    giveUp();
    EXPECT_EQ(document().memos, before.memos);
    EXPECT_EQ(document().fields, before.fields);
    EXPECT_FALSE(isHidden(designer.surface().state(), box));
    EXPECT_FALSE(designer.surface().inGesture());
  }
}

}  // namespace
}  // namespace plinth
