// Messages go to the controller, what it tells goes to the controls; decisions are made elsewhere.
#include "surface/win32/DesignerFrame.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <cmath>

#include "platform/win32/Dialogs.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/WicPictures.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr int kFirstWidth = 1080, kFirstHeight = 780, kBarWidth = 220;
constexpr int kIconId = 1;
// Widths of the right parts of the status bar: page size, counts, object under the pointer.
constexpr int kSizePart = 110, kCountPart = 120, kObjectPart = 300;

WicDecoder& decoder() {
  static WicDecoder pictures;
  return pictures;
}

void registerClass(WNDPROC procedure) {
  WNDCLASSEXW type = {};
  type.cbSize = sizeof type;
  type.lpfnWndProc = procedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hIcon = ::LoadIconW(type.hInstance, MAKEINTRESOURCEW(kIconId));
  type.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
  type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  type.lpszClassName = DesignerFrame::kClass;
  ::RegisterClassExW(&type);  // fails when it is registered already
}

std::wstring entryText(const MenuEntry& entry) {
  return wideUtf8(entry.keyText.empty() ? entry.text : entry.text + "\t" + entry.keyText);
}

bool sameStory(const std::vector<Menu>& a, const std::vector<Menu>& b) {
  const auto sameEntry = [](const MenuEntry& x, const MenuEntry& y) {
    return x.id == y.id && x.text == y.text;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const Menu& x, const Menu& y) {
    return x.title == y.title &&
           std::equal(x.entries.begin(), x.entries.end(), y.entries.begin(), y.entries.end(), sameEntry);
  });
}

// The window owns the menu once it is set.
HMENU menuBar(const std::vector<Menu>& menus) {
  const HMENU bar = ::CreateMenu();
  for (const Menu& menu : menus) {
    const HMENU popup = ::CreatePopupMenu();
    for (const MenuEntry& entry : menu.entries)
      ::AppendMenuW(popup, entry.id == 0 ? MF_SEPARATOR : MF_STRING, static_cast<UINT_PTR>(entry.id),
                    entryText(entry).c_str());
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), wideUtf8(menu.title).c_str());
  }
  return bar;
}

DesignerParts partsOf(const DesignerSetup& setup, Progress& progress, HDC measuring) {
  const std::span<const std::uint8_t> icon = setup.defaultIcon;
  return {{setup.files, setup.messages, setup.chooser, setup.settings, setup.clock, progress,
           setup.programFolder, [icon] { return Bytes(icon.begin(), icon.end()); }, setup.firstInstance,
           systemCodePage()},
          setup.dialogs,
          decoder(),
          [measuring](std::string_view text, const FontSpec& font) {
            return GdiCanvas(measuring).measure(text, font);
          },
          setup.stub,
          icon,
          setup.version,
          systemCodePage()};
}

}  // namespace

DesignerFrame::DesignerFrame(const DesignerSetup& setup)
    : measuring_(::CreateCompatibleDC(nullptr)), designer_(partsOf(setup, *this, measuring_.get()), *this) {
  registerClass(windowProcedure<DesignerFrame>);
  window_ = ::CreateWindowExW(WS_EX_ACCEPTFILES, kClass, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                              CW_USEDEFAULT, CW_USEDEFAULT, kFirstWidth, kFirstHeight, nullptr, nullptr,
                              ::GetModuleHandleW(nullptr), this);
  scale_ = windowScale(window_);
  makeChildren();
}

DesignerFrame::~DesignerFrame() {
  if (!window_) return;
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  ::DestroyWindow(window_);
}

void DesignerFrame::makeChildren() {
  const auto id = [](int number) { return reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)); };
  font_ = messageFont(scale_);
  area_ = std::make_unique<PageArea>(window_, kPageAreaId, designer_.surface(),
                                     [this](const KeyEvent& key) { return designer_.keyDown(key); });
  status_ = ::CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                              window_, id(kStatusId), nullptr, nullptr);
  ::SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
  bar_ = ::CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD, 0, 0, 0, 0, status_, id(kProgressId), nullptr,
                           nullptr);
}

bool DesignerFrame::start(const std::string& commandLine, int show) {
  ready_ = true;
  if (!designer_.start(commandLine)) return false;
  place(show);
  ::SetFocus(area_->window());
  return true;
}

// Where it stood before, but never beyond the screens of today.
void DesignerFrame::place(int show) {
  RECT now;
  ::GetWindowRect(window_, &now);
  POINT corner{twipsToPixels(static_cast<float>(
                   designer_.shell().position("Form1Left", static_cast<int>(pixelsToTwips(now.left))))),
               twipsToPixels(static_cast<float>(
                   designer_.shell().position("Form1Top", static_cast<int>(pixelsToTwips(now.top)))))};
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromPoint(corner, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  const LONG wide = std::min<LONG>(std::lround(kFirstWidth * scale_), work.right - work.left);
  const LONG high = std::min<LONG>(std::lround(kFirstHeight * scale_), work.bottom - work.top);
  corner.x = std::clamp(corner.x, work.left, work.right - wide);
  corner.y = std::clamp(corner.y, work.top, work.bottom - high);
  ::SetWindowPos(window_, nullptr, corner.x, corner.y, wide, high, SWP_NOZORDER | SWP_NOACTIVATE);
  ::ShowWindow(window_, show);
  ::UpdateWindow(window_);
}

void DesignerFrame::keepPlace() {
  if (::IsIconic(window_)) return;
  WINDOWPLACEMENT placed = {};
  placed.length = sizeof placed;
  RECT now;
  ::GetWindowRect(window_, &now);
  if (::IsZoomed(window_) && ::GetWindowPlacement(window_, &placed)) now = placed.rcNormalPosition;
  designer_.shell().keepPosition("Form1Left", static_cast<int>(pixelsToTwips(now.left)));
  designer_.shell().keepPosition("Form1Top", static_cast<int>(pixelsToTwips(now.top)));
}

LRESULT DesignerFrame::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      layout();
      return 0;
    case WM_SETFOCUS:
      if (area_) ::SetFocus(area_->window());
      return 0;
    case WM_COMMAND:
      if (runCommand(designer_, LOWORD(wParam))) return 0;
      break;
    case WM_INITMENUPOPUP:
      updateMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_DROPFILES:
      dropFiles(wParam);
      return 0;
    case WM_SETCURSOR:
      if (!waiting_ || LOWORD(lParam) != HTCLIENT) break;
      ::SetCursor(::LoadCursorA(nullptr, IDC_WAIT));
      return TRUE;
    case 0x02E0:
      scaleChanged(*reinterpret_cast<const RECT*>(lParam));
      return 0;  // WM_DPICHANGED
    case WM_CLOSE:
      designer_.exit();
      return 0;
    case WM_QUERYENDSESSION:
      return designer_.shell().mayExit();
    case WM_DESTROY:
      ::PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

void DesignerFrame::layout() {
  if (!area_ || !status_ || ::IsIconic(window_)) return;
  ::SendMessageW(status_, WM_SIZE, 0, 0);
  RECT client, strip;
  ::GetClientRect(window_, &client);
  ::GetWindowRect(status_, &strip);
  const LONG high = std::max(0L, client.bottom - (strip.bottom - strip.top));
  ::MoveWindow(area_->window(), 0, 0, client.right, high, TRUE);
  layoutStatus();
}

void DesignerFrame::layoutStatus() {
  RECT strip;
  ::GetClientRect(status_, &strip);
  const auto px = [this](int pixels) { return static_cast<int>(std::lround(pixels * scale_)); };
  const int first = std::max<int>(px(150), strip.right - px(kSizePart + kCountPart + kObjectPart));
  int edges[] = {first, first + px(kSizePart), first + px(kSizePart + kCountPart), -1};
  ::SendMessageW(status_, SB_SETPARTS, 4, reinterpret_cast<LPARAM>(edges));
  ::MoveWindow(bar_, std::max(0, first - px(kBarWidth)), 4, px(kBarWidth) - 8, strip.bottom - 7, TRUE);
}

void DesignerFrame::scaleChanged(const RECT& suggested) {
  scale_ = windowScale(window_);
  font_ = messageFont(scale_);
  ::SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
  area_->scaleChanged();
  ::SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// What can be used and what is chosen is asked when a menu opens, not kept.
void DesignerFrame::updateMenu(HMENU menu) {
  for (const Menu& now : designerMenus(designer_))
    for (const MenuEntry& entry : now.entries) {
      if (entry.id == 0) continue;
      const auto id = static_cast<UINT>(entry.id);
      ::EnableMenuItem(menu, id, MF_BYCOMMAND | (entry.enabled ? MF_ENABLED : MF_GRAYED));
      ::CheckMenuItem(menu, id, MF_BYCOMMAND | (entry.checked ? MF_CHECKED : MF_UNCHECKED));
    }
}

void DesignerFrame::dropFiles(WPARAM parameter) {
  const auto drop = reinterpret_cast<HDROP>(parameter);
  std::wstring path(static_cast<std::size_t>(::DragQueryFileW(drop, 0, nullptr, 0)) + 1, L'\0');
  ::DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size()));
  ::DragFinish(drop);
  designer_.openPath(fromWide(path.c_str(), systemCodePage()));
}

void DesignerFrame::invalidate() {
  if (area_) area_->invalidate();
}

void DesignerFrame::scrollChanged() {
  if (area_) area_->showScroll();
}

void DesignerFrame::pageChanged() {
  if (ready_) statusChanged();
}

void DesignerFrame::objectPointedAt(const std::string& name) {
  if (ready_) designer_.setPointed(name);
}

void DesignerFrame::showCaption(const std::string& utf8) {
  ::SetWindowTextW(window_, wideUtf8(utf8).c_str());
}

void DesignerFrame::menusChanged() {
  if (!ready_ || !window_) return;
  std::vector<Menu> now = designerMenus(designer_);
  if (sameStory(menus_, now)) return;
  menus_ = std::move(now);
  const HMENU before = ::GetMenu(window_);
  ::SetMenu(window_, menuBar(menus_));
  if (before) ::DestroyMenu(before);
}

void DesignerFrame::statusChanged() {
  if (!ready_ || !status_ || working_) return;
  const std::vector<std::string> parts = designer_.status();
  for (std::size_t i = 0; i < parts.size(); ++i)
    ::SendMessageW(status_, SB_SETTEXTW, i, reinterpret_cast<LPARAM>(wideUtf8(" " + parts[i]).c_str()));
}

void DesignerFrame::setBusy(bool busy) {
  waiting_ = busy;
  ::SetCursor(::LoadCursorA(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

void DesignerFrame::end() {
  keepPlace();
  ::DestroyWindow(window_);
}

void DesignerFrame::title(std::string_view text) {
  working_ = !text.empty();
  cancelled_ = false;
  setBusy(working_);
  ::ShowWindow(bar_, working_ ? SW_SHOWNA : SW_HIDE);
  ::SendMessageW(bar_, PBM_SETPOS, 0, 0);
  if (working_) {
    const std::wstring shown = L" " + toWide(text, designer_.languageCodePage());
    ::SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(shown.c_str()));
  } else {
    statusChanged();
  }
  pump();
}

bool DesignerFrame::step(std::int64_t done, std::int64_t total) {
  constexpr int kSteps = 1000;
  ::SendMessageW(bar_, PBM_SETRANGE32, 0, kSteps);
  const std::int64_t part = total > 0 ? std::clamp<std::int64_t>(done, 0, total) * kSteps / total : 0;
  ::SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(part), 0);
  pump();
  return !cancelled_;
}

// Lets the window live during long work; the controller refuses commands meanwhile.
void DesignerFrame::pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      ::PostQuitMessage(static_cast<int>(message.wParam));
      cancelled_ = true;
      return;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) cancelled_ = true;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace plinth
