#include "engine/win32/LabelStyleWindow.h"

#include <commdlg.h>

#include "basic/Text.h"
#include "platform/win32/GdiCanvas.h"
#include "widgets/PageItems.h"

namespace plinth {
namespace {

constexpr int kSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72};

}  // namespace

void LabelStyleWindow::addStyle() {
  add(L"COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN, kLabelSizeId);
  for (const int size : kSizes)
    ::SendMessageW(item(kLabelSizeId), CB_ADDSTRING, 0,
                   reinterpret_cast<LPARAM>(std::to_wstring(size).c_str()));
  ::SendMessageW(item(kLabelSizeId), CB_LIMITTEXT, 3, 0);
  for (const auto& [id, text] :
       {std::pair{kLabelBoldId, "B"}, {kLabelItalicId, "I"}, {kLabelUnderlineId, "U"}})
    add(L"BUTTON", text, WS_TABSTOP | BS_AUTOCHECKBOX | BS_PUSHLIKE, id);
  add(L"BUTTON", caption(43, "Color"), WS_TABSTOP, kLabelColorId);
}

void LabelStyleWindow::placeStyle(int left, int top) {
  put(kLabelSizeId, left, top, 50, 220);
  int at = left + 56;
  for (const int id : {kLabelBoldId, kLabelItalicId, kLabelUnderlineId}) {
    put(id, at, top, 24, 24);
    at += 26;
  }
  put(kLabelColorId, at + 4, top, 52, 24);
}

void LabelStyleWindow::showStyle() {
  if (!handle()) return;
  const LabelStyle style = objects_.style();
  showing_ = true;
  // Nobody's typing is overwritten: an empty box while a size is typed stays empty.
  if (std::atoi(textOf(kLabelSizeId).c_str()) != style.fontSize &&
      !::IsChild(item(kLabelSizeId), ::GetFocus()))
    ::SetWindowTextW(item(kLabelSizeId), std::to_wstring(style.fontSize).c_str());
  const auto check = [this](int id, bool on) {
    ::SendMessageW(item(id), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
  };
  check(kLabelBoldId, style.bold);
  check(kLabelItalicId, style.italic);
  check(kLabelUnderlineId, style.underline);
  showing_ = false;
}

void LabelStyleWindow::chooseColor() {
  CHOOSECOLORW request = {};
  request.lStructSize = sizeof request;
  request.hwndOwner = handle();
  request.lpCustColors = customColors_;
  request.rgbResult = gdiColor(plainColor(objects_.style().foreColor));
  request.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (!::ChooseColorW(&request)) return;
  host_.act([&] {
    LabelStyle style = objects_.style();
    style.foreColor = static_cast<std::int32_t>(request.rgbResult & 0xFFFFFF);
    objects_.setStyle(style);
  });
}

bool LabelStyleWindow::styleCommand(int id, int notice) {
  if (id < kLabelSizeId || id > kLabelColorId) return false;
  if (showing_) return true;
  if (id == kLabelColorId) {
    if (notice == BN_CLICKED) chooseColor();
    return true;
  }
  LabelStyle style = objects_.style();
  const auto on = [this](int button) {
    return ::SendMessageW(item(button), BM_GETCHECK, 0, 0) == BST_CHECKED;
  };
  if (id == kLabelSizeId) {
    std::string text = textOf(id);
    if (notice == CBN_SELCHANGE) {
      wchar_t chosen[8] = {};
      ::SendMessageW(item(id), CB_GETLBTEXT,
                     static_cast<WPARAM>(::SendMessageW(item(id), CB_GETCURSEL, 0, 0)),
                     reinterpret_cast<LPARAM>(chosen));
      text.assign(chosen, chosen + ::wcslen(chosen));
    } else if (notice != CBN_EDITCHANGE) {
      return true;
    }
    style.fontSize = std::atoi(text.c_str());
    if (style.fontSize < 1) return true;
  } else if (notice == BN_CLICKED) {
    style.bold = on(kLabelBoldId);
    style.italic = on(kLabelItalicId);
    style.underline = on(kLabelUnderlineId);
  } else {
    return true;
  }
  host_.act([&] { objects_.setStyle(style); });
  showStyle();
  return true;
}

}  // namespace plinth
