// The direction pad, Picture4: nine zones that move what is selected.
#pragma once

#include <functional>

#include "surface/win32/FlatButton.h"

namespace plinth {

class PadWindow {
 public:
  // dx, dy: -1, 0 or 1, not both 0. ten: ten units, by the right button or with Shift.
  using Move = std::function<void(int dx, int dy, bool ten)>;

  // A child window of `parent`; chrome must outlive it. Arrow keys move as well, Home, PgUp, End and PgDn
  // towards the corners.
  PadWindow(HWND parent, int id, const wchar_t* name, const ChromeStyle& chrome, Move move);
  ~PadWindow();
  PadWindow(const PadWindow&) = delete;
  PadWindow& operator=(const PadWindow&) = delete;

  HWND window() const { return window_; }

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void paint();
  void press(int zone, bool ten);
  bool key(WPARAM key);
  int zoneAt(LPARAM lParam) const;  // 0 to 8 by rows
  void setHot(int zone);

  HWND window_ = nullptr;
  const ChromeStyle& chrome_;
  Move move_;
  int hot_ = -1;
};

}  // namespace plinth
