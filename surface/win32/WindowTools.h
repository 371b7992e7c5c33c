// What every window of the designer needs of Windows: its scale, its message font, text in and out of
// controls.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/Handles.h"

namespace plinth {

// Device pixels per pixel of 96 dpi where a window stands.
double windowScale(HWND window);
// The system's message font at a scale; bold on request.
FontHandle messageFont(double scale, bool bold = false);
// Registers a window class of the program with the arrow as its cursor; one that is registered already stays.
void registerWindowClass(const wchar_t* name, WNDPROC procedure, UINT style = 0);
// The tip of a control that `tips`, a tool tip control of the same parent, shows; over an earlier one.
void setToolTip(HWND tips, HWND control, std::wstring text);
// Whole text of a window in a code page.
std::string windowText(HWND window, int codePage);
std::wstring wideUtf8(std::string_view utf8);

// The procedure of windows whose object, a T, is the creation parameter and names this function its friend:
// it keeps the T's window_ and calls its handle(message, wParam, lParam). No exception crosses into the
// system.
template <class T>
LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<T*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<T*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_NCDESTROY) {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
    self = nullptr;
  }
  if (!self) return ::DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->handle(message, wParam, lParam);
  } catch (...) {
    return ::DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace plinth
