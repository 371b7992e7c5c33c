// Placing and painting. Edit lines are bare: the panel paints the boxes around them.
#include "surface/win32/PanelWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"
#include "surface/ToolIcons.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthPanel";
constexpr int kTextInset = 6, kWheelStep = 24, kRadius = 4;

int brightness(std::int32_t color) {
  return ((color & 0xFF) * 3 + (color >> 8 & 0xFF) * 6 + (color >> 16 & 0xFF)) / 10;
}

// A ground on which letters of a colour can be read; the panel's own, if that will do.
std::int32_t groundFor(std::int32_t ink, const ChromeColors& colors) {
  constexpr int kReadable = 70;
  if (std::abs(brightness(ink) - brightness(colors.ground)) >= kReadable) return colors.ground;
  return brightness(ink) > 128 ? 0x303030 : 0xFFFFFF;
}

// Black is what objects have without anyone's choice: it follows the designer's own letters.
std::int32_t itemInk(std::int32_t color, const ChromeColors& colors) {
  return color == 0 ? colors.ink : color;
}

}  // namespace

PanelWindow::PanelWindow(HWND parent, int id, PanelEvents events) : events_(std::move(events)) {
  registerWindowClass(kClass, windowProcedure<PanelWindow>);
  chrome_.scale = windowScale(parent);
  makeFonts();
  window_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                              10, 10, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                              ::GetModuleHandleW(nullptr), this);
  setColors(systemChrome());
}

PanelWindow::~PanelWindow() {
  if (!window_) return;
  const HWND window = window_;
  ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  ::DestroyWindow(window);  // its controls lean on this
}

void PanelWindow::show(const PropertyPanel& panel) {
  const bool first = !panel_;
  panel_ = &panel;
  if (first) makeControls();
  // A control that goes must not take the focus with it; what was half typed there belongs to no object now.
  for (const PanelControl& control : panel.controls()) {
    Part& each = part(control.id);
    if (each.shown && each.enabled && !(control.shown && control.enabled)) {
      each.pending = false;
      if (focusedChild() == each.window) events_.focusPage();
    }
  }
  bool moved = first;
  for (const PanelControl& control : panel.controls()) {
    moved = moved || part(control.id).shown != control.shown;
    showControl(control);
  }
  // A group of options that has none chosen is reached by its first.
  Part& left = part(PanelId::alignLeft);
  if (!left.checked && !part(PanelId::alignRight).checked && !part(PanelId::alignCenter).checked)
    ::SetWindowLongW(left.window, GWL_STYLE, ::GetWindowLongW(left.window, GWL_STYLE) | WS_TABSTOP);
  const bool placed = part(PanelId::left).enabled;
  if (placed != static_cast<bool>(::IsWindowEnabled(pad_->window()))) ::EnableWindow(pad_->window(), placed);
  if (moved) layout();
  if (!moved && icon_ != panel.icon()) ::InvalidateRect(window_, nullptr, FALSE);
  icon_ = panel.icon();
}

void PanelWindow::showPlaces(const PropertyPanel& panel) {
  if (!panel_) return show(panel);
  for (const PanelId id : {PanelId::left, PanelId::top, PanelId::width, PanelId::height})
    showControl(panel.control(id));
}

void PanelWindow::showControl(const PanelControl& control) {
  Part& each = part(control.id);
  each.shown = control.shown;
  if (each.enabled != control.enabled) {
    each.enabled = control.enabled;
    ::EnableWindow(each.window, control.enabled);
    if (each.caption) ::InvalidateRect(each.caption, nullptr, FALSE);
  }
  switch (control.input) {
    case PanelInput::button:
      each.button->setColor(control.color);
      break;
    case PanelInput::check:
    case PanelInput::option:
      if (each.checked == control.checked) break;
      each.checked = control.checked;
      ::SendMessageW(each.window, BM_SETCHECK, control.checked ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    default:
      showText(control);
      break;
  }
}

// Rewrites a line only when the panel says another text than before, so that a caret in it stays.
void PanelWindow::showText(const PanelControl& control) {
  Part& each = part(control.id);
  if (control.input == PanelInput::label && each.color != control.color) {
    each.color = control.color;
    ::InvalidateRect(each.window, nullptr, TRUE);
  }
  if (each.text == control.text) return;
  each.text = control.text;
  each.pending = false;
  filling_ = true;
  if (control.input == PanelInput::scroll) {
    ::SendMessageW(each.window, SBM_SETPOS, static_cast<WPARAM>(std::atoi(control.text.c_str())), TRUE);
    ::SetWindowTextW(borderNumber_, toWide(control.text, textPage_).c_str());
  } else {
    DWORD from = 0, to = 0;
    if (isEdit(control.input))
      ::SendMessageW(each.window, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    ::SetWindowTextW(each.window, toWide(control.text, textPage_).c_str());
    if (isEdit(control.input) && focusedChild() == each.window)
      ::SendMessageW(each.window, EM_SETSEL, to, to);
  }
  filling_ = false;
}

void PanelWindow::retext(const LabelSource& label, int labelPage, int textPage) {
  label_ = label;
  labelPage_ = labelPage;
  textPage_ = textPage > 0 ? textPage : labelPage;
  if (!panel_) return;
  setTexts();
  for (Part& each : parts_) each.text.clear();  // the same bytes may be other letters now
  filling_ = true;
  for (const PanelControl& control : panel_->controls())
    if (control.text.empty() && isEdit(control.input)) ::SetWindowTextW(part(control.id).window, L"");
  filling_ = false;
  show(*panel_);
  layout();
}

void PanelWindow::scaleChanged() {
  chrome_.scale = windowScale(window_);
  makeFonts();
  if (!panel_) return;
  setFonts();
  layout();
}

void PanelWindow::setColors(const ChromeColors& colors) {
  chrome_.colors = colors;
  ground_ = BrushHandle(::CreateSolidBrush(gdiColor(colors.ground)));
  box_ = BrushHandle(::CreateSolidBrush(gdiColor(colors.box)));
  if (panel_) dressWidgets();
  ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT PanelWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // painting covers everything
    case WM_SIZE:
      if (panel_) layout();
      return 0;
    case WM_COMMAND:
      if (lParam) command(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (lParam && LOWORD(wParam) != SB_ENDSCROLL) scrolled(reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_MOUSEWHEEL:
      wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam) * chrome_.px(3 * kWheelStep);
      scrollTo(scroll_ - wheelRest_ / WHEEL_DELTA);
      wheelRest_ %= WHEEL_DELTA;  // fine wheels send small parts
      return 0;
    case WM_LBUTTONDOWN:
      for (const Part& each : parts_)
        if (const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            each.shown && each.enabled && ::PtInRect(&each.box, at))
          ::SetFocus(each.window);
      return 0;
    case WM_SETFOCUS:
      ::SetFocus(::GetNextDlgTabItem(window_, nullptr, FALSE));
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return colorOf(message, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

void PanelWindow::layout() {
  RECT client;
  ::GetClientRect(window_, &client);
  const auto widthOf = [this](PanelId id) {
    const Part& each = part(id);
    const WindowDc dc(window_);
    const Selected selected(dc.get(), chrome_.font.get());
    wchar_t text[200] = {};
    RECT area = {};
    ::GetWindowTextW(each.caption, text, static_cast<int>(std::size(text)));
    ::DrawTextW(dc.get(), text, -1, &area, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    return static_cast<int>(std::ceil((area.right + 1) / chrome_.scale));
  };
  const auto heightOf = [this](PanelId id, int width) {
    wchar_t text[200] = {};
    ::GetWindowTextW(part(id).window, text, static_cast<int>(std::size(text)));
    const int high = FlatButton::checkHeight(window_, text, chrome_.px(width), chrome_);
    return static_cast<int>(std::ceil(high / chrome_.scale));
  };
  const int width = std::max(160, static_cast<int>(client.right / chrome_.scale));
  layout_ = layoutPanel(panel_->controls(), width, {widthOf, heightOf});
  const int most = std::max(0, chrome_.px(layout_.height) - static_cast<int>(client.bottom));
  scroll_ = std::clamp(scroll_, 0, most);
  arrange();
}

RECT PanelWindow::device(const RectPx& place) const {
  return {chrome_.px(place.left), chrome_.px(place.top) - scroll_, chrome_.px(place.right()),
          chrome_.px(place.bottom()) - scroll_};
}

void PanelWindow::arrange() {
  const auto put = [this](HWND window, const RectPx& place) {
    const RECT at = device(place);
    const bool shown = place.width > 0;
    ::SetWindowPos(
        window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
        SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  };
  for (const PanelId id : panelOrder()) {
    if (part(id).caption) put(part(id).caption, layout_.caption[static_cast<std::size_t>(id)]);
    placeControl(id);
  }
  put(pad_->window(), layout_.pad);
  put(borderNumber_, layout_.borderNumber);
  ::InvalidateRect(window_, nullptr, FALSE);
}

// Edit lines stand in the middle of their boxes, since they put their text at the top.
void PanelWindow::placeControl(PanelId id) {
  Part& each = part(id);
  const PanelInput input = panel_->control(id).input;
  RECT at = device(layout_[id]);
  const bool shown = layout_[id].width > 0;
  each.box = {};
  if (shown && (isEdit(input) || input == PanelInput::label)) {
    each.box = at;
    const WindowDc dc(window_);
    const Selected selected(dc.get(), chrome_.font.get());
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(dc.get(), &metrics);
    const int above = std::max(1, static_cast<int>(at.bottom - at.top - metrics.tmHeight) / 2);
    ::InflateRect(&at, -chrome_.px(kTextInset), -above);
  }
  ::SetWindowPos(each.window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void PanelWindow::scrollTo(int top) {
  RECT client;
  ::GetClientRect(window_, &client);
  const int most = std::max(0, chrome_.px(layout_.height) - static_cast<int>(client.bottom));
  const int to = std::clamp(top, 0, most);
  if (to == scroll_) return;
  scroll_ = to;
  arrange();
}

void PanelWindow::reveal(HWND control) {
  RECT client, at;
  ::GetClientRect(window_, &client);
  ::GetWindowRect(control, &at);
  ::MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&at), 2);
  const int margin = chrome_.px(kPanelRow + kPanelGap);  // the heading or a row around it
  if (at.top < margin) scrollTo(scroll_ + at.top - margin);
  if (at.bottom > client.bottom - margin) scrollTo(scroll_ + at.bottom - client.bottom + margin);
}

void PanelWindow::paint() {
  BufferedPaint paint(window_);
  const HDC dc = paint.dc();
  if (!dc) return;
  const ChromeColors& colors = chrome_.colors;
  RECT client;
  ::GetClientRect(window_, &client);
  ::FillRect(dc, &client, ground_.get());
  if (!panel_) return;
  for (const PanelHeading& heading : layout_.headings) paintHeading(dc, heading);
  paintIcon(dc);
  for (const PanelControl& control : panel_->controls()) {
    const Part& each = parts_[static_cast<std::size_t>(control.id)];
    if (each.box.right <= each.box.left) continue;
    if (control.input == PanelInput::label) {
      if (each.text.empty()) continue;
      const std::int32_t plate = groundFor(itemInk(each.color, colors), colors);
      paintBox(dc, each.box, plate, plate, 1, chrome_.px(kRadius));
      continue;
    }
    const bool focused = ::GetFocus() == each.window;
    paintBox(dc, each.box, each.enabled ? colors.box : colors.ground, focused ? colors.accent : colors.edge,
             chrome_.px(focused ? 2 : 1), chrome_.px(kRadius));
  }
  // How much of the panel is on view.
  const int all = chrome_.px(layout_.height), wide = chrome_.px(3), gap = chrome_.px(2);
  if (all <= client.bottom) return;
  const int from = ::MulDiv(scroll_, client.bottom, all), high = ::MulDiv(client.bottom, client.bottom, all);
  paintBox(dc, {client.right - gap - wide, from + gap, client.right - gap, from + high - gap}, colors.edge,
           colors.edge, 1, 1);
}

void PanelWindow::paintHeading(HDC dc, const PanelHeading& heading) const {
  const std::wstring text = labelText(panelHeading(heading.group));
  RECT at = device(heading.place);
  paintText(dc, at, text.c_str(), chrome_.heading.get(), chrome_.colors.quiet,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  RECT area = at;
  const Selected selected(dc, chrome_.heading.get());
  ::DrawTextW(dc, text.c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
  const int middle = static_cast<int>(at.top + at.bottom) / 2;
  const int from = static_cast<int>(area.right) + chrome_.px(kPanelGap);
  if (from < at.right)
    GdiCanvas(dc).box({from, middle, static_cast<int>(at.right) - from, chrome_.px(1)},
                      {LineStyle::none, 1, 0}, {FillStyle::solid, chrome_.colors.edge, false, 0});
}

void PanelWindow::paintIcon(HDC dc) const {
  const RectPx& place = layout_.icon;
  constexpr int kInset = 2;
  const bool any = std::any_of(parts_.begin(), parts_.end(), [](const Part& each) { return each.enabled; });
  GdiCanvas canvas(dc, chrome_.scale, {0, -scroll_});
  const RectPx square{place.left + kInset, place.top + kInset, place.width - 2 * kInset,
                      place.height - 2 * kInset};
  if (icon_) return paintToolIcon(canvas, square, *icon_, chrome_.colors.ink);
  paintToolIcon(canvas, square, ActionIcon::selectArea, chrome_.colors.ink, any);
  RECT beside = device(place);
  beside.left = beside.right + chrome_.px(kPanelGap + kTextInset);
  beside.right = chrome_.px(kWidth - kPanelMargin);
  paintText(dc, beside, labelText({0, any ? "Several objects" : "Nothing is selected"}).c_str(),
            chrome_.font.get(), chrome_.colors.quiet, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

LRESULT PanelWindow::colorOf(UINT message, HDC dc, HWND control) {
  const ChromeColors& colors = chrome_.colors;
  ::SetBkMode(dc, OPAQUE);
  if (message == WM_CTLCOLORSTATIC) {
    const auto found = std::find_if(parts_.begin(), parts_.end(), [control](const Part& each) {
      return each.window == control || each.caption == control;
    });
    const bool enabled = found == parts_.end() || found->enabled;
    ::SetTextColor(dc, gdiColor(enabled ? colors.quiet : colors.disabled));
    ::SetBkColor(dc, gdiColor(colors.ground));
    if (control != part(PanelId::selItem).window) return reinterpret_cast<LRESULT>(ground_.get());
    const std::int32_t ink = itemInk(found->color, colors), ground = groundFor(ink, colors);
    ::SetTextColor(dc, gdiColor(ink));
    ::SetBkColor(dc, gdiColor(found->text.empty() ? colors.ground : ground));
    ::SetDCBrushColor(dc, gdiColor(found->text.empty() ? colors.ground : ground));
    return reinterpret_cast<LRESULT>(::GetStockObject(DC_BRUSH));
  }
  ::SetTextColor(dc, gdiColor(colors.boxInk));
  ::SetBkColor(dc, gdiColor(colors.box));
  return reinterpret_cast<LRESULT>(box_.get());
}

}  // namespace plinth
