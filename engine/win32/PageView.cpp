// Scroll positions are device pixels of the page's corner that is seen.
#include "engine/win32/PageView.h"

#include <algorithm>

#include "platform/win32/Handles.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

constexpr int kLine = 24, kWheelLines = 3, kBarStep = 12;

// A bar over `size` pixels of which `room` are seen.
void setBar(HWND bar, LONG size, LONG room, LONG position) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max<LONG>(0, size - 1);
  info.nPage = static_cast<UINT>(std::max<LONG>(0, room));
  info.nPos = position;
  ::SendMessageW(bar, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

}  // namespace

bool PageView::open(HWND parent) {
  Request request;
  request.className = L"PlinthPageView";
  request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = parent;
  request.classStyle = CS_HREDRAW | CS_VREDRAW;
  if (!create(request)) return false;
  const auto bar = [this](const wchar_t* kind) {
    const HWND made = ::CreateWindowExW(0, kind, L"", WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 1, 1, handle(),
                                        nullptr, nullptr, nullptr);
    ::SendMessageW(made, kScrollSetSmallChange, kBarStep, 0);
    return made;
  };
  down_ = bar(kRealvScrollClass);
  across_ = bar(kRealhScrollClass);
  return down_ && across_;
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

// The page lies below the bars.
void PageView::placeBars(SIZE room, bool across, bool down) {
  room_ = room;
  setBar(across_, size_.cx, room.cx, at_.x);
  setBar(down_, size_.cy, room.cy, at_.y);
  const auto put = [](HWND bar, bool shown, LONG left, LONG top, LONG wide, LONG high) {
    ::SetWindowPos(bar, HWND_TOP, left, top, wide, high,
                   SWP_NOACTIVATE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  };
  put(down_, down, room.cx, 0, ::GetSystemMetrics(SM_CXVSCROLL), room.cy);
  put(across_, across, 0, room.cy, room.cx, ::GetSystemMetrics(SM_CYHSCROLL));
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
  placeBars({roomWide, roomHigh}, across, down);
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
  RECT place = {};
  ::GetWindowRect(control, &place);
  ::MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&place), 2);
  constexpr int kAround = 6;
  const auto step = [](LONG from, LONG to, LONG room) -> int {
    if (from < kAround) return from - kAround;
    return to + kAround > room ? static_cast<int>(std::min(to + kAround - room, from - kAround)) : 0;
  };
  const int right = step(place.left, place.right, room_.cx), down = step(place.top, place.bottom, room_.cy);
  if (right != 0 || down != 0) scrollBy(right, down);
}

// The bar has moved already; the page follows.
void PageView::scroll(HWND bar) {
  if (bar != down_ && bar != across_) return;
  (bar == down_ ? at_.y : at_.x) = static_cast<LONG>(::SendMessageW(bar, SBM_GETPOS, 0, 0));
  arrange();
}

void PageView::paint() {
  PAINTSTRUCT paint;
  const HDC dc = ::BeginPaint(handle(), &paint);
  const BrushHandle brush(::CreateSolidBrush(color_));
  ::FillRect(dc, &paint.rcPaint, brush.get());
  // Between the ends of both bars.
  RECT corner = {};
  ::GetClientRect(handle(), &corner);
  corner.left = room_.cx;
  corner.top = room_.cy;
  ::FillRect(dc, &corner, ::GetSysColorBrush(COLOR_BTNFACE));
  ::EndPaint(handle(), &paint);
}

LRESULT PageView::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_SIZE:
      arrange();
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (LOWORD(wide) != SB_ENDSCROLL) scroll(reinterpret_cast<HWND>(param));
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
