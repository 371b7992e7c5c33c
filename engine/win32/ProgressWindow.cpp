#include "engine/win32/ProgressWindow.h"

#include <commctrl.h>

#include <algorithm>

namespace plinth {
namespace {

constexpr int kBarId = 10, kTextId = 11;
constexpr int kBarWide = 201, kWide = kBarWide + 32, kHigh = 92, kRange = 1000;
// Work that is done sooner needs no window; the eye sees no more steps than these.
constexpr ULONGLONG kShowAfter = 150, kBetween = 30;

}  // namespace

void pumpWaitingMessages(const ToolWindow* window) {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) && message.message != WM_QUIT) {
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) break;
    if (window && window->takes(message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

bool ProgressWindow::open(HWND owner) {
  owner_ = owner;
  if (!openAbove(owner, L"PlinthProgress", application_.title, WS_POPUP | WS_CAPTION, {kWide, kHigh}))
    return false;
  add(L"STATIC", "0 %", SS_CENTER | SS_NOPREFIX, kTextId);
  const HWND bar = add(PROGRESS_CLASSW, "", 0, kBarId);
  ::SendMessageW(bar, PBM_SETRANGE32, 0, kRange);
  add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP | BS_DEFPUSHBUTTON, IDCANCEL);
  put(kTextId, 16, 12, kBarWide, 16);
  put(kBarId, 16, 32, kBarWide, 14);
  put(IDCANCEL, (kWide - 84) / 2, 56, 84, 26);
  setFonts();
  return true;
}

void ProgressWindow::title(std::string_view text) {
  if (!handle()) return;
  working_ = !text.empty();
  cancelled_ = false;
  if (!working_) {
    // First the owner, or another program's window would come to the front.
    ::EnableWindow(owner_, TRUE);
    ::ShowWindow(handle(), SW_HIDE);
    if (!::GetFocus() && ::GetActiveWindow() == owner_ && ::IsWindowEnabled(focus_)) ::SetFocus(focus_);
    return;
  }
  ::SetWindowTextW(handle(), wide(text).c_str());
  ::SendMessageW(item(kBarId), PBM_SETPOS, 0, 0);
  setText(kTextId, "0 %");
  setCancellable(true);
  // A disabled window keeps the keyboard in its boxes.
  focus_ = ::GetFocus();
  ::EnableWindow(owner_, FALSE);
  if (::IsChild(owner_, focus_)) ::SetFocus(nullptr);
  began_ = drawn_ = ::GetTickCount64();
}

void ProgressWindow::setCancellable(bool cancellable) {
  cancellable_ = cancellable;
  ::EnableWindow(item(IDCANCEL), cancellable);
}

bool ProgressWindow::step(std::int64_t done, std::int64_t total) {
  if (!working_ || cancelled_) return !cancelled_;
  const ULONGLONG now = ::GetTickCount64();
  if (now - drawn_ < kBetween) return true;
  drawn_ = now;
  if (!visible() && now - began_ >= kShowAfter) {
    centre(owner_);
    ::ShowWindow(handle(), SW_SHOW);
  }
  const double part =
      total > 0 ? std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0) : 0;
  ::SendMessageW(item(kBarId), PBM_SETPOS, static_cast<WPARAM>(part * kRange), 0);
  setText(kTextId, std::to_string(static_cast<int>(part * 100)) + " %");
  pumpWaitingMessages(this);
  return !cancelled_;
}

LRESULT ProgressWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (message == WM_CLOSE || (message == WM_COMMAND && LOWORD(wide) == IDCANCEL)) {
    // Esc comes here also while the button is grey.
    if (cancellable_) cancelled_ = true;
    ::EnableWindow(item(IDCANCEL), FALSE);
    return 0;
  }
  return standard(message, wide, param);
}

}  // namespace plinth
