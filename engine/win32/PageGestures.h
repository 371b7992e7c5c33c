// What the hand does on the page beside its boxes: the page only forwards it. Points in units of 1/96 inch
// from the page's corner.
#pragma once

#include "basic/Geometry.h"
#include "platform/Canvas.h"
#include "platform/Events.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

class PageGestures {
 public:
  virtual ~PageGestures() = default;
  // The left button went down, for the second time in short order with `twice`. True when it met something;
  // the page then takes the keyboard.
  virtual bool press(PointPx point, bool twice) = 0;
  // Whether moves of the mouse are wanted until the button is up.
  virtual bool dragging() const = 0;
  virtual void drag(PointPx point) = 0;
  virtual void release() = 0;
  // The menu of what stands at a point; screen: where to open it. False when nothing has one.
  virtual bool menu(PointPx point, POINT screen) = 0;
  // A key while the page has the keyboard; true when it is done with.
  virtual bool key(const KeyEvent& event) = 0;
  virtual void keyboardLost() = 0;
  // The system's number of the pointer to show at a point; 0 for the usual one.
  virtual WORD pointerAt(PointPx point) const = 0;
  // What lies above the page's items.
  virtual void paintMarks(Canvas& canvas) const = 0;
};

}  // namespace plinth
