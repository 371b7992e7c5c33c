#include "engine/win32/ToolWindow.h"

#include <cmath>
#include <cstdlib>

#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr const char* kSection = "Settings";
constexpr int kStepUnits = 24, kMostSteps = 12;

}  // namespace

bool ToolWindow::takes(const MSG& message) const {
  if (!handle() || (message.hwnd != handle() && !::IsChild(handle(), message.hwnd))) return false;
  MSG copy = message;
  return ::IsDialogMessageW(handle(), &copy);
}

LRESULT ToolWindow::standard(UINT message, WPARAM wide, LPARAM param) {
  const HBRUSH paper = ::GetSysColorBrush(COLOR_BTNFACE);
  switch (message) {
    case WM_ERASEBKGND: {
      RECT area = {};
      ::GetClientRect(handle(), &area);
      ::FillRect(reinterpret_cast<HDC>(wide), &area, paper);
      return 1;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      ::SetBkMode(reinterpret_cast<HDC>(wide), TRANSPARENT);
      return reinterpret_cast<LRESULT>(paper);
    default:
      return Window::standard(message, wide, param);
  }
}

bool ToolWindow::openAbove(HWND owner, const wchar_t* className, const std::string& title, DWORD style,
                           SIZE inside) {
  const WindowDc dc(owner);
  scale_ = ::GetDeviceCaps(dc.get(), LOGPIXELSX) / 96.0;
  RECT frame{0, 0, px(inside.cx), px(inside.cy)};
  const std::wstring caption = wide(title);
  Request request;
  request.className = className;
  request.title = caption.c_str();
  request.style = style;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = owner;
  ::AdjustWindowRectEx(&frame, style, FALSE, request.extended);
  request.place = {0, 0, frame.right - frame.left, frame.bottom - frame.top};
  return create(request);
}

HWND ToolWindow::add(const wchar_t* kind, const std::string& text, DWORD style, int id, DWORD extended) {
  return ::CreateWindowExW(extended, kind, wide(text).c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 10, 10,
                           handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

void ToolWindow::put(int id, int left, int top, int width, int height) const {
  ::SetWindowPos(item(id), nullptr, px(left), px(top), px(width), px(height),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string ToolWindow::textOf(int id) const {
  const HWND control = item(id);
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return fromWide(text, application_.codePage);
}

void ToolWindow::setText(int id, const std::string& text) const {
  if (textOf(id) != text) ::SetWindowTextW(item(id), wide(text).c_str());
}

std::string ToolWindow::caption(int number, const char* plain) const {
  return runCaption(application_, number, plain);
}

std::wstring ToolWindow::wide(std::string_view text) const { return toWide(text, application_.codePage); }
int ToolWindow::px(int units) const { return static_cast<int>(std::lround(units * scale_)); }
int ToolWindow::units(int pixels) const { return static_cast<int>(std::lround(pixels / scale_)); }

SIZE ToolWindow::inside() const {
  RECT area = {};
  ::GetClientRect(handle(), &area);
  return {units(area.right), units(area.bottom)};
}

RECT ToolWindow::workAreaAround(HWND window) {
  MONITORINFO screen = {};
  screen.cbSize = sizeof screen;
  ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
  return screen.rcWork;
}

void ToolWindow::standBeside(HWND owner) {
  RECT over = {}, own = {};
  ::GetWindowRect(owner, &over);
  ::GetWindowRect(handle(), &own);
  const RECT work = workAreaAround(owner);
  const LONG wide = own.right - own.left, high = own.bottom - own.top;
  const bool beside = over.right + wide <= work.right;
  const LONG left = std::min(over.right, work.right - wide);
  const LONG top = std::min(beside ? over.top : over.bottom, work.bottom - high);
  ::SetWindowPos(handle(), nullptr, std::max(left, work.left), std::max(top, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ToolWindow::centre(HWND owner, int step) {
  RECT over = {}, own = {};
  ::GetWindowRect(owner, &over);
  ::GetWindowRect(handle(), &own);
  const RECT work = workAreaAround(owner);
  const LONG wide = own.right - own.left, high = own.bottom - own.top;
  const LONG shift = px(kStepUnits) * (step % kMostSteps);
  const auto inside = [](LONG at, LONG size, LONG low, LONG high) {
    return std::max(low, std::min(at, high - size));
  };
  ::SetWindowPos(handle(), nullptr,
                 inside((over.left + over.right - wide) / 2 + shift, wide, work.left, work.right),
                 inside((over.top + over.bottom - high) / 2 + shift, high, work.top, work.bottom),
                 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ToolWindow::setFonts() {
  const FontSpec spec{application_.payload.header.fontName, 9, false, false, false, application_.charSet};
  const HFONT font = fonts_.get(spec, std::max(1, px(12)));
  for (HWND child = ::GetWindow(handle(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void ToolWindow::restorePlace(const Settings& settings, const std::string& prefix) {
  RECT place = {};
  ::GetWindowRect(handle(), &place);
  const auto number = [&](const char* name, LONG fallback) {
    const std::string text = settings.get(kSection, prefix + name, "");
    return text.empty() ? fallback : static_cast<LONG>(std::atol(text.c_str()));
  };
  const bool sizes = (::GetWindowLongPtrW(handle(), GWL_STYLE) & WS_THICKFRAME) != 0;
  const LONG left = number("Left", place.left), top = number("Top", place.top);
  const LONG wide = sizes ? number("Width", place.right - place.left) : place.right - place.left;
  const LONG high = sizes ? number("Height", place.bottom - place.top) : place.bottom - place.top;
  const RECT wanted{left, top, left + std::max<LONG>(wide, 100), top + std::max<LONG>(high, 60)};
  // A place on a screen that is gone would hide the window.
  const POINT grip{wanted.left + px(40), wanted.top + px(10)};
  if (!::MonitorFromPoint(grip, MONITOR_DEFAULTTONULL)) return;
  ::SetWindowPos(handle(), nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ToolWindow::keepPlace(Settings& settings, const std::string& prefix) const {
  if (!handle() || ::IsIconic(handle())) return;
  RECT place = {};
  ::GetWindowRect(handle(), &place);
  settings.set(kSection, prefix + "Left", std::to_string(place.left));
  settings.set(kSection, prefix + "Top", std::to_string(place.top));
  if ((::GetWindowLongPtrW(handle(), GWL_STYLE) & WS_THICKFRAME) == 0) return;
  settings.set(kSection, prefix + "Width", std::to_string(place.right - place.left));
  settings.set(kSection, prefix + "Height", std::to_string(place.bottom - place.top));
}

}  // namespace plinth
