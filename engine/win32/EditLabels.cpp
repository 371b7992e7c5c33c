#include "engine/win32/EditLabels.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr int kEdge = 10, kWide = 330, kHigh = 112, kMostText = 9000;

constexpr struct {
  int number;
  const wchar_t* name;
} kCharSets[] = {{0, L"Western"},
                 {238, L"Central European"},
                 {204, L"Cyrillic"},
                 {161, L"Greek"},
                 {162, L"Turkish"},
                 {186, L"Baltic"},
                 {177, L"Hebrew"},
                 {178, L"Arabic"},
                 {163, L"Vietnamese"},
                 {222, L"Thai"},
                 {128, L"Japanese"},
                 {129, L"Korean"},
                 {134, L"Chinese (simplified)"},
                 {136, L"Chinese (traditional)"},
                 {2, L"Symbol"}};

}  // namespace

bool EditLabels::make(HWND owner) {
  if (!openAbove(owner, L"EditLabels", "Label", WS_POPUP | WS_CAPTION | WS_SYSMENU, {kWide, kHigh}))
    return false;
  add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, kLabelTextId, WS_EX_CLIENTEDGE);
  ::SendMessageW(item(kLabelTextId), EM_LIMITTEXT, kMostText, 0);
  addStyle();
  add(L"COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kLabelCharSetId);
  for (const auto& row : kCharSets)
    ::SendMessageW(item(kLabelCharSetId), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.name));
  add(L"BUTTON", caption(61, "OK"), WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
  put(kLabelTextId, kEdge, 10, kWide - 2 * kEdge, 24);
  placeStyle(kEdge, 44);
  put(kLabelCharSetId, kEdge + 200, 44, kWide - 2 * kEdge - 200, 220);
  put(IDOK, kWide - kEdge - 80, 76, 80, 26);
  setFonts();
  centre(owner);
  return true;
}

// The letters of the label's character set.
int EditLabels::codePage() const {
  const VariableLabel* label = objects_.selectedLabel();
  return label ? codePageOfCharSet(label->charSet) : application_.codePage;
}

std::wstring EditLabels::typed() const {
  const HWND box = item(kLabelTextId);
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(box)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(box, text.data(), static_cast<int>(text.size()))));
  return text;
}

void EditLabels::open(HWND owner) {
  if (!objects_.selectedLabel() || (!handle() && !make(owner))) return;
  ::ShowWindow(handle(), SW_SHOW);
  show();
  ::SetForegroundWindow(handle());
  ::SetFocus(item(kLabelTextId));
  ::SendMessageW(item(kLabelTextId), EM_SETSEL, 0, -1);
}

void EditLabels::hide() {
  if (visible()) ::ShowWindow(handle(), SW_HIDE);
}

void EditLabels::show() {
  if (!visible()) return;
  const VariableLabel* label = objects_.selectedLabel();
  if (!label) return hide();
  showing_ = true;
  const std::wstring text = toWide(label->text, codePage());
  if (typed() != text) {
    DWORD caret = 0;
    ::SendMessageW(item(kLabelTextId), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    ::SetWindowTextW(item(kLabelTextId), text.c_str());
    ::SendMessageW(item(kLabelTextId), EM_SETSEL, caret, caret);
  }
  WPARAM row = 0;
  while (row < std::size(kCharSets) && kCharSets[row].number != label->charSet) ++row;
  if (row == std::size(kCharSets)) row = static_cast<WPARAM>(-1);
  ::SendMessageW(item(kLabelCharSetId), CB_SETCURSEL, row, 0);
  showing_ = false;
  showStyle();
}

void EditLabels::takeText() {
  host_.act([&] { objects_.setText(fromWide(typed(), codePage())); });
  show();
}

void EditLabels::takeCharSet() {
  const LRESULT row = ::SendMessageW(item(kLabelCharSetId), CB_GETCURSEL, 0, 0);
  if (row < 0 || static_cast<std::size_t>(row) >= std::size(kCharSets)) return;
  LabelStyle style = objects_.style();
  style.charSet = kCharSets[row].number;
  host_.act([&] { objects_.setStyle(style); });
  show();
}

void EditLabels::command(int id, int notice) {
  if (styleCommand(id, notice) || showing_) return;
  if (id == kLabelTextId && notice == EN_CHANGE) takeText();
  if (id == kLabelCharSetId && notice == CBN_SELCHANGE) takeCharSet();
  if ((id == IDOK || id == IDCANCEL) && notice == BN_CLICKED) hide();
}

LRESULT EditLabels::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_CLOSE:
      hide();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
