// Day serials to the system's dates and back.
#include "engine/win32/CalendarPopup.h"

#include <commctrl.h>

#include <algorithm>

#include "basic/DateSerial.h"

namespace plinth {

void CalendarPopup::open(HWND owner, const RECT& below, double serial, std::function<void(double)> picked) {
  close();
  picked_ = std::move(picked);
  Request request;
  request.className = L"PlinthCalendar";
  request.style = WS_POPUP | WS_BORDER;
  request.extended = WS_EX_TOOLWINDOW;
  request.parent = owner;
  request.place = {below.left, below.bottom, below.left + 10, below.bottom + 10};
  request.classStyle = CS_DROPSHADOW;
  if (!create(request)) return;
  calendar_ = ::CreateWindowExW(0, MONTHCAL_CLASSW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, handle(),
                                nullptr, nullptr, nullptr);
  ::SendMessageW(calendar_, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  ::SetWindowSubclass(calendar_, keys, 0, reinterpret_cast<DWORD_PTR>(this));
  if (serial > 0 && isDateSerial(serial)) {
    const CivilTime day = toCivil(serial);
    SYSTEMTIME shown = {};
    shown.wYear = static_cast<WORD>(day.year);
    shown.wMonth = static_cast<WORD>(day.month);
    shown.wDay = static_cast<WORD>(day.day);
    ::SendMessageW(calendar_, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&shown));
  }
  RECT size = {};
  ::SendMessageW(calendar_, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&size));
  ::SetWindowPos(calendar_, nullptr, 0, 0, size.right, size.bottom, SWP_NOZORDER);
  // Where there is no room below it opens above.
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromRect(&below, MONITOR_DEFAULTTONEAREST), &monitor);
  const LONG wide = size.right + 2, high = size.bottom + 2;
  const LONG left = std::clamp<LONG>(below.left, monitor.rcWork.left,
                                     std::max(monitor.rcWork.left, monitor.rcWork.right - wide));
  const LONG top = below.bottom + high <= monitor.rcWork.bottom
                       ? below.bottom
                       : std::max(monitor.rcWork.top, below.top - high);
  ::SetWindowPos(handle(), HWND_TOP, left, top, wide, high, SWP_SHOWWINDOW);
  ::SetFocus(calendar_);
}

void CalendarPopup::close() {
  if (!handle() || closing_) return;
  closing_ = true;
  ::DestroyWindow(handle());
  closing_ = false;
  calendar_ = nullptr;
}

void CalendarPopup::choose() {
  SYSTEMTIME day = {};
  if (!::SendMessageW(calendar_, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day))) return;
  const auto picked = picked_;
  const HWND owner = ::GetWindow(handle(), GW_OWNER);
  close();
  ::SetActiveWindow(owner);
  if (picked) picked(toSerial({day.wYear, day.wMonth, day.wDay, 0, 0, 0}));
}

LRESULT CALLBACK CalendarPopup::keys(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR,
                                     DWORD_PTR self) {
  auto* popup = reinterpret_cast<CalendarPopup*>(self);
  if (message == WM_KEYDOWN && (wide == VK_ESCAPE || wide == VK_RETURN)) {
    guarded([&] {
      if (wide == VK_RETURN)
        popup->choose();
      else
        popup->close();
    });
    return 0;
  }
  return ::DefSubclassProc(window, message, wide, param);
}

LRESULT CalendarPopup::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_NOTIFY:
      // Arrow keys move the mark without choosing; only a click chooses.
      if (reinterpret_cast<const NMHDR*>(param)->code == static_cast<UINT>(MCN_SELECT))
        ::PostMessageW(handle(), WM_APP, 0, 0);
      return 0;
    case WM_APP:
      choose();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wide) == WA_INACTIVE && !closing_) ::PostMessageW(handle(), WM_CLOSE, 0, 0);
      return 0;
    case WM_CLOSE:
      close();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
