// Making, placing and filling the boxes.
#include "engine/win32/BoxWindows.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "basic/Text.h"
#include "engine/RecordText.h"
#include "engine/win32/AccessibleNames.h"
#include "engine/win32/ControlIds.h"
#include "platform/win32/Win32Text.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

template <class T>
T& at(std::vector<T>& items, int n) {
  return items[static_cast<std::size_t>(n)];
}
template <class T>
const T& at(const std::vector<T>& items, int n) {
  return items[static_cast<std::size_t>(n)];
}

// Edit windows know only CR LF as a line end.
std::string withLineEnds(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) out += '\r';
    out += text[i];
    if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) out += '\n';
  }
  return out;
}

DWORD editAlignment(int alignment) {
  return alignment == 1 ? ES_RIGHT : alignment == 2 ? ES_CENTER : ES_LEFT;
}

HWND editOf(HWND combo) { return reinterpret_cast<HWND>(::SendMessageW(combo, kComboGetEdit, 0, 0)); }

}  // namespace

BoxId boxOfId(int id) {
  struct Base {
    int id;
    BoxType type;
  };
  static constexpr Base kBases[] = {{kDateButtonId, BoxType::dateButton}, {kButtonId, BoxType::button},
                                    {kCheckId, BoxType::check},           {kMemoId, BoxType::memo},
                                    {kComboId, BoxType::combo},           {kFieldId, BoxType::field}};
  if (id >= kMenuId) return {};
  for (const Base& base : kBases)
    if (id >= base.id) return {base.type, id - base.id};
  return {};
}

std::wstring BoxWindows::wide(std::string_view text) const { return toWide(text, app().codePage); }

std::wstring BoxWindows::wideText(HWND window) const {
  std::wstring buffer(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  buffer.resize(
      static_cast<std::size_t>(::GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()))));
  return buffer;
}

HWND BoxWindows::make(const wchar_t* kind, DWORD style, int id, const std::string& caption) {
  return ::CreateWindowExW(0, kind, wide(caption).c_str(), WS_CHILD | style, 0, 0, 10, 10, page_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

// Keys of a window come to boxMessage first.
HWND BoxWindows::listen(HWND window, int id) {
  if (window)
    ::SetWindowSubclass(window, subclass, static_cast<UINT_PTR>(id), reinterpret_cast<DWORD_PTR>(this));
  return window;
}

void BoxWindows::createFields() {
  fields_.resize(static_cast<std::size_t>(app().fieldCount()) + 1);
  dateButtons_.resize(fields_.size());
  for (int n = 1; n <= app().fieldCount(); ++n) {
    const PayloadField& row = app().field(n);
    if (!Application::live(row.page)) continue;
    const HWND edit = at(fields_, n) =
        listen(make(L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL | editAlignment(row.alignment), kFieldId + n),
               kFieldId + n);
    ::SendMessageW(edit, EM_LIMITTEXT, static_cast<WPARAM>(row.fieldLength), 0);
    if (!app().helpInStatusLine) host_.setToolTip(edit, row.helpText);
    if (app().calendarButton[static_cast<std::size_t>(n)])
      at(dateButtons_, n) = make(L"BUTTON", BS_OWNERDRAW, kDateButtonId + n, runCaption(app(), 73));
  }
}

void BoxWindows::createCombos() {
  combos_.resize(static_cast<std::size_t>(app().comboCount()) + 1);
  for (int n = 1; n <= app().comboCount(); ++n) {
    const PayloadCombo& row = app().combo(n);
    if (!Application::live(row.page)) continue;
    const HWND combo = at(combos_, n) =
        make(kComboBorderClass, WS_TABSTOP | CBS_DROPDOWN | CBS_AUTOHSCROLL, kComboId + n);
    ::SendMessageW(combo, kWidgetSetBackColor, 0, plainColor(row.backColor));
    ::SendMessageW(combo, kWidgetSetForeColor, 0, plainColor(row.foreColor));
    for (const std::string& item : row.items)
      ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(item).c_str()));
    ::SendMessageW(combo, CB_LIMITTEXT, static_cast<WPARAM>(row.fieldLength), 0);
    listen(editOf(combo), kComboId + n);
    if (!app().helpInStatusLine) host_.setToolTip(editOf(combo), row.helpText);
  }
}

void BoxWindows::createMemos() {
  memos_.resize(static_cast<std::size_t>(app().memoCount()) + 1);
  for (int n = 1; n <= app().memoCount(); ++n) {
    const PayloadMemo& row = app().memo(n);
    if (!Application::live(row.page)) continue;
    const DWORD style = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
    const HWND memo = at(memos_, n) = listen(make(L"EDIT", style, kMemoId + n), kMemoId + n);
    ::SendMessageW(memo, EM_LIMITTEXT, static_cast<WPARAM>(row.fieldLength), 0);
    if (!app().helpInStatusLine) host_.setToolTip(memo, row.helpText);
  }
}

void BoxWindows::createChecks() {
  checks_.resize(static_cast<std::size_t>(app().checkCount() + 1));
  for (int n = 0; n <= app().checkCount(); ++n) {
    const PayloadCheck& row = app().check(n);
    if (!Application::live(row.page)) continue;
    at(checks_, n) = make(kOptionBoxClass, WS_TABSTOP | BS_CHECKBOX, kCheckId + n, row.tag);
    ::SendMessageW(at(checks_, n), kOptionSetAppearance, row.appearance, 0);
    if (!app().helpInStatusLine) host_.setToolTip(at(checks_, n), row.caption);
  }
}

void BoxWindows::createButtons() {
  buttons_.resize(static_cast<std::size_t>(app().buttonCount() + 1));
  for (int n = 0; n <= app().buttonCount(); ++n) {
    const PayloadButton& row = app().button(n);
    if (!Application::live(row.page)) continue;
    at(buttons_, n) = make(L"BUTTON", WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY, kButtonId + n, row.caption);
    if (!app().helpInStatusLine) host_.setToolTip(at(buttons_, n), row.helpText);
  }
}

void BoxWindows::create(HWND page) {
  page_ = page;
  createFields();
  createCombos();
  createMemos();
  createChecks();
  createButtons();
  nameBoxes();
  place();
}

// By the labels that searches and exports know them by.
void BoxWindows::nameBoxes() const {
  AccessibleNames names;
  const auto name = [&](HWND window, const std::string& tag) {
    names.set(window, wide(replaceAll(tag, "_", " ")));
  };
  for (int n = 1; n <= app().fieldCount(); ++n) name(at(fields_, n), app().field(n).tag);
  for (int n = 1; n <= app().comboCount(); ++n)
    if (const HWND combo = at(combos_, n)) {
      const LRESULT inner = ::SendMessageW(combo, kComboGetInner, 0, 0);
      for (const HWND window : {combo, reinterpret_cast<HWND>(inner), editOf(combo)})
        name(window, app().combo(n).tag);
    }
  for (int n = 1; n <= app().memoCount(); ++n) name(at(memos_, n), app().memo(n).tag);
}

RECT BoxWindows::device(const RectPx& rect) const {
  const auto scaled = [&](int units) { return static_cast<LONG>(std::lround(units * host_.scale())); };
  return {scaled(rect.left), scaled(rect.top), scaled(rect.right()), scaled(rect.bottom())};
}

void BoxWindows::moveTo(HWND window, const RectPx& place) const {
  const RECT r = device(place);
  ::SetWindowPos(window, nullptr, r.left, r.top, r.right - r.left, r.bottom - r.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void BoxWindows::setFont(HWND window, const PayloadFont& font) {
  const int height = std::max(1, static_cast<int>(std::lround(font.size * 96 / 72 * host_.scale())));
  ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.get(layout_.font(font), height)), TRUE);
}

// The line of letters stands in the middle of the box, as the designer shows it; an edit window would put it
// on top.
void BoxWindows::placeField(int n) {
  const PayloadField& row = app().field(n);
  RectPx text = layout_.field(n).text;
  if (const HWND button = at(dateButtons_, n)) {
    const RectPx place = layout_.dateButton(n);
    moveTo(button, place);
    text.width -= place.width;
  }
  const int line = layout_.lineHeight(row.font);
  if (line < text.height) {
    text.top += (text.height - line) / 2;
    text.height = line;
  }
  moveTo(at(fields_, n), text);
  setFont(at(fields_, n), row.font);
  ::SendMessageW(at(fields_, n), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(1, 1));
}

void BoxWindows::place() {
  fonts_.clear();
  for (int n = 1; n <= app().fieldCount(); ++n)
    if (at(fields_, n)) placeField(n);
  for (int n = 1; n <= app().comboCount(); ++n)
    if (at(combos_, n)) {
      moveTo(at(combos_, n), layout_.combo(n).text);
      setFont(at(combos_, n), app().combo(n).font);
    }
  for (int n = 1; n <= app().memoCount(); ++n)
    if (at(memos_, n)) {
      moveTo(at(memos_, n), layout_.memo(n).text);
      setFont(at(memos_, n), app().memo(n).font);
    }
  for (int n = 0; n <= app().checkCount(); ++n)
    if (at(checks_, n)) moveTo(at(checks_, n), layout_.check(n));
  for (int n = 0; n <= app().buttonCount(); ++n)
    if (at(buttons_, n)) moveTo(at(buttons_, n), layout_.button(n));
}

void BoxWindows::showPage(int page) {
  shownPage_ = page;
  const auto show = [page](HWND window, int objectPage) {
    if (window) ::ShowWindow(window, Application::onPage(objectPage, page) ? SW_SHOWNA : SW_HIDE);
  };
  for (int n = 1; n <= app().fieldCount(); ++n) {
    show(at(fields_, n), app().field(n).page);
    show(at(dateButtons_, n), app().field(n).page);
  }
  for (int n = 1; n <= app().comboCount(); ++n) show(at(combos_, n), app().combo(n).page);
  for (int n = 1; n <= app().memoCount(); ++n) show(at(memos_, n), app().memo(n).page);
  for (int n = 0; n <= app().checkCount(); ++n) show(at(checks_, n), app().check(n).page);
  for (int n = 0; n <= app().buttonCount(); ++n) show(at(buttons_, n), app().button(n).page);
}

void BoxWindows::setText(HWND window, const std::string& text) {
  const std::wstring shown = wide(text);
  if (wideText(window) == shown) return;
  const bool before = std::exchange(showing_, true);
  DWORD caret = 0;
  ::SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
  ::SetWindowTextW(window, shown.c_str());
  if (::GetFocus() == window) ::SendMessageW(window, EM_SETSEL, caret, static_cast<LPARAM>(caret));
  showing_ = before;
}

void BoxWindows::setLocked(HWND window, bool locked) const {
  const bool is = (::GetWindowLongPtrW(window, GWL_STYLE) & ES_READONLY) != 0;
  if (is != locked) ::SendMessageW(window, EM_SETREADONLY, locked, 0);
}

void BoxWindows::showField(int n) {
  const HWND window = at(fields_, n);
  if (!window) return;
  const FormField& box = at(host_.session().form().fields, n);
  setText(window, box.text);
  setLocked(window, closed() || box.locked);
  if (const HWND button = at(dateButtons_, n)) ::EnableWindow(button, !closed() && !box.locked);
}

void BoxWindows::showCombo(int n) {
  const HWND window = at(combos_, n);
  if (!window) return;
  const FormText& box = at(host_.session().form().combos, n);
  const bool before = std::exchange(showing_, true);
  if (const std::wstring shown = wide(box.text); wideText(window) != shown) {
    const LRESULT row = ::SendMessageW(window, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(shown.c_str()));
    ::SendMessageW(window, CB_SETCURSEL, shown.empty() ? static_cast<WPARAM>(-1) : static_cast<WPARAM>(row),
                   0);
    ::SetWindowTextW(window, shown.c_str());
  }
  showing_ = before;
  ::EnableWindow(window, !closed() && !box.locked);
}

void BoxWindows::showMemo(int n) {
  const HWND window = at(memos_, n);
  if (!window) return;
  const FormText& box = at(host_.session().form().memos, n);
  setText(window, withLineEnds(box.text));
  setLocked(window, closed() || box.locked);
}

void BoxWindows::showCheck(int n) {
  const HWND window = at(checks_, n);
  if (!window) return;
  const FormCheck& box = at(host_.session().form().checks, n);
  ::SendMessageW(window, BM_SETCHECK, box.value == 1 ? BST_CHECKED : BST_UNCHECKED, 0);
  ::EnableWindow(window, !closed() && !box.locked);
}

void BoxWindows::showAll() {
  for (int n = 1; n <= app().fieldCount(); ++n) showField(n);
  for (int n = 1; n <= app().comboCount(); ++n) showCombo(n);
  for (int n = 1; n <= app().memoCount(); ++n) showMemo(n);
  for (int n = 0; n <= app().checkCount(); ++n) showCheck(n);
}

void BoxWindows::enableButton(int n, bool enabled) {
  if (n >= 0 && n <= app().buttonCount() && at(buttons_, n)) ::EnableWindow(at(buttons_, n), enabled);
}

std::vector<HWND> BoxWindows::tabStops() const {
  std::vector<HWND> stops;
  const auto add = [&](HWND window) {
    if (window && ::IsWindowVisible(window) && ::IsWindowEnabled(window)) stops.push_back(window);
  };
  for (const BoxRef& box : recordBoxes(app())) {
    if (box.kind == BoxKind::field) add(at(fields_, box.index));
    if (box.kind == BoxKind::combo) add(at(combos_, box.index));
    if (box.kind == BoxKind::memo) add(at(memos_, box.index));
    if (box.kind == BoxKind::check) add(at(checks_, box.index));
  }
  for (const HWND button : buttons_) add(button);
  return stops;
}

bool BoxWindows::focusBoxAt(PointPx point) {
  const auto focus = [&](HWND window, int page, const RectPx& frame) {
    if (!window || !Application::onPage(page, shownPage_) || !frame.contains(point)) return false;
    ::SetFocus(window);
    return true;
  };
  for (int n = 1; n <= app().fieldCount(); ++n)
    if (at(fields_, n) && focus(at(fields_, n), app().field(n).page, layout_.field(n).frame)) return true;
  for (int n = 1; n <= app().memoCount(); ++n)
    if (at(memos_, n) && focus(at(memos_, n), app().memo(n).page, layout_.memo(n).frame)) return true;
  return false;
}

RECT BoxWindows::dateBoxOnScreen(int n) const {
  RECT box = device(layout_.field(n).frame);
  ::MapWindowPoints(page_, nullptr, reinterpret_cast<POINT*>(&box), 2);
  return box;
}

}  // namespace plinth
