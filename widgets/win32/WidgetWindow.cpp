// Messages that every widget answers alike.
#include "widgets/win32/WidgetWindow.h"

#include <cmath>

#include "basic/CodePage.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/Win32Text.h"

namespace plinth {

SizePx WidgetWindow::size() const {
  RECT area = {};
  ::GetClientRect(window_, &area);
  return {static_cast<int>(area.right), static_cast<int>(area.bottom)};
}

void WidgetWindow::setStyle(DWORD mask, DWORD bits) {
  ::SetWindowLongPtrW(window_, GWL_STYLE, static_cast<LONG_PTR>((style() & ~mask) | bits));
}

ControlColors WidgetWindow::colors() const {
  const auto now = [](std::int32_t color) { return static_cast<std::int32_t>(gdiColor(color)); };
  return {now(colors_.surround), now(colors_.back), now(colors_.fore), now(colors_.mark)};
}

ControlState WidgetWindow::state() const {
  return {::IsWindowEnabled(window_) != FALSE, ::GetFocus() == window_, false};
}

// As it looks, not its handle: that may be gone when the widget is painted.
void WidgetWindow::setFont(HFONT font) {
  fontHandle_ = font;
  LOGFONTW set = {};
  if (!font || ::GetObjectW(font, sizeof set, &set) == 0) return;
  FontSpec& spec = font_;
  spec.charSet = set.lfCharSet;
  spec.name = fromWide(set.lfFaceName, codePageOfCharSet(spec.charSet));
  spec.points = static_cast<float>(std::abs(set.lfHeight)) * 72 / 96;
  spec.bold = set.lfWeight >= FW_SEMIBOLD;
  spec.italic = set.lfItalic != 0;
  spec.underline = set.lfUnderline != 0;
}

std::string WidgetWindow::text() const {
  std::wstring wide(static_cast<std::size_t>(::GetWindowTextLengthW(window_)) + 1, L'\0');
  wide.resize(
      static_cast<std::size_t>(::GetWindowTextW(window_, wide.data(), static_cast<int>(wide.size()))));
  return fromWide(wide, codePageOfCharSet(font_.charSet));
}

void WidgetWindow::tell(WORD notice) const {
  ::SendMessageW(parent(), WM_COMMAND, MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(window_)), notice),
                 reinterpret_cast<LPARAM>(window_));
}

HCURSOR WidgetWindow::pointerOf(int number) {
  struct Row {
    int number;
    WORD system;
  };
  static constexpr Row kRows[] = {{1, 32512}, {2, 32515}, {3, 32513},  {5, 32646},  {6, 32643},  {7, 32645},
                                  {8, 32642}, {9, 32644}, {10, 32516}, {11, 32514}, {12, 32648}, {15, 32646}};
  for (const Row& row : kRows)
    if (row.number == number) return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(row.system));
  return nullptr;
}

LRESULT WidgetWindow::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      BufferedPaint buffer(window_);
      GdiCanvas canvas(buffer.dc());
      paint(canvas, size());
      return 0;
    }
    case WM_PRINTCLIENT: {
      GdiCanvas canvas(reinterpret_cast<HDC>(wide));
      paint(canvas, size());
      return 0;
    }
    case WM_SIZE:
    case WM_ENABLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_SYSCOLORCHANGE:
      repaint();
      return 0;
    case WM_SETTEXT: {
      const LRESULT done = ::DefWindowProcW(window_, message, wide, param);
      repaint();
      return done;
    }
    case WM_SETFONT:
      setFont(reinterpret_cast<HFONT>(wide));
      repaint();
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(fontHandle_);
    case WM_SETCURSOR: {
      // One that was set holds for windows inside the widget as well.
      const bool here = reinterpret_cast<HWND>(wide) == window_;
      const HCURSOR pointer = pointer_ || !here ? pointer_ : ownPointer();
      if (!pointer || LOWORD(param) != HTCLIENT) break;
      ::SetCursor(pointer);
      return TRUE;
    }
    case kWidgetSetBackColor:
      colors_.back = static_cast<std::int32_t>(param);
      repaint();
      return 0;
    case kWidgetSetForeColor:
      colors_.fore = static_cast<std::int32_t>(param);
      repaint();
      return 0;
    case kWidgetSetSurround:
      colors_.surround = static_cast<std::int32_t>(param);
      repaint();
      return 0;
    case kWidgetSetMousePointer:
      pointer_ = wide == 99 ? reinterpret_cast<HCURSOR>(param) : pointerOf(static_cast<int>(wide));
      return 0;
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wide, param);
}

bool WidgetProcedure::add(HINSTANCE program, const wchar_t* name, UINT classStyle, WNDPROC procedure) {
  WNDCLASSEXW shape = {};
  shape.cbSize = sizeof shape;
  shape.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW | classStyle;
  shape.lpfnWndProc = procedure;
  shape.cbWndExtra = sizeof(void*);  // the user data stay the parent's
  shape.hInstance = program;
  shape.lpszClassName = name;
  shape.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  return ::RegisterClassExW(&shape) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

LRESULT WidgetProcedure::dispatch(HWND window, UINT message, WPARAM wide, LPARAM param, Make make) {
  if (message == WM_NCCREATE) {
    try {
      ::SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(make(window).release()));
    } catch (...) {
      return FALSE;
    }
  }
  auto* widget = reinterpret_cast<WidgetWindow*>(::GetWindowLongPtrW(window, 0));
  if (!widget) return ::DefWindowProcW(window, message, wide, param);
  LRESULT result = 0;
  ++widget->depth_;
  try {
    result = widget->message(message, wide, param);
  } catch (...) {
    // Without memory a widget misses a message; the system's frames are none to be thrown through.
    result = ::DefWindowProcW(window, message, wide, param);
  }
  if (message == WM_NCDESTROY) {
    ::SetWindowLongPtrW(window, 0, 0);
    widget->gone_ = true;
  }
  if (--widget->depth_ == 0 && widget->gone_) delete widget;
  return result;
}

bool registerWidgets(HINSTANCE program) {
  return registerScrollBars(program) && registerComboBorder(program) && registerClickWidgets(program) &&
         registerFrameWidgets(program) && registerListPlus(program);
}

}  // namespace plinth
