// The page: paints all that is no window of its own, and passes on what its boxes tell it.
#pragma once

#include "engine/win32/BoxWindows.h"
#include "engine/win32/PageGestures.h"
#include "engine/win32/PictureFiles.h"
#include "engine/win32/Window.h"

namespace plinth {

class PageWindow : public Window {
 public:
  // All must outlive this.
  PageWindow(EngineHost& host, const PageLayout& layout, BoxWindows& boxes, PictureFiles& pictures)
      : host_(host), layout_(layout), boxes_(boxes), pictures_(pictures) {}
  bool open(HWND parent);
  // Who gets what the hand does beside the boxes; must outlive this or be taken back with nullptr.
  void setGestures(PageGestures* gestures) { gestures_ = gestures; }
  // Size in device pixels at the host's present scale.
  SIZE size() const;
  // Everything may have changed.
  void repaint() { ::InvalidateRect(handle(), nullptr, FALSE); }
  // Caption n changed: only where it stands and stood.
  void repaintTitle(int n);

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  void paint();
  PointPx pagePoint(LPARAM point) const;
  bool pointer() const;
  void press(PointPx point, bool twice);
  void endDrag();
  bool gesture(UINT message, WPARAM wide, LPARAM param);
  bool menu(LPARAM param);
  EngineHost& host_;
  const PageLayout& layout_;
  BoxWindows& boxes_;
  PictureFiles& pictures_;
  PageGestures* gestures_ = nullptr;
  std::map<int, RectPx> titlePlaces_;
};

}  // namespace plinth
