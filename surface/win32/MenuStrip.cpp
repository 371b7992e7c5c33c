// Titles are buttons, so that Tab and Space reach them; their menus are the system's popup menus.
#include "surface/win32/MenuStrip.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthMenuStrip";
constexpr int kMargin = 6, kPadding = 10, kBox = 24, kBoxWidth = 190, kDoneWidth = 54, kBoxPadding = 6;
// Ids of the popup's entries; 0 is what the system returns for none.
constexpr int kFirstEntry = 1;

bool sameWords(const MenuWord& a, const MenuWord& b) { return a.id == b.id && a.caption == b.caption; }

bool sameTitles(const std::vector<MirroredMenu>& a, const std::vector<MirroredMenu>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const MirroredMenu& x, const MirroredMenu& y) { return sameWords(x.title, y.title); });
}

// A title may be empty, which takes its menu from the finished application; here it must stay in reach.
std::wstring titleText(const MenuWord& title, int codePage) {
  return title.caption.empty() ? L"(none)" : toWide(title.caption, codePage);
}

}  // namespace

MenuStrip::MenuStrip(HWND parent, int id, MenuStripEvents events) : events_(std::move(events)) {
  registerWindowClass(kClass, windowProcedure<MenuStrip>);
  style_.scale = windowScale(parent);
  style_.colors = systemChrome();
  style_.font = messageFont(style_.scale);
  window_ = ::CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"Menus of the application",
                              WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 10, 10, parent,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, this);
  text1_ =
      ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, 0, 0, 10, 10,
                        window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kText1)), nullptr, nullptr);
  ::SendMessageW(text1_, WM_SETFONT, reinterpret_cast<WPARAM>(style_.font.get()), FALSE);
  ::SetWindowSubclass(text1_, text1Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
  done_ = std::make_unique<FlatButton>(window_, kDone, FlatLook::push, L"OK", WS_TABSTOP, style_);
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                            window_, nullptr, nullptr, nullptr);
}

MenuStrip::~MenuStrip() {
  titles_.clear();
  done_.reset();
  if (!window_) return;
  ::RemoveWindowSubclass(text1_, text1Procedure, 1);
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

SIZE MenuStrip::extentOf(const std::wstring& text) const {
  const HDC dc = ::GetDC(window_);
  const HGDIOBJ before = ::SelectObject(dc, style_.font.get());
  RECT area{};
  ::DrawTextW(dc, text.c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
  ::SelectObject(dc, before);
  ::ReleaseDC(window_, dc);
  return {area.right, area.bottom};
}

void MenuStrip::show(const std::vector<MirroredMenu>& menus, int edited, const std::string& words,
                     int codePage) {
  const bool same = sameTitles(menus_, menus) && titles_.size() == menus.size() && codePage == codePage_;
  menus_ = menus;
  codePage_ = codePage;
  if (!same) makeTitles();
  const bool begins = edited >= 0 && edited != edited_;
  const bool ends = edited < 0 && edited_ >= 0;
  edited_ = edited;
  const std::wstring shown = toWide(words, codePage_);
  if (edited_ >= 0 && toWide(windowText(text1_, codePage_), codePage_) != shown) {
    filling_ = true;
    ::SetWindowTextW(text1_, shown.c_str());
    filling_ = false;
  }
  if (same && !begins && !ends) return;  // most steps change none of it
  layout();
  if (begins) {
    ::SetFocus(text1_);
    ::SendMessageW(text1_, EM_SETSEL, 0, -1);
  }
  if (ends) ::SetFocus(::GetParent(window_));
  ::InvalidateRect(window_, nullptr, FALSE);
}

// The menus are always the same; only their words change.
void MenuStrip::makeTitles() {
  for (std::size_t i = 0; i < menus_.size(); ++i) {
    const std::wstring text = titleText(menus_[i].title, codePage_);
    if (i < titles_.size())
      ::SetWindowTextW(titles_[i]->window(), text.c_str());
    else
      titles_.push_back(std::make_unique<FlatButton>(window_, kFirstTitle + static_cast<int>(i),
                                                     FlatLook::push, text.c_str(), WS_VISIBLE | WS_TABSTOP,
                                                     style_));
  }
}

void MenuStrip::layout() {
  RECT client;
  ::GetClientRect(window_, &client);
  const int top = style_.px((kHeight - kBox) / 2), high = style_.px(kBox);
  int x = style_.px(kMargin);
  for (std::size_t i = 0; i < titles_.size(); ++i) {
    const int wide = extentOf(titleText(menus_[i].title, codePage_)).cx + style_.px(2 * kPadding);
    ::MoveWindow(titles_[i]->window(), x, top, wide, high, TRUE);
    x += wide + style_.px(2);
  }
  const bool editing = edited_ >= 0;
  const int doneLeft = client.right - style_.px(kMargin + kDoneWidth);
  ::MoveWindow(done_->window(), doneLeft, top, style_.px(kDoneWidth), high, TRUE);
  // A box of one line keeps its text at the top: it is as high as that, in the middle beside the button.
  const int line = static_cast<int>(extentOf(L"Xg").cy) + style_.px(kBoxPadding);
  ::MoveWindow(text1_, doneLeft - style_.px(kBoxWidth + kMargin), top + (high - line) / 2,
               style_.px(kBoxWidth), line, TRUE);
  ::ShowWindow(done_->window(), editing ? SW_SHOWNA : SW_HIDE);
  ::ShowWindow(text1_, editing ? SW_SHOWNA : SW_HIDE);
}

// The title is the first entry, so that its words can be changed too.
void MenuStrip::popup(std::size_t index) {
  const MirroredMenu menu = menus_[index];
  const HMENU popup = ::CreatePopupMenu();
  ::AppendMenuW(popup, MF_STRING, kFirstEntry, titleText(menu.title, codePage_).c_str());
  ::SetMenuDefaultItem(popup, kFirstEntry, FALSE);
  ::AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
  for (std::size_t i = 0; i < menu.entries.size(); ++i) {
    if (menu.entries[i].separatorBefore) ::AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(popup, MF_STRING, kFirstEntry + 1 + i, titleText(menu.entries[i], codePage_).c_str());
  }
  RECT button;
  ::GetWindowRect(titles_[index]->window(), &button);
  const int chosen =
      ::TrackPopupMenu(popup, TPM_RETURNCMD | TPM_LEFTALIGN, button.left, button.bottom, 0, window_, nullptr);
  ::DestroyMenu(popup);
  if (chosen == kFirstEntry) events_.begin(menu.title.id);
  if (chosen > kFirstEntry)
    events_.begin(menu.entries[static_cast<std::size_t>(chosen - kFirstEntry - 1)].id);
}

void MenuStrip::retext(const std::wstring& frame, const std::wstring& text1) {
  frame_ = frame;
  setToolTip(tips_, text1_, text1);
  ::InvalidateRect(window_, nullptr, FALSE);
}

void MenuStrip::scaleChanged() {
  style_.scale = windowScale(window_);
  style_.font = messageFont(style_.scale);
  ::SendMessageW(text1_, WM_SETFONT, reinterpret_cast<WPARAM>(style_.font.get()), TRUE);
  layout();
}

void MenuStrip::setColors(const ChromeColors& colors) {
  style_.colors = colors;
  ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void MenuStrip::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  RECT client;
  ::GetClientRect(window_, &client);
  fillRect(paint.dc(), client, style_.colors.ground);
  fillRect(paint.dc(), {0, client.bottom - 1, client.right, client.bottom}, style_.colors.edge);
  if (edited_ < 0) return;
  const int right = client.right - style_.px(kDoneWidth + kBoxWidth + 3 * kMargin);
  paintText(paint.dc(), {0, 0, right, client.bottom}, (frame_ + L" :").c_str(), style_.font.get(),
            style_.colors.quiet, DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

LRESULT MenuStrip::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      layout();
      return 0;
    case WM_CTLCOLOREDIT: {
      const auto dc = reinterpret_cast<HDC>(wParam);
      ::SetTextColor(dc, static_cast<COLORREF>(style_.colors.boxInk));
      ::SetBkColor(dc, static_cast<COLORREF>(style_.colors.box));
      ::SetDCBrushColor(dc, static_cast<COLORREF>(style_.colors.box));
      return reinterpret_cast<LRESULT>(::GetStockObject(DC_BRUSH));
    }
    case WM_COMMAND: {
      const int id = LOWORD(wParam), notice = HIWORD(wParam);
      if (id == kText1 && notice == EN_CHANGE && !filling_) events_.change(windowText(text1_, codePage_));
      if (id == kDone && notice == BN_CLICKED) events_.end();
      const int title = id - kFirstTitle;
      if (title >= 0 && title < static_cast<int>(titles_.size()) && notice == BN_CLICKED)
        popup(static_cast<std::size_t>(title));
      return 0;
    }
    default:
      return ::DefWindowProcW(window_, message, wParam, lParam);
  }
}

LRESULT CALLBACK MenuStrip::text1Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                           DWORD_PTR self) {
  const auto& strip = *reinterpret_cast<MenuStrip*>(self);
  const bool leaves = wParam == VK_RETURN || wParam == VK_ESCAPE;
  if (message == WM_KEYDOWN && leaves) {
    strip.events_.end();
    return 0;
  }
  if (message == WM_CHAR && leaves) return 0;  // no beep
  return ::DefSubclassProc(box, message, wParam, lParam);
}

}  // namespace plinth
