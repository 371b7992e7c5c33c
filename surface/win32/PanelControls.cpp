// How the panel's controls are made, named and dressed, and the keys that their lines take.
#include "surface/win32/PanelWindow.h"  // before what leans on Windows

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"
#include "surface/PanelRows.h"
#include "surface/win32/WindowTools.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

namespace {

constexpr int kMostBorder = 5;
constexpr int kFontSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

int CALLBACK addFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
  // "@" marks fonts for upright lines, which no object has.
  if (font->lfFaceName[0] != L'@')
    reinterpret_cast<std::vector<std::wstring>*>(names)->push_back(font->lfFaceName);
  return 1;
}

// Each family comes once for each of its character sets.
std::vector<std::wstring> fontNames() {
  std::vector<std::wstring> names;
  LOGFONTW all = {};
  all.lfCharSet = DEFAULT_CHARSET;
  const MemoryDc dc(::CreateCompatibleDC(nullptr));
  ::EnumFontFamiliesExW(dc.get(), &all, reinterpret_cast<FONTENUMPROCW>(addFont),
                        reinterpret_cast<LPARAM>(&names), 0);
  std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
    return ::lstrcmpiW(a.c_str(), b.c_str()) < 0;
  });
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

FontHandle variant(HFONT base, bool italic, bool underline) {
  LOGFONTW font = {};
  ::GetObjectW(base, sizeof font, &font);
  font.lfItalic = italic;
  font.lfUnderline = underline;
  return FontHandle(::CreateFontIndirectW(&font));
}

bool isStyle(PanelId id) { return id >= PanelId::bold && id <= PanelId::underline; }

// Lines of text that stand at the left, in the middle or at the right.
void paintAlignment(HDC dc, const RECT& rect, PanelId id, std::int32_t ink, int unit) {
  constexpr int kLong = 12, kShort = 8, kLines = 4, kStep = 3;
  const int left = (rect.left + rect.right - kLong * unit) / 2;
  int y = (rect.top + rect.bottom - (kLines - 1) * kStep * unit) / 2;
  GdiCanvas canvas(dc);
  for (int line = 0; line < kLines; ++line, y += kStep * unit) {
    const int wide = line % 2 == 0 ? kLong : kShort, rest = kLong - wide;
    const int shift = id == PanelId::alignLeft ? 0 : id == PanelId::alignCenter ? rest / 2 : rest;
    canvas.box({left + shift * unit, y, wide * unit, unit}, {LineStyle::none, 1, 0},
               {FillStyle::solid, ink, false, 0});
  }
}

std::wstring clipboardText(HWND owner) {
  std::wstring text;
  if (!::OpenClipboard(owner)) return text;
  const HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
  const auto* letters = static_cast<const wchar_t*>(data ? ::GlobalLock(data) : nullptr);
  if (letters) {
    text.assign(letters, ::wcsnlen(letters, ::GlobalSize(data) / sizeof(wchar_t)));
    ::GlobalUnlock(data);
  }
  ::CloseClipboard();
  return text;
}

}  // namespace

void PanelWindow::makeFonts() {
  chrome_.font = messageFont(chrome_.scale);
  chrome_.heading = messageFont(chrome_.scale, true);
  italic_ = variant(chrome_.font.get(), true, false);
  underlined_ = variant(chrome_.font.get(), false, true);
}

void PanelWindow::makeControls() {
  registerWidgets(::GetModuleHandleW(nullptr));
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, window_, nullptr, nullptr, nullptr);
  // Made in the order in which they stand: that is the order of the Tab key, and a caption made just before
  // its control names it for assistive programs.
  for (const PanelId id : panelOrder()) {
    makeControl(panel_->control(id));
    if (id != PanelId::height) continue;
    pad_ = std::make_unique<PadWindow>(window_, kPadId, L"", chrome_,
                                       [this](int dx, int dy, bool ten) { events_.pad(dx, dy, ten); });
  }
  setFonts();
  setTexts();
  dressWidgets();
}

HWND PanelWindow::makeChild(const wchar_t* type, DWORD style, int id) const {
  return ::CreateWindowExW(0, type, L"", WS_CHILD | style, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr),
                           nullptr);
}

void PanelWindow::makeControl(const PanelControl& control) {
  constexpr DWORD kCaption = SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS;
  Part& made = part(control.id);
  const int id = kFirstControl + static_cast<int>(control.id);
  const DWORD group = opensGroup(control.id) || control.id == PanelId::alignLeft ? WS_GROUP : 0;
  if (panelCaption(control).english[0] != '\0')
    made.caption =
        makeChild(L"STATIC", kCaption | (control.input == PanelInput::button ? SS_CENTER : SS_LEFT), -1);
  switch (control.input) {
    case PanelInput::button:
    case PanelInput::check:
    case PanelInput::option:
      makeFlat(control, group);
      break;
    case PanelInput::text:
    case PanelInput::number:
      made.window = makeChild(L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP | group, id);
      ::SendMessageW(made.window, EM_SETLIMITTEXT, static_cast<WPARAM>(control.maxLength), 0);
      ::SetWindowSubclass(made.window, keyProcedure, static_cast<UINT_PTR>(id),
                          reinterpret_cast<DWORD_PTR>(this));
      break;
    case PanelInput::combo:
      makeCombo(control, group);
      break;
    case PanelInput::scroll: {
      made.window = makeChild(kDepthScrollClass, WS_TABSTOP | group, id);
      SCROLLINFO info = {};
      info.cbSize = sizeof info;
      info.fMask = SIF_RANGE;
      info.nMax = kMostBorder;
      ::SetScrollInfo(made.window, SB_CTL, &info, FALSE);
      ::SendMessageW(made.window, kScrollSetLargeChange, 1, 0);
      ::SendMessageW(made.window, kScrollSetSmallChange, 1, 0);
      borderNumber_ = makeChild(L"STATIC", kCaption | SS_RIGHT, -1);
      break;
    }
    case PanelInput::label:
      made.window = makeChild(L"STATIC", kCaption | SS_LEFT | group, id);
      break;
  }
}

void PanelWindow::makeFlat(const PanelControl& control, DWORD style) {
  Part& made = part(control.id);
  FlatLook look = FlatLook::swatch;
  DWORD type = BS_PUSHBUTTON | WS_TABSTOP;
  if (control.input == PanelInput::check) {
    look = isStyle(control.id) ? FlatLook::toggle : FlatLook::check;
    type = BS_AUTOCHECKBOX | WS_TABSTOP;
  } else if (control.input == PanelInput::option) {
    look = FlatLook::toggle;
    type = BS_AUTORADIOBUTTON | (style & WS_GROUP ? WS_TABSTOP : 0);
  }
  made.button = std::make_unique<FlatButton>(window_, kFirstControl + static_cast<int>(control.id), look, L"",
                                             type | style, chrome_, glyph(control.id));
  made.window = made.button->window();
}

FlatButton::Glyph PanelWindow::glyph(PanelId id) const {
  if (id >= PanelId::alignLeft && id <= PanelId::alignCenter)
    return [this, id](HDC dc, const RECT& rect, std::int32_t ink) {
      paintAlignment(dc, rect, id, ink, chrome_.px(1));
    };
  if (!isStyle(id)) return {};
  return [this, id](HDC dc, const RECT& rect, std::int32_t ink) {
    const bool bold = id == PanelId::bold, italic = id == PanelId::italic;
    paintText(dc, rect,
              bold     ? L"B"
              : italic ? L"I"
                       : L"U",
              (bold     ? chrome_.heading
               : italic ? italic_
                        : underlined_)
                  .get(),
              ink, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  };
}

void PanelWindow::makeCombo(const PanelControl& control, DWORD style) {
  Part& made = part(control.id);
  const int id = kFirstControl + static_cast<int>(control.id);
  made.window = makeChild(kComboBorderClass, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_TABSTOP | style, id);
  const auto add = [&](const std::wstring& text) {
    ::SendMessageW(made.window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  };
  if (control.id == PanelId::fontSize)
    for (const int size : kFontSizes) add(std::to_wstring(size));
  else
    for (const std::wstring& name : fontNames()) add(name);
  const auto edit = reinterpret_cast<HWND>(::SendMessageW(made.window, kComboGetEdit, 0, 0));
  const auto inner = reinterpret_cast<HWND>(::SendMessageW(made.window, kComboGetInner, 0, 0));
  if (edit)
    ::SetWindowSubclass(edit, keyProcedure, static_cast<UINT_PTR>(id), reinterpret_cast<DWORD_PTR>(this));
  if (inner) ::SetWindowSubclass(inner, wheelProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

void PanelWindow::setFonts() {
  const auto set = [this](HWND window) {
    if (window) ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(chrome_.font.get()), TRUE);
  };
  for (const Part& each : parts_) {
    set(each.window);
    set(each.caption);
    // The box around a line has the margin.
    if (each.window && !each.button)
      ::SendMessageW(each.window, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  }
  ::SendMessageW(part(PanelId::selItem).window, WM_SETFONT, reinterpret_cast<WPARAM>(chrome_.heading.get()),
                 TRUE);
  set(borderNumber_);
  set(tips_);
}

void PanelWindow::dressWidgets() {
  const ChromeColors& colors = chrome_.colors;
  for (const PanelId id : {PanelId::fontName, PanelId::fontSize, PanelId::borderStyle}) {
    const HWND window = part(id).window;
    const bool bar = id == PanelId::borderStyle;
    ::SendMessageW(window, kWidgetSetBackColor, 0, bar ? colors.ground : colors.box);
    ::SendMessageW(window, kWidgetSetForeColor, 0, bar ? colors.ink : colors.boxInk);
    ::SendMessageW(window, kWidgetSetSurround, 0, colors.ground);
    ::SendMessageW(window, kFrameSetBorderColor, 0, colors.edge);
    ::SendMessageW(window, kComboSetBorder, 1, 0);
  }
}

std::wstring PanelWindow::labelText(PanelCaption caption) const {
  return toWide(label_ ? label_(caption.label, caption.english) : caption.english, labelPage_);
}

void PanelWindow::setTip(HWND over, const std::wstring& text) {
  std::wstring shown = text;
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(over);
  tool.lpszText = shown.data();
  ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void PanelWindow::setTexts() {
  for (const PanelControl& control : panel_->controls()) {
    Part& named = part(control.id);
    const std::wstring text = labelText({control.label, control.english});
    if (named.button) ::SetWindowTextW(named.window, text.c_str());
    if (named.caption) {
      std::wstring caption = labelText(panelCaption(control));
      // The dots of a tool tip say that something opens; under its swatch they would look cut.
      if (named.button) caption.erase(caption.find_last_not_of(L'.') + 1);
      ::SetWindowTextW(named.caption, caption.c_str());
    }
    setTip(named.window, text);
    if (control.input == PanelInput::combo)
      setTip(reinterpret_cast<HWND>(::SendMessageW(named.window, kComboGetEdit, 0, 0)), text);
  }
  const std::wstring pad = labelText({0, "Move by one unit, right button: by ten"});
  ::SetWindowTextW(pad_->window(), pad.c_str());
  setTip(pad_->window(), pad);
}

// The panel's filter knows bytes of the code page; letters that take two of them are nobody's business.
wchar_t PanelWindow::filtered(PanelId id, wchar_t typed) const {
  const std::string bytes = fromWide({&typed, 1}, textPage_);
  if (!panel_ || bytes.size() != 1) return typed;
  const char kept = panel_->filterKey(id, bytes[0]);
  if (kept == bytes[0]) return typed;
  return kept == '\0' ? L'\0' : toWide({&kept, 1}, textPage_)[0];
}

// What comes by the clipboard obeys the same filter as keys.
bool PanelWindow::pasteFiltered(HWND edit, PanelId id) const {
  std::wstring kept;
  for (const wchar_t letter : clipboardText(edit)) {
    if (letter == L'\r' || letter == L'\n') break;
    if (const wchar_t allowed = filtered(id, letter)) kept += allowed;
  }
  if (!kept.empty()) ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(kept.c_str()));
  return true;
}

LRESULT CALLBACK PanelWindow::keyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR data) {
  constexpr WPARAM kBackspace = 8, kCtrlA = 1;
  const auto* self = reinterpret_cast<const PanelWindow*>(data);
  const auto control = static_cast<PanelId>(static_cast<int>(id) - kFirstControl);
  try {
    switch (message) {
      case WM_CHAR:
        if (wParam == kCtrlA) {
          ::SendMessageW(window, EM_SETSEL, 0, -1);
          return 0;
        }
        if (wParam >= L' ' || wParam == kBackspace)
          wParam = self->filtered(control, static_cast<wchar_t>(wParam));
        if (wParam == 0) return 0;
        break;
      case WM_PASTE:
        if (self->pasteFiltered(window, control)) return 0;
        break;
      case WM_NCDESTROY:
        ::RemoveWindowSubclass(window, keyProcedure, id);
        break;
      default:
        break;
    }
  } catch (...) {
    return 0;
  }
  return ::DefSubclassProc(window, message, wParam, lParam);
}

// A closed list must not change its value when the wheel was meant for the panel.
LRESULT CALLBACK PanelWindow::wheelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR id, DWORD_PTR data) {
  if (message == WM_MOUSEWHEEL && !::SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0))
    return ::SendMessageW(reinterpret_cast<PanelWindow*>(data)->window_, message, wParam, lParam);
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(window, wheelProcedure, id);
  return ::DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace plinth
