// The window of the drawing area: paints the surface, owns its scroll bars and the box in which labels are
// typed, and forwards mouse and keys as values.
#pragma once

#include <array>
#include <functional>

#include "platform/Events.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Handles.h"
#include "surface/DesignSurface.h"
#include "surface/win32/ChromeColors.h"

namespace plinth {

class PageArea {
 public:
  using KeyHandler = std::function<bool(const KeyEvent&)>;  // true: the key was used
  static constexpr int kMainTextId = 201, kVerticalId = 202, kHorizontalId = 203, kFirstTab = 211;
  // A child window of `parent` with this control id. surface must outlive it.
  PageArea(HWND parent, int id, DesignSurface& surface, KeyHandler keys);
  ~PageArea();
  PageArea(const PageArea&) = delete;
  PageArea& operator=(const PageArea&) = delete;

  HWND window() const { return window_; }
  void invalidate() { ::InvalidateRect(window_, nullptr, FALSE); }
  void invalidate(const RectPx& area);  // pixels of the drawing area
  void showScroll();                    // after SurfaceView::scrollChanged
  void showTabs();                      // after SurfaceView::tabsChanged
  // The chosen tab, which takes the keyboard for all.
  HWND chosenTab() const;
  // Left and Right between the tabs. True when the message was used.
  bool translate(const MSG& message);
  void showPointer(PointerShape pointer);
  // The label's text is typed over `place`; width 0 ends it. codePage: of the project's texts.
  void editLabel(const RectPx& place, const ProjectDocument& document);
  void scaleChanged();  // the window moved to a screen of other density
  void setColors(const ChromeColors& colors);
  // Point of the drawing area on the screen.
  POINT onScreen(PointPx point) const;

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handleMouse(UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK mainTextProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                            DWORD_PTR self);
  void paint();
  void resize();
  void setBar(HWND bar, const ScrollAxis& axis);
  void scroll(HWND bar);
  void wheel(WPARAM wParam);
  bool hold(int button, LPARAM lParam);  // false while another button is held: one at a time
  void pressed(int button, LPARAM lParam);
  void pressedTwice(LPARAM lParam);
  void released(int button, LPARAM lParam);
  void lostCapture();
  void pointerMoved(WPARAM wParam, LPARAM lParam);
  MouseEvent mouse(int button, LPARAM lParam) const;
  int px(int pixels) const;

  HWND window_ = nullptr, vertical_ = nullptr, horizontal_ = nullptr, mainText_ = nullptr;
  std::array<HWND, kPages> tabs_ = {};
  DesignSurface& surface_;
  KeyHandler keys_;
  double scale_ = 1;
  std::int32_t ground_ = 0xFFFFFF;
  int wheelRest_ = 0, button_ = 0, codePage_ = 1252;
  int editedTitle_ = -1;
  FontCache labelFonts_;
  PointerShape pointer_ = PointerShape::standard;
  MouseEvent last_;
  bool tracking_ = false, showing_ = false, again_ = false, filling_ = false;
};

// Which of Shift, Ctrl and Alt are down, as ShiftState bits.
unsigned shiftState();

}  // namespace plinth
