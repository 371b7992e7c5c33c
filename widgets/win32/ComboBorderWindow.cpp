// A combo box of the system inside a border of ours. List, keys and typing are the system's; border, arrow
// and all that is seen of the closed box are painted here.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <commctrl.h>

#include <algorithm>
#include <optional>

#include "platform/win32/GdiBitmap.h"
#include "widgets/win32/WidgetWindow.h"

namespace plinth {

namespace {

constexpr int kDropLines = 12;
constexpr DWORD kComboBits = 0x0FFF;                       // CBS_ styles
constexpr UINT kFirstCombo = 0x0140, kLastCombo = 0x0165;  // CB_GETEDITSEL to CB_GETCOMBOBOXINFO and beyond
constexpr UINT kFirstEdit = 0x00B0, kLastEdit = 0x00D9;    // EM_GETSEL to EM_GETIMESTATUS

enum class TextCase { plain, upper, caps, lower };

bool wordBegins(const std::wstring& text, std::size_t at) {
  return at == 0 || at > text.size() || text[at - 1] == L' ' || text[at - 1] == L'\t';
}

wchar_t casedLetter(wchar_t letter, TextCase textCase, bool atWord) {
  const auto one = reinterpret_cast<wchar_t*>(static_cast<std::uintptr_t>(letter));
  const auto back = [](wchar_t* changed) {
    return static_cast<wchar_t>(reinterpret_cast<std::uintptr_t>(changed));
  };
  if (textCase == TextCase::upper || (textCase == TextCase::caps && atWord)) return back(::CharUpperW(one));
  return textCase == TextCase::lower ? back(::CharLowerW(one)) : letter;
}

std::wstring wholeText(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

class ComboBorderWindow : public WidgetWindow {
 public:
  explicit ComboBorderWindow(HWND window) : WidgetWindow(window) {}

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;
  void paint(Canvas& canvas, SizePx size) override {
    paintComboBorder(canvas, size, border_, colors(), boxState());
  }

 private:
  bool create(const CREATESTRUCTW& request);
  COMBOBOXINFO info() const;
  bool hasEdit() const { return edit_ != nullptr; }
  ControlState boxState() const;
  void fit();
  void centreLine();
  void repaintAll() const;
  LRESULT colorMessage(UINT message, HDC dc);
  void notice(WORD code);
  std::optional<LRESULT> setting(UINT message, WPARAM wide, LPARAM param);
  std::optional<LRESULT> passedOn(UINT message, WPARAM wide, LPARAM param);
  LRESULT ownerDraw(UINT message, WPARAM wide, LPARAM param);

  static LRESULT CALLBACK innerProcedure(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                                         DWORD_PTR self);
  static LRESULT CALLBACK editProcedure(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                                        DWORD_PTR self);
  void paintInner();
  void paintChoice(HDC dc, const COMBOBOXINFO& shape);
  bool refused(UINT message, WPARAM wide) const;
  bool wheelPasses(UINT message) const;
  wchar_t typed(wchar_t letter) const;
  void recase();

  HWND inner_ = nullptr, edit_ = nullptr;
  Frame border_{0, 0x808080};
  TextCase textCase_ = TextCase::plain;
  bool locked_ = false, focused_ = false, fitting_ = false;
  BrushHandle brush_;
  FontHandle ownFont_;
};

COMBOBOXINFO ComboBorderWindow::info() const {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  ::GetComboBoxInfo(inner_, &info);
  return info;
}

bool ComboBorderWindow::create(const CREATESTRUCTW& request) {
  DWORD bits = static_cast<DWORD>(request.style) & kComboBits;
  if ((bits & CBS_DROPDOWNLIST) == 0) bits |= CBS_DROPDOWN;
  if ((bits & CBS_DROPDOWNLIST) == CBS_SIMPLE) bits = (bits & ~CBS_DROPDOWNLIST) | CBS_DROPDOWN;
  if (!(bits & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE))) bits |= CBS_HASSTRINGS;
  // The system converts texts of other processes by these bits of the window that they are sent to.
  setStyle(kComboBits, bits);
  setStyle(WS_CLIPCHILDREN, WS_CLIPCHILDREN);
  inner_ = ::CreateWindowExW(0, L"COMBOBOX", request.lpszName,
                             WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_AUTOHSCROLL | bits, 0, 0, 10, 10,
                             window(), request.hMenu, nullptr, nullptr);
  if (!inner_) return false;
  if ((bits & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST) edit_ = info().hwndItem;
  ::SetWindowTextW(inner_, request.lpszName);
  ::SetWindowSubclass(inner_, innerProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
  if (edit_) ::SetWindowSubclass(edit_, editProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
  ::EnableWindow(inner_, !(request.style & WS_DISABLED));
  // Until the parent sets one. No face is called so: the system takes the one that it thinks nearest.
  constexpr const wchar_t* kFontName = L"Arail";
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW face = metrics.lfMessageFont;
  ::lstrcpynW(face.lfFaceName, kFontName, LF_FACESIZE);
  ownFont_ = FontHandle(::CreateFontIndirectW(&face));
  ::SendMessageW(inner_, WM_SETFONT, reinterpret_cast<WPARAM>(ownFont_.get()), FALSE);
  fit();
  return true;
}

ControlState ComboBorderWindow::boxState() const {
  return {::IsWindowEnabled(window()) != FALSE, focused_,
          ::SendMessageW(inner_, CB_GETDROPPEDSTATE, 0, 0) != 0};
}

void ComboBorderWindow::repaintAll() const {
  ::RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// A combo box is as high as its line of letters asks and takes its window's height for the dropped list: so
// the line is made to fill what the border leaves.
void ComboBorderWindow::fit() {
  if (fitting_ || !inner_) return;
  fitting_ = true;
  const SizePx now = size();
  const int inset = comboInset(border_.style), wide = std::max(0, now.width - 2 * inset),
            high = std::max(0, now.height - 2 * inset);
  ::SetWindowPos(inner_, nullptr, inset, inset, wide, high * (kDropLines + 1), SWP_NOZORDER | SWP_NOACTIVATE);
  // Twice, since not every system means by a line that is set what it means by one that is asked for.
  const auto closedHeight = [&] {
    RECT closed = {};
    ::GetWindowRect(inner_, &closed);
    return static_cast<int>(closed.bottom - closed.top);
  };
  int line = static_cast<int>(::SendMessageW(inner_, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
  for (int i = 0; i < 2 && closedHeight() != high; ++i) {
    line += high - closedHeight();
    if (line > 0) ::SendMessageW(inner_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), line);
  }
  centreLine();
  // Sizing marks the whole text, which in a box that nobody is in looks like the focus.
  if (edit_ && ::GetFocus() != edit_) ::SendMessageW(inner_, CB_SETEDITSEL, 0, 0);
  repaintAll();
  fitting_ = false;
}

// In a box higher than its letters they would stand on top.
void ComboBorderWindow::centreLine() {
  if (!edit_) return;
  const COMBOBOXINFO shape = info();
  const WindowDc dc(edit_);
  const Selected font(dc.get(), reinterpret_cast<HFONT>(::SendMessageW(edit_, WM_GETFONT, 0, 0)));
  TEXTMETRICW letters = {};
  ::GetTextMetricsW(dc.get(), &letters);
  const RECT& room = shape.rcItem;
  const int high = room.bottom - room.top, spare = std::max<int>(0, high - letters.tmHeight);
  ::SetWindowPos(edit_, nullptr, room.left, room.top + spare / 2, room.right - room.left, high - spare,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT ComboBorderWindow::colorMessage(UINT message, HDC dc) {
  const ControlColors now = colors();
  const bool usable = ::IsWindowEnabled(window()) != FALSE || message == WM_CTLCOLORLISTBOX;
  ::SetTextColor(dc, usable ? gdiColor(now.fore) : ::GetSysColor(COLOR_GRAYTEXT));
  ::SetBkColor(dc, gdiColor(now.back));
  LOGBRUSH is = {};
  if (!brush_ || ::GetObjectW(brush_.get(), sizeof is, &is) == 0 || is.lbColor != gdiColor(now.back))
    brush_ = BrushHandle(::CreateSolidBrush(gdiColor(now.back)));
  return reinterpret_cast<LRESULT>(brush_.get());
}

void ComboBorderWindow::notice(WORD code) {
  if (code == CBN_SETFOCUS || code == CBN_KILLFOCUS) {
    focused_ = code == CBN_SETFOCUS;
    repaint();
  }
  if (code != CBN_EDITUPDATE && code != CBN_EDITCHANGE) ::InvalidateRect(inner_, nullptr, FALSE);
  tell(code);
}

std::optional<LRESULT> ComboBorderWindow::setting(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case kComboSetBorder:
      border_.style = static_cast<int>(wide);
      fit();
      return 0;
    case kFrameSetBorderColor:
      border_.color = static_cast<std::int32_t>(gdiColor(static_cast<std::int32_t>(param)));
      repaint();
      return 0;
    case kComboSetTextCase:
      textCase_ = wide <= 3 ? static_cast<TextCase>(wide) : TextCase::plain;
      return 0;
    case kComboSetMaxLength:
      ::SendMessageW(inner_, CB_LIMITTEXT, wide, 0);
      return 0;
    case kComboSetLocked:
      locked_ = wide != 0;
      if (edit_) ::SendMessageW(edit_, EM_SETREADONLY, locked_, 0);
      return 0;
    case kComboGetInner:
      return reinterpret_cast<LRESULT>(inner_);
    case kComboGetEdit:
      return reinterpret_cast<LRESULT>(edit_);
    case kWidgetSetBackColor:
    case kWidgetSetForeColor:
    case kWidgetSetSurround:
      WidgetWindow::message(message, wide, param);
      repaintAll();
      return 0;
    default:
      return std::nullopt;
  }
}

// To the combo box or its line what a parent says to a combo box.
std::optional<LRESULT> ComboBorderWindow::passedOn(UINT message, WPARAM wide, LPARAM param) {
  if (message >= kFirstCombo && message <= kLastCombo) {
    const LRESULT result = ::SendMessageW(inner_, message, wide, param);
    if (message == CB_SETITEMHEIGHT) centreLine();
    if (message == CB_SETCURSEL || message == CB_RESETCONTENT) ::InvalidateRect(inner_, nullptr, FALSE);
    return result;
  }
  if (edit_ && message >= kFirstEdit && message <= kLastEdit)
    return ::SendMessageW(edit_, message, wide, param);
  switch (message) {
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case WM_GETFONT:
      return ::SendMessageW(inner_, message, wide, param);
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
    case WM_SYSKEYDOWN:
      return ::SendMessageW(edit_ ? edit_ : inner_, message, wide, param);
    default:
      return std::nullopt;
  }
}

// Lists that their parent draws: it knows the box by our number and handle.
LRESULT ComboBorderWindow::ownerDraw(UINT message, WPARAM wide, LPARAM param) {
  if (message != WM_DRAWITEM) return ::SendMessageW(parent(), message, wide, param);
  DRAWITEMSTRUCT item = *reinterpret_cast<const DRAWITEMSTRUCT*>(param);
  item.hwndItem = window();
  return ::SendMessageW(parent(), message, wide, reinterpret_cast<LPARAM>(&item));
}

LRESULT ComboBorderWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_CREATE) return create(*reinterpret_cast<const CREATESTRUCTW*>(param)) ? 0 : -1;
  if (!inner_) return WidgetWindow::message(message, wide, param);
  if (const auto result = setting(message, wide, param)) return *result;
  if (const auto result = passedOn(message, wide, param)) return *result;
  switch (message) {
    case WM_COMMAND:
      if (reinterpret_cast<HWND>(param) == inner_) notice(HIWORD(wide));
      return 0;
    case WM_SETFONT:
      ::SendMessageW(inner_, message, wide, FALSE);
      fit();
      return 0;
    case WM_SIZE:
      fit();
      return 0;
    case WM_ENABLE:
      ::EnableWindow(inner_, wide != 0);
      repaintAll();
      return 0;
    case WM_SETFOCUS:
    case WM_LBUTTONDOWN:  // on the border
      ::SetFocus(edit_ ? edit_ : inner_);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
      return colorMessage(message, reinterpret_cast<HDC>(wide));
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_COMPAREITEM:
    case WM_DELETEITEM:
      return ownerDraw(message, wide, param);
    case WM_NCDESTROY:
      inner_ = edit_ = nullptr;
      break;
    default:
      break;
  }
  return WidgetWindow::message(message, wide, param);
}

void ComboBorderWindow::paintChoice(HDC dc, const COMBOBOXINFO& shape) {
  const auto row = static_cast<int>(::SendMessageW(inner_, CB_GETCURSEL, 0, 0));
  const HFONT set = reinterpret_cast<HFONT>(::SendMessageW(inner_, WM_GETFONT, 0, 0));
  const Selected font(dc, set);
  RECT room = shape.rcItem;
  const bool drawnByParent = (style() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
  if (drawnByParent && row >= 0) {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = static_cast<UINT>(::GetDlgCtrlID(window()));
    item.itemID = static_cast<UINT>(row);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_COMBOBOXEDIT | (focused_ ? ODS_FOCUS | ODS_SELECTED : 0) |
                     (::IsWindowEnabled(window()) ? 0 : ODS_DISABLED);
    item.hwndItem = window();
    item.hDC = dc;
    item.rcItem = room;
    item.itemData =
        static_cast<ULONG_PTR>(::SendMessageW(inner_, CB_GETITEMDATA, static_cast<WPARAM>(row), 0));
    ::SendMessageW(parent(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    return;
  }
  const std::wstring chosen = wholeText(inner_);
  const bool usable = ::IsWindowEnabled(window()) != FALSE;
  if (focused_) ::FillRect(dc, &room, ::GetSysColorBrush(COLOR_HIGHLIGHT));
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, !usable    ? ::GetSysColor(COLOR_GRAYTEXT)
                     : focused_ ? ::GetSysColor(COLOR_HIGHLIGHTTEXT)
                                : gdiColor(colors().fore));
  room.left += 1;
  ::DrawTextW(dc, chosen.c_str(), -1, &room, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void ComboBorderWindow::paintInner() {
  const COMBOBOXINFO shape = info();
  RECT area = {};
  ::GetClientRect(inner_, &area);
  BufferedPaint buffer(inner_);
  GdiCanvas canvas(buffer.dc());
  const ControlColors now = colors();
  paintComboBorder(canvas, {static_cast<int>(area.right), static_cast<int>(area.bottom)}, {}, now, {});
  // Up to the edge, over where the system would leave its own border.
  const int left = shape.rcButton.left, right = static_cast<int>(area.right);
  paintDropArrow(canvas, {left, 0, right - left, static_cast<int>(area.bottom)}, now, boxState());
  if (!hasEdit()) paintChoice(buffer.dc(), shape);
}

// Whether a locked box leaves a message unheard that would change its text.
bool ComboBorderWindow::refused(UINT message, WPARAM wide) const {
  if (!locked_) return false;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_SYSKEYDOWN:
      return message != WM_SYSKEYDOWN || wide == VK_DOWN || wide == VK_UP;
    case WM_KEYDOWN:
      return wide == VK_UP || wide == VK_DOWN || wide == VK_PRIOR || wide == VK_NEXT || wide == VK_F4 ||
             (!edit_ && (wide == VK_HOME || wide == VK_END));
    case WM_CHAR:
      return !edit_;
    default:
      return false;
  }
}

// A wheel over a closed box scrolls what the box stands on; it must not change a text unasked.
bool ComboBorderWindow::wheelPasses(UINT message) const {
  return message == WM_MOUSEWHEEL && !::SendMessageW(inner_, CB_GETDROPPEDSTATE, 0, 0);
}

LRESULT CALLBACK ComboBorderWindow::innerProcedure(HWND window, UINT message, WPARAM wide, LPARAM param,
                                                   UINT_PTR id, DWORD_PTR self) {
  auto* combo = reinterpret_cast<ComboBorderWindow*>(self);
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(window, innerProcedure, id);
  if (combo->refused(message, wide)) {
    if (message == WM_LBUTTONDOWN) ::SetFocus(combo->edit_ ? combo->edit_ : window);
    return 0;
  }
  if (combo->wheelPasses(message)) return ::SendMessageW(combo->parent(), message, wide, param);
  if (message == WM_ERASEBKGND) return 1;
  if (message == WM_PAINT) {
    combo->paintInner();
    return 0;
  }
  const LRESULT result = ::DefSubclassProc(window, message, wide, param);
  // What the system draws by itself then is painted over.
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_LBUTTONUP || message == WM_ENABLE)
    ::InvalidateRect(window, nullptr, FALSE);
  return result;
}

// A letter in the case that the box wants.
wchar_t ComboBorderWindow::typed(wchar_t letter) const {
  if (textCase_ == TextCase::plain || letter < L' ') return letter;
  DWORD caret = 0;
  ::SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
  return casedLetter(letter, textCase_, wordBegins(wholeText(edit_), caret));
}

// After a paste: its letters come unasked.
void ComboBorderWindow::recase() {
  if (textCase_ == TextCase::plain) return;
  const std::wstring before = wholeText(edit_);
  std::wstring after = before;
  for (std::size_t i = 0; i < after.size(); ++i)
    after[i] = casedLetter(after[i], textCase_, wordBegins(after, i));
  if (after == before) return;
  DWORD from = 0, to = 0;
  ::SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  ::SetWindowTextW(edit_, after.c_str());
  ::SendMessageW(edit_, EM_SETSEL, from, static_cast<LPARAM>(to));
}

LRESULT CALLBACK ComboBorderWindow::editProcedure(HWND window, UINT message, WPARAM wide, LPARAM param,
                                                  UINT_PTR id, DWORD_PTR self) {
  auto* combo = reinterpret_cast<ComboBorderWindow*>(self);
  switch (message) {
    case WM_NCDESTROY:
      ::RemoveWindowSubclass(window, editProcedure, id);
      break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      if (combo->refused(message, wide)) return 0;
      break;
    case WM_MOUSEWHEEL:
      if (combo->wheelPasses(message)) return ::SendMessageW(combo->parent(), message, wide, param);
      break;
    case WM_CHAR:
      return ::DefSubclassProc(window, message, combo->typed(static_cast<wchar_t>(wide)), param);
    case WM_PASTE: {
      const LRESULT result = ::DefSubclassProc(window, message, wide, param);
      combo->recase();
      return result;
    }
    default:
      break;
  }
  return ::DefSubclassProc(window, message, wide, param);
}

}  // namespace

bool registerComboBorder(HINSTANCE program) {
  return WidgetProcedure::add<ComboBorderWindow>(program, kComboBorderClass);
}

}  // namespace plinth
