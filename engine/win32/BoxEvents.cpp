// What the person does in a box, as the session's plain events; and how the boxes that we draw ourselves
// look.
#include "engine/win32/BoxWindows.h"

#include <commctrl.h>

#include "engine/BoxMenu.h"
#include "engine/win32/Keyboard.h"
#include "engine/win32/Window.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/Win32Text.h"
#include "widgets/PagePainter.h"

namespace plinth {
namespace {

// Ctrl+A, C, V, X, Z reach an edit window as characters; they are commands and no text.
bool isEditCommand(wchar_t ch) { return ch == 3 || ch == 22 || ch == 24 || ch == 26; }

DWORD caretOf(HWND edit) {
  DWORD caret = 0;
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
  return caret;
}

}  // namespace

LRESULT CALLBACK BoxWindows::subclass(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                                      DWORD_PTR self) {
  if (message == WM_NCDESTROY) ::RemoveWindowSubclass(window, subclass, id);
  std::optional<LRESULT> result;
  guarded([&] {
    result = reinterpret_cast<BoxWindows*>(self)->boxMessage(window, message, wide, param,
                                                             boxOfId(static_cast<int>(id)));
  });
  return result ? *result : ::DefSubclassProc(window, message, wide, param);
}

std::optional<LRESULT> BoxWindows::boxMessage(HWND window, UINT message, WPARAM wide, LPARAM param,
                                              BoxId box) {
  switch (message) {
    case WM_KEYDOWN:
      if (keyDown(window, box, static_cast<int>(wide))) return 0;
      break;
    case WM_SYSKEYDOWN:
      if (box.type == BoxType::field && wide == VK_DOWN &&
          dateButtons_[static_cast<std::size_t>(box.index)]) {
        host_.openCalendar(box.index);
        return 0;
      }
      // The only function key that comes this way; with Shift it asks for the menu of the box.
      if (wide == VK_F10 && ::GetKeyState(VK_SHIFT) >= 0 && keyDown(window, box, VK_F10)) return 0;
      break;
    case WM_CHAR: {
      const std::optional<wchar_t> ch = keyPress(window, box, static_cast<wchar_t>(wide));
      if (!ch) return 0;
      return ::DefSubclassProc(window, message, *ch, param);
    }
    case WM_CONTEXTMENU:
      openMenu(window, param);
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

// point: on the screen; -1 by the keyboard, then it opens at the box.
void BoxWindows::openMenu(HWND edit, LPARAM point) {
  ::SetFocus(edit);
  // The session learns first which box it is.
  host_.act([] {});
  BoxMenuState state;
  DWORD from = 0, to = 0;
  ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  state.canUndo = ::SendMessageW(edit, EM_CANUNDO, 0, 0) != 0;
  state.hasSelection = from != to;
  state.canWrite = (::GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) == 0;
  state.canPaste = ::IsClipboardFormatAvailable(CF_UNICODETEXT);
  const std::vector<BoxMenuRow> rows = boxMenu(
      app(), host_.session().tools(), state, [this](const MenuEntry& entry) { return host_.mayRun(entry); });
  const MenuHandle menu(::CreatePopupMenu());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].separatorBefore) ::AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(menu.get(), rows[i].enabled ? MF_STRING : MF_STRING | MF_GRAYED, i + 1,
                  wide(rows[i].caption).c_str());
  }
  POINT at{static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
  if (point == -1) {
    RECT box = {};
    ::GetWindowRect(edit, &box);
    at = {box.left, box.bottom};
  }
  const int chosen =
      ::TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, edit, nullptr);
  if (chosen <= 0 || static_cast<std::size_t>(chosen) > rows.size()) return;
  const BoxMenuRow& row = rows[static_cast<std::size_t>(chosen - 1)];
  if (row.command == BoxCommand::entry) return host_.choose(*row.entry);
  static constexpr UINT kMessages[] = {EM_UNDO, WM_CUT, WM_COPY, WM_PASTE};
  ::SendMessageW(edit, kMessages[static_cast<int>(row.command)], 0, 0);
}

// True when the key is used up.
bool BoxWindows::keyDown(HWND window, BoxId box, int key) {
  const KeyEvent event = keyEvent(key);
  const std::int32_t record = host_.session().form().record;
  KeyResult result;
  host_.act([&] {
    RecordSession& session = host_.session();
    if (box.type == BoxType::field) result = session.fieldKeyDown(box.index, event);
    if (box.type == BoxType::combo) result = session.comboKeyDown(box.index, event);
    if (box.type == BoxType::memo) result = session.memoKeyDown(box.index, event);
  });
  // Another user holds the record, and the session moved on: the key was not meant for the record shown now.
  dropCharacter_ = host_.session().form().record != record;
  if (dropCharacter_) return true;
  if (!result.insert.empty())
    ::SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(result.insert).c_str()));
  if (result.scroll != 0) host_.scrollPage(result.scroll);
  return result.swallow || !result.insert.empty();
}

// The character for the edit window in place of a typed one; none: it is used up.
std::optional<wchar_t> BoxWindows::keyPress(HWND window, BoxId box, wchar_t ch) {
  if (box.type != BoxType::field && box.type != BoxType::combo && box.type != BoxType::memo) return ch;
  if (dropCharacter_) return std::nullopt;
  if (ch == 1) {
    ::SendMessageW(window, EM_SETSEL, 0, -1);
    return std::nullopt;
  }
  if (isEditCommand(ch)) return ch;
  // The Esc key sends the same code as a Ctrl combination that stands for a character.
  if (ch == VK_ESCAPE && ::GetKeyState(VK_CONTROL) >= 0) return std::nullopt;
  const std::string bytes = fromWide(std::wstring_view(&ch, 1), app().codePage);
  if (bytes == "?" && ch != L'?') {
    // No record of this application could hold it.
    ::MessageBeep(MB_OK);
    return std::nullopt;
  }
  if (box.type == BoxType::memo || bytes.size() != 1) return ch;
  const auto typed = static_cast<unsigned char>(bytes[0]);
  const int caret = static_cast<int>(caretOf(window));
  unsigned char taken = 0;
  host_.act([&] {
    taken = box.type == BoxType::field ? host_.session().fieldKeyPress(box.index, typed, caret)
                                       : host_.session().comboKeyPress(box.index, typed, caret);
  });
  if (taken == 0) return std::nullopt;
  if (taken == typed) return ch;
  const std::wstring other = wide(std::string_view(reinterpret_cast<const char*>(&taken), 1));
  return other.empty() ? std::nullopt : std::optional<wchar_t>(other[0]);
}

void BoxWindows::gotFocus(BoxId box, HWND control) {
  host_.focusMoved(control);
  host_.later([this, box] {
    RecordSession& session = host_.session();
    if (box.type == BoxType::field) session.fieldGotFocus(box.index);
    if (box.type == BoxType::combo) session.comboGotFocus(box.index);
    if (box.type == BoxType::memo) session.memoGotFocus(box.index);
    if (box.type == BoxType::check) session.checkGotFocus(box.index);
  });
}

void BoxWindows::edited(BoxId box, HWND control) {
  if (showing_) return;
  const std::string now = fromWide(wideText(control), app().codePage);
  host_.act([&] {
    if (box.type == BoxType::field) host_.session().fieldEdited(box.index, now);
    if (box.type == BoxType::memo) host_.session().memoEdited(box.index, now);
    if (box.type == BoxType::combo) host_.session().comboEdited(box.index, now);
  });
  // Typed in the middle of other work, beyond the record's room, or pasted in letters that no record can
  // hold: the box must not show what will not be saved.
  if (box.type == BoxType::field) showField(box.index);
  if (box.type == BoxType::memo) showMemo(box.index);
  if (box.type == BoxType::combo) showCombo(box.index);
}

void BoxWindows::comboNotice(int n, int notice, HWND control) {
  const BoxId box{BoxType::combo, n};
  if (notice == CBN_SETFOCUS) gotFocus(box, control);
  if (notice == CBN_EDITCHANGE) edited(box, control);
  // A mark in a box that nobody is in looks like the focus.
  if (notice == CBN_KILLFOCUS) ::SendMessageW(control, CB_SETEDITSEL, 0, 0);
  if (notice != CBN_SELCHANGE || showing_) return;
  const auto row = static_cast<WPARAM>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
  const LRESULT length = ::SendMessageW(control, CB_GETLBTEXTLEN, row, 0);
  if (length < 0) return;
  std::wstring chosen(static_cast<std::size_t>(length) + 1, L'\0');
  ::SendMessageW(control, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(chosen.data()));
  chosen.resize(static_cast<std::size_t>(length));
  const std::string bytes = fromWide(chosen, app().codePage);
  host_.act([&] { host_.session().comboClick(n, bytes); });
  // A refused choice must not stay in the box.
  showCombo(n);
}

// A button takes no second click while its script runs, which costs it the keyboard. After one that begins a
// record the first box is ready for typing.
void BoxWindows::clicked(int button, HWND control) {
  const RecordSession& session = host_.session();
  const std::int32_t before = session.curRec();
  host_.act([&] { host_.session().commandClick(button); });
  const HWND root = ::GetAncestor(control, GA_ROOT), focus = ::GetFocus();
  const bool kept = focus == control || !focus || focus == root;
  if (!root || !kept || ::GetActiveWindow() != root) return;
  const std::vector<HWND> stops = tabStops();
  const bool begun = session.newEntry() && session.curRec() != before && !stops.empty();
  ::SetFocus(begun ? stops.front() : control);
}

bool BoxWindows::clickFocusedButton() const {
  const HWND focus = ::GetFocus();
  if (!focus || ::GetParent(focus) != page_ || boxOfId(::GetDlgCtrlID(focus)).type != BoxType::button)
    return false;
  ::SendMessageW(focus, BM_CLICK, 0, 0);
  return true;
}

bool BoxWindows::command(int id, int notice, HWND control) {
  const BoxId box = boxOfId(id);
  switch (box.type) {
    case BoxType::none:
      return false;
    case BoxType::combo:
      comboNotice(box.index, notice, control);
      return true;
    case BoxType::field:
    case BoxType::memo:
      if (notice == EN_SETFOCUS) gotFocus(box, control);
      if (notice == EN_CHANGE) edited(box, control);
      if (notice == EN_KILLFOCUS && box.type == BoxType::field)
        host_.later([this, box] { host_.session().fieldLostFocus(box.index); });
      return true;
    case BoxType::check:
      if (notice == BN_SETFOCUS) gotFocus(box, control);
      if (notice == BN_CLICKED) host_.act([&] { host_.session().checkClick(box.index); });
      return true;
    case BoxType::button:
      if (notice == BN_SETFOCUS) host_.focusMoved(control);
      if (notice == BN_CLICKED) clicked(box.index, control);
      return true;
    case BoxType::dateButton:
      if (notice == BN_CLICKED) host_.openCalendar(box.index);
      return true;
  }
  return false;
}

void BoxWindows::announceFocus() {
  const HWND focus = ::GetFocus();
  if (!focus || !::IsChild(page_, focus)) return;
  HWND control = focus;
  while (::GetParent(control) != page_) control = ::GetParent(control);
  gotFocus(boxOfId(::GetDlgCtrlID(control)), control);
}

void BoxWindows::commitFocus() {
  const HWND focus = ::GetFocus();
  const BoxId box = focus && ::GetParent(focus) == page_ ? boxOfId(::GetDlgCtrlID(focus)) : BoxId{};
  if (box.type != BoxType::field) return;
  host_.session().fieldLostFocus(box.index);
  host_.session().fieldGotFocus(box.index);
}

HBRUSH BoxWindows::colors(HDC dc, HWND control) {
  const BoxId box = boxOfId(::GetDlgCtrlID(control));
  std::int32_t fore = 0, back = 0xFFFFFF;
  const auto take = [&](const auto& row) {
    fore = plainColor(row.foreColor);
    back = plainColor(row.backColor);
  };
  if (box.type == BoxType::field && box.index <= app().fieldCount())
    take(app().field(box.index));
  else if (box.type == BoxType::memo && box.index <= app().memoCount())
    take(app().memo(box.index));
  else
    return nullptr;
  ::SetTextColor(dc, gdiColor(fore));
  ::SetBkColor(dc, gdiColor(back));
  BrushHandle& brush = brushes_[gdiColor(back)];
  if (!brush) brush = BrushHandle(::CreateSolidBrush(gdiColor(back)));
  return brush.get();
}

bool BoxWindows::drawItem(const DRAWITEMSTRUCT& item) {
  const BoxId box = boxOfId(static_cast<int>(item.CtlID));
  if (box.type != BoxType::button && box.type != BoxType::dateButton) return false;
  ButtonItem look;
  look.pressed = (item.itemState & ODS_SELECTED) != 0;
  look.focused = (item.itemState & ODS_FOCUS) != 0;
  look.enabled = (item.itemState & ODS_DISABLED) == 0;
  if (box.type == BoxType::button) {
    const PayloadButton& row = app().button(box.index);
    look.rect = layout_.button(box.index);
    look.caption = row.caption;
    look.font = layout_.font(row.font);
    look.foreColor = plainColor(row.foreColor);
    look.backColor = plainColor(row.backColor);
    look.icon = buttonIconOf(row.image);
  } else {
    look.rect = layout_.dateButton(box.index);
    look.icon = ButtonIcon::calendar;
    look.foreColor = 0x404040;
  }
  const RECT corner = device(look.rect);
  GdiBitmap buffer(SizePx{static_cast<int>(item.rcItem.right), static_cast<int>(item.rcItem.bottom)});
  GdiCanvas canvas(buffer.ok() ? buffer.dc() : item.hDC, host_.scale(), {-corner.left, -corner.top});
  paintItem(look, canvas);
  if (buffer.ok())
    ::BitBlt(item.hDC, 0, 0, item.rcItem.right, item.rcItem.bottom, buffer.dc(), 0, 0, SRCCOPY);
  return true;
}

}  // namespace plinth
