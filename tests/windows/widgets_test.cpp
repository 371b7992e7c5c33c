// The drawn controls as any parent has them: made by class name, driven by the messages of mouse, keys and
// programs, heard by their notices.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "platform/win32/Screenshot.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

constexpr DWORD kTabStop = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr LPARAM kDark = 0x2B2B2B, kDarkBack = 0x3C3C3C, kLight = 0xE8E8E8;

// A plain window that writes down what its children tell it.
class Widgets : public testing::Test {
 protected:
  struct Notice {
    UINT message;
    int id, code;
    bool operator==(const Notice&) const = default;
  };

  void SetUp() override {
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    ASSERT_TRUE(registerWidgets(program));
    ASSERT_TRUE(registerWidgets(program));  // again is harmless
    WNDCLASSW shape = {};
    shape.lpfnWndProc = procedure;
    shape.hInstance = program;
    shape.lpszClassName = L"PlinthWidgetsTest";
    shape.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    ::RegisterClassW(&shape);
    parent_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, shape.lpszClassName, L"Widgets",
                                WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 560, 420, nullptr, nullptr, program,
                                this);
    ASSERT_NE(parent_, nullptr);
    ::SetForegroundWindow(parent_);
    pump();
  }
  void TearDown() override { ::DestroyWindow(parent_); }

  HWND make(const wchar_t* kind, int id, RECT place, DWORD style = kTabStop, const wchar_t* text = L"") {
    const HWND window = ::CreateWindowExW(
        0, kind, text, style, place.left, place.top, place.right - place.left, place.bottom - place.top,
        parent_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    EXPECT_NE(window, nullptr);
    return window;
  }
  void pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
      if (!::IsDialogMessageW(parent_, &message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
      }
  }
  void key(int code) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(code), 1);
    ::PostMessageW(::GetFocus(), WM_KEYUP, static_cast<WPARAM>(code), 0xC0000001);
    pump();
  }
  static void mouse(HWND window, UINT message, int x, int y) {
    ::SendMessageW(window, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(x, y));
  }
  static void click(HWND window, int x, int y) {
    mouse(window, WM_LBUTTONDOWN, x, y);
    mouse(window, WM_LBUTTONUP, x, y);
  }
  std::vector<int> codes(UINT message, int id) const {
    std::vector<int> out;
    for (const Notice& one : heard_)
      if (one.message == message && one.id == id) out.push_back(one.code);
    return out;
  }
  static LRESULT send(HWND window, UINT message, WPARAM wide = 0, LPARAM param = 0) {
    return ::SendMessageW(window, message, wide, param);
  }
  static std::wstring shown(HWND window) {
    wchar_t text[64] = {};
    ::GetWindowTextW(window, text, 64);
    return text;
  }

  HWND parent_ = nullptr;
  std::vector<Notice> heard_;
  RECT limit_ = {-1000, -1000, 1000, 1000};  // of bands

 private:
  LRESULT heard(UINT message, WPARAM wide, LPARAM param) {
    if (message == WM_COMMAND && param) heard_.push_back({message, LOWORD(wide), HIWORD(wide)});
    if (message == WM_VSCROLL || message == WM_HSCROLL)
      heard_.push_back({message, ::GetDlgCtrlID(reinterpret_cast<HWND>(param)), LOWORD(wide)});
    if (message == WM_MOUSEWHEEL) heard_.push_back({message, 0, 0});
    if (message == kBandMoving) {
      RECT& wanted = *reinterpret_cast<RECT*>(param);
      const LONG shift = std::max<LONG>(0, limit_.left - wanted.left);
      wanted.left += shift;
      wanted.right += shift;
    }
    return ::DefWindowProcW(parent_, message, wide, param);
  }
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM param) {
    if (message == WM_NCCREATE)
      ::SetWindowLongPtrW(
          window, GWLP_USERDATA,
          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(param)->lpCreateParams));
    auto* self = reinterpret_cast<Widgets*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return ::DefWindowProcW(window, message, wide, param);
    self->parent_ = window;
    return self->heard(message, wide, param);
  }
};

TEST_F(Widgets, ScrollBarsStandInForTheSystems) {
  const struct {
    const wchar_t* kind;
    RECT place;
    UINT message;
  } kBars[] = {{kRealvScrollClass, {0, 0, 17, 200}, WM_VSCROLL},
               {kRealhScrollClass, {0, 0, 200, 17}, WM_HSCROLL},
               {kDepthScrollClass, {0, 0, 200, 17}, WM_HSCROLL},
               {kDepthScrollClass, {0, 0, 17, 200}, WM_VSCROLL}};
  int id = 10;
  for (const auto& one : kBars) {
    const HWND bar = make(one.kind, ++id, one.place);
    const auto at = [&](int along) { return one.message == WM_VSCROLL ? POINT{8, along} : POINT{along, 8}; };
    SCROLLINFO info = {sizeof info, SIF_ALL, 0, 999, 100, 450, 0};
    EXPECT_EQ(::SetScrollInfo(bar, SB_CTL, &info, TRUE), 450);
    send(bar, kScrollSetSmallChange, 7);
    click(bar, at(195).x, at(195).y);
    EXPECT_EQ(send(bar, SBM_GETPOS), 457);
    click(bar, at(25).x, at(25).y);
    EXPECT_EQ(send(bar, SBM_GETPOS), 357);
    const int thumb = static_cast<int>(send(bar, kScrollGetThumbPos)) + 2;
    mouse(bar, WM_LBUTTONDOWN, at(thumb).x, at(thumb).y);
    mouse(bar, WM_MOUSEMOVE, at(900).x, at(900).y);
    mouse(bar, WM_LBUTTONUP, at(900).x, at(900).y);
    info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
    ASSERT_TRUE(::GetScrollInfo(bar, SB_CTL, &info));
    EXPECT_EQ(info.nPos, 900);  // the last page begins there
    EXPECT_EQ(info.nMax, 999);
    EXPECT_EQ(info.nPage, 100u);
    EXPECT_EQ(codes(one.message, id), (std::vector<int>{SB_LINEDOWN, SB_ENDSCROLL, SB_PAGEUP, SB_ENDSCROLL,
                                                        SB_THUMBTRACK, SB_THUMBPOSITION, SB_ENDSCROLL}));
    heard_.clear();
    ::SetFocus(bar);
    key(VK_PRIOR);
    key(VK_HOME);
    EXPECT_EQ(codes(one.message, id), (std::vector<int>{SB_PAGEUP, SB_ENDSCROLL, SB_TOP, SB_ENDSCROLL}));
    EXPECT_EQ(send(bar, SBM_GETPOS), 0);
    ::EnableWindow(bar, FALSE);
    click(bar, at(195).x, at(195).y);
    EXPECT_EQ(send(bar, SBM_GETPOS), 0);
    ::DestroyWindow(bar);
  }
}

TEST_F(Widgets, AHeldBarRunsByItsTimerAndEscGivesADragUp) {
  const HWND bar = make(kRealvScrollClass, 5, {0, 0, 17, 200});
  send(bar, SBM_SETPOS, 50);
  mouse(bar, WM_LBUTTONDOWN, 8, 195);
  for (int i = 0; i < 4; ++i) send(bar, WM_TIMER, 1);
  EXPECT_EQ(send(bar, SBM_GETPOS), 54);
  mouse(bar, WM_LBUTTONUP, 8, 195);
  send(bar, WM_TIMER, 1);
  EXPECT_EQ(send(bar, SBM_GETPOS), 54);
  const int thumb = static_cast<int>(send(bar, kScrollGetThumbPos)) + 2;
  mouse(bar, WM_LBUTTONDOWN, 8, thumb);
  mouse(bar, WM_MOUSEMOVE, 8, 190);
  EXPECT_EQ(send(bar, SBM_GETPOS), 100);
  EXPECT_EQ(::GetFocus(), bar);
  key(VK_ESCAPE);
  EXPECT_EQ(send(bar, SBM_GETPOS), 54);
  EXPECT_NE(::GetCapture(), bar);
}

TEST_F(Widgets, SmallTurnsOfAFineWheelAddUpInABar) {
  const HWND bar = make(kRealvScrollClass, 5, {0, 0, 17, 200});
  for (int i = 0; i < 12; ++i) send(bar, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA / 12));
  EXPECT_EQ(send(bar, SBM_GETPOS), 3);
}

TEST_F(Widgets, AComboInItsBorderIsAComboBox) {
  const HWND combo = make(kComboBorderClass, 21, {10, 10, 160, 36}, kTabStop | CBS_DROPDOWN, L"first");
  EXPECT_EQ(shown(combo), L"first");
  RECT place = {};
  ::GetWindowRect(combo, &place);
  EXPECT_EQ(place.bottom - place.top, 26);
  for (const WPARAM style : {0, 1, 2, 5}) {
    send(combo, kComboSetBorder, style);
    RECT inner = {};
    ::GetWindowRect(reinterpret_cast<HWND>(send(combo, kComboGetInner)), &inner);
    EXPECT_EQ(inner.top - place.top, place.bottom - inner.bottom) << style;
    EXPECT_EQ(inner.left - place.left, style == 0 ? 0 : style == 1 ? 1 : 3) << style;
  }
  for (const wchar_t* item : {L"Cash", L"Net"}) send(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
  EXPECT_EQ(send(combo, CB_GETCOUNT), 2);
  send(combo, CB_SETCURSEL, 1);
  EXPECT_EQ(shown(combo), L"Net");
  ::SetFocus(combo);
  pump();
  const auto edit = reinterpret_cast<HWND>(send(combo, kComboGetEdit));
  EXPECT_EQ(::GetFocus(), edit);
  EXPECT_TRUE(::IsChild(combo, edit));
  const struct {
    int textCase;
    const wchar_t* result;
  } kCases[] = {{0, L"aB cd"}, {1, L"AB CD"}, {2, L"AB Cd"}, {3, L"ab cd"}, {9, L"aB cd"}};
  for (const auto& one : kCases) {
    send(combo, kComboSetTextCase, static_cast<WPARAM>(one.textCase));
    ::SetWindowTextW(combo, L"");
    for (const wchar_t letter : std::wstring(L"aB cd")) send(edit, WM_CHAR, static_cast<WPARAM>(letter));
    EXPECT_EQ(shown(combo), one.result) << one.textCase;
  }
  send(combo, kComboSetMaxLength, 6);
  for (const wchar_t letter : std::wstring(L"efg")) send(edit, WM_CHAR, static_cast<WPARAM>(letter));
  EXPECT_EQ(shown(combo), L"aB cde");
  heard_.clear();
  send(combo, EM_SETSEL, 0, -1);
  send(edit, WM_CHAR, L'x');
  EXPECT_EQ(codes(WM_COMMAND, 21), (std::vector<int>{CBN_EDITUPDATE, CBN_EDITCHANGE}));
  // Drops, chooses and closes by keys.
  heard_.clear();
  send(combo, CB_SHOWDROPDOWN, TRUE);
  EXPECT_TRUE(send(combo, CB_GETDROPPEDSTATE));
  key(VK_DOWN);
  key(VK_RETURN);
  EXPECT_FALSE(send(combo, CB_GETDROPPEDSTATE));
  const auto told = codes(WM_COMMAND, 21);
  for (const int code : {CBN_DROPDOWN, CBN_SELCHANGE, CBN_CLOSEUP})
    EXPECT_EQ(std::count(told.begin(), told.end(), code), 1) << code;
  const std::wstring chosen = shown(combo);
  EXPECT_TRUE(chosen == L"Cash" || chosen == L"Net") << chosen.size();
  send(edit, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA));  // closed: for the page around it
  EXPECT_EQ(shown(combo), chosen);
  EXPECT_EQ(heard_.back().message, static_cast<UINT>(WM_MOUSEWHEEL));
  // Locked it shows and takes nothing.
  send(combo, kComboSetLocked, 1);
  send(edit, WM_CHAR, L'y');
  key(VK_DOWN);
  key(VK_F4);
  EXPECT_EQ(shown(combo), chosen);
  EXPECT_FALSE(send(combo, CB_GETDROPPEDSTATE));
}

TEST_F(Widgets, TabVisitsThemAllAndSpaceClicks) {
  const HWND combo = make(kComboBorderClass, 1, {10, 10, 160, 36});
  make(kOptionBoxClass, 2, {10, 50, 23, 63}, kTabStop | BS_CHECKBOX, L"Paid");
  make(kTabButtonClass, 3, {10, 80, 100, 106}, kTabStop, L"&Page 1");
  make(kRealvScrollClass, 4, {200, 10, 217, 200});
  make(kMyFrameClass, 5, {5, 5, 300, 300}, WS_CHILD | WS_VISIBLE, L"Frame");
  make(kComboBorderClass, 6, {10, 120, 160, 146}, kTabStop | CBS_DROPDOWNLIST);
  const HWND before = make(L"EDIT", 7, {10, 160, 100, 180});
  ::SetFocus(before);
  std::vector<int> visited;
  for (int i = 0; i < 6; ++i) {
    key(VK_TAB);
    HWND focus = ::GetFocus();
    while (focus && ::GetParent(focus) != parent_) focus = ::GetParent(focus);
    visited.push_back(::GetDlgCtrlID(focus));
  }
  EXPECT_EQ(visited, (std::vector<int>{1, 2, 3, 4, 6, 7}));
  EXPECT_EQ(::GetFocus(), before);
  heard_.clear();
  const HWND check = ::GetDlgItem(parent_, 2), tab = ::GetDlgItem(parent_, 3);
  ::SetFocus(check);
  key(VK_SPACE);
  EXPECT_EQ(codes(WM_COMMAND, 2), (std::vector<int>{BN_SETFOCUS, BN_CLICKED}));
  EXPECT_EQ(send(check, BM_GETCHECK), BST_UNCHECKED);  // the parent decides
  send(check, BM_SETCHECK, BST_CHECKED);
  EXPECT_EQ(send(check, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(shown(check), L"Paid");
  heard_.clear();
  mouse(tab, WM_LBUTTONDOWN, 5, 5);
  mouse(tab, WM_LBUTTONUP, 500, 5);  // let go elsewhere
  EXPECT_EQ(codes(WM_COMMAND, 3), (std::vector<int>{BN_SETFOCUS}));
  send(tab, BM_CLICK);
  EXPECT_EQ(codes(WM_COMMAND, 3), (std::vector<int>{BN_SETFOCUS, BN_CLICKED}));
  ::SetFocus(combo);
  key(VK_TAB);
  EXPECT_EQ(::GetFocus(), check);
  const HWND automatic = make(kOptionBoxClass, 8, {10, 200, 23, 213}, kTabStop | BS_AUTOCHECKBOX);
  click(automatic, 5, 5);
  EXPECT_EQ(send(automatic, BM_GETCHECK), BST_CHECKED);
}

TEST_F(Widgets, ABandGoesWhereItsParentLetsIt) {
  const HWND band = make(kUserSelClass, 30, {100, 100, 180, 160}, kTabStop);
  const auto place = [&] {
    RECT at = {};
    ::GetWindowRect(band, &at);
    ::MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&at), 2);
    return std::vector<LONG>{at.left, at.top, at.right, at.bottom};
  };
  limit_.left = 95;
  mouse(band, WM_LBUTTONDOWN, 40, 30);
  mouse(band, WM_MOUSEMOVE, 45, 33);
  EXPECT_EQ(place(), (std::vector<LONG>{105, 103, 185, 163}));
  mouse(band, WM_MOUSEMOVE, 0, 30);
  mouse(band, WM_LBUTTONUP, 0, 30);
  EXPECT_EQ(place(), (std::vector<LONG>{95, 103, 175, 163}));
  EXPECT_EQ(codes(WM_COMMAND, 30), (std::vector<int>{kBandPressed, kBandMoved, kBandMoved, kBandReleased}));
  mouse(band, WM_LBUTTONDOWN, 78, 58);
  mouse(band, WM_MOUSEMOVE, 98, 48);
  mouse(band, WM_LBUTTONUP, 98, 48);
  EXPECT_EQ(place(), (std::vector<LONG>{95, 103, 195, 153}));
  key(VK_RIGHT);
  EXPECT_EQ(place(), (std::vector<LONG>{96, 103, 196, 153}));
  // The page shows through, and nothing is left where the band was.
  const auto inked = [&] {
    ::RedrawWindow(parent_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Pixels seen = windowPixels(band);
    EXPECT_EQ(seen.argb[seen.argb.size() / 4 + 20] & 0xFFFFFF, ::GetSysColor(COLOR_BTNFACE));
    const Pixels all = windowPixels(parent_);
    return std::count(all.argb.begin(), all.argb.end(), 0xFF000000u);
  };
  const auto before = inked();
  EXPECT_GT(before, 100);
  ::SetWindowPos(band, nullptr, 20, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOCOPYBITS);
  EXPECT_EQ(inked(), before);
}

// One of each kind and state, light on the left, dark on the right.
TEST_F(Widgets, LookAsTheyShould) {
  const auto colours = [](HWND window, bool dark) {
    if (!dark) return window;
    ::SendMessageW(window, kWidgetSetSurround, 0, kDark);
    ::SendMessageW(window, kWidgetSetBackColor, 0, kDarkBack);
    ::SendMessageW(window, kWidgetSetForeColor, 0, kLight);
    return window;
  };
  const HWND ground = make(kMyFrameClass, 1, {270, 0, 560, 420}, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS);
  send(ground, kFrameSetBorderStyle, 0);
  send(ground, kFrameSetFillColor, 0, kDark);
  for (const bool dark : {false, true}) {
    const LONG left = dark ? 280 : 10;
    const auto add = [&](const wchar_t* kind, RECT place, DWORD style, const wchar_t* text = L"") {
      ::OffsetRect(&place, left, 10);
      return colours(make(kind, 2, place, style | WS_CLIPSIBLINGS, text), dark);
    };
    for (int style = 0; style <= 5; ++style) {
      const HWND combo = add(kComboBorderClass, {0, style * 32, 110, style * 32 + 26}, kTabStop, L"Combo");
      send(combo, kComboSetBorder, static_cast<WPARAM>(style));
      if (style == 5) ::EnableWindow(combo, FALSE);
    }
    for (int pattern = 0; pattern <= 4; ++pattern) {
      const HWND bar = add(kRealvScrollClass, {120 + pattern * 24, 0, 137 + pattern * 24, 120}, kTabStop);
      send(bar, kScrollSetPattern, static_cast<WPARAM>(pattern));
      send(bar, SBM_SETPOS, static_cast<WPARAM>(20 * pattern));
    }
    const HWND flat = add(kRealhScrollClass, {120, 130, 235, 147}, kTabStop);
    ::EnableWindow(flat, FALSE);
    add(kDepthScrollClass, {120, 155, 235, 167}, kTabStop);
    for (int i = 0; i < 3; ++i) {
      const HWND tab = add(kTabButtonClass, {i * 80, 204, i * 80 + 80, 230}, kTabStop, L"Page &1");
      send(tab, BM_SETCHECK, i == 0 ? BST_CHECKED : BST_UNCHECKED);
      if (i == 2) ::EnableWindow(tab, FALSE);
      if (dark) send(tab, kFrameSetFillColor, 0, 0x505050);
    }
    for (int i = 0; i < 4; ++i) {
      const int side = i == 3 ? 26 : 13;
      const HWND check = add(kOptionBoxClass, {120 + i * 20, 172, 120 + i * 20 + side, 172 + side}, kTabStop);
      send(check, BM_SETCHECK, i == 1 ? BST_UNCHECKED : BST_CHECKED);
      send(check, kOptionSetAppearance, i != 2);
    }
    for (int style = 0; style <= 4; ++style) {
      const HWND frame =
          add(kMyFrameClass, {style * 48, 236, style * 48 + 44, 290}, WS_CHILD | WS_VISIBLE, L"Abc");
      send(frame, kFrameSetBorderStyle, static_cast<WPARAM>(style));
    }
    add(kUserSelClass, {20, 300, 200, 350}, WS_CHILD | WS_VISIBLE);
  }
  ::SetWindowPos(ground, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  ::SetFocus(::FindWindowExW(parent_, nullptr, kRealvScrollClass, nullptr));
  pump();
  std::filesystem::create_directories("screenshots");
  ASSERT_TRUE(saveScreenshot(parent_, "screenshots/widgets.png"));
  const Pixels seen = windowPixels(parent_);
  EXPECT_GT(std::set<std::uint32_t>(seen.argb.begin(), seen.argb.end()).size(), 60u);
}

}  // namespace
}  // namespace plinth
