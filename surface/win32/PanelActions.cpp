// What a person does in the panel: what the controls tell, and the keys that move the focus.
#include <algorithm>
#include <string>
#include <utility>

#include "platform/win32/Win32Text.h"
#include "surface/PanelRows.h"
#include "surface/win32/PanelWindow.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

void PanelWindow::command(int id, int notice) {
  const int index = id - kFirstControl;
  if (!panel_ || index < 0 || index >= kPanelControls) return;
  const PanelControl& control = panel_->control(static_cast<PanelId>(index));
  Part& each = part(control.id);
  if (isEdit(control.input)) {
    if (notice == EN_CHANGE) editChanged(control.id);
    if (notice == EN_KILLFOCUS) finishReadout(control.id);
    if (notice == EN_SETFOCUS || notice == EN_KILLFOCUS) ::InvalidateRect(window_, &each.box, FALSE);
  } else if (control.input == PanelInput::combo) {
    if (notice == CBN_EDITCHANGE) editChanged(control.id);
    const auto chosen = notice == CBN_SELCHANGE ? ::SendMessageW(each.window, CB_GETCURSEL, 0, 0) : CB_ERR;
    if (chosen == CB_ERR) return;
    const auto length = ::SendMessageW(each.window, CB_GETLBTEXTLEN, static_cast<WPARAM>(chosen), 0);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(0, length)), L'\0');
    ::SendMessageW(each.window, CB_GETLBTEXT, static_cast<WPARAM>(chosen),
                   reinterpret_cast<LPARAM>(text.data()));
    write(control.id, fromWide(text, textPage_));
  } else if (notice == BN_CLICKED) {
    clicked(control.id);
  }
}

// Lines write at each change; a read-out waits, since half a number is another number.
void PanelWindow::editChanged(PanelId id) {
  if (filling_) return;
  if (isReadout(id))
    part(id).pending = true;
  else
    write(id, windowText(part(id).window, textPage_));
}

void PanelWindow::finishReadout(PanelId id) {
  Part& each = part(id);
  if (!std::exchange(each.pending, false)) return;
  write(id, windowText(each.window, textPage_));
}

void PanelWindow::write(PanelId id, const std::string& value) {
  part(id).text = value;
  events_.write(id, value);
}

void PanelWindow::clicked(PanelId id) {
  Part& each = part(id);
  const PanelInput input = panel_->control(id).input;
  if (input == PanelInput::button) {
    events_.openColors(id);
    return;
  }
  const bool checked = ::SendMessageW(each.window, BM_GETCHECK, 0, 0) == BST_CHECKED;
  // An option also says that it was clicked when it only gets the focus.
  if (checked == each.checked) return;
  if (input == PanelInput::option)
    for (const PanelId other : {PanelId::alignLeft, PanelId::alignRight, PanelId::alignCenter})
      part(other).checked = false;
  each.checked = checked;
  events_.write(id, checked ? "1" : "");
}

void PanelWindow::scrolled(HWND bar) {
  Part& border = part(PanelId::borderStyle);
  if (bar != border.window) return;
  const std::string value = std::to_string(::SendMessageW(bar, SBM_GETPOS, 0, 0));
  if (value == border.text) return;
  ::SetWindowTextW(borderNumber_, toWide(value, textPage_).c_str());
  write(PanelId::borderStyle, value);
}

HWND PanelWindow::focusedChild() const {
  HWND focus = ::GetFocus();
  while (focus && ::GetParent(focus) != window_) focus = ::GetParent(focus);
  return focus;
}

void PanelWindow::finish() {
  if (!panel_) return;
  for (const PanelControl& control : panel_->controls()) finishReadout(control.id);
}

// Done here; without `keep` what was half typed is as if it had never been.
void PanelWindow::leave(bool keep) {
  if (keep) finish();
  for (Part& each : parts_) {
    if (!std::exchange(each.pending, false)) continue;
    filling_ = true;
    ::SetWindowTextW(each.window, toWide(each.text, textPage_).c_str());
    filling_ = false;
  }
  events_.focusPage();
}

// Tab walks all controls, arrows those of a group. True when the focus moved.
bool PanelWindow::moveFocus(WPARAM key) {
  const HWND from = focusedChild();
  HWND to = nullptr;
  if (key == VK_TAB) {
    if (::GetKeyState(VK_CONTROL) < 0) return false;
    to = ::GetNextDlgTabItem(window_, from, ::GetKeyState(VK_SHIFT) < 0);
  } else {
    const auto code = ::SendMessageW(::GetFocus(), WM_GETDLGCODE, key, 0);
    if (code & (DLGC_WANTARROWS | DLGC_WANTALLKEYS)) return false;
    to = ::GetNextDlgGroupItem(window_, from, key == VK_LEFT || key == VK_UP);
  }
  if (!to || to == from) return false;
  reveal(to);
  ::SetFocus(to);
  const auto code = ::SendMessageW(to, WM_GETDLGCODE, 0, 0);
  if (code & DLGC_HASSETSEL) ::SendMessageW(to, EM_SETSEL, 0, -1);
  if (key != VK_TAB && code & DLGC_RADIOBUTTON) ::SendMessageW(to, BM_CLICK, 0, 0);
  return true;
}

bool PanelWindow::translate(const MSG& message) {
  const HWND child = focusedChild();
  if (!panel_ || message.message != WM_KEYDOWN || !child || !::IsChild(window_, message.hwnd)) return false;
  const bool dropped = ::SendMessageW(child, CB_GETDROPPEDSTATE, 0, 0) != 0;
  switch (message.wParam) {
    case VK_TAB:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
      return moveFocus(message.wParam);
    case VK_RETURN:
      if (dropped) return false;
      for (const PanelId id : {PanelId::color1, PanelId::color2, PanelId::color3})
        if (part(id).window == child) {
          events_.openColors(id);
          return true;
        }
      leave(true);
      return true;
    case VK_ESCAPE:
      if (dropped) return false;
      leave(false);
      return true;
    default:
      return false;
  }
}

}  // namespace plinth
