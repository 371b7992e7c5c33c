// RealvScroll, RealhScroll and DepthScroll: messages to the model, its codes to the parent.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <windowsx.h>

#include <algorithm>
#include <optional>

#include "widgets/win32/WidgetWindow.h"

namespace plinth {

namespace {

constexpr UINT_PTR kTimer1 = 1;
constexpr int kWheelSteps = 3, kAwayBreadths = 8;
constexpr LONG kClassIndexAsked = static_cast<LONG>(0xFFFFFFF4);  // by assistive programs
constexpr LRESULT kIsScrollBar = 65536 + 10;

class ScrollBarWindow : public WidgetWindow {
 public:
  enum class Lies { upright, across, asItsSides };
  ScrollBarWindow(HWND window, Lies lies) : WidgetWindow(window), lies_(lies) {
    colors_.back = 0xFFFFFF;
    model_.setValues({});
    scrollMax_ = model_.values().valueMax;
  }

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;
  void paint(Canvas& canvas, SizePx size) override;

 private:
  int along(LPARAM point) const { return upright_ ? GET_Y_LPARAM(point) : GET_X_LPARAM(point); }
  void resized();
  void mouseDown(LPARAM point);
  void mouseMove(LPARAM point);
  void mouseUp(bool cancelled);
  LRESULT keyDown(WPARAM key, LPARAM param);
  void keyUp();
  void tick();
  void wheel(int delta);
  // Sets the timer as the model wants it.
  void followTimer();
  void told(std::optional<ScrollCode> code);
  void changed(std::optional<ScrollCode> code, bool done);
  std::optional<LRESULT> scrollMessage(UINT message, WPARAM wide, LPARAM param);
  LRESULT setInfo(const SCROLLINFO& info);
  bool getInfo(SCROLLINFO& info) const;
  void getBarInfo(SCROLLBARINFO& info) const;
  void setRange(int least, int most);
  void setPos(int position);

  Lies lies_;
  bool upright_ = true;
  ScrollBarModel model_;
  int scrollMax_ = 100;  // nMax of the system's way of counting: the last page begins before it
  int page_ = 0;
  int pattern_ = 0;
  int timerInterval_ = 0;  // as it runs; 0: stopped
  int wheelRest_ = 0;
  bool mouseHeld_ = false;
  ScrollZone pressed_ = ScrollZone::none;
};

void ScrollBarWindow::paint(Canvas& canvas, SizePx size) {
  ControlState now = state();
  now.enabled = now.enabled && model_.movable();
  paintScrollBar(canvas, upright_ ? size.width : size.height, model_,
                 {upright_, pattern_, colors(), now, pressed_});
}

void ScrollBarWindow::resized() {
  const SizePx now = size();
  upright_ = lies_ == Lies::upright || (lies_ == Lies::asItsSides && now.height >= now.width);
  setStyle(SBS_VERT, upright_ ? SBS_VERT : SBS_HORZ);
  model_.setSize(upright_ ? now.height : now.width, upright_ ? now.width : now.height);
  repaint();
}

void ScrollBarWindow::followTimer() {
  const int wanted = model_.timerRuns() ? model_.timerInterval() : 0;
  if (wanted == timerInterval_) return;
  timerInterval_ = wanted;
  if (wanted > 0)
    ::SetTimer(window(), kTimer1, static_cast<UINT>(wanted), nullptr);
  else
    ::KillTimer(window(), kTimer1);
}

void ScrollBarWindow::told(std::optional<ScrollCode> code) {
  if (!code) return;
  ::SendMessageW(parent(), upright_ ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(static_cast<WORD>(*code), static_cast<WORD>(model_.value())),
                 reinterpret_cast<LPARAM>(window()));
}

// done: what began with the press or key is over.
void ScrollBarWindow::changed(std::optional<ScrollCode> code, bool done) {
  followTimer();
  repaint();
  // Before the parent is told: it may take its time over moving a page.
  if (code) ::UpdateWindow(window());
  told(code);
  if (done && ::IsWindow(window())) told(ScrollCode::done);
}

void ScrollBarWindow::mouseDown(LPARAM point) {
  if (style() & WS_TABSTOP) ::SetFocus(window());
  if (mouseHeld_ || model_.timerRuns()) return;
  pressed_ = model_.zoneAt(along(point));
  mouseHeld_ = true;
  ::SetCapture(window());
  model_.press(along(point));
  changed(std::nullopt, false);
}

void ScrollBarWindow::mouseMove(LPARAM point) {
  if (!mouseHeld_) return;
  const SizePx now = size();
  const int across = upright_ ? GET_X_LPARAM(point) : GET_Y_LPARAM(point);
  const int breadth = upright_ ? now.width : now.height;
  const bool away = across < -kAwayBreadths * breadth || across > (kAwayBreadths + 1) * breadth;
  if (const auto code = model_.drag(along(point), away)) changed(code, false);
}

void ScrollBarWindow::mouseUp(bool cancelled) {
  if (!mouseHeld_) return;
  mouseHeld_ = false;
  pressed_ = ScrollZone::none;
  if (::GetCapture() == window()) ::ReleaseCapture();
  changed(cancelled ? model_.cancel() : model_.release(), true);
}

LRESULT ScrollBarWindow::keyDown(WPARAM key, LPARAM param) {
  if (key == VK_ESCAPE && mouseHeld_) {
    mouseUp(true);
    return 0;
  }
  if (mouseHeld_) return 0;
  if (const auto code = model_.jump(static_cast<int>(key))) {
    changed(code, true);
    return 0;
  }
  if (!model_.keyDown(static_cast<int>(key))) return WidgetWindow::message(WM_KEYDOWN, key, param);
  followTimer();
  return 0;
}

void ScrollBarWindow::keyUp() {
  if (mouseHeld_ || !model_.timerRuns()) return;
  changed(model_.keyUp(), true);
}

void ScrollBarWindow::tick() {
  const auto code = model_.tick();
  if (code)
    changed(code, false);
  else
    followTimer();
}

void ScrollBarWindow::wheel(int delta) {
  wheelRest_ -= delta * kWheelSteps;
  const int steps = wheelRest_ / WHEEL_DELTA;
  wheelRest_ %= WHEEL_DELTA;  // fine wheels send small parts
  if (const auto code = model_.wheel(steps)) changed(code, true);
}

void ScrollBarWindow::setRange(int least, int most) {
  ScrollValues values = model_.values();
  scrollMax_ = std::max(least, most);
  values.valueMin = least;
  values.valueMax = static_cast<int>(
      std::max<long long>(least, static_cast<long long>(scrollMax_) - std::max(0, page_ - 1)));
  model_.setValues(values);
  repaint();
}

void ScrollBarWindow::setPos(int position) {
  ScrollValues values = model_.values();
  if (values.value == position) return;
  values.value = position;
  model_.setValues(values);
  repaint();
}

LRESULT ScrollBarWindow::setInfo(const SCROLLINFO& info) {
  if (info.fMask & SIF_PAGE) {
    page_ = static_cast<int>(std::min<UINT>(info.nPage, 0x7FFFFFFF));
    ScrollValues values = model_.values();
    if (page_ > 0) values.largeChange = page_;
    model_.setValues(values);
  }
  if (info.fMask & (SIF_RANGE | SIF_PAGE))
    setRange(info.fMask & SIF_RANGE ? info.nMin : model_.values().valueMin,
             info.fMask & SIF_RANGE ? info.nMax : scrollMax_);
  if (info.fMask & SIF_POS) setPos(info.nPos);
  return model_.value();
}

bool ScrollBarWindow::getInfo(SCROLLINFO& info) const {
  if (info.fMask & SIF_RANGE) {
    info.nMin = model_.values().valueMin;
    info.nMax = scrollMax_;
  }
  if (info.fMask & SIF_PAGE) info.nPage = static_cast<UINT>(page_);
  if (info.fMask & SIF_POS) info.nPos = model_.value();
  if (info.fMask & SIF_TRACKPOS) info.nTrackPos = model_.value();
  return (info.fMask & SIF_ALL) != 0;
}

void ScrollBarWindow::getBarInfo(SCROLLBARINFO& info) const {
  ::GetWindowRect(window(), &info.rcScrollBar);
  info.dxyLineButton = model_.arrowLength();
  info.xyThumbTop = model_.thumbPos();
  info.xyThumbBottom = model_.thumbPos() + model_.thumbLength();
  std::fill(std::begin(info.rgstate), std::end(info.rgstate), 0);
  if (!model_.movable()) info.rgstate[0] = STATE_SYSTEM_UNAVAILABLE;
  if (!::IsWindowVisible(window())) info.rgstate[0] |= STATE_SYSTEM_INVISIBLE;
}

// What makes it stand in for the system's scroll bar, and its own settings.
std::optional<LRESULT> ScrollBarWindow::scrollMessage(UINT message, WPARAM wide, LPARAM param) {
  ScrollValues values = model_.values();
  switch (message) {
    case SBM_SETPOS:
      setPos(static_cast<int>(wide));
      return values.value;
    case SBM_GETPOS:
      return values.value;
    case SBM_SETRANGE:
    case SBM_SETRANGEREDRAW:
      setRange(static_cast<int>(wide), static_cast<int>(param));
      return values.value;
    case SBM_GETRANGE:
      if (wide) *reinterpret_cast<int*>(wide) = values.valueMin;
      if (param) *reinterpret_cast<int*>(param) = scrollMax_;
      return 0;
    case SBM_ENABLE_ARROWS:
      ::EnableWindow(window(), wide != ESB_DISABLE_BOTH);
      return TRUE;
    case SBM_SETSCROLLINFO:
      return setInfo(*reinterpret_cast<const SCROLLINFO*>(param));
    case SBM_GETSCROLLINFO:
      return getInfo(*reinterpret_cast<SCROLLINFO*>(param));
    case SBM_GETSCROLLBARINFO:
      getBarInfo(*reinterpret_cast<SCROLLBARINFO*>(param));
      return TRUE;
    case kScrollSetPattern:
      pattern_ = static_cast<int>(wide);
      break;
    case kScrollSetLargeChange:
      values.largeChange = static_cast<int>(wide);
      model_.setValues(values);
      break;
    case kScrollSetSmallChange:
      values.smallChange = static_cast<int>(wide);
      model_.setValues(values);
      break;
    case kScrollSetLowToHigh:
      if (lies_ == Lies::asItsSides) model_.setLowToHigh(wide != 0);
      break;
    case kScrollGetThumbPos:
      return model_.thumbPos();
    default:
      return std::nullopt;
  }
  repaint();
  return 0;
}

LRESULT ScrollBarWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (const auto result = scrollMessage(message, wide, param)) return *result;
  switch (message) {
    case WM_CREATE:
    case WM_SIZE:
      resized();
      return 0;
    case WM_ENABLE:
      model_.setEnabled(wide != 0);
      if (!wide) mouseUp(true);
      followTimer();
      break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      mouseDown(param);
      return 0;
    case WM_MOUSEMOVE:
      mouseMove(param);
      return 0;
    case WM_LBUTTONUP:
      mouseUp(false);
      return 0;
    case WM_CAPTURECHANGED:
      mouseUp(true);
      return 0;
    case WM_MOUSEWHEEL:
      wheel(GET_WHEEL_DELTA_WPARAM(wide));
      return 0;
    case WM_MOUSEHWHEEL:
      wheel(-GET_WHEEL_DELTA_WPARAM(wide));
      return 0;
    case WM_KEYDOWN:
      return keyDown(wide, param);
    case WM_KEYUP:
      keyUp();
      return 0;
    case WM_KILLFOCUS:
      keyUp();
      break;
    case WM_TIMER:
      if (wide == kTimer1) tick();
      return 0;
    case WM_GETDLGCODE:
      // Esc would close a dialog while it should give up the drag.
      return mouseHeld_ ? DLGC_WANTALLKEYS : DLGC_WANTARROWS;
    case WM_GETOBJECT:
      if (static_cast<LONG>(param) == kClassIndexAsked) return kIsScrollBar;
      break;
    default:
      break;
  }
  return WidgetWindow::message(message, wide, param);
}

template <ScrollBarWindow::Lies kLies>
class BarThat : public ScrollBarWindow {
 public:
  explicit BarThat(HWND window) : ScrollBarWindow(window, kLies) {}
};

}  // namespace

bool registerScrollBars(HINSTANCE program) {
  using Lies = ScrollBarWindow::Lies;
  return WidgetProcedure::add<BarThat<Lies::upright>>(program, kRealvScrollClass, CS_DBLCLKS) &&
         WidgetProcedure::add<BarThat<Lies::across>>(program, kRealhScrollClass, CS_DBLCLKS) &&
         WidgetProcedure::add<BarThat<Lies::asItsSides>>(program, kDepthScrollClass, CS_DBLCLKS);
}

}  // namespace plinth
