// Painting order: page colour, tiles, items. Boxes are windows above it all.
#include "engine/win32/PageWindow.h"

#include <windowsx.h>

#include <cmath>

#include "engine/win32/Keyboard.h"
#include "platform/win32/GdiBitmap.h"
#include "widgets/PagePainter.h"

namespace plinth {

bool PageWindow::open(HWND parent) {
  Request request;
  request.className = L"PlinthPage";
  request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = parent;
  request.classStyle = CS_DBLCLKS;
  return create(request);
}

SIZE PageWindow::size() const {
  const SizePx page = layout_.pageSize();
  return {std::lround(page.width * host_.scale()), std::lround(page.height * host_.scale())};
}

void PageWindow::paint() {
  BufferedPaint buffer(handle());
  const RecordSession& session = host_.session();
  const Application& application = host_.application();
  const double scale = host_.scale();
  GdiCanvas canvas(buffer.dc(), scale);
  const RECT area = buffer.area();
  const RectPx clip{static_cast<int>(std::floor(area.left / scale)),
                    static_cast<int>(std::floor(area.top / scale)),
                    static_cast<int>(std::ceil((area.right - area.left) / scale)) + 1,
                    static_cast<int>(std::ceil((area.bottom - area.top) / scale)) + 1};
  const int page = session.currentPage();
  const std::int32_t color = plainColor(application.payload.pageColors[static_cast<std::size_t>(page)]);
  canvas.box(clip, {LineStyle::none, 1, 0}, {FillStyle::solid, color, false, color});
  if (const auto tile = pictures_.background())
    paintTiles(canvas, *tile, application.payload.application.tileMode, layout_.pageSize(), clip);
  const PageItems items = layout_.items(session.form(), page, pictures_);
  for (const PageItem& item : items)
    if (item.ref.kind == static_cast<int>(PagePart::title))
      titlePlaces_[item.ref.index] = boundsOf(item.shape);
  paintPage(items, canvas, clip);
  if (gestures_) gestures_->paintMarks(canvas);
}

void PageWindow::repaintTitle(int n) {
  const auto invalidate = [&](const RectPx& place) {
    const RectPx wide = inflated(place, 2);
    const double scale = host_.scale();
    const RECT area{std::lround(wide.left * scale), std::lround(wide.top * scale),
                    std::lround(wide.right() * scale), std::lround(wide.bottom() * scale)};
    ::InvalidateRect(handle(), &area, FALSE);
  };
  if (!host_.session().visibleNow(host_.application().titleRow(n).page)) return;
  if (const auto before = titlePlaces_.find(n); before != titlePlaces_.end()) invalidate(before->second);
  invalidate(layout_.title(n, host_.session().form()));
}

PointPx PageWindow::pagePoint(LPARAM point) const {
  const double scale = host_.scale();
  return {static_cast<int>(GET_X_LPARAM(point) / scale), static_cast<int>(GET_Y_LPARAM(point) / scale)};
}

// Links show the hand.
bool PageWindow::pointer() const {
  POINT at = {};
  ::GetCursorPos(&at);
  ::ScreenToClient(handle(), &at);
  const PointPx point = pagePoint(MAKELPARAM(at.x, at.y));
  const RecordSession& session = host_.session();
  constexpr WORD kHand = 32649;
  WORD shape = gestures_ ? gestures_->pointerAt(point) : 0;
  if (shape == 0 && layout_.linkAt(point, session.form(), session.currentPage()) != 0) shape = kHand;
  if (shape == 0) return false;
  ::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(shape)));
  return true;
}

void PageWindow::press(PointPx point, bool twice) {
  RecordSession& session = host_.session();
  if (gestures_ && gestures_->press(point, twice)) {
    if (gestures_->dragging()) ::SetCapture(handle());
  } else if (const int link = layout_.linkAt(point, session.form(), session.currentPage())) {
    host_.act([&] { session.titleClick(link); });
  } else {
    boxes_.focusBoxAt(point);
  }
}

void PageWindow::endDrag() {
  if (gestures_) gestures_->release();
  if (::GetCapture() == handle()) ::ReleaseCapture();
}

// By the mouse the menu opens where it is, by the keyboard at the page's corner that is in view.
bool PageWindow::menu(LPARAM param) {
  POINT screen{GET_X_LPARAM(param), GET_Y_LPARAM(param)};
  if (param == -1) {
    RECT view = {};
    ::GetWindowRect(::GetParent(handle()), &view);
    screen = {view.left, view.top};
  }
  POINT at = screen;
  ::ScreenToClient(handle(), &at);
  return gestures_->menu(param == -1 ? PointPx{-1, -1} : pagePoint(MAKELPARAM(at.x, at.y)), screen);
}

// The messages of hand and keyboard that the gestures may want; true when done with.
bool PageWindow::gesture(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_MOUSEMOVE:
      if (::GetCapture() != handle()) return false;
      gestures_->drag(pagePoint(param));
      if (!gestures_->dragging()) endDrag();
      return true;
    case WM_LBUTTONUP:
      endDrag();
      return true;
    case WM_CAPTURECHANGED:
      gestures_->release();
      return true;
    case WM_CONTEXTMENU:
      return reinterpret_cast<HWND>(wide) == handle() && menu(param);
    case WM_KEYDOWN:
      return gestures_->key(keyEvent(static_cast<int>(wide)));
    case WM_SETFOCUS:
      host_.focusMoved(handle());
      return true;
    case WM_KILLFOCUS:
      gestures_->keyboardLost();
      return true;
    default:
      return false;
  }
}

LRESULT PageWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (gestures_ && gesture(message, wide, param)) return 0;
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      press(pagePoint(param), message == WM_LBUTTONDBLCLK);
      return 0;
    case WM_SETCURSOR:
      if (reinterpret_cast<HWND>(wide) == handle() && LOWORD(param) == HTCLIENT && pointer()) return TRUE;
      break;
    case WM_COMMAND:
      if (param && boxes_.command(LOWORD(wide), HIWORD(wide), reinterpret_cast<HWND>(param))) return 0;
      // The panel of the record box may lie on the page; its commands are the main window's.
      return ::SendMessageW(::GetParent(::GetParent(handle())), message, wide, param);
    case WM_DRAWITEM:
      if (boxes_.drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(param))) return TRUE;
      break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
      if (const HBRUSH brush = boxes_.colors(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(param)))
        return reinterpret_cast<LRESULT>(brush);
      break;
    default:
      break;
  }
  return standard(message, wide, param);
}

}  // namespace plinth
