// A list of a million rows as an owner has it: real keys, mouse and bars, and what it tells.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <utility>
#include <vector>

#include "platform/win32/Handles.h"
#include "platform/win32/Screenshot.h"
#include "widgets/win32/ListPlus.h"

namespace plinth {
namespace {

// Invoices made up when they are asked for.
struct Invoices : ListSource {
  std::int32_t rows() const override { return count; }
  std::int32_t rowId(std::int32_t row) const override { return row + 1; }
  std::string cell(std::int32_t row, int column) const override {
    static const char* const kNames[] = {"Baker & Sons", "Zoe Adams", "M\xFCller, Hans", "apple trading",
                                         "A customer whose name is far longer than any column has room for"};
    static const char* const kPlaces[] = {"Bristol", "Utrecht", "Basel", "Porto"};
    const std::int64_t mixed = row * 7919LL % 1000003;
    switch (column) {
      case 1:
        return kNames[mixed % 5];
      case 2:
        return kPlaces[mixed % 4];
      case 3:
        return std::to_string(mixed % 12 + 1) + "/" + std::to_string(mixed % 28 + 1) + "/2026";
      case 4:
        return std::to_string(mixed % 100000 / 100) + "." + std::to_string(mixed % 90 + 10);
      default:
        return column == 5 ? "Paid by transfer, thank you" : "";
    }
  }
  std::int32_t count = 1000000;
};

class ListWindow : public testing::Test {
 protected:
  // One window for all: closing one takes Wine seconds.
  static void SetUpTestSuite() {
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    ASSERT_TRUE(registerWidgets(program));
    WNDCLASSW shape = {};
    shape.lpfnWndProc = procedure;
    shape.hInstance = program;
    shape.lpszClassName = L"PlinthListTest";
    shape.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    ::RegisterClassW(&shape);
    parent_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, shape.lpszClassName, L"Invoices",
                                WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 640, 400, nullptr, nullptr, program,
                                nullptr);
    ASSERT_NE(parent_, nullptr);
    ::SetForegroundWindow(parent_);
  }
  static void TearDownTestSuite() { ::DestroyWindow(parent_); }
  void SetUp() override {
    told_.clear();
    list_ = ::CreateWindowExW(0, kListPlusClass, L"Found invoices",
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER, 10, 10, 600, 340, parent_,
                              reinterpret_cast<HMENU>(7), nullptr, nullptr);
    ASSERT_NE(list_, nullptr);
    LOGFONTW letters = {};
    letters.lfHeight = -12;
    wcscpy(letters.lfFaceName, L"Arial");
    font_ = FontHandle(::CreateFontIndirectW(&letters));
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()));
    model().setColumns({{"No.", 70, true, false},
                        {"Customer", 170, false, false},
                        {"Place", 90, false, false},
                        {"Day", 90, false, true},
                        {"Amount", 90, true, false},
                        {"Remark", 180, false, false}});
    setListSource(list_, &invoices_);
    ::SetFocus(list_);
    pump();
  }
  void TearDown() override { ::DestroyWindow(list_); }

  ListModel& model() { return *listModel(list_); }
  LRESULT send(UINT message, WPARAM wide = 0, LPARAM param = 0) {
    return ::SendMessageW(list_, message, wide, param);
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
    ::PostMessageW(list_, WM_KEYDOWN, static_cast<WPARAM>(code), 1);
    ::PostMessageW(list_, WM_KEYUP, static_cast<WPARAM>(code), 0xC0000001);
    pump();
  }
  void mouse(UINT message, int x, int y) {
    send(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(x, y));
  }
  void click(int x, int y) {
    mouse(WM_LBUTTONDOWN, x, y);
    mouse(WM_LBUTTONUP, x, y);
  }
  int rowTop(int line) { return model().headHeight() + line * model().rowHeight(); }
  std::vector<int> told() { return std::exchange(told_, {}); }
  void picture(const std::string& name) {
    pump();
    std::filesystem::create_directories("screenshots");
    ASSERT_TRUE(saveScreenshot(parent_, "screenshots/" + name));
    const Pixels seen = windowPixels(parent_);
    EXPECT_GT(std::set<std::uint32_t>(seen.argb.begin(), seen.argb.end()).size(), 20u);
  }

  Invoices invoices_;
  FontHandle font_;
  HWND list_ = nullptr;
  static inline HWND parent_ = nullptr;
  static inline std::vector<int> told_;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM param) {
    if (message == WM_COMMAND && LOWORD(wide) == 7) told_.push_back(HIWORD(wide));
    return ::DefWindowProcW(window, message, wide, param);
  }
};

TEST_F(ListWindow, KeysWheelAndBarsWalkAMillionRows) {
  EXPECT_EQ(listCaretRowId(list_), 1);
  key(VK_END);
  EXPECT_EQ(listCaretRowId(list_), 1000000);
  EXPECT_EQ(told(), (std::vector<int>{kListSelectionChanged}));
  const HWND bar = ::FindWindowExW(list_, nullptr, kRealvScrollClass, nullptr);
  ASSERT_TRUE(::IsWindowVisible(bar));
  EXPECT_EQ(::SendMessageW(bar, SBM_GETPOS, 0, 0), model().firstRow());
  ::SendMessageW(bar, SBM_SETPOS, 500000, 0);
  RECT area = {};
  ::GetClientRect(bar, &area);
  for (const UINT button : {WM_LBUTTONDOWN, WM_LBUTTONUP})  // on its lower arrow
    ::SendMessageW(bar, button, 0, MAKELPARAM(area.right / 2, area.bottom - 3));
  EXPECT_EQ(model().firstRow(), 500001);
  EXPECT_EQ(::GetFocus(), list_);
  send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
  EXPECT_EQ(model().firstRow(), 500004);
  click(100, rowTop(1) + 3);
  EXPECT_EQ(listCaretRowId(list_), 500006);
  EXPECT_EQ(told(), (std::vector<int>{kListSelectionChanged, kListRowChosen}));
  key(VK_RETURN);
  EXPECT_EQ(told(), (std::vector<int>{kListRowChosen}));
  mouse(WM_LBUTTONDBLCLK, 100, rowTop(1) + 3);
  mouse(WM_LBUTTONUP, 100, rowTop(1) + 3);
  EXPECT_EQ(told(), (std::vector<int>{kListRowActivated}));
  picture("list.png");
}

TEST_F(ListWindow, HeadsSortAndSizeAndRowsAreReadAsThoseOfAListBox) {
  click(200, 5);
  EXPECT_EQ(told(), (std::vector<int>{kListSorted}));
  EXPECT_EQ(model().getItem(0, 1).substr(0, 10), "A customer");
  EXPECT_EQ(model().getItem(999999, 1), "Zoe Adams");
  mouse(WM_LBUTTONDOWN, 240, 5);
  mouse(WM_MOUSEMOVE, 300, 5);
  mouse(WM_LBUTTONUP, 300, 5);
  EXPECT_EQ(model().columns()[1].width, 230);
  mouse(WM_LBUTTONDBLCLK, 300, 5);
  EXPECT_GT(model().columns()[1].width, 300);
  EXPECT_EQ(told(), (std::vector<int>{kListColumnSized, kListColumnSized}));
  send(kListSetMultiSelect, 1);
  click(100, rowTop(2) + 3);
  mouse(WM_LBUTTONDOWN, 100, rowTop(4) + 3);
  mouse(WM_MOUSEMOVE, 100, rowTop(7) + 3);
  EXPECT_EQ(send(LB_GETSELCOUNT), 4);
  picture("list-marked.png");
  mouse(WM_LBUTTONUP, 100, rowTop(7) + 3);
  EXPECT_EQ(send(LB_GETCOUNT), 1000000);
  EXPECT_EQ(send(LB_GETCURSEL), 7);
  std::wstring text(static_cast<std::size_t>(send(LB_GETTEXTLEN, 999999)), L' ');
  EXPECT_EQ(send(LB_GETTEXT, 999999, reinterpret_cast<LPARAM>(text.data())),
            static_cast<LRESULT>(text.size()));
  EXPECT_NE(text.find(L"\tZoe Adams\t"), std::wstring::npos);
  EXPECT_EQ(send(LB_GETTEXTLEN, 1000000), LB_ERR);
}

TEST_F(ListWindow, SurvivesASourceThatShrinksAndAnOwnerThatGoes) {
  key(VK_END);
  invoices_.count = 3;
  refreshList(list_);
  picture("list-short.png");  // painted before it is told
  listRowsChanged(list_);
  EXPECT_EQ(listCaretRowId(list_), 3);
  invoices_.count = 0;
  listRowsChanged(list_);
  key(VK_DOWN);
  key(VK_RETURN);
  EXPECT_EQ(listCaretRowId(list_), 0);
  setListSource(list_, nullptr);
  ::MoveWindow(list_, 0, 0, 3, 3, TRUE);
  mouse(WM_LBUTTONDOWN, 1, 1);
  ::DestroyWindow(list_);
  pump();
}

}  // namespace
}  // namespace plinth
