// Newer calls are looked up, so that the program also starts where they are missing.
#include "surface/win32/WindowTools.h"

#include <commctrl.h>

#include "platform/win32/Win32Text.h"

namespace plinth {

namespace {

int systemDpi() {
  const WindowDc screen(nullptr);
  const int dpi = screen.get() ? ::GetDeviceCaps(screen.get(), LOGPIXELSY) : 0;
  return dpi > 0 ? dpi : 96;
}

}  // namespace

double windowScale(HWND window) {
  using DpiForWindow = UINT(WINAPI*)(HWND);
  static const auto dpiForWindow = reinterpret_cast<DpiForWindow>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
  const UINT dpi = dpiForWindow && window ? dpiForWindow(window) : 0;
  return (dpi > 0 ? static_cast<int>(dpi) : systemDpi()) / 96.0;
}

FontHandle messageFont(double scale, bool bold) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  font.lfHeight = static_cast<LONG>(font.lfHeight * scale * 96 / systemDpi());
  if (bold) font.lfWeight = FW_BOLD;
  return FontHandle(::CreateFontIndirectW(&font));
}

std::string windowText(HWND window, int codePage) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return fromWide(text, codePage);
}

std::wstring wideUtf8(std::string_view utf8) { return toWide(utf8, 65001); }

void registerWindowClass(const wchar_t* name, WNDPROC procedure, UINT style) {
  WNDCLASSW type = {};
  type.style = style;
  type.lpfnWndProc = procedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
  type.lpszClassName = name;
  ::RegisterClassW(&type);
}

void setToolTip(HWND tips, HWND control, std::wstring text) {
  TOOLINFOW tip = {};
  tip.cbSize = TTTOOLINFOW_V1_SIZE;
  tip.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tip.hwnd = ::GetParent(control);
  tip.uId = reinterpret_cast<UINT_PTR>(control);
  tip.lpszText = text.data();
  ::SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
}

}  // namespace plinth
