// The window of the drawing area: paints the surface, owns the scroll bars and forwards mouse and keys as
// values.
#pragma once

#include <functional>

#include "platform/Events.h"
#include "platform/win32/Handles.h"
#include "surface/PageSurface.h"

namespace plinth {

class PageArea {
 public:
  using KeyHandler = std::function<bool(const KeyEvent&)>;  // true: the key was used
  // A child window of `parent` with this control id. surface must outlive it.
  PageArea(HWND parent, int id, PageSurface& surface, KeyHandler keys);
  ~PageArea();
  PageArea(const PageArea&) = delete;
  PageArea& operator=(const PageArea&) = delete;

  HWND window() const { return window_; }
  void invalidate() { ::InvalidateRect(window_, nullptr, FALSE); }
  void showScroll();    // after SurfaceView::scrollChanged
  void scaleChanged();  // the window moved to a screen of other density

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void paint();
  void resize();
  void setBars();
  void scroll(int bar, int code);
  void wheel(WPARAM wParam);
  void pointerMoved(LPARAM lParam);
  MouseEvent mouse(int button, LPARAM lParam) const;

  HWND window_ = nullptr;
  PageSurface& surface_;
  KeyHandler keys_;
  double scale_ = 1;
  int wheelRest_ = 0;
  bool tracking_ = false, showing_ = false, again_ = false;
};

// Which of Shift, Ctrl and Alt are down, as ShiftState bits.
unsigned shiftState();

}  // namespace plinth
