// The system's button draws by itself after some messages; each of those is followed by painting anew.
#include "surface/win32/FlatButton.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {

namespace {

constexpr int kMark = 16, kMarkGap = 8, kRadius = 4;

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

bool paintsByItself(UINT message) {
  switch (message) {
    case BM_SETCHECK:
    case BM_SETSTATE:
    case BM_SETSTYLE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
    case WM_SETTEXT:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CAPTURECHANGED:
    case WM_UPDATEUISTATE:
      return true;
    default:
      return false;
  }
}

}  // namespace

void fillRect(HDC dc, const RECT& rect, std::int32_t color) {
  const BrushHandle brush(::CreateSolidBrush(gdiColor(color)));
  ::FillRect(dc, &rect, brush.get());
}

// In one stroke: a fill of its own under the outline would show at the corners.
void paintBox(HDC dc, const RECT& rect, std::int32_t fill, std::int32_t edge, int edgeWidth, int radius) {
  const PenHandle pen(::CreatePen(PS_INSIDEFRAME, edgeWidth, gdiColor(edge)));
  const BrushHandle brush(::CreateSolidBrush(gdiColor(fill)));
  const Selected outline(dc, pen.get()), inside(dc, brush.get());
  ::RoundRect(dc, rect.left, rect.top, rect.right, rect.bottom, 2 * radius, 2 * radius);
}

void paintText(HDC dc, RECT rect, const wchar_t* text, HFONT font, std::int32_t ink, UINT flags) {
  const Selected selected(dc, font);
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, gdiColor(ink));
  ::DrawTextW(dc, text, -1, &rect, flags);
}

FlatButton::FlatButton(HWND parent, int id, FlatLook look, const wchar_t* text, DWORD style,
                       const ChromeStyle& chrome, Glyph glyph)
    : look_(look), chrome_(chrome), glyph_(std::move(glyph)) {
  window_ = ::CreateWindowExW(0, L"BUTTON", text, WS_CHILD | BS_NOTIFY | style, 0, 0, 0, 0, parent,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr),
                              nullptr);
  ::SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

FlatButton::~FlatButton() {
  if (window_) ::RemoveWindowSubclass(window_, procedure, 1);
}

void FlatButton::setColor(std::int32_t color) {
  if (color == color_) return;
  color_ = color;
  ::InvalidateRect(window_, nullptr, FALSE);
}

int FlatButton::checkHeight(HWND anyWindow, const wchar_t* text, int width, const ChromeStyle& chrome) {
  const WindowDc dc(anyWindow);
  const Selected selected(dc.get(), chrome.font.get());
  RECT area{0, 0, width - chrome.px(kMark + kMarkGap), 0};
  ::DrawTextW(dc.get(), text, -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  return area.bottom + chrome.px(4);
}

LRESULT CALLBACK FlatButton::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR data) {
  auto* self = reinterpret_cast<FlatButton*>(data);
  if (message == WM_NCDESTROY) {
    ::RemoveWindowSubclass(window, procedure, 1);
    self->window_ = nullptr;
    return ::DefSubclassProc(window, message, wParam, lParam);
  }
  try {
    return self->handle(message, wParam, lParam);
  } catch (...) {
    return ::DefSubclassProc(window, message, wParam, lParam);
  }
}

LRESULT FlatButton::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_MOUSEMOVE:
      if (!hot_) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
        hot_ = ::TrackMouseEvent(&track);
        ::InvalidateRect(window_, nullptr, FALSE);
      }
      break;
    case WM_MOUSELEAVE:
      hot_ = false;
      ::InvalidateRect(window_, nullptr, FALSE);
      break;
    default:
      break;
  }
  const HWND window = window_;  // a click may end the window
  const LRESULT result = ::DefSubclassProc(window, message, wParam, lParam);
  if (paintsByItself(message) && ::IsWindow(window)) ::InvalidateRect(window, nullptr, FALSE);
  return result;
}

void FlatButton::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  RECT client;
  ::GetClientRect(window_, &client);
  fillRect(paint.dc(), client, chrome_.colors.ground);
  const bool checked = ::SendMessageW(window_, BM_GETCHECK, 0, 0) == BST_CHECKED;
  const bool pressed = (::SendMessageW(window_, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
  if (look_ == FlatLook::check)
    paintCheck(paint.dc(), client, checked);
  else
    paintFace(paint.dc(), client, checked, pressed);
}

void FlatButton::paintCheck(HDC dc, const RECT& client, bool checked) const {
  const ChromeColors& colors = chrome_.colors;
  const bool enabled = ::IsWindowEnabled(window_), focused = ::GetFocus() == window_;
  const int size = chrome_.px(kMark), top = chrome_.px(2), thick = chrome_.px(1);
  const RECT mark{0, top, size, top + size};
  const std::int32_t chosen = enabled ? colors.accent : colors.disabled;
  paintBox(dc, mark,
           checked           ? chosen
           : hot_ && enabled ? colors.hover
                             : colors.box,
           checked || focused ? chosen : colors.edge, focused ? 2 * thick : thick, chrome_.px(3));
  if (checked) {
    GdiCanvas canvas(dc, chrome_.scale, {0, top});
    const Pen pen{LineStyle::solid, 2, colors.accentInk};
    canvas.line({4, 8}, {7, 11}, pen);
    canvas.line({7, 11}, {12, 5}, pen);
  }
  const RECT text{size + chrome_.px(kMarkGap), top, client.right, client.bottom};
  paintText(dc, text, textOf(window_).c_str(), chrome_.font.get(), enabled ? colors.ink : colors.disabled,
            DT_WORDBREAK | DT_NOPREFIX);
  if (!focused) return;
  const BrushHandle brush(::CreateSolidBrush(gdiColor(colors.accent)));
  const RECT under{text.left, client.bottom - thick, client.right, client.bottom};
  ::FillRect(dc, &under, brush.get());
}

void FlatButton::paintFace(HDC dc, const RECT& client, bool checked, bool pressed) const {
  const ChromeColors& colors = chrome_.colors;
  const bool enabled = ::IsWindowEnabled(window_), focused = ::GetFocus() == window_;
  const bool chosen = checked && look_ == FlatLook::toggle;
  const int thick = chrome_.px(1), radius = chrome_.px(kRadius);
  const std::int32_t face = look_ == FlatLook::swatch      ? enabled ? color_ : colors.ground
                            : chosen                       ? enabled ? colors.accent : colors.disabled
                            : enabled && (hot_ || pressed) ? colors.hover
                                                           : colors.box;
  const std::int32_t ink = !enabled ? colors.disabled : chosen ? colors.accentInk : colors.ink;
  paintBox(dc, client, face,
           focused           ? colors.accent
           : enabled && hot_ ? colors.quiet
                             : colors.edge,
           focused ? 2 * thick : thick, radius);
  if (focused && (chosen || look_ == FlatLook::swatch)) {  // a ring that shows on any colour
    RECT inner = client;
    ::InflateRect(&inner, -2 * thick, -2 * thick);
    paintBox(dc, inner, face, colors.box, thick, std::max(1, radius - 2 * thick));
  }
  if (glyph_) {
    glyph_(dc, client, chosen && !enabled ? colors.ground : ink);
  } else if (look_ == FlatLook::push) {
    RECT text = client;
    if (pressed) ::OffsetRect(&text, 0, thick);
    paintText(dc, text, textOf(window_).c_str(), chrome_.font.get(), ink,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
  }
}

}  // namespace plinth
