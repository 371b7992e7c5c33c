#include "tests/windows/EngineWindowFixture.h"
#include "engine/win32/ObjectTools.h"
namespace plinth { namespace {
class Whole : public EngineWindows {
 protected:
  void SetUp() override {
    payload.header.varObjects = 1;
    payload.header.pageWidth = 9000; payload.header.pageHeight = 6000;
    payload.pictures.resize(1);
    payload.pictures[0].page = 0;
    payload.pictures[0].left = 6300, payload.pictures[0].top = 1000, payload.pictures[0].width = 1500, payload.pictures[0].height = 1500;
    EngineWindows::SetUp();
  }
  HWND page() { return ::GetParent(control(kFieldId + kName)); }
  void click(int x, int y) {
    for (UINT m : {WM_LBUTTONDOWN, WM_LBUTTONUP}) ::SendMessageW(page(), m, MK_LBUTTON, MAKELPARAM(x, y));
    pump();
  }
};
TEST_F(Whole, Works) {
  HWND tools = ::FindWindowW(L"vTools", nullptr);
  ASSERT_TRUE(::IsWindowVisible(tools));
  EXPECT_EQ(::GetFocus(), control(kFieldId + kName));
  shot("objects-empty");
  saveScreenshot(tools, "screenshots/engine-objects-tools.png");
  ::SendMessageW(::GetDlgItem(tools, kToolLabelId), BM_CLICK, 0, 0);
  typeField(kName, L"bob");
  click(300, 220);
  HWND edit = ::FindWindowW(L"EditLabels", nullptr);
  ASSERT_TRUE(::IsWindowVisible(edit));
  EXPECT_EQ(::GetFocus(), ::GetDlgItem(edit, kLabelTextId));
  for (wchar_t ch : std::wstring(L"Hi >")) ::PostMessageW(::GetFocus(), WM_CHAR, ch, 0);
  pump();
  EXPECT_EQ(session->form().labels.at(0).text, "Hi >");
  ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
  pump();
  EXPECT_FALSE(::IsWindowVisible(edit));
  shot("objects-label");
  EXPECT_EQ(fieldShown(kName), "Bob");
  press('3', true);  // forward? ctrl+3: saves
  press('1', true);
  EXPECT_FALSE(session->dirty());
  EXPECT_EQ(session->form().labels.at(0).text, "Hi >");
  EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(tools, kToolChangedId)));
  click(308, 228);
  press(VK_DELETE);
  EXPECT_FALSE(session->form().labels.at(0).visible);
  EXPECT_TRUE(session->dirty());
  press(VK_TAB);
  EXPECT_NE(::GetFocus(), page());
  click(450, 100);
  EXPECT_EQ(::GetFocus(), page());
  shot("objects-marked");
  ::SendMessageW(page(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(450, 100));
  pump();
  HWND form = ::FindWindowW(L"Form10", nullptr);
  ASSERT_TRUE(::IsWindowVisible(form));
  EXPECT_FALSE(::IsWindowEnabled(window->handle()));
  ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
  pump();
  EXPECT_FALSE(::IsWindowVisible(form));
  EXPECT_TRUE(::IsWindowEnabled(window->handle()));
  EXPECT_EQ(::GetActiveWindow(), window->handle());
}
}}
