// The frame and its parts: made once, arranged anew with each size and scale.
#include "engine/win32/EngineWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "engine/win32/ControlIds.h"
#include "engine/win32/EngineDialogs.h"
#include "platform/win32/Win32Text.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

constexpr int kTabHigh = 26, kTabWide = 96, kLeastTwips = 2000, kViewStep = 24;
constexpr UINT_PTR kClockTimer = 2;
constexpr std::int32_t kBarColor = 0xECECEC, kTabColor = 0xE4E4E4;  // beside the page tabs, and of them
const FontSpec kTabFont{"Arial", 9, false, false, false, 0};
constexpr const wchar_t* kWindowClass = L"Form2";

// Whether the window of another view has its left top corner there.
bool standsAt(const RECT& place, HWND self) {
  for (HWND other = nullptr; (other = ::FindWindowExW(nullptr, other, kWindowClass, nullptr)) != nullptr;) {
    RECT there = {};
    if (other != self && ::IsWindowVisible(other) && ::GetWindowRect(other, &there) &&
        there.left == place.left && there.top == place.top)
      return true;
  }
  return false;
}

}  // namespace

EngineWindow::EngineWindow(const EngineWindowServices& services) : services_(services) {}

// Children go before the parts that their messages reach.
EngineWindow::~EngineWindow() {
  if (handle()) ::DestroyWindow(handle());
}

bool EngineWindow::makeFrame() {
  const Application& app = application();
  const WindowDc screen(nullptr);
  scale_ = ::GetDeviceCaps(screen.get(), LOGPIXELSX) / 96.0;
  Request request;
  request.className = kWindowClass;
  const std::wstring title = toWide(session_->windowTitle(), app.codePage);
  request.title = title.c_str();
  request.style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  if (app.sizable) request.style |= WS_THICKFRAME | WS_MAXIMIZEBOX;
  request.style |= WS_MINIMIZEBOX;
  if (!app.minimiseAllowed) request.style &= ~static_cast<DWORD>(WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
  request.extended = WS_EX_CONTROLPARENT;
  request.place = {0, 0, 640, 480};
  return create(request);
}

// The size of the design, but never beyond the screen. A design whose window holds its page still does so
// below the bars of the application; without a size the page decides. Frame and menu are as large as the
// system makes them.
void EngineWindow::sizeFrame() {
  const PayloadApplication& block = application().payload.application;
  RECT work = {}, client = {}, frame = {};
  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  ::GetClientRect(handle(), &client);
  ::GetWindowRect(handle(), &frame);
  const auto px = [this](float twips) {
    return static_cast<LONG>(std::lround(twips / kTwipsPerPixel * scale_));
  };
  const SIZE page = page_->size();
  const LONG bars = std::lround(
      ((toolBar_ ? ToolBar::highUnits() : 0) + (application().pageTabVisible[0] ? kTabHigh : 0)) * scale_);
  const LONG pageWide = frame.right - frame.left - client.right + page.cx;
  const LONG pageHigh = frame.bottom - frame.top - client.bottom + page.cy + bars;
  LONG wide = px(block.formWidth), high = px(block.formHeight);
  if (wide <= 0 || wide >= page.cx) wide = std::max(wide, pageWide);
  if (high <= 0 || high >= page.cy) high = std::max(high, pageHigh);
  const LONG least = px(kLeastTwips), roomWide = work.right - work.left, roomHigh = work.bottom - work.top;
  // A bar for one direction takes room from the other.
  if (high > roomHigh && wide == pageWide) wide += ::GetSystemMetrics(SM_CXVSCROLL);
  wide = std::clamp(wide, least, std::max(least, roomWide));
  high = std::clamp(high, least, std::max(least, roomHigh));
  // A new view must not hide the one it came from.
  const int step = static_cast<int>(std::lround(kViewStep * scale_));
  RECT place{work.left + (roomWide - wide) / 2, work.top + (roomHigh - high) / 2, 0, 0};
  while (standsAt(place, handle()) && place.left + wide + step <= work.right &&
         place.top + high + step <= work.bottom)
    ::OffsetRect(&place, step, step);
  ::SetWindowPos(handle(), nullptr, place.left, place.top, wide, high, SWP_NOZORDER);
}

void EngineWindow::makeTabs() {
  const Application& app = application();
  for (int i = 0; i < 5; ++i) {
    const auto n = static_cast<std::size_t>(i);
    if (!app.pageTabVisible[n]) continue;
    tabs_[n] = ::CreateWindowExW(
        0, kTabButtonClass, toWide(app.payload.application.pageCaptions[n], app.codePage).c_str(),
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS, 0, 0, 10, 10, handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kPageTabId + i)), nullptr, nullptr);
    ::SendMessageW(tabs_[n], kWidgetSetSurround, 0, kBarColor);
    ::SendMessageW(tabs_[n], kWidgetSetBackColor, 0, kTabColor);
  }
}

void EngineWindow::makeParts() {
  const Application& app = application();
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, handle(), nullptr, nullptr, nullptr);
  ::SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, 400);
  layout_ = std::make_unique<PageLayout>(app, [this](std::string_view text, const FontSpec& font) {
    const WindowDc dc(handle());
    GdiCanvas canvas(dc.get(), scale_);
    return canvas.measure(text, font);
  });
  EngineHost& host = *this;
  pictures_ = std::make_unique<PictureFiles>(services_.files, services_.decoder);
  pictures_->attach(*session_);
  boxes_ = std::make_unique<BoxWindows>(host, *layout_);
  page_ = std::make_unique<PageWindow>(host, *layout_, *boxes_, *pictures_);
  panel_ = std::make_unique<RecordPanel>(host);
  tools_ = std::make_unique<EngineTools>(host, services_.messages, services_.sharedFiles, services_.settings,
                                         services_.clipboard);
  tools_->open(handle());
  registerWidgets(::GetModuleHandleW(nullptr));
  makeMenu();
  makeTabs();
  view_.open(handle());
  page_->open(view_.handle());
  boxes_->create(page_->handle());
  objects_ = std::make_unique<ObjectTools>(
      host, *layout_, *pictures_, *page_, *boxes_,
      ObjectServices{services_.messages, services_.chooser, services_.shell, services_.files,
                     services_.decoder, services_.settings});
  const bool onPage = app.payload.application.frame3Visible;
  if (app.toolBarVisible) {
    toolBar_ = std::make_unique<ToolBar>(
        host, [this](const MenuEntry& entry) { return mayRun(entry); },
        [this](const MenuEntry& entry) { choose(entry); });
    toolBar_->open(handle());
  }
  if (onPage || toolBar_) panel_->open(onPage ? page_->handle() : toolBar_->handle());
  if (toolBar_ && !onPage) toolBar_->hold(panel_.get());
  if (app.sizable)
    grip_ = ::CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBS_SIZEGRIP, 0,
                              0, 10, 10, handle(), nullptr, nullptr, nullptr);
}

bool EngineWindow::open(RecordSession& session, HWND& owner) {
  session_ = &session;
  if (!makeFrame()) return false;
  if (session.start().loginRequired && !showLoginBox(nullptr, session)) return false;
  ::SetWindowTextW(handle(), toWide(session.windowTitle(), application().codePage).c_str());
  owner = handle();
  makeParts();
  sizeFrame();
  pageShown(session.currentPage());
  ::ShowWindow(handle(), application().maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
  ::UpdateWindow(handle());
  act([&] { session.openData(false); });
  databaseChanged();
  ::SetTimer(handle(), kClockTimer, 1000, nullptr);
  objects_->open(handle());
  restoreFocus();
  boxes_->announceFocus();
  return true;
}

void EngineWindow::arrange() {
  if (!page_) return;
  RECT client = {};
  ::GetClientRect(handle(), &client);
  const auto px = [this](int units) { return static_cast<int>(std::lround(units * scale_)); };
  int top = 0;
  if (toolBar_) {
    toolBar_->place(client.right);
    top = px(ToolBar::highUnits());
  }
  int left = px(2);
  FontSpec letters = kTabFont;
  letters.charSet = application().charSet;
  const HFONT font =
      threadFonts().get(letters, static_cast<int>(std::lround(letters.points * 96 / 72 * scale_)));
  for (const HWND tab : tabs_) {
    if (!tab) continue;
    ::SendMessageW(tab, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    ::SetWindowPos(tab, nullptr, left, top, px(kTabWide), px(kTabHigh), SWP_NOZORDER | SWP_NOACTIVATE);
    left += px(kTabWide);
  }
  if (application().pageTabVisible[0]) top += px(kTabHigh);
  ::SetWindowPos(view_.handle(), nullptr, 0, top, client.right, std::max<LONG>(0, client.bottom - top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  if (panel_ && panel_->handle() && application().payload.application.frame3Visible)
    panel_->place(twipsToPixels(application().payload.application.frame3Left),
                  twipsToPixels(application().payload.application.frame3Top));
  if (grip_) {
    const int size = ::GetSystemMetrics(SM_CXVSCROLL);
    ::SetWindowPos(grip_, HWND_TOP, client.right - size, client.bottom - size, size, size,
                   SWP_NOACTIVATE | (::IsZoomed(handle()) ? SWP_HIDEWINDOW : SWP_SHOWWINDOW));
  }
}

void EngineWindow::updateWindowState() {
  if (::IsIconic(handle()) || !page_) return;
  arrange();
  view_.setCentred(::IsZoomed(handle()));
}

void EngineWindow::rescale(double scale) {
  scale_ = scale;
  if (!page_) return;
  boxes_->place();
  view_.setPage(page_->handle(), page_->size());
  placePageTips();
  arrange();
  ::RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void EngineWindow::showTabs() {
  for (int i = 0; i < 5; ++i)
    if (const HWND tab = tabs_[static_cast<std::size_t>(i)])
      ::SendMessageW(tab, BM_SETCHECK, i == session_->currentPage() ? BST_CHECKED : BST_UNCHECKED, 0);
}

void EngineWindow::setToolTip(HWND control, const std::string& text) {
  if (!control) return;
  const std::wstring shown = toWide(text, application().codePage);
  TTTOOLINFOW tip = {};
  tip.cbSize = sizeof tip;
  tip.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tip.hwnd = handle();
  tip.uId = reinterpret_cast<UINT_PTR>(control);
  ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  tip.lpszText = const_cast<wchar_t*>(shown.c_str());
  if (!text.empty()) ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
}

// Titles and pictures are painted, not windows: their tips belong to places on the page.
void EngineWindow::placePageTips() {
  TTTOOLINFOW tip = {};
  tip.cbSize = sizeof tip;
  tip.uFlags = TTF_SUBCLASS;
  tip.hwnd = page_->handle();
  for (; pageTips_ > 0; --pageTips_) {
    tip.uId = pageTips_;
    ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  }
  if (application().helpInStatusLine) return;
  const auto add = [&](const RectPx& place, const std::string& text) {
    if (text.empty()) return;
    const std::wstring shown = toWide(text, application().codePage);
    const auto px = [this](int units) { return static_cast<LONG>(std::lround(units * scale_)); };
    tip.uId = ++pageTips_;
    tip.rect = {px(place.left), px(place.top), px(place.right()), px(place.bottom())};
    tip.lpszText = const_cast<wchar_t*>(shown.c_str());
    ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tip));
  };
  for (int n = 0; n <= application().pictureCount(); ++n)
    if (session_->visibleNow(application().picture(n).page))
      add(layout_->picture(n), application().picture(n).helpText);
  for (int n = 1; n <= application().titleCount(); ++n)
    if (session_->visibleNow(application().titleRow(n).page))
      add(layout_->title(n, session_->form()), application().titleRow(n).helpText);
}

LRESULT EngineWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (!page_) return standard(message, wide, param);
  switch (message) {
    case WM_SIZE:
      updateWindowState();
      return 0;
    case WM_GETMINMAXINFO: {
      const LONG least = std::lround(kLeastTwips / kTwipsPerPixel * scale_);
      reinterpret_cast<MINMAXINFO*>(param)->ptMinTrackSize = {least, least};
      return 0;
    }
    case WM_DPICHANGED: {
      const RECT& place = *reinterpret_cast<const RECT*>(param);
      ::SetWindowPos(handle(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      rescale(LOWORD(wide) / 96.0);
      return 0;
    }
    case WM_ERASEBKGND: {
      RECT area = {};
      ::GetClientRect(handle(), &area);
      const BrushHandle brush(::CreateSolidBrush(gdiColor(kBarColor)));
      ::FillRect(reinterpret_cast<HDC>(wide), &area, brush.get());
      return 1;
    }
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_INITMENUPOPUP:
      updateMenu();
      return 0;
    case WM_TIMER:
      timer(wide);
      return 0;
    case WM_APP:
      flushLater();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wide) != WA_INACTIVE) session_->formActivate();
      break;
    case WM_SETFOCUS:
      restoreFocus();
      return 0;
    case WM_MOUSEWHEEL:
      return ::SendMessageW(view_.handle(), message, wide, param);
    case WM_CLOSE:
      if (mayClose()) ::DestroyWindow(handle());
      return 0;
    case WM_ENDSESSION:
      if (!wide) return 0;
      // Below a message box or a search there is time for the record alone.
      if (acting_ > 0) session_->settle();
      act([&] {
        boxes_->commitFocus();
        session_->close(true);
      });
      return 0;
    case WM_DESTROY:
      ::SetMenu(handle(), nullptr);  // it is ours, not the window's
      ::PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return standard(message, wide, param);
}

}  // namespace plinth
