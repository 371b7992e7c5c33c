// Messages are sorted here and become plain values; what they do is the surface's business.
#include "surface/win32/PageArea.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/CodePage.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthPageArea";
constexpr int kBarWidth = 17, kScrollLine = 24, kTextMargin = 3, kTextLeast = 24;

LPCSTR cursorOf(PointerShape pointer) {
  switch (pointer) {
    case PointerShape::northSouth:
      return IDC_SIZENS;
    case PointerShape::northWestSouthEast:
      return IDC_SIZENWSE;
    case PointerShape::eastWest:
      return IDC_SIZEWE;
    case PointerShape::upArrow:
      return IDC_UPARROW;
    case PointerShape::sizeAll:
      return IDC_SIZEALL;
    case PointerShape::area:
      return IDC_CROSS;
    case PointerShape::standard:
    case PointerShape::arrow:
      break;
  }
  return IDC_ARROW;
}

int heldButton(WPARAM keys) {
  if ((keys & MK_LBUTTON) != 0) return 1;
  return (keys & MK_RBUTTON) != 0 ? 2 : 0;
}

}  // namespace

unsigned shiftState() {
  const auto down = [](int key) { return ::GetKeyState(key) < 0; };
  return (down(VK_SHIFT) ? kShift : 0u) | (down(VK_CONTROL) ? kCtrl : 0u) | (down(VK_MENU) ? kAlt : 0u);
}

PageArea::PageArea(HWND parent, int id, DesignSurface& surface, KeyHandler keys)
    : surface_(surface), keys_(std::move(keys)), scale_(windowScale(parent)) {
  registerWindowClass(kClass, windowProcedure<PageArea>, CS_DBLCLKS);
  registerWidgets(::GetModuleHandleW(nullptr));
  const auto number = [](int value) { return reinterpret_cast<HMENU>(static_cast<INT_PTR>(value)); };
  window_ = ::CreateWindowExW(0, kClass, L"Page", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, 0,
                              10, 10, parent, number(id), nullptr, this);
  const auto bar = [&](const wchar_t* type, const wchar_t* name, int barId) {
    return ::CreateWindowExW(0, type, name, WS_CHILD, 0, 0, 10, 10, window_, number(barId), nullptr, nullptr);
  };
  for (int i = 0; i < kPages; ++i)
    tabs_[static_cast<std::size_t>(i)] =
        ::CreateWindowExW(0, kTabButtonClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, window_,
                          number(kFirstTab + i), nullptr, nullptr);
  vertical_ = bar(kRealvScrollClass, L"Up and down", kVerticalId);
  horizontal_ = bar(kRealhScrollClass, L"Left and right", kHorizontalId);
  mainText_ = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, 0, 0, 10, 10, window_,
                                number(kMainTextId), nullptr, nullptr);
  ::SetWindowSubclass(mainText_, mainTextProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
  setColors(systemChrome());
}

PageArea::~PageArea() {
  if (!window_) return;
  ::RemoveWindowSubclass(mainText_, mainTextProcedure, 1);
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

int PageArea::px(int pixels) const { return static_cast<int>(std::lround(pixels * scale_)); }

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
    case WM_VSCROLL:
      scroll(reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      invalidate();
      break;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT || reinterpret_cast<HWND>(wParam) != window_) break;
      ::SetCursor(::LoadCursorA(nullptr, cursorOf(pointer_)));
      return TRUE;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
      if (keys_({static_cast<int>(wParam), shiftState()})) return 0;
      break;
    case WM_COMMAND:
      if (const int tab = LOWORD(wParam) - kFirstTab;
          tab >= 0 && tab < kPages && HIWORD(wParam) == BN_CLICKED)
        surface_.run([&] { surface_.setup().showPage(tab); });
      if (LOWORD(wParam) == kMainTextId && HIWORD(wParam) == EN_CHANGE && !filling_)
        surface_.typeLabel(windowText(mainText_, codePage_));
      return 0;
    default:
      return handleMouse(message, wParam, lParam);
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT PageArea::handleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEWHEEL:
      wheel(wParam);
      return 0;
    case WM_LBUTTONDOWN:
      pressed(1, lParam);
      return 0;
    case WM_RBUTTONDOWN:
      pressed(2, lParam);
      return 0;
    case WM_LBUTTONUP:
      released(1, lParam);
      return 0;
    case WM_RBUTTONUP:
      released(2, lParam);
      return 0;
    case WM_LBUTTONDBLCLK:
      pressedTwice(lParam);
      return 0;
    case WM_MOUSEMOVE:
      pointerMoved(wParam, lParam);
      return 0;
    case WM_MOUSELEAVE:
      tracking_ = false;
      surface_.page().mouseLeave();
      return 0;
    case WM_CAPTURECHANGED:
      lostCapture();
      return 0;
    default:
      return ::DefWindowProcW(window_, message, wParam, lParam);
  }
}

MouseEvent PageArea::mouse(int button, LPARAM lParam) const {
  return {button, shiftState(), static_cast<int>(std::floor(GET_X_LPARAM(lParam) / scale_)),
          static_cast<int>(std::floor(GET_Y_LPARAM(lParam) / scale_))};
}

bool PageArea::hold(int button, LPARAM lParam) {
  ::SetFocus(window_);
  if (button_ != 0) return false;
  button_ = button;
  last_ = mouse(button, lParam);
  ::SetCapture(window_);
  return true;
}

void PageArea::pressed(int button, LPARAM lParam) {
  if (hold(button, lParam)) surface_.mouseDown(last_);
}

// A quick second press is a press like others while an object is carried. Any of them may begin a gesture, so
// its release has to come here, too.
void PageArea::pressedTwice(LPARAM lParam) {
  if (surface_.inGesture()) return pressed(1, lParam);
  if (hold(1, lParam)) surface_.doubleClick(last_);
}

void PageArea::released(int button, LPARAM lParam) {
  if (button_ != button) return;
  button_ = 0;
  ::ReleaseCapture();
  surface_.mouseUp(mouse(button, lParam));
}

// A dialog or another program took the mouse: the gesture ends where it was.
void PageArea::lostCapture() {
  if (button_ == 0) return;
  button_ = 0;
  surface_.mouseUp(last_);
}

void PageArea::pointerMoved(WPARAM wParam, LPARAM lParam) {
  if (!tracking_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
    tracking_ = ::TrackMouseEvent(&track);
  }
  last_ = mouse(button_ != 0 ? button_ : heldButton(wParam), lParam);
  surface_.mouseMove(last_);
}

void PageArea::showPointer(PointerShape pointer) {
  if (std::exchange(pointer_, pointer) == pointer) return;
  POINT at;
  ::GetCursorPos(&at);
  if (::GetCapture() == window_ || ::WindowFromPoint(at) == window_)
    ::SetCursor(::LoadCursorA(nullptr, cursorOf(pointer)));
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
  surface_.page().paint(canvas, {left, top, right - left, bottom - top});
  if (!::IsWindowVisible(vertical_) || !::IsWindowVisible(horizontal_)) return;
  RECT corner;  // between the two bars, where neither paints
  ::GetClientRect(window_, &corner);
  corner.left = corner.right - px(kBarWidth);
  corner.top = corner.bottom - px(kBarWidth);
  ::SetDCBrushColor(paint.dc(), static_cast<COLORREF>(ground_));
  ::FillRect(paint.dc(), &corner, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

void PageArea::invalidate(const RectPx& area) {
  const RECT device{static_cast<LONG>(std::floor(area.left * scale_)),
                    static_cast<LONG>(std::floor(area.top * scale_)),
                    static_cast<LONG>(std::ceil(area.right() * scale_)),
                    static_cast<LONG>(std::ceil(area.bottom() * scale_))};
  ::InvalidateRect(window_, &device, FALSE);
}

// The bars stand in the way of the sheet only when there is something to scroll; each takes room from the
// other, so a second look is needed.
void PageArea::resize() {
  RECT client;
  ::GetClientRect(window_, &client);
  const int bar = px(kBarWidth);
  bool upright = false, level = false;
  for (int round = 0; round < 3; ++round) {
    const int wide = client.right - (upright ? bar : 0), high = client.bottom - (level ? bar : 0);
    surface_.page().resize({static_cast<int>(wide / scale_), static_cast<int>(high / scale_)});
    const bool needsUpright = surface_.page().vertical().most() > 0;
    const bool needsLevel = surface_.page().horizontal().most() > 0;
    if (needsUpright == upright && needsLevel == level) break;
    upright = upright || needsUpright;
    level = level || needsLevel;
  }
  ::MoveWindow(vertical_, client.right - bar, 0, bar, std::max<int>(0, client.bottom - (level ? bar : 0)),
               TRUE);
  ::MoveWindow(horizontal_, 0, client.bottom - bar, std::max<int>(0, client.right - (upright ? bar : 0)), bar,
               TRUE);
  ::ShowWindow(vertical_, upright ? SW_SHOWNA : SW_HIDE);
  ::ShowWindow(horizontal_, level ? SW_SHOWNA : SW_HIDE);
}

void PageArea::scaleChanged() {
  scale_ = windowScale(window_);
  showTabs();
  resize();
}

void PageArea::setColors(const ChromeColors& colors) {
  ground_ = colors.ground;
  for (const HWND bar : {vertical_, horizontal_}) {
    ::SendMessageW(bar, kWidgetSetBackColor, 0, colors.ground);
    ::SendMessageW(bar, kWidgetSetForeColor, 0, colors.quiet);
    ::SendMessageW(bar, kWidgetSetSurround, 0, colors.ground);
  }
  for (const HWND tab : tabs_) {
    ::SendMessageW(tab, kWidgetSetBackColor, 0, colors.ground);
    ::SendMessageW(tab, kWidgetSetForeColor, 0, colors.ink);
    ::SendMessageW(tab, kWidgetSetSurround, 0, colors.ground);
    ::SendMessageW(tab, kFrameSetFillColor, 0, colors.box);
  }
  SurfaceColors around;
  if (colors.dark) around = {0x2B2B2B, colors.ground, 0x181818, 0x505050, colors.edge};
  surface_.page().setColors(around);
}

void PageArea::showTabs() {
  const PageItems& tabs = surface_.page().tabs();
  for (std::size_t i = 0; i < tabs.size() && i < tabs_.size(); ++i) {
    const auto* tab = std::get_if<TabItem>(&tabs[i].shape);
    if (!tab) continue;
    const std::wstring caption = toWide(tab->caption, codePageOfCharSet(tab->font.charSet));
    const HFONT font =
        labelFonts_.get(tab->font, px(static_cast<int>(std::lround(tab->font.points * 96 / 72))));
    if (reinterpret_cast<HFONT>(::SendMessageW(tabs_[i], WM_GETFONT, 0, 0)) != font)
      ::SendMessageW(tabs_[i], WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    wchar_t now[256] = {};
    ::GetWindowTextW(tabs_[i], now, 256);
    if (caption != now) ::SetWindowTextW(tabs_[i], caption.c_str());
    ::SendMessageW(tabs_[i], BM_SETCHECK, tab->selected ? BST_CHECKED : BST_UNCHECKED, 0);
    ::MoveWindow(tabs_[i], px(tab->rect.left), px(tab->rect.top), px(tab->rect.width), px(tab->rect.height),
                 TRUE);
  }
}

HWND PageArea::chosenTab() const { return tabs_[static_cast<std::size_t>(surface_.state().currentPage)]; }

bool PageArea::translate(const MSG& message) {
  if (message.message != WM_KEYDOWN || (message.wParam != VK_LEFT && message.wParam != VK_RIGHT))
    return false;
  if (std::ranges::find(tabs_, message.hwnd) == tabs_.end()) return false;
  const int step = message.wParam == VK_LEFT ? kPages - 1 : 1;
  surface_.run([&] { surface_.setup().showPage((surface_.state().currentPage + step) % kPages); });
  ::SetFocus(chosenTab());
  return true;
}

void PageArea::setBar(HWND bar, const ScrollAxis& axis) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(0, axis.content - 1);
  info.nPage = static_cast<UINT>(std::max(0, axis.view));
  info.nPos = axis.value;
  ::SendMessageW(bar, kScrollSetSmallChange, kScrollLine, 0);
  ::SendMessageW(bar, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

// A bar that comes or goes changes the room of the sheet, which asks for this again.
void PageArea::showScroll() {
  if (!window_ || !vertical_ || !horizontal_ || std::exchange(showing_, true)) return;
  const PageSurface& page = surface_.page();
  const bool upright = ::IsWindowVisible(vertical_) != 0, level = ::IsWindowVisible(horizontal_) != 0;
  if (::IsWindowVisible(window_) &&
      (upright != (page.vertical().most() > 0) || level != (page.horizontal().most() > 0)))
    resize();
  setBar(vertical_, page.vertical());
  setBar(horizontal_, page.horizontal());
  const ProjectDocument& document = surface_.document();
  for (const HWND bar : {vertical_, horizontal_})
    ::SendMessageW(bar, kScrollSetPattern, static_cast<WPARAM>(document.pattern), 0);
  showing_ = false;
}

void PageArea::scroll(HWND bar) {
  const int to = static_cast<int>(::SendMessageW(bar, SBM_GETPOS, 0, 0));
  PageSurface& page = surface_.page();
  bar == horizontal_ ? page.scrollTo(to, page.vertical().value) : page.scrollTo(page.horizontal().value, to);
}

POINT PageArea::onScreen(PointPx point) const {
  POINT at{px(point.x), px(point.y)};
  ::ClientToScreen(window_, &at);
  return at;
}

void PageArea::editLabel(const RectPx& place, const ProjectDocument& document) {
  const int title = surface_.state().editedTitle;
  if (title < 0 || title > document.titleCount() || place.width <= 0) {
    editedTitle_ = -1;
    if (!::IsWindowVisible(mainText_)) return;
    const bool focused = ::GetFocus() == mainText_;
    ::ShowWindow(mainText_, SW_HIDE);
    if (focused) ::SetFocus(window_);
    return;
  }
  const TitleRow& row = document.titles[static_cast<std::size_t>(title)];
  codePage_ = codePageOfCharSet(document.charSet);
  const bool begun = std::exchange(editedTitle_, title) != title;
  if (begun) {
    filling_ = true;
    ::SetWindowTextW(mainText_, toWide(row.caption, codePage_).c_str());
    filling_ = false;
  }
  constexpr double kPixelsPerPoint = 96.0 / 72;
  const FontSpec font = titleFont(row, document.charSet);
  const int height = px(static_cast<int>(std::lround(font.points * kPixelsPerPoint)));
  ::SendMessageW(mainText_, WM_SETFONT, reinterpret_cast<WPARAM>(labelFonts_.get(font, height)), FALSE);
  ::SendMessageW(mainText_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                 MAKELPARAM(px(kTextMargin) - 1, 0));  // the border takes one
  // Room for the widest character to come, which would scroll the text before the box can grow.
  ::SetWindowPos(mainText_, HWND_TOP, px(place.left - kTextMargin), px(place.top - kTextMargin),
                 px(std::max(place.width, kTextLeast) + 2 * place.height + 2 * kTextMargin),
                 px(place.height + 2 * kTextMargin), SWP_SHOWWINDOW | SWP_NOACTIVATE);
  if (begun) {  // not before the box is wide enough, or it would begin scrolled to the end
    ::SendMessageW(mainText_, EM_SETSEL, 0, 0);
    ::SendMessageW(mainText_, EM_SETSEL, 0, -1);
  }
  if (::GetFocus() != mainText_) ::SetFocus(mainText_);
  ::InvalidateRect(mainText_, nullptr, TRUE);
}

LRESULT CALLBACK PageArea::mainTextProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                             DWORD_PTR self) {
  auto& area = *reinterpret_cast<PageArea*>(self);
  switch (message) {
    case WM_KEYDOWN:
      if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB) {
        area.surface_.endLabel();
        ::SetFocus(area.window_);
        return 0;
      }
      break;
    case WM_CHAR:
      if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB) return 0;  // no beep
      break;
    case WM_KILLFOCUS:
      if (area.editedTitle_ >= 0) area.surface_.endLabel();
      break;
    default:
      break;
  }
  return ::DefSubclassProc(box, message, wParam, lParam);
}

void PageArea::wheel(WPARAM wParam) {
  UINT lines = 3;
  ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam) * static_cast<int>(std::min(lines, 20u));
  surface_.page().wheel(wheelRest_ / WHEEL_DELTA, shiftState());
  wheelRest_ %= WHEEL_DELTA;  // fine wheels send small parts
}

}  // namespace plinth
