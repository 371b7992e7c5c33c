// Scroll positions are device pixels of the page's corner that is seen.
#include "engine/win32/PageView.h"

#include <algorithm>

#include "platform/win32/Handles.h"

namespace plinth {
namespace {

constexpr int kLine = 24, kWheelLines = 3;

}  // namespace

bool PageView::open(HWND parent) {
  Request request;
  request.className = L"PlinthPageView";
  request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_HSCROLL | WS_VSCROLL;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = parent;
  request.classStyle = CS_HREDRAW | CS_VREDRAW;
  return create(request);
}

void PageView::setPage(HWND page, SIZE size) {
  page_ = page;
  size_ = size;
  arrange();
}

void PageView::setCentred(bool centred) {
  centred_ = centred;
  arrange();
}

void PageView::setColor(COLORREF color) {
  color_ = color;
  ::InvalidateRect(handle(), nullptr, FALSE);
}

void PageView::setBar(int bar, int size, int room, LONG position) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, size - 1);
  info.nPage = static_cast<UINT>(std::max(0, room));
  info.nPos = position;
  ::SetScrollInfo(handle(), bar, &info, TRUE);
}

// A bar takes room from the other direction: so the room is that of a view without bars, less those that must
// be.
void PageView::arrange() {
  if (!page_ || arranging_) return;
  arranging_ = true;
  RECT outer = {};
  ::GetWindowRect(handle(), &outer);
  const int wide = outer.right - outer.left, high = outer.bottom - outer.top;
  const int barWide = ::GetSystemMetrics(SM_CXVSCROLL), barHigh = ::GetSystemMetrics(SM_CYHSCROLL);
  bool across = size_.cx > wide;
  const bool down = size_.cy > high - (across ? barHigh : 0);
  across = across || size_.cx > wide - (down ? barWide : 0);
  const int roomWide = wide - (down ? barWide : 0), roomHigh = high - (across ? barHigh : 0);
  at_.x = std::clamp<LONG>(at_.x, 0, std::max<LONG>(0, size_.cx - roomWide));
  at_.y = std::clamp<LONG>(at_.y, 0, std::max<LONG>(0, size_.cy - roomHigh));
  setBar(SB_HORZ, size_.cx, across ? roomWide : size_.cx, at_.x);
  setBar(SB_VERT, size_.cy, down ? roomHigh : size_.cy, at_.y);
  const LONG left = centred_ && roomWide > size_.cx ? (roomWide - size_.cx) / 2 : -at_.x;
  const LONG top = centred_ && roomHigh > size_.cy ? (roomHigh - size_.cy) / 2 : -at_.y;
  ::SetWindowPos(page_, nullptr, left, top, size_.cx, size_.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  arranging_ = false;
}

void PageView::scrollBy(int right, int down) {
  at_.x += right;
  at_.y += down;
  arrange();
}

void PageView::reveal(HWND control) {
  if (!page_ || !::IsChild(page_, control)) return;
  RECT place = {}, room = {};
  ::GetWindowRect(control, &place);
  ::MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&place), 2);
  ::GetClientRect(handle(), &room);
  constexpr int kAround = 6;
  const auto step = [](LONG from, LONG to, LONG room) -> int {
    if (from < kAround) return from - kAround;
    return to + kAround > room ? static_cast<int>(std::min(to + kAround - room, from - kAround)) : 0;
  };
  const int right = step(place.left, place.right, room.right),
            down = step(place.top, place.bottom, room.bottom);
  if (right != 0 || down != 0) scrollBy(right, down);
}

void PageView::scroll(int bar, int code) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  ::GetScrollInfo(handle(), bar, &info);
  LONG& position = bar == SB_HORZ ? at_.x : at_.y;
  switch (code) {
    case SB_LINEUP:
      position -= kLine;
      break;
    case SB_LINEDOWN:
      position += kLine;
      break;
    case SB_PAGEUP:
      position -= static_cast<LONG>(info.nPage);
      break;
    case SB_PAGEDOWN:
      position += static_cast<LONG>(info.nPage);
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      position = info.nTrackPos;
      break;
    case SB_TOP:
      position = 0;
      break;
    case SB_BOTTOM:
      position = info.nMax;
      break;
    default:
      return;
  }
  arrange();
}

void PageView::paint() {
  PAINTSTRUCT paint;
  const HDC dc = ::BeginPaint(handle(), &paint);
  const BrushHandle brush(::CreateSolidBrush(color_));
  ::FillRect(dc, &paint.rcPaint, brush.get());
  ::EndPaint(handle(), &paint);
}

LRESULT PageView::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_SIZE:
      arrange();
      return 0;
    case WM_HSCROLL:
      scroll(SB_HORZ, LOWORD(wide));
      return 0;
    case WM_VSCROLL:
      scroll(SB_VERT, LOWORD(wide));
      return 0;
    case WM_MOUSEWHEEL:
      scrollBy(0, -GET_WHEEL_DELTA_WPARAM(wide) * kWheelLines * kLine / WHEEL_DELTA);
      return 0;
    case WM_MOUSEHWHEEL:
      scrollBy(GET_WHEEL_DELTA_WPARAM(wide) * kWheelLines * kLine / WHEEL_DELTA, 0);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
