#include "engine/win32/EngineDialogs.h"

#include <commctrl.h>

#include <algorithm>

#include "engine/win32/ModalDialog.h"

namespace plinth {
namespace {

constexpr int kIconId = 10, kTitleId = 11, kCopyrightId = 12, kAddressId = 13, kNameId = 20, kPasswordId = 21,
              kPromptId = 22, kBackId = 23;

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

// Every key of the password is tried; a wrong one shows nothing. Where a name is asked for it comes first,
// and any name leads on to the password: nothing here tells which names there are.
class LoginBox : public ModalDialog {
 public:
  explicit LoginBox(RecordSession& session) : ModalDialog(session.application()), session_(session) {}

 protected:
  void build() override {
    const int wide = 260, left = 18, high = 22, button = 80;
    const bool asksName = loginAsksName(session_.start().users);
    const RectPx box{left, 34, wide, high};
    add(L"STATIC", "", 0, {left, 16, wide, 18}, kPromptId, font(9));
    if (asksName) add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, box, kNameId, font(9));
    add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD, box, kPasswordId, font(9));
    const int row = 72, second = left + wide - 2 * button - 8;
    if (asksName) {
      add(L"BUTTON", caption(61, "OK"), WS_TABSTOP | BS_DEFPUSHBUTTON, {second, row, button, 26}, IDOK,
          font(9));
      add(L"BUTTON", std::string("< ").append(caption(52, "User")), WS_TABSTOP, {second, row, button, 26},
          kBackId, font(9));
    }
    add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP, {left + wide - button, row, button, 26}, IDCANCEL,
        font(9));
    resize(2 * left + wide, row + 26 + 14);
    ::SetWindowPos(dialog_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ask(asksName);
  }
  bool command(int id, int notice) override {
    if (id == kBackId) ask(true);
    // Tab leaves the name for the button.
    const bool left = id == kNameId && notice == EN_KILLFOCUS && ::GetFocus() == item(IDOK);
    if (left) ::PostMessageW(dialog_, WM_COMMAND, IDOK, 0);
    if (id == IDOK && asksName_ && !textOf(kNameId).empty()) ask(false);
    if (id != kPasswordId || notice != EN_CHANGE) return false;
    return session_.tryLogin(textOf(kNameId), textOf(kPasswordId));
  }

 private:
  void ask(bool name) {
    asksName_ = name;
    setText(kPromptId, name ? caption(52, "User") : caption(53, "Password"));
    setText(kPasswordId, "");
    const auto show = [this](int id, bool shown) { ::ShowWindow(item(id), shown ? SW_SHOW : SW_HIDE); };
    show(kNameId, name);
    show(kPasswordId, !name);
    ::SetFocus(item(name ? kNameId : kPasswordId));
    show(IDOK, name);
    show(kBackId, !name);
  }
  RecordSession& session_;
  bool asksName_ = false;
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
