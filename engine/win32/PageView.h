// The window that shows a part of the page: scroll bars, centring and the colour around. The page itself is
// one child that moves below it.
#pragma once

#include "engine/win32/Window.h"

namespace plinth {

class PageView : public Window {
 public:
  bool open(HWND parent);
  // The child to show and its size in device pixels.
  void setPage(HWND page, SIZE size);
  // The page stands in the middle when the view is larger; else at the top left corner.
  void setCentred(bool centred);
  void setColor(COLORREF color);
  // Moves by device pixels, as far as the page goes.
  void scrollBy(int right, int down);
  // Scrolls as little as makes a window on the page visible.
  void reveal(HWND control);

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  void arrange();
  void placeBars(SIZE room, bool across, bool down);
  void scroll(HWND bar);
  void paint();
  HWND page_ = nullptr, across_ = nullptr, down_ = nullptr;
  SIZE size_ = {}, room_ = {};  // of the page; of what the bars leave
  POINT at_ = {};
  bool centred_ = false, arranging_ = false;
  COLORREF color_ = RGB(255, 255, 255);
};

}  // namespace plinth
