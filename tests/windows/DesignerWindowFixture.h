// The designer's real windows on a folder of their own, with hands that send what mouse and keyboard would.
#pragma once

#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>
#include <objbase.h>

#include <filesystem>
#include <string>

#include "platform/win32/Screenshot.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/DesignerFrame.h"
#include "surface/win32/DialogHost.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClipboard.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/platform/TempFolder.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

inline void pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) continue;  // the window under test has ended, the tests go on
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

inline std::wstring textOf(HWND window) {
  std::wstring text(512, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), 512)));
  return text;
}

inline void shot(HWND window, const std::string& name) {
  std::filesystem::create_directories("screenshots");
  pump();
  EXPECT_TRUE(saveScreenshot(window, "screenshots/designer-" + name + ".png"));
}

class DesignerWindowFixture : public testing::Test {
 protected:
  void SetUp() override {
    namespace fs = std::filesystem;
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const fs::path data(PLINTH_TEST_DATA);
    fs::create_directories(folder / "Languages");
    fs::create_directories(folder / "Icons");
    fs::copy(data / "../../Languages/English.txt", folder / "Languages\\English.txt");
    fs::copy(data / "../../Icons/Default.ico", folder / "Icons\\Default.ico");
    fs::copy(data / "fixtures/contacts.qvf", folder / "contacts.qvf");
    ASSERT_TRUE(frame.start("\"" + (folder / "contacts.qvf") + "\"", SW_SHOWNOACTIVATE));
    pump();
  }
  void TearDown() override {
    if (frame.window()) ::DestroyWindow(frame.window());
    pump();
    ::CoUninitialize();
  }

  void command(int id) { ::SendMessageW(frame.window(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
  void command(Command id) { command(static_cast<int>(id)); }
  HWND area() const { return ::GetDlgItem(frame.window(), DesignerFrame::kPageAreaId); }
  HWND panel(PanelId id) const {
    return ::GetDlgItem(::GetDlgItem(frame.window(), DesignerFrame::kPanelId),
                        PanelWindow::kFirstControl + static_cast<int>(id));
  }
  std::string status(int part) const {
    wchar_t text[512] = {};
    ::SendMessageW(::GetDlgItem(frame.window(), DesignerFrame::kStatusId), WM_USER + 13 /* SB_GETTEXTW */,
                   static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text));
    return std::filesystem::path(text).string();
  }
  const ProjectDocument& document() { return frame.designer().shell().document(); }

  // Mouse at points of the page.
  void mouse(UINT message, int x, int y, WPARAM held = 0) {
    const PointPx origin = frame.designer().surface().page().sheetOrigin();
    ::SendMessageW(area(), message, held, MAKELPARAM(origin.x + x, origin.y + y));
  }
  void click(int x, int y) {
    mouse(WM_MOUSEMOVE, x, y);
    mouse(WM_LBUTTONDOWN, x, y, MK_LBUTTON);
    mouse(WM_LBUTTONUP, x, y);
  }
  void drag(int fromX, int fromY, int toX, int toY) {
    mouse(WM_MOUSEMOVE, fromX, fromY);
    mouse(WM_LBUTTONDOWN, fromX, fromY, MK_LBUTTON);
    mouse(WM_MOUSEMOVE, (fromX + toX) / 2, (fromY + toY) / 2, MK_LBUTTON);
    mouse(WM_MOUSEMOVE, toX, toY, MK_LBUTTON);
    mouse(WM_LBUTTONUP, toX, toY);
    mouse(WM_MOUSEMOVE, toX, toY);
  }
  // A press of the tool's button, then a click on the page.
  void place(Tool tool, int x, int y) {
    const HWND toolbox = ::GetDlgItem(frame.window(), DesignerFrame::kToolboxId);
    ::SendMessageW(::GetDlgItem(toolbox, ToolboxWindow::kFirstTool + static_cast<int>(tool)), BM_CLICK, 0, 0);
    click(x, y);
    mouse(WM_MOUSEMOVE, x + 200, y + 200);
  }
  void key(int code, unsigned) { ::SendMessageW(area(), WM_KEYDOWN, static_cast<WPARAM>(code), 0); }
  static void letters(HWND box, const std::string& text) {
    ::SendMessageW(box, EM_SETSEL, 0, -1);
    for (const char letter : text) ::SendMessageW(box, WM_CHAR, static_cast<WPARAM>(letter), 0);
  }
  void typeLabel(const std::string& text) {
    const HWND box = ::GetDlgItem(area(), PageArea::kMainTextId);
    EXPECT_TRUE(::IsWindowVisible(box)) << "no label is typed";
    letters(box, text);
    ::SendMessageW(box, WM_KEYDOWN, VK_RETURN, 0);
  }
  // Into a control of the panel; checks are pressed.
  void type(PanelId id, const std::string& text) {
    HWND control = panel(id);
    ASSERT_TRUE(::IsWindowVisible(control)) << static_cast<int>(id);
    wchar_t name[32] = {};
    ::GetClassNameW(control, name, 32);
    if (std::wstring(name) == L"Button") {
      ::SendMessageW(control, BM_CLICK, 0, 0);
      return;
    }
    if (std::wstring(name) == kComboBorderClass)
      control = reinterpret_cast<HWND>(::SendMessageW(control, kComboGetEdit, 0, 0));
    letters(control, text);
    pump();
  }

  TempFolder folder;
  FakeMessages messages;
  FakeChooser chooser;
  MemorySettings settings;
  FakeClock clock;
  FakeClipboard clipboard;
  FakeShell shell;
  HWND owner = nullptr;
  DialogHost dialogs{[this] { return owner; }};
  Bytes stub = Bytes(5000, 7), icon = Bytes(766, 1);
  DesignerFrame frame{{systemFiles(), messages, chooser, settings, clock, dialogs, clipboard, shell,
                       folder / "", true, stub, icon, "2.0"}};
};

}  // namespace plinth
