// One procedure for all window classes; the window's object travels in its user data.
#include "engine/win32/Window.h"

namespace plinth {

Window::~Window() {
  if (!handle_) return;
  ::SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  ::DestroyWindow(handle_);
}

bool Window::create(const Request& request) {
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  WNDCLASSEXW shape = {};
  shape.cbSize = sizeof shape;
  if (!::GetClassInfoExW(program, request.className, &shape)) {
    shape.style = request.classStyle;
    shape.lpfnWndProc = procedure;
    shape.hInstance = program;
    shape.lpszClassName = request.className;
    // The arrow; the header names it for the narrow call only.
    shape.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    // Resource 2 is the icon of windows, 1 that of the file.
    shape.hIcon = ::LoadIconW(program, MAKEINTRESOURCEW(2));
    if (!::RegisterClassExW(&shape)) return false;
  }
  const HMENU id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(request.id));
  ::CreateWindowExW(request.extended, request.className, request.title, request.style, request.place.left,
                    request.place.top, request.place.right - request.place.left,
                    request.place.bottom - request.place.top, request.parent, id, program, this);
  return handle_ != nullptr;
}

LRESULT Window::standard(UINT message, WPARAM wide, LPARAM param) {
  return ::DefWindowProcW(handle_, message, wide, param);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(param)->lpCreateParams);
    self->handle_ = window;
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<Window*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return ::DefWindowProcW(window, message, wide, param);
  LRESULT result = 0;
  const bool done = guarded([&] { result = self->message(message, wide, param); });
  if (message == WM_NCDESTROY) self->handle_ = nullptr;
  return done ? result : ::DefWindowProcW(window, message, wide, param);
}

void reportException(const char* what) noexcept {
  // A fault that returns with every message must not pile up boxes.
  static bool showing = false;
  if (showing) return;
  showing = true;
  ::MessageBoxA(nullptr, what, "Error", MB_OK | MB_ICONERROR | MB_TASKMODAL);
  showing = false;
}

}  // namespace plinth
