// The calendar of a date field: the system's month calendar in a small window that closes with a choice, with
// Esc, or when anything else is clicked.
#pragma once

#include <functional>

#include "engine/win32/Window.h"

namespace plinth {

class CalendarPopup : public Window {
 public:
  // Opens below a rectangle of the screen. serial: the day to show, 0 for today. `picked` gets the chosen day
  // as a whole serial.
  void open(HWND owner, const RECT& below, double serial, std::function<void(double)> picked);
  void close();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  static LRESULT CALLBACK keys(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                               DWORD_PTR self);
  void choose();
  HWND calendar_ = nullptr;
  std::function<void(double)> picked_;
  bool closing_ = false;
};

}  // namespace plinth
