// The person's hands on free labels and pictures, and what of it reaches the record.
#include "engine/VariableObjects.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

using Kind = VariableRef::Kind;
using Tool = VariableObjects::Tool;

Payload boardPayload() {
  Payload p = shopPayload();
  p.header.varObjects = 1;
  return p;
}

// 6 by 12 pixels a character on a page of 600 by 400.
struct Board {
  explicit Board(std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>(), bool readOnly = false)
      : user(boardPayload(), std::move(disk)) {
    if (readOnly) user.files.setReadOnly("/app/Shop.dbd", true);
    user.session->openData(false);
    objects.setEditing(true);
    objects.setGridSize(10);
  }
  VariableRef place(Tool tool, int x, int y) {
    objects.chooseTool(tool, 100007, {32, 16});
    return objects.press({x, y});
  }
  void drag(PointPx from, PointPx to) {
    objects.press(from);
    objects.drag({(from.x + to.x) / 2, (from.y + to.y) / 2});
    objects.drag(to);
    objects.release();
  }
  const VariableLabel& label(std::size_t n) const { return user.session->form().labels[n]; }
  PointPx corner(VariableRef object) const {
    const RectPx rect = objects.place(object);
    return {rect.left, rect.top};
  }
  User user;
  VariableObjects objects{*user.session,
                          {user.messages, user.shell, {600, 400}, [](const VariableLabel& label) {
                             return SizePx{6 * static_cast<int>(label.text.size()), 12};
                           }}};
};

void expectAt(const Board& board, VariableRef object, int x, int y) {
  EXPECT_EQ(board.corner(object).x, x);
  EXPECT_EQ(board.corner(object).y, y);
}

TEST(VariableObjects, KeepsWhatWasPlacedAndStyledThroughSaveAndLoad) {
  Board board;
  const VariableRef picture = board.place(Tool::picture, 98, 52);
  const VariableRef label = board.place(Tool::label, 101, 49);
  EXPECT_EQ(board.objects.tool(), Tool::pointer);  // one press, one object
  expectAt(board, picture, 100, 50);
  ASSERT_EQ(label.kind, Kind::label);
  EXPECT_EQ(board.objects.at({105, 55}), label);  // labels lie above pictures
  EXPECT_EQ(board.objects.at({131, 55}), picture);
  EXPECT_TRUE(board.objects.setText("Call her"));
  EXPECT_TRUE(board.objects.setStyle({14, 0, true, true, false, 0x0000FF}));
  EXPECT_EQ(board.label(0).width, 8 * 6 * 15);
  EXPECT_EQ(board.user.session->focus().kind, FocusKind::variableLabels);
  EXPECT_TRUE(board.objects.changed());
  ASSERT_TRUE(board.user.session->saveRecord());
  EXPECT_FALSE(board.objects.changed());
  board.objects.settled();
  board.user.type(1, "Anna");
  EXPECT_FALSE(board.objects.changed());

  Board again(board.user.files.disk);
  EXPECT_EQ(again.label(0).text, "Call her");
  EXPECT_TRUE(again.label(0).bold && again.label(0).italic && !again.label(0).underline);
  EXPECT_EQ(again.label(0).fontSize, 14);
  EXPECT_EQ(again.label(0).foreColor, 0x0000FF);
  EXPECT_EQ(again.user.session->form().variablePictures[0].image, 100007);
  // A new label looks like the last one that was chosen.
  again.objects.press({105, 55});
  again.place(Tool::label, 300, 300);
  EXPECT_EQ(again.label(1).fontSize, 14);
}

TEST(VariableObjects, MovesByTheGridWithinThePage) {
  const struct {
    PointPx to;  // of a drag from (105, 105)
    int x, y;
  } drags[] = {{{106, 106}, 100, 100},  // a shaking hand
               {{118, 113}, 110, 110},  // 113 and 108, by the grid
               {{-500, 105}, 0, 100},   // not beyond the page
               {{5000, 5000}, 570, 388}};
  for (const auto& row : drags) {
    SCOPED_TRACE(row.to.x);
    Board board;
    const VariableRef label = board.place(Tool::label, 100, 100);
    board.drag({105, 105}, row.to);
    expectAt(board, label, row.x, row.y);
  }
  Board board;
  const VariableRef label = board.place(Tool::label, 100, 100);
  board.objects.keyDown({39, 0});
  expectAt(board, label, 110, 100);
  board.objects.press({115, 105});
  board.objects.drag({200, 200});
  board.objects.keyDown({27, 0});
  EXPECT_FALSE(board.objects.dragging());
  expectAt(board, label, 110, 100);
  EXPECT_TRUE(board.objects.keyDown({46, 0}));
  EXPECT_FALSE(board.objects.at({115, 105}));
  EXPECT_FALSE(board.objects.keyDown({46, 0}));  // nothing is chosen any more
}

TEST(VariableObjects, LeavesOtherPagesAndOtherRecordsAlone) {
  Board board;
  const VariableRef label = board.place(Tool::label, 100, 100);
  board.user.session->pgeClick(1);
  EXPECT_FALSE(board.objects.selection());
  EXPECT_FALSE(board.objects.at({105, 105}));
  EXPECT_FALSE(board.objects.remove());
  board.user.session->pgeClick(0);
  EXPECT_EQ(board.objects.selection(), label);
  board.objects.press({105, 105});
  board.user.session->newbutClick();
  board.objects.drag({200, 200});
  EXPECT_FALSE(board.objects.dragging());
  EXPECT_FALSE(board.objects.selection());
  board.place(Tool::label, 50, 50);
  board.user.session->command2Click(0);
  expectAt(board, {Kind::label, 0}, 100, 100);
}

TEST(VariableObjects, TouchesNothingThatIsReadOnlyOrHeldByAnother) {
  Board first;
  first.place(Tool::label, 100, 100);
  first.user.session->newbutClick();
  first.place(Tool::label, 100, 100);
  ASSERT_TRUE(first.user.session->saveRecord());
  Board second(first.user.files.disk);
  second.user.session->goToRecord(2);
  ASSERT_TRUE(first.user.session->beginEdit());
  second.drag({105, 105}, {200, 200});
  expectAt(second, {Kind::label, 0}, 100, 100);
  EXPECT_FALSE(second.user.session->dirty());
  ASSERT_TRUE(first.user.session->saveRecord());

  Board reader(first.user.files.disk, true);
  reader.drag({105, 105}, {200, 200});
  expectAt(reader, {Kind::label, 0}, 100, 100);
  EXPECT_FALSE(reader.objects.setText("x"));
  EXPECT_FALSE(reader.objects.remove());
  EXPECT_TRUE(reader.user.messages.shown.empty());
}

TEST(VariableObjects, RefusesWhatTheRecordHasNoRoomFor) {
  Board board;
  board.place(Tool::label, 100, 100);
  EXPECT_FALSE(board.objects.setText(std::string(9990, 'x')));
  EXPECT_EQ(board.label(0).text, "Label");
  EXPECT_TRUE(board.objects.setText(std::string(9950, 'x')));
  EXPECT_FALSE(board.place(Tool::label, 10, 300));
  EXPECT_TRUE(board.user.session->saveRecord());
  EXPECT_EQ(board.user.messages.texts(),
            (std::vector<std::string>{board.user.messages.shown[0].text,
                                      "The record has no room for more labels and pictures.",
                                      "The record has no room for more labels and pictures."}));
}

TEST(VariableObjects, FollowsTheLinksOfLabels) {
  const struct {
    const char* text;
    const char* target;  // "": none
    int navigation;
  } rows[] = {{"www.example.org", "http://www.example.org", -1},
              {"See HTTPS://Example.org/a today", "HTTPS://Example.org/a", -1},
              {"anna@example.org", "mailto:anna@example.org", -1},
              {"mailto:anna@example.org", "mailto:anna@example.org", -1},
              {" >>> ", "", 5},
              {"<>", "", 6},
              {"a > b", "", -1},
              {"at @ noon", "", -1},
              {"www.", "", -1},
              {"file://c:/x.exe notes.txt", "", -1},
              {"", "", -1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto link = labelLink(row.text);
    ASSERT_EQ(link.has_value(), *row.target != '\0' || row.navigation >= 0);
    EXPECT_EQ(link ? link->target : "", row.target);
    EXPECT_EQ(link ? link->navigation : -1, row.navigation);
  }
  Board board;
  board.place(Tool::label, 100, 100);
  board.objects.setText("Page www.example.org");
  board.objects.setEditing(false);
  EXPECT_EQ(board.objects.toolTip({105, 105}), "Goto www.example.org");
  EXPECT_FALSE(board.objects.press({105, 105}));  // without tools nothing is dragged
  EXPECT_TRUE(board.objects.click({105, 105}));
  EXPECT_EQ(board.user.shell.opened, (std::vector<FakeShell::Opened>{{"http://www.example.org", ""}}));
  EXPECT_FALSE(board.objects.click({10, 10}));
}

TEST(VariableObjects, FindsThePicturesOfAFolder) {
  EXPECT_EQ(freePictureNumbers({"100001.GIF", "100000.gif", "100000.GIF", "-1.gif", "0.gif", "007.gif",
                                "1.png", "a.gif", "99999999999.gif", ".gif", "2.gif.exe"}),
            (std::vector<std::int32_t>{100000, 100001}));
}

}  // namespace
}  // namespace plinth
