#include "engine/win32/SearchWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "basic/Text.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr int kCaseId = 11, kForwardId = 12, kBackwardId = 13, kKeepId = 14;
constexpr int kWide = 430, kHigh = 116, kMostTyped = 20;
constexpr const char* kWidthKey = "FindWidth";

}  // namespace

SearchWindow::SearchWindow(EngineHost& host, Searches& searches, Settings& settings)
    : ToolWindow(host.application()), host_(host), searches_(searches), settings_(settings), kept_(settings) {}

bool SearchWindow::make(HWND owner) {
  if (!openAbove(owner, L"PlinthSearch", "", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, {kWide, kHigh}))
    return false;
  add(L"COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, kLineId);
  add(L"BUTTON", "", WS_TABSTOP | BS_AUTOCHECKBOX | BS_PUSHLIKE | BS_CENTER, kKeepId);
  add(L"BUTTON", caption(21, "Match case"), WS_TABSTOP | BS_AUTOCHECKBOX, kCaseId);
  add(L"BUTTON", caption(22, "Forward"), WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, kForwardId);
  add(L"BUTTON", caption(23, "Backward"), BS_AUTORADIOBUTTON, kBackwardId);
  add(L"BUTTON", caption(18, "Find"), WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, IDOK);
  add(L"BUTTON", caption(65, "Close"), WS_TABSTOP, IDCANCEL);
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                            handle(), nullptr, nullptr, nullptr);
  setFonts();
  const std::string width = settings_.get("Settings", kWidthKey, "");
  centre(owner);
  if (const int kept = std::atoi(width.c_str()); kept >= px(300) && kept <= 10000) {
    RECT place = {};
    ::GetWindowRect(handle(), &place);
    ::SetWindowPos(handle(), nullptr, 0, 0, kept, place.bottom - place.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  arrange();
  return true;
}

void SearchWindow::arrange() {
  const int wide = static_cast<int>(inside().cx), edge = 12;
  const int line = wide - 2 * edge - 34;
  // The height of a combo counts its list.
  put(kLineId, edge, 14, line, 220);
  put(kKeepId, edge + line + 6, 13, 28, 24);
  put(kCaseId, edge, 46, 130, 20);
  put(kForwardId, edge + 140, 46, 110, 20);
  put(kBackwardId, edge + 250, 46, 130, 20);
  put(IDOK, wide - edge - 176, 78, 84, 26);
  put(IDCANCEL, wide - edge - 84, 78, 84, 26);
}

void SearchWindow::open(HWND owner, SearchResult* within, const std::string& text) {
  if (!handle() && !make(owner)) return;
  within_ = within;
  const std::string label = searches_.session().tools().searchLabel;
  std::string title = caption(18, "Find");
  if (!label.empty()) title += ": " + label;
  if (within_) title += "  (" + within_->line + ")";
  ::SetWindowTextW(handle(), wide(title).c_str());
  ::SendMessageW(item(kCaseId), BM_SETCHECK, searches_.matchCase ? BST_CHECKED : BST_UNCHECKED, 0);
  ::SendMessageW(item(kForwardId), BM_SETCHECK, searches_.upward ? BST_CHECKED : BST_UNCHECKED, 0);
  ::SendMessageW(item(kBackwardId), BM_SETCHECK, searches_.upward ? BST_UNCHECKED : BST_CHECKED, 0);
  if (!text.empty()) setText(kLineId, text);
  fill();
  ::ShowWindow(handle(), SW_SHOW);
  ::SetForegroundWindow(handle());
  ::SetFocus(item(kLineId));
  ::SendMessageW(item(kLineId), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

// Model lines for the object in focus, the lines of this run, the kept ones.
void SearchWindow::fill() {
  const HWND combo = item(kLineId);
  const std::string before = line();
  ::SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  std::vector<std::string> lines =
      modelLines(application_, searches_.session().form(), searches_.session().focus());
  lines.insert(lines.end(), typed_.begin(), typed_.end());
  for (const std::string& kept : kept_.lines())
    if (std::find(lines.begin(), lines.end(), kept) == lines.end()) lines.push_back(kept);
  for (const std::string& text : lines)
    ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(text).c_str()));
  ::SetWindowTextW(combo, wide(before).c_str());
  showKept();
}

// Plus keeps a line, minus removes it; the tip says so.
void SearchWindow::showKept() {
  const bool kept = kept_.holds(trim(line()));
  ::SendMessageW(item(kKeepId), BM_SETCHECK, kept ? BST_CHECKED : BST_UNCHECKED, 0);
  ::SetWindowTextW(item(kKeepId), kept ? L"\x2212" : L"+");
  TTTOOLINFOW tip = {};
  tip.cbSize = sizeof tip;
  tip.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tip.hwnd = handle();
  tip.uId = reinterpret_cast<UINT_PTR>(item(kKeepId));
  ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  wchar_t keep[] = L"Keep...", remove[] = L"Remove...";
  tip.lpszText = kept ? remove : keep;
  ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
}

void SearchWindow::run() {
  const std::string text = trim(line());
  if (text.empty()) return;
  if (std::find(typed_.begin(), typed_.end(), text) == typed_.end()) {
    typed_.insert(typed_.begin(), text);
    if (typed_.size() > kMostTyped) typed_.pop_back();
  }
  SearchResult* within = within_;
  hide();
  host_.act([&] { searches_.search(text, within); });
}

void SearchWindow::forget(const SearchResult& result) {
  if (within_ == &result) forget();
}

void SearchWindow::forget() {
  within_ = nullptr;
  if (visible()) hide();
}

void SearchWindow::hide() {
  RECT place = {};
  ::GetWindowRect(handle(), &place);
  settings_.set("Settings", kWidthKey, std::to_string(place.right - place.left));
  ::ShowWindow(handle(), SW_HIDE);
}

void SearchWindow::command(int id, int notice) {
  switch (id) {
    case IDOK:
      return run();
    case IDCANCEL:
      return hide();
    case kCaseId:
      searches_.matchCase = ::SendMessageW(item(kCaseId), BM_GETCHECK, 0, 0) == BST_CHECKED;
      return;
    case kForwardId:
    case kBackwardId:
      searches_.upward = id == kForwardId;
      return;
    case kKeepId:
      kept_.toggle(trim(line()));
      return fill();
    case kLineId:
      // The edit line shows a choice only after this notice.
      if (notice == CBN_EDITCHANGE) showKept();
      if (notice == CBN_SELCHANGE) ::PostMessageW(handle(), WM_APP, 0, 0);
      return;
    default:
      return;
  }
}

LRESULT SearchWindow::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_APP:
      showKept();
      return 0;
    case WM_SIZE:
      if (item(IDCANCEL)) arrange();
      return 0;
    case WM_GETMINMAXINFO: {
      RECT frame{0, 0, px(400), px(kHigh)};
      ::AdjustWindowRectEx(&frame, static_cast<DWORD>(::GetWindowLongPtrW(handle(), GWL_STYLE)), FALSE,
                           WS_EX_CONTROLPARENT);
      auto& room = *reinterpret_cast<MINMAXINFO*>(param);
      room.ptMinTrackSize = {frame.right - frame.left, frame.bottom - frame.top};
      room.ptMaxTrackSize.y = frame.bottom - frame.top;
      return 0;
    }
    case WM_CLOSE:
      hide();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
