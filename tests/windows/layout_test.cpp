// Laying out forms in the designer's real windows: whole journeys of a person, each ending in checks on
// files, and pictures of what is seen on the way.
#include "tests/windows/DesignerWindowFixture.h"

#include <chrono>
#include <iostream>

#include "model/PictureStore.h"
#include "model/ProjectFile.h"
#include "platform/win32/Win32Clipboard.h"
#include "tests/surface/ContactsJourney.h"

namespace plinth {
namespace {

class LayOut : public DesignerWindowFixture {
 public:
  using DesignerWindowFixture::click;
  using DesignerWindowFixture::command;
  using DesignerWindowFixture::drag;
  using DesignerWindowFixture::key;
  using DesignerWindowFixture::place;
  using DesignerWindowFixture::type;
  using DesignerWindowFixture::typeLabel;

 protected:
  void newProject() {
    messages.answers = {false};
    command(Command::newProject);
  }
};

TEST_F(LayOut, AFormFromNothingToItsFileAndBack) {
  layOutContacts(*this);
  shot(frame.window(), "laid-out");
  expectContacts(document());
  chooser.answers = {folder / "mine"};
  command(Command::save);
  messages.answers = {false};
  command(Command::newProject);
  frame.designer().openPath(folder / "mine.qvf");
  expectContacts(document());
  shot(frame.window(), "laid-out-reopened");
}

TEST_F(LayOut, AnAreaGoesIntoASecondProjectByTheSystemsClipboard) {
  newProject();
  for (int i = 0; i < 20; ++i) place(Tool::field, 20 + 200 * (i / 10), 20 + 30 * (i % 10));
  command(Command::selectArea);
  drag(5, 5, 500, 400);
  EXPECT_EQ(frame.designer().surface().selectionWords(), "20 objects");
  shot(frame.window(), "area");
  command(Command::copy);
  SystemClipboard system([this] { return frame.window(); });
  ASSERT_TRUE(system.setText(clipboard.content, 1252));
  newProject();
  ASSERT_EQ(document().fieldCount(), 0);
  clipboard.content = system.text(1252);
  command(Command::paste);
  ASSERT_EQ(document().fieldCount(), 20);
  EXPECT_EQ(cornerOf(document(), {ObjectKind::Field, 1}).x, 32);
  EXPECT_EQ(document().fields[20].tag, "Field20");
}

TEST_F(LayOut, FormulasFollowADeletedField) {
  newProject();
  for (int i = 0; i < 5; ++i) place(Tool::field, 20, 20 + 30 * i);
  frame.designer().shell().document().fields[5].formula = "=F4+F2";
  frame.designer().surface().finished("formula");
  click(40, 90);
  key(VK_DELETE, 0);
  ASSERT_EQ(document().fieldCount(), 4);
  EXPECT_EQ(document().fields[4].formula, "=F3+F2");
  ::SendMessageW(frame.window(), WM_COMMAND, static_cast<WPARAM>(Command::undo), 0);
  EXPECT_EQ(document().fields[5].formula, "=F4+F2");
}

TEST_F(LayOut, EveryKindOnOnePage) {
  newProject();
  for (int i = 0; i < kTools; ++i) place(static_cast<Tool>(i), 30 + 200 * (i % 3), 30 + 110 * (i / 3));
  for (int i = 0; i < kTools; ++i) {
    const ObjectKind kind = toolInfos()[static_cast<std::size_t>(i)].kind;
    bool live = false;
    visitTable(document(), kind, [&](const auto& rows) {
      for (const auto& row : rows) live = live || isLivePage(static_cast<int>(row.page));
    });
    EXPECT_TRUE(live) << i;
  }
  click(260, 40);
  shot(frame.window(), "all-kinds");
  command(Command::colorTable);
  pump();
  for (HWND top = ::GetWindow(frame.window(), GW_HWNDPREV); top; top = ::GetWindow(top, GW_HWNDPREV))
    if (::IsWindowVisible(top) && ::GetWindow(top, GW_OWNER) == frame.window()) shot(top, "colors");
}

// A figure for people to read; how fast a machine is proves nothing.
TEST_F(LayOut, PrintsHowOftenAPageOfThreeHundredObjectsIsPaintedInADrag) {
  newProject();
  ProjectDocument& project = frame.designer().shell().document();
  for (int i = 1; i <= 300; ++i) {
    FieldRow row = project.fields.front();
    row.page = 0;
    row.left = static_cast<float>(150 + 1500 * (i % 6)), row.top = static_cast<float>(150 + 140 * (i / 6));
    row.width = 1300, row.height = 225;
    project.fields.push_back(row);
  }
  frame.designer().surface().finished("many fields");
  pump();
  constexpr int kMoves = 200;
  const auto began = std::chrono::steady_clock::now();
  mouse(WM_LBUTTONDOWN, 20, 20, MK_LBUTTON);
  for (int i = 0; i < kMoves; ++i) {
    mouse(WM_MOUSEMOVE, 20 + i % 50, 20 + i % 40, MK_LBUTTON);
    ::UpdateWindow(area());
  }
  mouse(WM_LBUTTONUP, 20, 20);
  const std::chrono::duration<double> dragged = std::chrono::steady_clock::now() - began;
  const auto second = std::chrono::steady_clock::now();
  for (int i = 0; i < kMoves; ++i) {
    ::InvalidateRect(area(), nullptr, FALSE);
    ::UpdateWindow(area());
  }
  const std::chrono::duration<double> whole = std::chrono::steady_clock::now() - second;
  std::cout << "300 objects: " << kMoves / dragged.count() << " repaints a second in a drag, "
            << kMoves / whole.count() << " of the whole page\n";
  EXPECT_EQ(document().fieldCount(), 300);
}

}  // namespace
}  // namespace plinth
