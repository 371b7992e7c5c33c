// A window of its own with a message loop until it is closed; the rows are refilled at each scroll.
#include "surface/win32/CommonLabelsWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/win32/Handles.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthCommonLabels";
constexpr int kWidth = 520, kMargin = 12, kRowHeight = 30, kBox = 24, kNumberWidth = 64, kBarWidth = 17,
              kButtonWidth = 88, kFindWidth = 180, kNextWidth = 70;
constexpr int kNoText = 100, kTextE = 120, kByNumber = 140, kByText = 141, kBar = 142, kFind = 143,
              kFindNext = 144;

class Window {
 public:
  Window(HWND owner, CommonLabels& labels, int codePage)
      : owner_(owner), labels_(labels), codePage_(codePage) {}
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  void run(const std::wstring& title, const std::wstring& close);

 private:
  template <class T>
  friend LRESULT CALLBACK plinth::windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  int px(int pixels) const { return static_cast<int>(std::lround(pixels * scale_)); }
  HWND add(const wchar_t* type, const wchar_t* text, DWORD style, int id, int x, int y, int wide, int high);
  void build(const std::wstring& close);
  void fill();
  void find();
  void command(int id, int notice);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr, owner_, bar_ = nullptr;
  CommonLabels& labels_;
  int codePage_;
  double scale_ = 1;
  FontHandle font_;
  bool filling_ = false;
  int wheelRest_ = 0;
};

HWND Window::add(const wchar_t* type, const wchar_t* text, DWORD style, int id, int x, int y, int wide,
                 int high) {
  const HWND control =
      ::CreateWindowExW(0, type, text, WS_CHILD | WS_VISIBLE | style, px(x), px(y), px(wide), px(high),
                        window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  return control;
}

void Window::build(const std::wstring& close) {
  const int textLeft = kMargin + kNumberWidth, barLeft = kWidth - kMargin - kBarWidth;
  const int textWidth = barLeft - textLeft - 6;
  add(L"BUTTON", L"&Number", BS_PUSHBUTTON | WS_TABSTOP, kByNumber, kMargin, kMargin, kNumberWidth - 6, kBox);
  add(L"BUTTON", L"&Text", BS_PUSHBUTTON | WS_TABSTOP, kByText, textLeft, kMargin, kNumberWidth + 20, kBox);
  int y = kMargin + kRowHeight;
  for (int row = 0; row < CommonLabels::kRows; ++row, y += kRowHeight) {
    add(L"STATIC", L"", SS_RIGHT, kNoText + row, kMargin, y + 4, kNumberWidth - 12, kBox - 4);
    add(L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, kTextE + row, textLeft, y, textWidth, kBox);
  }
  bar_ = add(kRealvScrollClass, L"Scroll", WS_TABSTOP, kBar, barLeft, kMargin + kRowHeight, kBarWidth,
             CommonLabels::kRows * kRowHeight - 6);
  y += 6;
  add(L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, kFind, textLeft, y, kFindWidth, kBox);
  add(L"BUTTON", L"&Find", BS_PUSHBUTTON | WS_TABSTOP, kFindNext, textLeft + kFindWidth + 6, y, kNextWidth,
      kBox);
  add(L"BUTTON", close.c_str(), BS_DEFPUSHBUTTON | WS_TABSTOP, IDCANCEL, kWidth - kMargin - kButtonWidth, y,
      kButtonWidth, kBox);
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = labels_.most() + CommonLabels::kRows - 1;
  info.nPage = CommonLabels::kRows;
  ::SendMessageW(bar_, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

void Window::fill() {
  filling_ = true;
  for (int row = 0; row < CommonLabels::kRows; ++row) {
    ::SetDlgItemInt(window_, kNoText + row, static_cast<UINT>(labels_.number(row)), FALSE);
    ::SetDlgItemTextW(window_, kTextE + row, toWide(labels_.text(row), codePage_).c_str());
  }
  ::SendMessageW(bar_, SBM_SETPOS, static_cast<WPARAM>(labels_.first()), TRUE);
  filling_ = false;
}

void Window::find() {
  const int found = labels_.find(windowText(::GetDlgItem(window_, kFind), codePage_));
  if (found < 0) {
    ::MessageBeep(MB_OK);
    return;
  }
  labels_.scrollTo(found);
  fill();
}

void Window::command(int id, int notice) {
  const int row = id - kTextE;
  if (row >= 0 && row < CommonLabels::kRows && notice == EN_CHANGE && !filling_)
    labels_.change(row, windowText(::GetDlgItem(window_, id), codePage_));
  if (notice != BN_CLICKED) return;
  if (id == kByNumber) labels_.orderByNumber();
  if (id == kByText) labels_.orderByText();
  if (id == kByNumber || id == kByText) fill();
  const bool enterInFind = id == IDOK && ::GetFocus() == ::GetDlgItem(window_, kFind);
  if (id == kFindNext || enterInFind) find();
  if (id == IDCANCEL) ::SendMessageW(window_, WM_CLOSE, 0, 0);
}

LRESULT Window::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_CLOSE:
      // The owner comes back before the window goes, or another program's window would come to the front.
      ::EnableWindow(owner_, TRUE);
      ::DestroyWindow(window_);
      return 0;
    case WM_VSCROLL:
      labels_.scrollTo(static_cast<int>(::SendMessageW(bar_, SBM_GETPOS, 0, 0)));
      fill();
      return 0;
    case WM_MOUSEWHEEL:
      wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam) * 3;
      labels_.scrollTo(labels_.first() - wheelRest_ / WHEEL_DELTA);
      wheelRest_ %= WHEEL_DELTA;  // fine wheels send small parts
      fill();
      return 0;
    default:
      return ::DefWindowProcW(window_, message, wParam, lParam);
  }
}

void Window::run(const std::wstring& title, const std::wstring& close) {
  WNDCLASSW type = {};
  type.lpfnWndProc = windowProcedure<Window>;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
  type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  type.lpszClassName = kClass;
  ::RegisterClassW(&type);  // fails when it is registered already
  registerWidgets(type.hInstance);
  scale_ = windowScale(owner_);
  font_ = messageFont(scale_);
  const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
  RECT area{0, 0, px(kWidth), px(2 * kMargin + (CommonLabels::kRows + 2) * kRowHeight)};
  ::AdjustWindowRectEx(&area, style, FALSE, WS_EX_DLGMODALFRAME);
  RECT frame;
  ::GetWindowRect(owner_, &frame);
  const int wide = area.right - area.left, high = area.bottom - area.top;
  ::CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, kClass, title.c_str(), style,
                    (frame.left + frame.right - wide) / 2, (frame.top + frame.bottom - high) / 2, wide, high,
                    owner_, nullptr, type.hInstance, this);
  if (!window_) return;
  build(close);
  fill();
  ::EnableWindow(owner_, FALSE);
  ::ShowWindow(window_, SW_SHOW);
  ::SetFocus(::GetDlgItem(window_, kTextE));
  MSG message = {};
  while (window_ && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (::IsDialogMessageW(window_, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  if (message.message == WM_QUIT) ::PostQuitMessage(static_cast<int>(message.wParam));
  ::SetActiveWindow(owner_);
}

}  // namespace

void editCommonLabels(HWND owner, CommonLabels& labels, int codePage, const std::wstring& title,
                      const std::wstring& close) {
  Window(owner, labels, codePage).run(title, close);
}

}  // namespace plinth
