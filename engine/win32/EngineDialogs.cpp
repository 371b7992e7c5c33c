// Dialogs are made from an empty template, so that Tab, Enter and Esc work as everywhere; the controls follow
// from the texts' sizes.
#include "engine/win32/EngineDialogs.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "engine/win32/Window.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr int kIconId = 10, kTitleId = 11, kCopyrightId = 12, kAddressId = 13, kNameId = 20, kPasswordId = 21;

class ModalDialog {
 public:
  explicit ModalDialog(const Application& application) : application_(application) {}
  virtual ~ModalDialog() = default;
  INT_PTR run(HWND owner) {
    struct {
      DLGTEMPLATE shape;
      WORD menu, windowClass, title;
    } empty = {};
    empty.shape.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER;
    return ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &empty.shape, owner, procedure,
                                     reinterpret_cast<LPARAM>(this));
  }

 protected:
  virtual void build() = 0;
  virtual bool command(int id, int notice) = 0;  // true: closes the dialog well
  virtual void notify(const NMHDR&) {}

  std::string caption(int number, const char* fallback) const {
    const std::string text = runCaption(application_, number);
    return text.empty() ? fallback : text;
  }
  int px(int units) const { return static_cast<int>(std::lround(units * scale_)); }
  HFONT font(float points, bool bold = false) {
    const FontSpec spec{
        application_.payload.header.fontName, points, bold, false, false, application_.charSet};
    return fonts_.get(spec, std::max(1, static_cast<int>(std::lround(points * 96 / 72 * scale_))));
  }
  HWND add(const wchar_t* kind, const std::string& text, DWORD style, const RectPx& place, int id,
           HFONT font) {
    const HWND control =
        ::CreateWindowExW(std::wstring_view(kind) == L"EDIT" ? WS_EX_CLIENTEDGE : 0, kind,
                          toWide(text, application_.codePage).c_str(), WS_CHILD | WS_VISIBLE | style,
                          px(place.left), px(place.top), px(place.width), px(place.height), dialog_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    return control;
  }
  // Units that a text takes up.
  SizePx measure(const std::string& text, float points, bool bold = false) {
    const WindowDc dc(dialog_);
    GdiCanvas canvas(dc.get(), scale_, {}, fonts_);
    return canvas.measure(
        text, {application_.payload.header.fontName, points, bold, false, false, application_.charSet});
  }
  void resize(int width, int height) {
    RECT frame{0, 0, px(width), px(height)};
    ::AdjustWindowRect(&frame, static_cast<DWORD>(::GetWindowLongW(dialog_, GWL_STYLE)), FALSE);
    RECT now = {};
    ::GetWindowRect(dialog_, &now);
    const LONG wide = frame.right - frame.left, high = frame.bottom - frame.top;
    ::SetWindowPos(dialog_, nullptr, now.left - (wide - (now.right - now.left)) / 2,
                   now.top - (high - (now.bottom - now.top)) / 2, wide, high, SWP_NOZORDER);
  }
  std::string textOf(int id) const {
    wchar_t text[512] = {};
    const UINT length = ::GetDlgItemTextW(dialog_, id, text, 512);
    return fromWide(std::wstring_view(text, length), application_.codePage);
  }

  const Application& application_;
  HWND dialog_ = nullptr;
  double scale_ = 1;
  FontCache fonts_;

 private:
  void begin(HWND dialog) {
    dialog_ = dialog;
    const WindowDc dc(dialog);
    scale_ = ::GetDeviceCaps(dc.get(), LOGPIXELSX) / 96.0;
    ::SetWindowTextW(dialog, toWide(application_.title, application_.codePage).c_str());
    build();
  }
  static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM param) {
    if (message == WM_INITDIALOG) {
      ::SetWindowLongPtrW(dialog, DWLP_USER, param);
      guarded([&] { reinterpret_cast<ModalDialog*>(param)->begin(dialog); });
      return FALSE;  // build() chose the focus
    }
    auto* self = reinterpret_cast<ModalDialog*>(::GetWindowLongPtrW(dialog, DWLP_USER));
    if (!self) return FALSE;
    if (message == WM_COMMAND) {
      if (LOWORD(wide) == IDCANCEL)
        ::EndDialog(dialog, 0);
      else
        guarded([&] {
          if (self->command(LOWORD(wide), HIWORD(wide))) ::EndDialog(dialog, 1);
        });
      return TRUE;
    }
    if (message == WM_NOTIFY) guarded([&] { self->notify(*reinterpret_cast<const NMHDR*>(param)); });
    return FALSE;
  }
};

class AboutBox : public ModalDialog {
 public:
  AboutBox(const Application& application, Shell& shell) : ModalDialog(application), shell_(shell) {}

 protected:
  void build() override {
    const std::string& copyright = application_.payload.application.copyright;
    const std::string& address = application_.payload.application.webAddress;
    const SizePx title = measure(application_.title, 14, true), line = measure(copyright, 9);
    const int wide = std::clamp(std::max(title.width, line.width), 220, 480), left = 64;
    int top = 18;
    const HWND icon = add(L"STATIC", "", SS_ICON, {18, top, 32, 32}, kIconId, font(9));
    ::SendMessageW(icon, STM_SETICON,
                   reinterpret_cast<WPARAM>(::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1))),
                   0);
    add(L"STATIC", application_.title, SS_NOPREFIX, {left, top, wide, title.height}, kTitleId,
        font(14, true));
    top += title.height + 10;
    if (!copyright.empty()) {
      const int lines = 1 + line.width / wide;
      const int high = line.height * lines;
      add(L"STATIC", copyright, SS_NOPREFIX, {left, top, wide, high}, kCopyrightId, font(9));
      top += high + 8;
    }
    if (!address.empty()) {
      add(L"SysLink", "<a>" + address + "</a>", WS_TABSTOP, {left, top, wide, line.height + 2}, kAddressId,
          font(9));
      top += line.height + 10;
    }
    top = std::max(top, 56) + 8;
    const HWND ok = add(L"BUTTON", caption(61, "OK"), WS_TABSTOP | BS_DEFPUSHBUTTON,
                        {left + wide - 80, top, 80, 26}, IDOK, font(9));
    resize(left + wide + 18, top + 26 + 14);
    ::SetFocus(ok);
  }
  bool command(int id, int) override { return id == IDOK; }
  void notify(const NMHDR& notice) override {
    if (notice.idFrom != kAddressId ||
        (notice.code != static_cast<UINT>(NM_CLICK) && notice.code != static_cast<UINT>(NM_RETURN)))
      return;
    const std::string& address = application_.payload.application.webAddress;
    const bool complete = address.find("://") != std::string::npos || address.find('@') != std::string::npos;
    shell_.open(complete ? address : "http://" + address);
  }

 private:
  Shell& shell_;
};

// Every key is tried; a wrong password shows nothing. The name, where one is asked for, opens the password
// box.
class LoginBox : public ModalDialog {
 public:
  explicit LoginBox(RecordSession& session) : ModalDialog(session.application()), session_(session) {}

 protected:
  void build() override {
    const bool asksName = loginAsksName(session_.start().users);
    const int wide = 260, left = 18, step = 22;
    int top = 16;
    if (asksName) {
      add(L"STATIC", caption(52, "User"), 0, {left, top, wide, 18}, -1, font(9));
      add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, {left, top + 18, wide, step}, kNameId, font(9));
      top += 50;
    }
    add(L"STATIC", caption(53, "Password"), 0, {left, top, wide, 18}, -1, font(9));
    const HWND password = add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD,
                              {left, top + 18, wide, step}, kPasswordId, font(9));
    top += 56;
    add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP, {left + wide - 80, top, 80, 26}, IDCANCEL, font(9));
    resize(2 * left + wide, top + 26 + 14);
    ::SetWindowPos(dialog_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ::EnableWindow(password, !asksName);
    ::SetFocus(::GetDlgItem(dialog_, asksName ? kNameId : kPasswordId));
  }
  bool command(int id, int notice) override {
    if (id == kNameId && notice == EN_CHANGE)
      ::EnableWindow(::GetDlgItem(dialog_, kPasswordId),
                     knownUserName(session_.start().users, textOf(kNameId)));
    if (id != kPasswordId || notice != EN_CHANGE) return false;
    return session_.tryLogin(textOf(kNameId), textOf(kPasswordId));
  }

 private:
  RecordSession& session_;
};

}  // namespace

void showAboutBox(HWND owner, const Application& application, Shell& shell) {
  AboutBox(application, shell).run(owner);
}

// The session alone knows who is in: a dialog may end for other reasons, and say anything.
bool showLoginBox(HWND owner, RecordSession& session) {
  LoginBox(session).run(owner);
  return session.loggedIn();
}

}  // namespace plinth
