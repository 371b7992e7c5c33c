#include "engine/win32/ModalDialog.h"

#include <algorithm>
#include <cmath>

#include "engine/win32/Window.h"
#include "platform/win32/Win32Text.h"

namespace plinth {

INT_PTR ModalDialog::run(HWND owner) {
  struct {
    DLGTEMPLATE shape;
    WORD menu, windowClass, title;
  } empty = {};
  empty.shape.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER;
  return ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &empty.shape, owner, procedure,
                                   reinterpret_cast<LPARAM>(this));
}

std::string ModalDialog::caption(int number, const char* fallback) const {
  return runCaption(application_, number, fallback);
}

int ModalDialog::px(int units) const { return static_cast<int>(std::lround(units * scale_)); }

HFONT ModalDialog::font(float points, bool bold) {
  const FontSpec spec{application_.payload.header.fontName, points, bold, false, false, application_.charSet};
  return fonts_.get(spec, std::max(1, static_cast<int>(std::lround(points * 96 / 72 * scale_))));
}

HWND ModalDialog::add(const wchar_t* kind, const std::string& text, DWORD style, const RectPx& place, int id,
                      HFONT font) {
  const HWND control =
      ::CreateWindowExW(std::wstring_view(kind) == L"EDIT" ? WS_EX_CLIENTEDGE : 0, kind,
                        toWide(text, application_.codePage).c_str(), WS_CHILD | WS_VISIBLE | style,
                        px(place.left), px(place.top), px(place.width), px(place.height), dialog_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  return control;
}

SizePx ModalDialog::measure(const std::string& text, float points, bool bold) {
  const WindowDc dc(dialog_);
  GdiCanvas canvas(dc.get(), scale_, {}, fonts_);
  return canvas.measure(
      text, {application_.payload.header.fontName, points, bold, false, false, application_.charSet});
}

void ModalDialog::resize(int width, int height) {
  RECT frame{0, 0, px(width), px(height)};
  ::AdjustWindowRect(&frame, static_cast<DWORD>(::GetWindowLongW(dialog_, GWL_STYLE)), FALSE);
  RECT now = {};
  ::GetWindowRect(dialog_, &now);
  const LONG wide = frame.right - frame.left, high = frame.bottom - frame.top;
  ::SetWindowPos(dialog_, nullptr, now.left - (wide - (now.right - now.left)) / 2,
                 now.top - (high - (now.bottom - now.top)) / 2, wide, high, SWP_NOZORDER);
}

std::string ModalDialog::textOf(int id) const {
  wchar_t text[512] = {};
  const UINT length = ::GetDlgItemTextW(dialog_, id, text, 512);
  return fromWide(std::wstring_view(text, length), application_.codePage);
}

void ModalDialog::setText(int id, const std::string& text) const {
  ::SetDlgItemTextW(dialog_, id, toWide(text, application_.codePage).c_str());
}

void ModalDialog::begin(HWND dialog) {
  dialog_ = dialog;
  const WindowDc dc(dialog);
  scale_ = ::GetDeviceCaps(dc.get(), LOGPIXELSX) / 96.0;
  ::SetWindowTextW(dialog, toWide(application_.title, application_.codePage).c_str());
  build();
}

std::optional<INT_PTR> ModalDialog::message(UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_COMMAND) {
    if (LOWORD(wide) == IDCANCEL) {
      if (mayCancel()) ::EndDialog(dialog_, 0);
    } else if (command(LOWORD(wide), HIWORD(wide))) {
      ::EndDialog(dialog_, 1);
    }
    return TRUE;
  }
  if (message != WM_NOTIFY) return other(message, wide, param);
  notify(*reinterpret_cast<const NMHDR*>(param));
  return FALSE;
}

INT_PTR CALLBACK ModalDialog::procedure(HWND dialog, UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(dialog, DWLP_USER, param);
    guarded([&] { reinterpret_cast<ModalDialog*>(param)->begin(dialog); });
    return FALSE;  // build() chose the focus
  }
  auto* self = reinterpret_cast<ModalDialog*>(::GetWindowLongPtrW(dialog, DWLP_USER));
  std::optional<INT_PTR> result;
  if (self) guarded([&] { result = self->message(message, wide, param); });
  return result.value_or(FALSE);
}

}  // namespace plinth
