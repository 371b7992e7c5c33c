// A person puts a free label on a record and looks at its picture, in the application's own window.
#include "engine/win32/ObjectTools.h"
#include "tests/windows/EngineWindowFixture.h"

namespace plinth {
namespace {

// The shop with the field tool box on and a data picture at the right.
class ToolBoxWindows : public EngineWindows {
 protected:
  void SetUp() override {
    payload.header.varObjects = 1;
    payload.header.pageWidth = 9000;
    payload.header.pageHeight = 6000;
    payload.pictures.resize(1);
    PayloadPicture& picture = payload.pictures[0];
    picture.page = 0;
    picture.left = 6300, picture.top = 1000, picture.width = picture.height = 1500;
    EngineWindows::SetUp();
  }
  HWND page() const { return ::GetParent(control(kFieldId + kName)); }
  void clickPage(int x, int y) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP})
      ::SendMessageW(page(), message, MK_LBUTTON, MAKELPARAM(x, y));
    pump();
  }
};

TEST_F(ToolBoxWindows, LabelIsPutTypedSavedAndDeleted) {
  const HWND tools = ::FindWindowW(L"vTools", nullptr);
  ASSERT_TRUE(::IsWindowVisible(tools));
  EXPECT_EQ(::GetFocus(), control(kFieldId + kName));
  saveScreenshot(tools, "screenshots/engine-objects-tools.png");
  ::SendMessageW(::GetDlgItem(tools, kToolLabelId), BM_CLICK, 0, 0);
  typeField(kName, L"bob");
  clickPage(300, 220);
  const HWND edit = ::FindWindowW(L"EditLabels", nullptr);
  ASSERT_TRUE(::IsWindowVisible(edit));
  for (const wchar_t ch : std::wstring(L"Hi >")) ::PostMessageW(::GetFocus(), WM_CHAR, ch, 0);
  press(VK_RETURN);
  EXPECT_FALSE(::IsWindowVisible(edit));
  EXPECT_EQ(session->form().labels.at(0).text, "Hi >");
  shot("objects-label");
  click(kNavigationId + 3);
  EXPECT_FALSE(session->dirty());
  EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(tools, kToolChangedId)));
  clickPage(308, 228);
  press(VK_DELETE);
  EXPECT_FALSE(session->form().labels.at(0).visible);
  EXPECT_TRUE(session->dirty());
}

TEST_F(ToolBoxWindows, PictureTakesTheKeyboardAndOpensItsChooser) {
  clickPage(450, 100);
  EXPECT_EQ(::GetFocus(), page());
  shot("objects-marked");
  ::SendMessageW(page(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(450, 100));
  pump();
  const HWND chooser = ::FindWindowW(L"Form10", nullptr);
  ASSERT_TRUE(::IsWindowVisible(chooser));
  EXPECT_FALSE(::IsWindowEnabled(window->handle()));
  press(VK_ESCAPE);
  EXPECT_FALSE(::IsWindowVisible(chooser));
  EXPECT_TRUE(::IsWindowEnabled(window->handle()));
}

}  // namespace
}  // namespace plinth
