// Messages go to the controller, what it tells goes to the controls; decisions are made elsewhere.
#include "surface/win32/DesignerFrame.h"

#include <commctrl.h>
#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "platform/SystemLocale.h"
#include "platform/win32/Dialogs.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/WicPictures.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/FrameMenus.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr int kFirstWidth = 1080, kFirstHeight = 780, kBarWidth = 220;
constexpr int kIconId = 1;
// Widths of the right parts of the status bar: selection, page size, counts, object under the pointer.
constexpr int kSelectionPart = 190, kSizePart = 100, kCountPart = 110, kObjectPart = 290;
constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickMs = 5000;

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

DesignerParts partsOf(const DesignerSetup& setup, Progress& progress, HDC measuring) {
  const std::span<const std::uint8_t> icon = setup.defaultIcon;
  return {
      {setup.files, setup.messages, setup.chooser, setup.settings, setup.clock, progress, setup.programFolder,
       [icon] { return Bytes(icon.begin(), icon.end()); }, setup.firstInstance, systemCodePage()},
      setup.dialogs,
      setup.clipboard,
      setup.shell,
      decoder(),
      [measuring](std::string_view text, const FontSpec& font) {
        return GdiCanvas(measuring).measure(text, font);
      },
      systemLocale(),
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
  strip_ = std::make_unique<MenuStrip>(
      window_, kMenuStripId,
      MenuStripEvents{[this](int entry) { designer_.beginWords(entry); },
                      [this](const std::string& words) { designer_.changeWords(words); },
                      [this] { designer_.endWords(); }});
  toolbox_ = std::make_unique<ToolboxWindow>(window_, kToolboxId, designer_.surface(),
                                             [this](int command) { runFromTool(command); });
  area_ = std::make_unique<PageArea>(window_, kPageAreaId, designer_.surface(),
                                     [this](const KeyEvent& key) { return designer_.keyDown(key); });
  panel_ = std::make_unique<PanelWindow>(
      window_, kPanelId,
      PanelEvents{[this](PanelId control, const std::string& value) {
                    designer_.surface().writePanel(control, value);
                  },
                  [this](PanelId color) {
                    designer_.surface().chooseColorFor(color);
                    showColorTable();
                  },
                  [this](int dx, int dy, bool ten) { designer_.surface().pad(dx, dy, ten); },
                  [this] { ::SetFocus(area_->window()); }});
  status_ = ::CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                              window_, id(kStatusId), nullptr, nullptr);
  ::SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
  bar_ = ::CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD, 0, 0, 0, 0, status_, id(kProgressId), nullptr,
                           nullptr);
}

bool DesignerFrame::start(const std::string& commandLine, int show) {
  ready_ = true;
  if (!designer_.start(commandLine)) return false;
  retext();
  applyColors();
  place(show);
  ::SetTimer(window_, kTickTimer, kTickMs, nullptr);
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
      if (wParam == SIZE_MINIMIZED && colors_) colors_->hide();  // restoring shows the page alone
      layout();
      return 0;
    case WM_SETFOCUS:
      if (area_) ::SetFocus(area_->window());
      return 0;
    case WM_COMMAND:
      if (lParam == 0 && panel_) panel_->finish();
      if (runCommand(designer_, LOWORD(wParam))) return 0;
      break;
    case kShowPopup:
      showPopup({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_INITMENUPOPUP:
      refreshMenu(reinterpret_cast<HMENU>(wParam), designer_);
      return 0;
    case WM_TIMER:
      designer_.tick(static_cast<std::int64_t>(::GetTickCount64() / 1000));
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
      if (panel_) panel_->finish();
      designer_.exit();
      return 0;
    case WM_QUERYENDSESSION:
      if (panel_) panel_->finish();
      return designer_.mayEnd();
    case WM_DESTROY:
      ::PostQuitMessage(0);
      return 0;
    default:
      if (isChromeChange(message, lParam)) applyColors();
      break;
  }
  return ::DefWindowProcW(window_, message, wParam, lParam);
}

void DesignerFrame::layout() {
  if (!area_ || !panel_ || !status_ || ::IsIconic(window_)) return;
  ::SendMessageW(status_, WM_SIZE, 0, 0);
  RECT client, strip;
  ::GetClientRect(window_, &client);
  ::GetWindowRect(status_, &strip);
  const int high = static_cast<int>(std::max(0L, client.bottom - (strip.bottom - strip.top)));
  const int left = toolbox_->width(), right = panel_->width(), top = strip_->height();
  const int middle = std::max(0, static_cast<int>(client.right) - left - right);
  ::MoveWindow(toolbox_->window(), 0, 0, left, high, TRUE);
  ::MoveWindow(strip_->window(), left, 0, middle, top, TRUE);
  ::MoveWindow(area_->window(), left, top, middle, std::max(0, high - top), TRUE);
  ::MoveWindow(panel_->window(), client.right - right, 0, right, high, TRUE);
  layoutStatus();
}

void DesignerFrame::layoutStatus() {
  RECT strip;
  ::GetClientRect(status_, &strip);
  const auto px = [this](int pixels) { return static_cast<int>(std::lround(pixels * scale_)); };
  const int first =
      std::max<int>(px(150), strip.right - px(kSelectionPart + kSizePart + kCountPart + kObjectPart));
  int edges[] = {first, first + px(kSelectionPart), first + px(kSelectionPart + kSizePart),
                 first + px(kSelectionPart + kSizePart + kCountPart), -1};
  ::SendMessageW(status_, SB_SETPARTS, 5, reinterpret_cast<LPARAM>(edges));
  ::MoveWindow(bar_, std::max(0, first - px(kBarWidth)), 4, px(kBarWidth) - 8, strip.bottom - 7, TRUE);
}

void DesignerFrame::scaleChanged(const RECT& suggested) {
  scale_ = windowScale(window_);
  font_ = messageFont(scale_);
  ::SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
  area_->scaleChanged();
  toolbox_->scaleChanged();
  strip_->scaleChanged();
  panel_->scaleChanged();
  if (colors_) colors_->scaleChanged();
  ::SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

// A tool hands its object to the mouse, so the keys belong to the page.
void DesignerFrame::runFromTool(int command) {
  runCommand(designer_, command);
  ::SetFocus(area_->window());
}

void DesignerFrame::applyColors() {
  const ChromeColors colors = systemChrome();
  setTitleDark(window_, colors.dark);
  toolbox_->setColors(colors);
  strip_->setColors(colors);
  panel_->setColors(colors);
  area_->setColors(colors);
  if (colors_) colors_->setColors(colors);
}

bool DesignerFrame::translate(MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  if (!::IsChild(window_, message.hwnd)) return colors_ && colors_->translate(message);
  if (message.wParam == VK_F6) {
    focusNextPart(::GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
    return true;
  }
  if (panel_->translate(message) || toolbox_->translate(message) || area_->translate(message)) return true;
  if (onCommandKey(message)) return true;
  const bool inStrip = ::IsChild(strip_->window(), message.hwnd);
  const bool inTools = ::IsChild(toolbox_->window(), message.hwnd);
  return message.wParam == VK_TAB && (inStrip || inTools) && ::IsDialogMessageW(window_, &message);
}

// Keys of the menu work wherever the focus is; a box that is typed into keeps those of editing.
bool DesignerFrame::onCommandKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.hwnd == area_->window()) return false;
  const KeyEvent key{static_cast<int>(message.wParam), shiftState()};
  const int command = commandOfKey(key);
  if (command == 0) return false;
  wchar_t type[16] = {};
  ::GetClassNameW(message.hwnd, type, 16);
  if (isEditingKey(key) && (std::wstring(type) == L"Edit" || std::wstring(type) == L"ComboBox")) return false;
  panel_->finish();
  return runCommand(designer_, command);
}

// F6 goes round toolbox, the application's menus, page tabs, page and panel.
void DesignerFrame::focusNextPart(int step) {
  const HWND parts[] = {toolbox_->window(), strip_->window(), area_->chosenTab(), area_->window(),
                        panel_->window()};
  constexpr int kParts = 5;
  const HWND focus = ::GetFocus();
  int at = 0;
  for (int i = 0; i < kParts; ++i)
    if (parts[i] == focus || (parts[i] != area_->window() && ::IsChild(parts[i], focus))) at = i;
  const HWND part = parts[(at + step + kParts) % kParts];
  const bool whole = part == area_->window() || part == area_->chosenTab();
  const HWND first = whole ? part : ::GetNextDlgTabItem(part, nullptr, FALSE);
  ::SetFocus(first ? first : area_->window());
}

void DesignerFrame::dropFiles(WPARAM parameter) {
  const auto drop = reinterpret_cast<HDROP>(parameter);
  std::wstring path(static_cast<std::size_t>(::DragQueryFileW(drop, 0, nullptr, 0)) + 1, L'\0');
  ::DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size()));
  ::DragFinish(drop);
  designer_.openPath(fromWide(path.c_str(), systemCodePage()));
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
