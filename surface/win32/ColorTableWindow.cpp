// The swatches are one window that paints all of them; keys move the chosen one.
#include "surface/win32/ColorTableWindow.h"

#include <commdlg.h>
#include <windowsx.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthColorTable";
constexpr const wchar_t* kSwatchesClass = L"PlinthSwatches";
constexpr int kColumns = 16, kRows = 6, kSwatches = kColumns * kRows;
constexpr int kCell = 24, kMargin = 12, kGap = 8, kRow = 26, kSample = 64, kDigits = 76, kUse = 84,
              kMore = 84;
constexpr int kTextInset = 6;
constexpr std::int32_t kFree = 0xFFFFFF;  // what free swatches hold until a person puts a colour there

void registerClass(const wchar_t* name, WNDPROC procedure, UINT style) {
  WNDCLASSW type = {};
  type.style = style;
  type.lpfnWndProc = procedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
  type.lpszClassName = name;
  ::RegisterClassW(&type);  // fails when it is registered already
}

}  // namespace

class ColorTableWindow::Swatches {
 public:
  Swatches(HWND parent, ColorTable& table, const ChromeStyle& chrome, std::function<void()> chosen,
           std::function<void()> use)
      : table_(table), chrome_(chrome), chosen_(std::move(chosen)), use_(std::move(use)) {
    registerClass(kSwatchesClass, windowProcedure<Swatches>, CS_DBLCLKS);
    window_ = ::CreateWindowExW(0, kSwatchesClass, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                                parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSwatchesId)),
                                ::GetModuleHandleW(nullptr), this);
  }
  HWND window() const { return window_; }

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
      case WM_PAINT:
        paint();
        return 0;
      case WM_ERASEBKGND:
        return 1;
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        ::SetFocus(window_);
        choose(swatchAt(lParam));
        if (message == WM_LBUTTONDBLCLK) use_();
        return 0;
      case WM_KEYDOWN:
        if (key(wParam)) return 0;
        break;
      case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
      case WM_SETFOCUS:
      case WM_KILLFOCUS:
        ::InvalidateRect(window_, nullptr, FALSE);
        return 0;
      default:
        break;
    }
    return ::DefWindowProcW(window_, message, wParam, lParam);
  }

  int swatchAt(LPARAM lParam) const {
    const int cell = chrome_.px(kCell);
    return std::clamp(GET_Y_LPARAM(lParam) / cell, 0, kRows - 1) * kColumns +
           std::clamp(GET_X_LPARAM(lParam) / cell, 0, kColumns - 1);
  }

  void choose(int swatch) {
    table_.choose(swatch);
    chosen_();
  }

  // Left and right run on through the rows, up and down stop at the edge.
  bool key(WPARAM key) {
    const int now = std::max(0, table_.chosenSwatch()), column = now % kColumns;
    int to = now;
    switch (key) {
      case VK_LEFT:
        to = now - 1;
        break;
      case VK_RIGHT:
        to = now + 1;
        break;
      case VK_UP:
        to = now - kColumns;
        break;
      case VK_DOWN:
        to = now + kColumns;
        break;
      case VK_HOME:
        to = now - column;
        break;
      case VK_END:
        to = now - column + kColumns - 1;
        break;
      default:
        return false;
    }
    if (to >= 0 && to < kSwatches) choose(to);
    return true;
  }

  void paint() {
    BufferedPaint paint(window_);
    if (!paint.dc()) return;
    const ChromeColors& colors = chrome_.colors;
    RECT client;
    ::GetClientRect(window_, &client);
    const BrushHandle ground(::CreateSolidBrush(gdiColor(colors.ground)));
    ::FillRect(paint.dc(), &client, ground.get());
    const int cell = chrome_.px(kCell), thick = chrome_.px(1), chosen = table_.chosenSwatch();
    for (int swatch = 0; swatch < kSwatches; ++swatch) {
      const int left = swatch % kColumns * cell, top = swatch / kColumns * cell;
      const bool now = swatch == chosen;
      RECT at{left, top, left + cell, top + cell};
      if (now) {  // a ring around the swatch, with the ground between, shows on any colour
        paintBox(paint.dc(), at, colors.ground, ::GetFocus() == window_ ? colors.accent : colors.quiet,
                 2 * thick, chrome_.px(4));
      }
      ::InflateRect(&at, now ? -3 * thick - 1 : -2 * thick, now ? -3 * thick - 1 : -2 * thick);
      paintBox(paint.dc(), at, table_.color(swatch), colors.edge, thick, chrome_.px(2));
    }
  }

  HWND window_ = nullptr;
  ColorTable& table_;
  const ChromeStyle& chrome_;
  std::function<void()> chosen_, use_;
};

ColorTableWindow::ColorTableWindow(HWND owner, ColorTable& table, ColorTableEvents events)
    : table_(table), events_(std::move(events)) {
  registerClass(kClass, windowProcedure<ColorTableWindow>, 0);
  chrome_.scale = windowScale(owner);
  makeFonts();
  window_ = ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_CONTROLPARENT, kClass, L"",
                              WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, 0, 0, 10, 10, owner,
                              nullptr, ::GetModuleHandleW(nullptr), this);
  swatches_ = std::make_unique<Swatches>(
      window_, table_, chrome_, [this] { chosen(true); }, [this] { use(); });
  const auto child = [this](const wchar_t* type, DWORD style, int id) {
    return ::CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr),
                             nullptr);
  };
  caption_ = child(L"STATIC", SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE, -1);
  ::SetWindowTextW(caption_, L"#");
  digits_ = child(L"EDIT", ES_AUTOHSCROLL | ES_UPPERCASE | WS_TABSTOP, kDigitsId);
  ::SendMessageW(digits_, EM_SETLIMITTEXT, 6, 0);
  use_ = std::make_unique<FlatButton>(window_, kUseId, FlatLook::push, L"Use",
                                      WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, chrome_);
  more_ = std::make_unique<FlatButton>(window_, kMoreId, FlatLook::push, L"More...",
                                       WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, chrome_);
  setColors(systemChrome());
  retext({}, 1252);
  layout();
  chosen(true);
}

ColorTableWindow::~ColorTableWindow() {
  if (!window_) return;
  const HWND window = window_;
  ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  ::DestroyWindow(window);  // its controls lean on this
}

void ColorTableWindow::makeFonts() {
  chrome_.font = messageFont(chrome_.scale);
  chrome_.heading = messageFont(chrome_.scale, true);
}

void ColorTableWindow::retext(const LabelSource& label, int labelPage) {
  const auto text = [&](int number, const char* english) {
    std::string found = label ? label(number, english) : english;
    found.erase(std::remove(found.begin(), found.end(), '&'), found.end());  // a menu's access key
    return toWide(found, labelPage);
  };
  const std::wstring title = text(105, "&Color Table");
  ::SetWindowTextW(window_, title.c_str());
  ::SetWindowTextW(swatches_->window(), title.c_str());
  ::SetWindowTextW(use_->window(), text(0, "Use").c_str());
  ::SetWindowTextW(more_->window(), text(0, "More...").c_str());
}

void ColorTableWindow::setColors(const ChromeColors& colors) {
  chrome_.colors = colors;
  ground_ = BrushHandle(::CreateSolidBrush(gdiColor(colors.ground)));
  box_ = BrushHandle(::CreateSolidBrush(gdiColor(colors.box)));
  setTitleDark(window_, colors.dark);
  refresh();
}

void ColorTableWindow::refresh() {
  ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void ColorTableWindow::scaleChanged() {
  chrome_.scale = windowScale(window_);
  makeFonts();
  layout();
}

// Swatches above; below them sample, digits and buttons in one row.
void ColorTableWindow::layout() {
  const auto px = [this](int pixels) { return chrome_.px(pixels); };
  for (const HWND window : {caption_, digits_, use_->window(), more_->window()})
    ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(chrome_.font.get()), TRUE);
  // The box around the line has the margin.
  ::SendMessageW(digits_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  const int cells = px(kCell) * kColumns, left = px(kMargin), right = left + cells;
  const int top = px(kMargin) + px(kCell) * kRows + px(kGap), bottom = top + px(kRow);
  ::MoveWindow(swatches_->window(), left, px(kMargin), cells, px(kCell) * kRows, TRUE);
  sample_ = {left, top, left + px(kSample), bottom};
  const int sharp = static_cast<int>(sample_.right) + px(kGap), box = sharp + px(14);
  ::MoveWindow(caption_, sharp, top, px(12), bottom - top, TRUE);
  digitsBox_ = {box, top, box + px(kDigits), bottom};
  const WindowDc dc(window_);
  const Selected selected(dc.get(), chrome_.font.get());
  TEXTMETRICW metrics = {};
  ::GetTextMetricsW(dc.get(), &metrics);
  const int above = std::max(1, (bottom - top - static_cast<int>(metrics.tmHeight)) / 2);
  ::MoveWindow(digits_, box + px(kTextInset), top + above, px(kDigits - 2 * kTextInset), metrics.tmHeight,
               TRUE);
  ::MoveWindow(use_->window(), right - px(kUse), top, px(kUse), bottom - top, TRUE);
  ::MoveWindow(more_->window(), right - px(kUse + kGap + kMore), top, px(kMore), bottom - top, TRUE);
  RECT frame{0, 0, right + px(kMargin), bottom + px(kMargin)};
  ::AdjustWindowRectEx(&frame, static_cast<DWORD>(::GetWindowLongW(window_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(::GetWindowLongW(window_, GWL_EXSTYLE)));
  ::SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  refresh();
}

// Where it stood before, at first in the middle of its owner; always on a screen.
void ColorTableWindow::place() {
  RECT now, around;
  ::GetWindowRect(window_, &now);
  const LONG wide = now.right - now.left, high = now.bottom - now.top;
  ::GetWindowRect(::GetWindow(window_, GW_OWNER), &around);
  POINT corner{(around.left + around.right - wide) / 2, (around.top + around.bottom - high) / 2};
  if (const auto kept = events_.position ? events_.position() : std::nullopt) corner = *kept;
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromPoint(corner, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  corner.x = std::clamp(corner.x, work.left, std::max(work.left, work.right - wide));
  corner.y = std::clamp(corner.y, work.top, std::max(work.top, work.bottom - high));
  ::SetWindowPos(window_, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ColorTableWindow::open(std::int32_t color) {
  if (!std::exchange(placed_, true)) place();
  table_.chooseColor(color);
  for (int swatch = 0; swatch < kSwatches; ++swatch)
    if (table_.color(swatch) == table_.chosen()) {
      table_.choose(swatch);
      break;
    }
  chosen(true);
  ::ShowWindow(window_, SW_SHOW);
  ::SetFocus(swatches_->window());
}

void ColorTableWindow::hide() {
  if (!visible()) return;
  RECT now;
  ::GetWindowRect(window_, &now);
  if (events_.keepPosition) events_.keepPosition({now.left, now.top});
  const HWND owner = ::GetWindow(window_, GW_OWNER);
  ::ShowWindow(window_, SW_HIDE);
  ::SetActiveWindow(owner);
}

LRESULT ColorTableWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_COMMAND:
      command(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_CLOSE:
      hide();
      return 0;
    case WM_SHOWWINDOW:
      // Once the main window was minimised the table stays away until it is asked for.
      if (lParam == SW_PARENTOPENING) return 0;
      break;
    case 0x02E0: {  // WM_DPICHANGED
      const RECT& suggested = *reinterpret_cast<const RECT*>(lParam);
      ::SetWindowPos(window_, nullptr, suggested.left, suggested.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      scaleChanged();
      return 0;
    }
    case WM_SETFOCUS:
      ::SetFocus(swatches_->window());
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      return colorOf(message, reinterpret_cast<HDC>(wParam));
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT ColorTableWindow::colorOf(UINT message, HDC dc) const {
  const ChromeColors& colors = chrome_.colors;
  const bool edit = message == WM_CTLCOLOREDIT;
  ::SetTextColor(dc, gdiColor(edit ? colors.boxInk : colors.quiet));
  ::SetBkColor(dc, gdiColor(edit ? colors.box : colors.ground));
  return reinterpret_cast<LRESULT>((edit ? box_ : ground_).get());
}

void ColorTableWindow::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  const ChromeColors& colors = chrome_.colors;
  RECT client;
  ::GetClientRect(window_, &client);
  ::FillRect(paint.dc(), &client, ground_.get());
  const int thick = chrome_.px(1), radius = chrome_.px(4);
  const bool focused = ::GetFocus() == digits_;
  paintBox(paint.dc(), sample_, table_.chosen(), colors.edge, thick, radius);
  paintBox(paint.dc(), digitsBox_, colors.box, focused ? colors.accent : colors.edge,
           focused ? 2 * thick : thick, radius);
}

void ColorTableWindow::command(int id, int notice) {
  if (id == kDigitsId) {
    if (notice == EN_SETFOCUS || notice == EN_KILLFOCUS) ::InvalidateRect(window_, &digitsBox_, FALSE);
    if (notice == EN_CHANGE && !filling_ && table_.typeDigits(windowText(digits_, systemCodePage())))
      chosen(false);
    // Half a number must not stay as if it were the colour.
    if (notice == EN_KILLFOCUS) chosen(true);
  } else if (notice == BN_CLICKED && id == kUseId) {
    use();
  } else if (notice == BN_CLICKED && id == kMoreId) {
    more();
  }
}

// Another colour is chosen; the digits follow unless they are what is being typed.
void ColorTableWindow::chosen(bool writeDigits) {
  ::InvalidateRect(swatches_->window(), nullptr, FALSE);
  ::InvalidateRect(window_, &sample_, FALSE);
  if (!writeDigits) return;
  const std::string digits = table_.digits();
  if (windowText(digits_, systemCodePage()) == digits) return;
  filling_ = true;
  ::SetWindowTextA(digits_, digits.c_str());
  filling_ = false;
}

void ColorTableWindow::use() {
  if (events_.use) events_.use(table_.chosen());
}

// The system's own dialog; its colour goes into the chosen swatch if that is free, else into the next free
// one.
void ColorTableWindow::more() {
  std::array<COLORREF, 16> custom;
  custom.fill(kFree);
  for (std::size_t i = 0; i < custom.size() && ColorTable::kFirstFree + i < kSwatches; ++i)
    custom[i] = gdiColor(table_.color(ColorTable::kFirstFree + static_cast<int>(i)));
  CHOOSECOLORW choice = {};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = window_;
  choice.rgbResult = gdiColor(table_.chosen());
  choice.lpCustColors = custom.data();
  choice.Flags = CC_FULLOPEN | CC_RGBINIT;
  int swatch = table_.chosenSwatch();
  if (!::ChooseColorW(&choice)) return;
  for (int free = ColorTable::kFirstFree; swatch < ColorTable::kFirstFree && free < kSwatches; ++free)
    if (table_.color(free) == kFree) swatch = free;
  table_.chooseColor(static_cast<std::int32_t>(choice.rgbResult));
  if (table_.keep(swatch < ColorTable::kFirstFree ? ColorTable::kFirstFree : swatch) &&
      events_.paletteChanged)
    events_.paletteChanged();
  chosen(true);
}

bool ColorTableWindow::translate(const MSG& message) {
  if (message.message != WM_KEYDOWN || !visible() ||
      (message.hwnd != window_ && !::IsChild(window_, message.hwnd)))
    return false;
  const HWND focus = ::GetFocus();
  switch (message.wParam) {
    case VK_ESCAPE:
      hide();
      return true;
    case VK_RETURN:
      if (focus == more_->window())
        more();
      else
        use();
      return true;
    case VK_TAB:
      if (const HWND to = ::GetNextDlgTabItem(window_, focus, ::GetKeyState(VK_SHIFT) < 0)) ::SetFocus(to);
      if (::GetFocus() == digits_) ::SendMessageW(digits_, EM_SETSEL, 0, -1);
      return true;
    default:
      return false;
  }
}

}  // namespace plinth
