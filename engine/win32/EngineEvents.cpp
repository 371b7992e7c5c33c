// Between the person and the session: the guard around each event, keys and focus, timers, and what the
// session tells back.
#include <algorithm>

#include "engine/win32/ControlIds.h"
#include "engine/win32/EngineWindow.h"
#include "engine/win32/Keyboard.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr UINT_PTR kStopWatchTimer = 1, kClockTimer = 2;
constexpr int kScrollLine = 24;

}  // namespace

void EngineWindow::act(const std::function<void()>& event) {
  if (acting_ > 0) return;
  flushLater();
  struct Depth {
    int& depth;
    explicit Depth(int& d) : depth(d) { ++depth; }
    ~Depth() { --depth; }
  };
  {
    const Depth depth(acting_);
    event();
  }
  tendStopWatch();
  if (objects_) objects_->follow();
}

void EngineWindow::later(std::function<void()> event) {
  // A message box that opens in the middle of an event takes the focus and gives it back: nobody left the
  // box.
  if (acting_ > 0) return;
  later_.push_back(std::move(event));
  ::PostMessageW(handle(), WM_APP, 0, 0);
}

void EngineWindow::flushLater() {
  while (acting_ == 0 && !later_.empty()) {
    const std::function<void()> event = std::move(later_.front());
    later_.pop_front();
    ++acting_;
    guarded(event);
    --acting_;
  }
}

void EngineWindow::recordShown() {
  if (!page_) return;
  boxes_->showAll();
  panel_->handle() ? panel_->show() : void();
  page_->repaint();
  if (objects_) objects_->follow();
  showPicturesAgain();
}

// The message about a damaged picture waits until the record is shown.
void EngineWindow::showPicturesAgain() {
  for (const int n : pictures_->damagedPictures()) {
    later_.push_back([this, n] { session_->pictureFailed(n, false); });
    ::PostMessageW(handle(), WM_APP, 0, 0);
  }
}

void EngineWindow::pictureChanged(int) {
  if (page_) page_->repaint();
}

void EngineWindow::titleChanged(int n) {
  if (page_) page_->repaintTitle(n);
}

void EngineWindow::pageShown(int page) {
  if (!page_) return;
  ::SendMessageW(page_->handle(), WM_SETREDRAW, FALSE, 0);
  boxes_->showPage(page);
  ::SendMessageW(page_->handle(), WM_SETREDRAW, TRUE, 0);
  ::RedrawWindow(page_->handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  const std::int32_t color = application().payload.pageColors[static_cast<std::size_t>(page)];
  view_.setColor(gdiColor(plainColor(color)));
  view_.setPage(page_->handle(), page_->size());
  placePageTips();
  showTabs();
  if (objects_) objects_->follow();
}

void EngineWindow::toolsChanged() {
  if (toolBar_) toolBar_->show();
}

void EngineWindow::databaseChanged() {
  if (!page_) return;
  tools_->databaseClosed();
  recordShown();
  toolsChanged();
  updateMenu();
}

void EngineWindow::yieldEvents() {
  // Only painting: other events belong to after the one being handled.
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT)) ::DispatchMessageW(&message);
}

void EngineWindow::openCalendar(int field) {
  const auto n = static_cast<std::size_t>(field);
  if (!session_->isOpen() || session_->form().fields[n].locked) return;
  calendar_.open(handle(), boxes_->dateBoxOnScreen(field), session_->form().fields[n].date,
                 [this, field](double day) { act([&] { session_->fieldDatePicked(field, day); }); });
}

void EngineWindow::scrollPage(int lines) { view_.scrollBy(0, lines * kScrollLine); }

void EngineWindow::restoreFocus() {
  const bool stands = lastFocus_ && ::IsWindowVisible(lastFocus_);
  if (stands && ::IsWindowEnabled(lastFocus_))
    ::SetFocus(lastFocus_);
  else if (!stands || acting_ == 0)  // a button whose work is going on takes it again
    focusNext(false);
}

// From the focused box to the next one in tab order; to the first where none of them has the focus.
void EngineWindow::focusNext(bool back) {
  std::vector<HWND> stops = boxes_->tabStops();
  if (panel_->handle() && ::IsWindowEnabled(panel_->recordBox())) stops.push_back(panel_->recordBox());
  if (stops.empty()) return;
  auto at = stops.end();
  // A combo's focus is in its edit line.
  for (HWND now = ::GetFocus(); now && now != handle() && at == stops.end(); now = ::GetParent(now))
    at = std::find(stops.begin(), stops.end(), now);
  HWND next = stops.front();
  if (at != stops.end()) {
    if (back)
      next = at == stops.begin() ? stops.back() : *(at - 1);
    else if (at + 1 != stops.end())
      next = *(at + 1);
  }
  ::SetFocus(next);
  view_.reveal(next);
  if (const HWND edit = focusedEdit(); edit && (::GetWindowLongPtrW(edit, GWL_STYLE) & ES_MULTILINE) == 0)
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
}

// Keys that the window takes before the focused box.
bool EngineWindow::keyDown(int key) {
  const KeyEvent event = keyEvent(key);
  if (key == VK_TAB && (event.shift & kCtrl) == 0) {
    focusNext((event.shift & kShift) != 0);
    return true;
  }
  if (key == VK_RETURN && panel_->handle() && panel_->enter()) return true;
  if (key == VK_RETURN && event.shift == 0 && boxes_->clickFocusedButton()) return true;
  if ((event.shift & kCtrl) != 0 && (key == VK_NEXT || key == VK_PRIOR)) {
    const int step = key == VK_NEXT ? 1 : -1, page = session_->currentPage() + step;
    if (page < 0 || page > 4 || !tabs_[static_cast<std::size_t>(page)]) return false;
    act([&] {
      boxes_->commitFocus();
      session_->pgeClick(page);
    });
    focusNext(false);
    return true;
  }
  if (key == VK_F1 && event.shift == 0 && hasHelp()) {
    services_.shell.open(session_->start().helpFile);
    return true;
  }
  if (event.shift != kCtrl || key == VK_CONTROL) return false;
  bool taken = false;
  act([&] {
    if ((key >= '1' && key <= '6') || key == VK_INSERT) boxes_->commitFocus();
    taken = session_->formKeyDown(event);
  });
  return taken;
}

bool EngineWindow::preTranslate(const MSG& message) {
  if (message.message != WM_KEYDOWN || (message.hwnd != handle() && !::IsChild(handle(), message.hwnd)))
    return false;
  return keyDown(static_cast<int>(message.wParam));
}

int EngineWindow::run() {
  MSG message;
  while (handle() && ::GetMessageW(&message, nullptr, 0, 0) > 0) dispatch(message);
  return 0;
}

void EngineWindow::dispatch(const MSG& message) {
  bool taken = false;
  guarded([&] { taken = (tools_ && tools_->takes(message)) || (objects_ && objects_->takes(message)) ||
                   preTranslate(message); });
  if (taken) return;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

void EngineWindow::tendStopWatch() {
  const bool runs = session_->stopWatchRunning();
  if (runs == stopWatchTimer_) return;
  stopWatchTimer_ = runs;
  if (runs)
    ::SetTimer(handle(), kStopWatchTimer, 50, nullptr);
  else
    ::KillTimer(handle(), kStopWatchTimer);
}

void EngineWindow::timer(UINT_PTR id) {
  if (id == kStopWatchTimer) act([&] { session_->stopWatchTick(); });
  if (id == kClockTimer && acting_ == 0) session_->timer2Tick();
}

// True when everything is saved, or the person would rather lose the record than keep the window.
bool EngineWindow::mayClose() {
  if (closing_ || acting_ > 0) return false;
  closing_ = true;
  bool closed = false;
  act([&] {
    boxes_->commitFocus();
    closed = session_->close() ||
             (services_.messages.ask("The record could not be saved. Close and lose the changes?",
                                     MessageIcon::warning) &&
              session_->close(true));
  });
  closing_ = false;
  return closed;
}

}  // namespace plinth
