// The keys stand in one table. The window itself keeps the focus, so that typing always reaches the display.
#include "engine/win32/CalculatorWindow.h"

#include <cstring>

#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr const char* kPlace = "Calculator";
constexpr int kDisplayId = 10, kKeyId = 20;
constexpr int kMargin = 8, kKeyWide = 52, kKeyHigh = 30, kGap = 4, kDisplayHigh = 28, kColumns = 5;
constexpr char kCopy = 'c', kPaste = 'v', kInsert = 'i';

struct KeyRow {
  char key;
  const char* text;
};
// Row by row.
constexpr KeyRow kKeys[] = {
    {'7', "7"},
    {'8', "8"},
    {'9', "9"},
    {'/', "/"},
    {Calculator::kClear, "C"},
    {'4', "4"},
    {'5', "5"},
    {'6', "6"},
    {'*', "*"},
    {Calculator::kClearEntry, "CE"},
    {'1', "1"},
    {'2', "2"},
    {'3', "3"},
    {'-', "-"},
    {Calculator::kBackspace, "<-"},
    {'0', "0"},
    {Calculator::kSign, "+/-"},
    {'.', "."},
    {'+', "+"},
    {'%', "%"},
    {kCopy, ""},
    {kPaste, ""},
    {kInsert, "->"},
    {'=', "="},
};
constexpr int kKeyRows = 5;

}  // namespace

CalculatorWindow::CalculatorWindow(const Application& application, const Locale& locale, Settings& settings,
                                   Clipboard& clipboard, std::function<bool(const std::string&)> insert)
    : ToolWindow(application),
      calculator_(locale),
      settings_(settings),
      clipboard_(clipboard),
      insert_(std::move(insert)) {}

void CalculatorWindow::open(HWND owner) {
  if (!handle() && !make(owner)) return;
  show();
  ::ShowWindow(handle(), SW_SHOW);
  ::SetFocus(handle());
}

bool CalculatorWindow::make(HWND owner) {
  const SIZE size{2 * kMargin + kColumns * kKeyWide + (kColumns - 1) * kGap,
                  2 * kMargin + kDisplayHigh + kKeyRows * (kKeyHigh + kGap)};
  if (!openAbove(owner, L"Calculator", caption(72, "Calculator"), WS_POPUP | WS_CAPTION | WS_SYSMENU, size))
    return false;
  add(L"STATIC", "", SS_RIGHT | SS_CENTERIMAGE | SS_NOPREFIX, kDisplayId, WS_EX_CLIENTEDGE);
  int id = kKeyId;
  for (const KeyRow& row : kKeys) {
    const std::string text = row.key == kCopy    ? caption(15, "Copy")
                             : row.key == kPaste ? caption(16, "Paste")
                                                 : row.text;
    add(L"BUTTON", text, 0, id++);
  }
  setFonts();
  arrange();
  centre(owner);
  restorePlace(settings_, kPlace);
  return true;
}

void CalculatorWindow::arrange() {
  put(kDisplayId, kMargin, kMargin, kColumns * kKeyWide + (kColumns - 1) * kGap, kDisplayHigh);
  const int count = static_cast<int>(std::size(kKeys));
  for (int i = 0; i < count; ++i) {
    const int left = kMargin + i % kColumns * (kKeyWide + kGap);
    const int top = kMargin + kDisplayHigh + kGap + i / kColumns * (kKeyHigh + kGap);
    // The last key is as wide as two.
    put(kKeyId + i, left, top, i + 1 == count ? 2 * kKeyWide + kGap : kKeyWide, kKeyHigh);
  }
}

void CalculatorWindow::show() { setText(kDisplayId, calculator_.display()); }

void CalculatorWindow::hide() {
  keepPlace(settings_, kPlace);
  ::ShowWindow(handle(), SW_HIDE);
}

void CalculatorWindow::press(char key) {
  calculator_.press(key);
  show();
}

void CalculatorWindow::copy() {
  const std::string value = calculator_.value();
  if (value.empty() || !clipboard_.setText(value, application_.codePage)) ::MessageBeep(MB_OK);
}

void CalculatorWindow::paste() {
  if (!calculator_.paste(clipboard_.text(application_.codePage))) ::MessageBeep(MB_OK);
  show();
}

void CalculatorWindow::command(int id) {
  const int row = id - kKeyId;
  if (row < 0 || row >= static_cast<int>(std::size(kKeys))) return;
  ::SetFocus(handle());
  const char key = kKeys[row].key;
  if (key == kCopy)
    copy();
  else if (key == kPaste)
    paste();
  else if (key != kInsert)
    press(key);
  else if (calculator_.value().empty() || !insert_(calculator_.value()))
    ::MessageBeep(MB_OK);
}

void CalculatorWindow::character(wchar_t ch) {
  constexpr wchar_t kCtrlC = 3, kCtrlV = 22;
  if (ch == kCtrlC) return copy();
  if (ch == kCtrlV) return paste();
  if (ch == L'\r') return press('=');
  if (ch == VK_ESCAPE) return press(Calculator::kClear);
  // Letters stand for nothing here, though some of the calculator's own keys are letters.
  if (ch == L'\b' || (ch > 32 && ch < 127 && std::strchr("0123456789.,+-*/=%", static_cast<char>(ch))))
    press(static_cast<char>(ch));
}

bool CalculatorWindow::keyDown(int key) {
  const bool control = ::GetKeyState(VK_CONTROL) < 0, shift = ::GetKeyState(VK_SHIFT) < 0;
  if (key == VK_INSERT && control)
    copy();
  else if (key == VK_INSERT && shift)
    paste();
  else if (key == VK_DELETE)
    press(Calculator::kClearEntry);
  else if (key == VK_F9)
    press(Calculator::kSign);
  else
    return false;
  return true;
}

LRESULT CalculatorWindow::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(wide) == BN_CLICKED) command(LOWORD(wide));
      return 0;
    case WM_CHAR:
      character(static_cast<wchar_t>(wide));
      return 0;
    case WM_KEYDOWN:
      if (keyDown(static_cast<int>(wide))) return 0;
      break;
    case WM_COPY:
      copy();
      return 0;
    case WM_PASTE:
      paste();
      return 0;
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_WINDOW));
    case WM_CLOSE:
      hide();
      return 0;
    case WM_EXITSIZEMOVE:
      // It may go with the main window, without being closed.
      keepPlace(settings_, kPlace);
      return 0;
    default:
      break;
  }
  return standard(message, wide, param);
}

}  // namespace plinth
