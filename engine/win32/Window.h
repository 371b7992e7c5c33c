// A window of ours: its messages arrive at a method, and nothing that the method throws gets past it into the
// system, whose frames it could not be thrown through.
#pragma once

#include "platform/win32/WindowsApi.h"

namespace plinth {

class Window {
 public:
  Window() = default;
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  HWND handle() const { return handle_; }

 protected:
  struct Request {
    const wchar_t* className = L"";  // registered on first use
    const wchar_t* title = L"";
    DWORD style = 0, extended = 0;
    HWND parent = nullptr;
    RECT place = {};  // left, top, right, bottom in the parent's client pixels, or on the screen
    int id = 0;       // of a child
    UINT classStyle = 0;
  };
  // False when the system refuses.
  bool create(const Request& request);
  // Handles one message; what it does not know it gives to standard().
  virtual LRESULT message(UINT message, WPARAM wide, LPARAM param) = 0;
  LRESULT standard(UINT message, WPARAM wide, LPARAM param);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM param);
  HWND handle_ = nullptr;
};

// Runs `action` and turns whatever it throws into a message box. True when it threw nothing.
template <class Action>
bool guarded(Action action);
// The message of an exception, for guarded(); never throws.
void reportException(const char* what) noexcept;

}  // namespace plinth

#include <exception>

template <class Action>
bool plinth::guarded(Action action) {
  try {
    action();
    return true;
  } catch (const std::exception& error) {
    reportException(error.what());
  } catch (...) {
    reportException("unknown error");
  }
  return false;
}
