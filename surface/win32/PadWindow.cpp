// Zones are numbered by rows; the one in the middle moves nothing.
#include "surface/win32/PadWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthPad";
constexpr int kMiddle = 4;

// An arrow head around the middle of a zone, pointing where the zone lies.
void paintArrow(Canvas& canvas, const RectPx& zone, int dx, int dy, std::int32_t ink, int size, int width) {
  const PointPx middle{zone.left + zone.width / 2, zone.top + zone.height / 2};
  const PointPx tip{middle.x + dx * size / 2, middle.y + dy * size / 2};
  const Pen pen{LineStyle::solid, width, ink};
  if (dx != 0 && dy != 0) {
    canvas.line(tip, {tip.x - dx * size, tip.y}, pen);
    canvas.line(tip, {tip.x, tip.y - dy * size}, pen);
  } else {
    const PointPx back{tip.x - dx * size, tip.y - dy * size};
    canvas.line(tip, {back.x + dy * size, back.y + dx * size}, pen);
    canvas.line(tip, {back.x - dy * size, back.y - dx * size}, pen);
  }
}

}  // namespace

PadWindow::PadWindow(HWND parent, int id, const wchar_t* name, const ChromeStyle& chrome, Move move)
    : chrome_(chrome), move_(std::move(move)) {
  registerWindowClass(kClass, windowProcedure<PadWindow>);
  window_ =
      ::CreateWindowExW(0, kClass, name, WS_CHILD | WS_TABSTOP, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr), this);
}

PadWindow::~PadWindow() {
  if (window_) ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

LRESULT PadWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      ::SetFocus(window_);
      press(zoneAt(lParam), message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK);
      return 0;
    case WM_MOUSEMOVE: {
      TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
      ::TrackMouseEvent(&track);
      setHot(zoneAt(lParam));
      return 0;
    }
    case WM_MOUSELEAVE:
      setHot(-1);
      return 0;
    case WM_KEYDOWN:
      if (key(wParam)) return 0;
      break;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      ::InvalidateRect(window_, nullptr, FALSE);
      return 0;
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

int PadWindow::zoneAt(LPARAM lParam) const {
  RECT client;
  ::GetClientRect(window_, &client);
  const auto third = [](int at, LONG size) {
    return std::clamp(static_cast<int>(at * 3 / std::max(1L, size)), 0, 2);
  };
  return third(GET_Y_LPARAM(lParam), client.bottom) * 3 + third(GET_X_LPARAM(lParam), client.right);
}

void PadWindow::setHot(int zone) {
  if (zone == hot_) return;
  hot_ = zone;
  ::InvalidateRect(window_, nullptr, FALSE);
}

void PadWindow::press(int zone, bool ten) {
  if (zone != kMiddle && ::IsWindowEnabled(window_)) move_(zone % 3 - 1, zone / 3 - 1, ten);
}

bool PadWindow::key(WPARAM key) {
  static constexpr std::pair<WPARAM, int> kZones[] = {{VK_HOME, 0}, {VK_UP, 1},    {VK_PRIOR, 2},
                                                      {VK_LEFT, 3}, {VK_RIGHT, 5}, {VK_END, 6},
                                                      {VK_DOWN, 7}, {VK_NEXT, 8}};
  for (const auto& [code, zone] : kZones)
    if (code == key) {
      press(zone, ::GetKeyState(VK_SHIFT) < 0);
      return true;
    }
  return false;
}

void PadWindow::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  const ChromeColors& colors = chrome_.colors;
  RECT client;
  ::GetClientRect(window_, &client);
  const bool enabled = ::IsWindowEnabled(window_), focused = ::GetFocus() == window_;
  const int thick = chrome_.px(1);
  const BrushHandle ground(::CreateSolidBrush(gdiColor(colors.ground)));
  ::FillRect(paint.dc(), &client, ground.get());
  paintBox(paint.dc(), client, colors.box, focused ? colors.accent : colors.edge, focused ? 2 * thick : thick,
           chrome_.px(4));
  GdiCanvas canvas(paint.dc());
  for (int zone = 0; zone < 9; ++zone) {
    const auto edge = [](int index, LONG size) { return static_cast<int>(index * size / 3); };
    const int column = zone % 3, row = zone / 3;
    const RectPx at{edge(column, client.right), edge(row, client.bottom),
                    edge(column + 1, client.right) - edge(column, client.right),
                    edge(row + 1, client.bottom) - edge(row, client.bottom)};
    if (zone == kMiddle) {
      const int dot = chrome_.px(4);
      canvas.ellipse({at.left + (at.width - dot) / 2, at.top + (at.height - dot) / 2, dot, dot},
                     {LineStyle::none, 1, 0}, {FillStyle::solid, colors.edge, false, 0});
      continue;
    }
    if (zone == hot_ && enabled) {
      const int inset = chrome_.px(3);
      canvas.box({at.left + inset, at.top + inset, at.width - 2 * inset, at.height - 2 * inset},
                 {LineStyle::none, 1, 0}, {FillStyle::solid, colors.hover, false, 0}, chrome_.px(3));
    }
    paintArrow(canvas, at, column - 1, row - 1, enabled ? colors.ink : colors.disabled, chrome_.px(5),
               chrome_.px(1));
  }
}

}  // namespace plinth
