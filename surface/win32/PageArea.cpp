// Messages are sorted here and become plain values; what they do is the surface's business.
#include "surface/win32/PageArea.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthPageArea";
constexpr int kScrollLine = 24;

void registerClass(WNDPROC procedure) {
  WNDCLASSW type = {};
  type.lpfnWndProc = procedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
  type.lpszClassName = kClass;
  ::RegisterClassW(&type);  // fails when it is registered already
}

}  // namespace

unsigned shiftState() {
  const auto down = [](int key) { return ::GetKeyState(key) < 0; };
  return (down(VK_SHIFT) ? kShift : 0u) | (down(VK_CONTROL) ? kCtrl : 0u) | (down(VK_MENU) ? kAlt : 0u);
}

PageArea::PageArea(HWND parent, int id, PageSurface& surface, KeyHandler keys)
    : surface_(surface), keys_(std::move(keys)), scale_(windowScale(parent)) {
  registerClass(windowProcedure<PageArea>);
  window_ =
      ::CreateWindowExW(0, kClass, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL, 0, 0,
                        10, 10, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, this);
}

PageArea::~PageArea() {
  if (window_) ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

LRESULT PageArea::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // painting covers everything
    case WM_SIZE:
      resize();
      return 0;
    case WM_HSCROLL:
      scroll(SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_VSCROLL:
      scroll(SB_VERT, LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      wheel(wParam);
      return 0;
    case WM_LBUTTONDOWN:
      ::SetFocus(window_);
      surface_.mouseDown(mouse(1, lParam));
      return 0;
    case WM_RBUTTONDOWN:
      ::SetFocus(window_);
      surface_.mouseDown(mouse(2, lParam));
      return 0;
    case WM_MOUSEMOVE:
      pointerMoved(lParam);
      return 0;
    case WM_MOUSELEAVE:
      tracking_ = false;
      surface_.mouseLeave();
      return 0;
    case WM_KEYDOWN:
      if (keys_({static_cast<int>(wParam), shiftState()})) return 0;
      break;
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

MouseEvent PageArea::mouse(int button, LPARAM lParam) const {
  return {button, shiftState(), static_cast<int>(GET_X_LPARAM(lParam) / scale_),
          static_cast<int>(GET_Y_LPARAM(lParam) / scale_)};
}

void PageArea::pointerMoved(LPARAM lParam) {
  if (!tracking_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
    tracking_ = ::TrackMouseEvent(&track);
  }
  surface_.mouseMove(mouse(0, lParam));
}

void PageArea::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  GdiCanvas canvas(paint.dc(), scale_);
  const RECT area = paint.area();
  // Rounded outwards, so that no row of device pixels is left out.
  const int left = static_cast<int>(area.left / scale_) - 1, top = static_cast<int>(area.top / scale_) - 1;
  const int right = static_cast<int>(area.right / scale_) + 2,
            bottom = static_cast<int>(area.bottom / scale_) + 2;
  surface_.paint(canvas, {left, top, right - left, bottom - top});
}

void PageArea::resize() {
  RECT client;
  ::GetClientRect(window_, &client);
  surface_.resize({static_cast<int>(client.right / scale_), static_cast<int>(client.bottom / scale_)});
}

void PageArea::scaleChanged() {
  scale_ = windowScale(window_);
  resize();
}

void PageArea::setBars() {
  for (const int bar : {SB_HORZ, SB_VERT}) {
    const ScrollAxis& axis = bar == SB_HORZ ? surface_.horizontal() : surface_.vertical();
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(0, axis.content - 1);
    info.nPage = static_cast<UINT>(std::max(0, axis.view));
    info.nPos = axis.value;
    ::SetScrollInfo(window_, bar, &info, TRUE);
  }
}

// A bar that comes or goes resizes the client area, which asks for this again; two bars settle in as many
// rounds.
void PageArea::showScroll() {
  constexpr int kRounds = 3;
  again_ = true;
  if (!window_ || showing_) return;
  showing_ = true;
  for (int round = 0; again_ && round < kRounds; ++round) {
    again_ = false;
    setBars();
  }
  showing_ = false;
}

void PageArea::scroll(int bar, int code) {
  const ScrollAxis& axis = bar == SB_HORZ ? surface_.horizontal() : surface_.vertical();
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  ::GetScrollInfo(window_, bar, &info);
  int to = axis.value;
  switch (code) {
    case SB_LINEUP:
      to -= kScrollLine;
      break;
    case SB_LINEDOWN:
      to += kScrollLine;
      break;
    case SB_PAGEUP:
      to -= axis.view - kScrollLine;
      break;
    case SB_PAGEDOWN:
      to += axis.view - kScrollLine;
      break;
    case SB_TOP:
      to = 0;
      break;
    case SB_BOTTOM:
      to = axis.most();
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      to = info.nTrackPos;
      break;
    default:
      return;
  }
  bar == SB_HORZ ? surface_.scrollTo(to, surface_.vertical().value)
                 : surface_.scrollTo(surface_.horizontal().value, to);
}

void PageArea::wheel(WPARAM wParam) {
  UINT lines = 3;
  ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam) * static_cast<int>(std::min(lines, 20u));
  surface_.wheel(wheelRest_ / WHEEL_DELTA, shiftState());
  wheelRest_ %= WHEEL_DELTA;  // fine wheels send small parts
}

}  // namespace plinth
