// MyFrame and UserSel: frames around other things.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <windowsx.h>

#include <algorithm>

#include "platform/win32/GdiBitmap.h"
#include "widgets/RubberBand.h"
#include "widgets/win32/WidgetWindow.h"

namespace plinth {

namespace {

constexpr int kLeastBand = 10;  // pixels of a side

class MyFrameWindow : public WidgetWindow {
 public:
  explicit MyFrameWindow(HWND window) : WidgetWindow(window) { border_.style = 1; }

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override {
    switch (message) {
      case WM_NCHITTEST:
        return HTTRANSPARENT;
      case kFrameSetBorderStyle:
        border_.style = static_cast<int>(wide);
        break;
      case kFrameSetBorderColor:
        border_.color = static_cast<std::int32_t>(gdiColor(static_cast<std::int32_t>(param)));
        break;
      case kFrameSetFillColor:
        fill_ = static_cast<std::int32_t>(param);
        filled_ = true;
        break;
      default:
        return WidgetWindow::message(message, wide, param);
    }
    repaint();
    return 0;
  }
  void paint(Canvas& canvas, SizePx size) override {
    const ControlColors now = colors();
    const std::int32_t fill = filled_ ? static_cast<std::int32_t>(gdiColor(fill_)) : now.surround;
    paintMyFrame(canvas, size, {border_, fill, text(), font_}, now, state());
  }

 private:
  Frame border_;
  std::int32_t fill_ = 0;
  bool filled_ = false;
};

class UserSelWindow : public WidgetWindow {
 public:
  explicit UserSelWindow(HWND window) : WidgetWindow(window) {}

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;
  void paint(Canvas& canvas, SizePx size) override { paintUserSel(canvas, size, borderStyle_, colors()); }
  HCURSOR ownPointer() override {
    POINT at = {};
    ::GetCursorPos(&at);
    ::ScreenToClient(window(), &at);
    return pointerOf(bandPointerAt(size(), {static_cast<int>(at.x), static_cast<int>(at.y)}));
  }

 private:
  void paintOverPage();
  RectPx place() const;
  POINT inParent(LPARAM point) const;
  void press(LPARAM point);
  void drag(LPARAM point);
  void release();
  // Asks the parent, goes there and tells. False: it stays.
  bool moveTo(RectPx wanted);
  bool key(WPARAM key);
  int borderStyle_ = 0;
  bool held_ = false;
  RectPx before_;
  POINT pressed_ = {};
};

RectPx UserSelWindow::place() const {
  RECT at = {};
  ::GetWindowRect(window(), &at);
  ::MapWindowPoints(nullptr, parent(), reinterpret_cast<POINT*>(&at), 2);
  return {static_cast<int>(at.left), static_cast<int>(at.top), static_cast<int>(at.right - at.left),
          static_cast<int>(at.bottom - at.top)};
}

POINT UserSelWindow::inParent(LPARAM point) const {
  POINT at{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  ::MapWindowPoints(window(), parent(), &at, 1);
  return at;
}

// The page stands already where it paints below its children; where it does not, it is asked to.
void UserSelWindow::paintOverPage() {
  PAINTSTRUCT begun;
  const HDC screen = ::BeginPaint(window(), &begun);
  const SizePx now = size();
  const GdiBitmap buffer(now);
  if (buffer.ok()) {
    ::BitBlt(buffer.dc(), 0, 0, now.width, now.height, screen, 0, 0, SRCCOPY);
    const RectPx at = place();
    ::SetViewportOrgEx(buffer.dc(), -at.left, -at.top, nullptr);
    ::SendMessageW(parent(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(buffer.dc()),
                   PRF_CLIENT | PRF_ERASEBKGND);
    ::SetViewportOrgEx(buffer.dc(), 0, 0, nullptr);
    GdiCanvas canvas(buffer.dc());
    paint(canvas, now);
    ::BitBlt(screen, 0, 0, now.width, now.height, buffer.dc(), 0, 0, SRCCOPY);
  }
  ::EndPaint(window(), &begun);
}

bool UserSelWindow::moveTo(RectPx wanted) {
  RECT asked{wanted.left, wanted.top, wanted.right(), wanted.bottom()};
  ::SendMessageW(parent(), kBandMoving, static_cast<WPARAM>(::GetDlgCtrlID(window())),
                 reinterpret_cast<LPARAM>(&asked));
  const RectPx now = place();
  const int wide = asked.right - asked.left, high = asked.bottom - asked.top;
  if (asked.left == now.left && asked.top == now.top && wide == now.width && high == now.height) return false;
  // Without copied bits: what showed through elsewhere belongs to that place.
  ::SetWindowPos(window(), nullptr, asked.left, asked.top, wide, high,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  tell(kBandMoved);
  return true;
}

void UserSelWindow::press(LPARAM point) {
  if (style() & WS_TABSTOP) ::SetFocus(window());
  held_ = true;
  before_ = place();
  pressed_ = inParent(point);
  ::SetCapture(window());
  tell(kBandPressed);
}

void UserSelWindow::drag(LPARAM point) {
  if (!held_) return;
  const POINT now = inParent(point);
  moveTo(draggedBand(
      before_, {static_cast<int>(pressed_.x) - before_.left, static_cast<int>(pressed_.y) - before_.top},
      {static_cast<int>(now.x - pressed_.x), static_cast<int>(now.y - pressed_.y)}, kLeastBand));
}

void UserSelWindow::release() {
  if (!held_) return;
  held_ = false;
  if (::GetCapture() == window()) ::ReleaseCapture();
  tell(kBandReleased);
}

// Arrows move the band by a pixel, with Shift they size it.
bool UserSelWindow::key(WPARAM key) {
  const int x = key == VK_LEFT ? -1 : key == VK_RIGHT ? 1 : 0, y = key == VK_UP ? -1 : key == VK_DOWN ? 1 : 0;
  if (x == 0 && y == 0) return false;
  RectPx wanted = place();
  if (::GetKeyState(VK_SHIFT) < 0) {
    wanted.width = std::max(kLeastBand, wanted.width + x);
    wanted.height = std::max(kLeastBand, wanted.height + y);
  } else {
    wanted.left += x;
    wanted.top += y;
  }
  if (moveTo(wanted)) tell(kBandReleased);
  return true;
}

LRESULT UserSelWindow::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_NCCREATE:
      ::SetWindowLongPtrW(window(), GWL_EXSTYLE,
                          ::GetWindowLongPtrW(window(), GWL_EXSTYLE) | WS_EX_TRANSPARENT);
      break;
    case WM_PAINT:
      paintOverPage();
      return 0;
    case WM_LBUTTONDOWN:
      press(param);
      return 0;
    case WM_MOUSEMOVE:
      drag(param);
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      release();
      return 0;
    case WM_KEYDOWN:
      if (key(wide)) return 0;
      break;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case kFrameSetBorderStyle:
      borderStyle_ = static_cast<int>(wide);
      repaint();
      return 0;
    default:
      break;
  }
  return WidgetWindow::message(message, wide, param);
}

}  // namespace

bool registerFrameWidgets(HINSTANCE program) {
  return WidgetProcedure::add<MyFrameWindow>(program, kMyFrameClass) &&
         WidgetProcedure::add<UserSelWindow>(program, kUserSelClass);
}

}  // namespace plinth
