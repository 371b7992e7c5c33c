// ListPlus: messages to the model, its outcomes to the parent.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <windowsx.h>

#include <algorithm>

#include "basic/CodePage.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Win32Text.h"
#include "widgets/ListPainter.h"
#include "widgets/win32/ListPlus.h"
#include "widgets/win32/WidgetWindow.h"

namespace plinth {

namespace {

constexpr UINT_PTR kDragTimer = 1;
constexpr UINT kDragInterval = 50;  // milliseconds between rows while the pointer is held beyond the list
constexpr int kWheelRows = 3, kWheelPixels = 60, kSideStep = 20;
constexpr std::int32_t kManyRows = 50000;                         // sorting takes a moment
constexpr LONG kClassIndexAsked = static_cast<LONG>(0xFFFFFFF4);  // by assistive programs
constexpr LRESULT kIsListBox = 65536;

unsigned shiftState() {
  const auto held = [](int key) { return ::GetKeyState(key) < 0; };
  return (held(VK_SHIFT) ? kShift : 0u) | (held(VK_CONTROL) ? kCtrl : 0u) | (held(VK_MENU) ? kAlt : 0u);
}

PointPx pointOf(LPARAM param) { return {GET_X_LPARAM(param), GET_Y_LPARAM(param)}; }

class ListPlusWindow : public WidgetWindow {
 public:
  explicit ListPlusWindow(HWND window) : WidgetWindow(window) {}

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;
  void paint(Canvas& canvas, SizePx size) override;
  HCURSOR ownPointer() override;

 private:
  void create();
  void fontChanged();
  // Gives bars and model the places that size, rows and columns ask for, and paints anew.
  void arrange();
  void placeBar(HWND bar, bool wanted, const RectPx& place, const SCROLLINFO& info);
  void scrolled(HWND bar);
  void told(const ListOutcome& outcome, std::int32_t caretBefore);
  void press(UINT message, LPARAM param);
  void release(LPARAM param);
  void endHold();
  void wheel(int delta, bool sideways);
  LRESULT keyDown(WPARAM key, LPARAM param);
  void typed(wchar_t character);
  LRESULT dialogCode(const MSG* message) const;
  std::optional<LRESULT> mouseMessage(UINT message, WPARAM wide, LPARAM param);
  std::optional<LRESULT> listMessage(UINT message, WPARAM wide, LPARAM param);
  std::optional<LRESULT> listBoxMessage(UINT message, WPARAM wide, LPARAM param);
  std::wstring rowText(WPARAM position) const;
  bool isRow(WPARAM position) const { return position < static_cast<WPARAM>(model_.listCount()); }

  ListModel model_;
  HWND upright_ = nullptr, across_ = nullptr;
  int wheelRest_ = 0, sideRest_ = 0;
  PointPx pointer_{};
  bool held_ = false;
};

void ListPlusWindow::paint(Canvas& canvas, SizePx size) {
  paintList(canvas, size, model_, {colors(), state(), font_});
}

HCURSOR ListPlusWindow::ownPointer() {
  POINT at = {};
  ::GetCursorPos(&at);
  ::ScreenToClient(window(), &at);
  return model_.hitTest({at.x, at.y}).zone == ListZone::headEdge ? pointerOf(9) : nullptr;
}

void ListPlusWindow::create() {
  // Bars are not painted over, and Tab passes them by.
  setStyle(WS_CLIPCHILDREN, WS_CLIPCHILDREN);
  const auto bar = [&](const wchar_t* kind) {
    return ::CreateWindowExW(0, kind, L"", WS_CHILD, 0, 0, 0, 0, window(), nullptr, nullptr, nullptr);
  };
  upright_ = bar(kRealvScrollClass);
  across_ = bar(kRealhScrollClass);
  ::SendMessageW(across_, kScrollSetSmallChange, kSideStep, 0);
  model_.setRandomSeed(::GetTickCount());
  fontChanged();
}

void ListPlusWindow::fontChanged() {
  const WindowDc dc(window());
  GdiCanvas canvas(dc.get());
  const ListHeights heights = listHeights(canvas, font_);
  model_.setRowHeights(heights.row, heights.head);
  arrange();
}

void ListPlusWindow::arrange() {
  // Bars grow with the letters, which stand for the screen's resolution.
  const int breadth = std::max(kArrowEnd, model_.rowHeight() - 1);
  model_.setSize(size(), breadth);
  const SizePx view = model_.view();
  constexpr UINT kAll = SIF_RANGE | SIF_PAGE | SIF_POS;
  placeBar(upright_, model_.verticalBar(), {view.width, 0, breadth, view.height},
           {sizeof(SCROLLINFO), kAll, 0, model_.listCount() - 1, static_cast<UINT>(model_.rowsInView()),
            model_.firstRow(), 0});
  placeBar(across_, model_.horizontalBar(), {0, view.height, view.width, breadth},
           {sizeof(SCROLLINFO), kAll, 0, model_.columnsWidth() - 1, static_cast<UINT>(view.width),
            model_.offset(), 0});
  repaint();
}

void ListPlusWindow::placeBar(HWND bar, bool wanted, const RectPx& place, const SCROLLINFO& info) {
  if (wanted) {
    ::SetWindowPos(bar, nullptr, place.left, place.top, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    ::SetScrollInfo(bar, SB_CTL, &info, TRUE);
  }
  ::ShowWindow(bar, wanted ? SW_SHOWNA : SW_HIDE);
}

void ListPlusWindow::scrolled(HWND bar) {
  const int position = static_cast<int>(::SendMessageW(bar, SBM_GETPOS, 0, 0));
  if (bar == upright_)
    model_.setFirstRow(position);
  else
    model_.setOffset(position);
  repaint();
  ::UpdateWindow(window());
}

// The parent may destroy the list over any notice.
void ListPlusWindow::told(const ListOutcome& outcome, std::int32_t caretBefore) {
  if (outcome.fitColumn >= 0) {
    const WindowDc dc(window());
    GdiCanvas canvas(dc.get());
    model_.setColumnWidth(outcome.fitColumn, fittingWidth(canvas, model_, outcome.fitColumn, font_));
  }
  arrange();
  if (model_.caret() != caretBefore && ::GetFocus() == window())
    ::NotifyWinEvent(EVENT_OBJECT_FOCUS, window(), OBJID_CLIENT, model_.caret() + 1);
  const struct {
    bool happened;
    ListNotice notice;
  } kNotices[] = {{outcome.selectionChanged, kListSelectionChanged},
                  {outcome.sorted, kListSorted},
                  {outcome.columnSized || outcome.fitColumn >= 0, kListColumnSized},
                  {outcome.chosen, kListRowChosen},
                  {outcome.activated, kListRowActivated}};
  for (const auto& one : kNotices)
    if (one.happened && ::IsWindow(window())) tell(one.notice);
}

void ListPlusWindow::press(UINT message, LPARAM param) {
  if (::GetFocus() != window()) ::SetFocus(window());
  const bool left = message != WM_RBUTTONDOWN;
  pointer_ = pointOf(param);
  const std::int32_t before = model_.caret();
  const ListOutcome outcome =
      model_.press({left ? 1 : 2, shiftState(), pointer_.x, pointer_.y}, message == WM_LBUTTONDBLCLK);
  if (left && outcome.handled && outcome.fitColumn < 0) {
    held_ = true;
    ::SetCapture(window());
    ::SetTimer(window(), kDragTimer, kDragInterval, nullptr);
  }
  told(outcome, before);
}

void ListPlusWindow::release(LPARAM param) {
  if (!held_) return;
  const std::int32_t before = model_.caret();
  const bool slow = model_.pressedHead() >= 0 && model_.listCount() > kManyRows;
  const HCURSOR pointer = slow ? ::SetCursor(pointerOf(11)) : nullptr;
  const ListOutcome outcome = model_.release(pointOf(param));
  if (slow) ::SetCursor(pointer);
  endHold();
  told(outcome, before);
}

void ListPlusWindow::endHold() {
  if (!held_) return;
  held_ = false;
  model_.cancel();
  ::KillTimer(window(), kDragTimer);
  if (::GetCapture() == window()) ::ReleaseCapture();
  repaint();
}

void ListPlusWindow::wheel(int delta, bool sideways) {
  int& rest = sideways ? sideRest_ : wheelRest_;
  rest -= delta * (sideways ? kWheelPixels : kWheelRows);
  const int steps = rest / WHEEL_DELTA;
  rest %= WHEEL_DELTA;  // fine wheels send small parts
  if (sideways)
    model_.setOffset(model_.offset() + steps);
  else
    model_.wheel(steps);
  arrange();
}

LRESULT ListPlusWindow::keyDown(WPARAM key, LPARAM param) {
  if (key == VK_ESCAPE && held_) {
    endHold();
    return 0;
  }
  const std::int32_t before = model_.caret();
  const ListOutcome outcome = model_.key({static_cast<int>(key), shiftState()});
  if (!outcome.handled) return WidgetWindow::message(WM_KEYDOWN, key, param);
  told(outcome, before);
  return 0;
}

void ListPlusWindow::typed(wchar_t character) {
  if (character < L' ' || character == 0x7F) return;
  const std::int32_t before = model_.caret();
  const std::string text = fromWide({&character, 1}, codePageOfCharSet(font_.charSet));
  const ListOutcome outcome = model_.type(text, static_cast<std::uint32_t>(::GetMessageTime()));
  if (outcome.selectionChanged) told(outcome, before);
}

// Enter goes to the row, not to a dialog's button.
LRESULT ListPlusWindow::dialogCode(const MSG* message) const {
  const bool enter = message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
  const bool escape = message && message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE;
  const bool wanted = (enter && model_.listCount() > 0) || (escape && held_);
  return DLGC_WANTARROWS | DLGC_WANTCHARS | (wanted ? DLGC_WANTMESSAGE : 0);
}

std::optional<LRESULT> ListPlusWindow::mouseMessage(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      press(message, param);
      return 0;
    case WM_MOUSEMOVE:
    case WM_TIMER: {
      if (message == WM_MOUSEMOVE) pointer_ = pointOf(param);
      const bool beyond = pointer_.y < model_.headHeight() || pointer_.y >= model_.view().height;
      if (!held_ || (message == WM_TIMER && !beyond)) return 0;
      const std::int32_t before = model_.caret();
      const ListOutcome outcome = model_.drag(pointer_);
      if (outcome.selectionChanged || outcome.columnSized) told(outcome, before);
      return 0;
    }
    case WM_LBUTTONUP:
      release(param);
      return 0;
    case WM_CAPTURECHANGED:
      endHold();
      return 0;
    case WM_MOUSEWHEEL:
      wheel(GET_WHEEL_DELTA_WPARAM(wide), (GET_KEYSTATE_WPARAM(wide) & MK_SHIFT) != 0);
      return 0;
    case WM_MOUSEHWHEEL:
      wheel(-GET_WHEEL_DELTA_WPARAM(wide), true);
      return 0;
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> ListPlusWindow::listMessage(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case kListSetSource:
      endHold();
      model_.setSource(reinterpret_cast<const ListSource*>(param));
      break;
    case kListRowsChanged:
      model_.rowsChanged();
      break;
    case kListRefresh:
      break;
    case kListSetMultiSelect:
      model_.setMultiSelect(wide != 0);
      setStyle(LBS_EXTENDEDSEL, wide ? LBS_EXTENDEDSEL : 0);
      break;
    case kListGetModel:
      return reinterpret_cast<LRESULT>(&model_);
    case kListGetCaretRowId:
      return model_.getContentNo(model_.caret());
    default:
      return std::nullopt;
  }
  arrange();
  return 0;
}

std::wstring ListPlusWindow::rowText(WPARAM position) const {
  return toWide(model_.getText(static_cast<std::int32_t>(position)), codePageOfCharSet(font_.charSet));
}

std::optional<LRESULT> ListPlusWindow::listBoxMessage(UINT message, WPARAM wide, LPARAM param) {
  const auto position = static_cast<std::int32_t>(wide);
  switch (message) {
    case LB_GETCOUNT:
      return model_.listCount();
    case LB_GETCURSEL:
      return model_.caret();
    case LB_SETCURSEL:
    case LB_SETTOPINDEX:
      if (!isRow(wide)) return LB_ERR;
      if (message == LB_SETCURSEL)
        model_.setCaret(position);
      else
        model_.setFirstRow(position);
      arrange();
      return message == LB_SETCURSEL ? position : 0;
    case LB_GETSEL:
      return isRow(wide) ? LRESULT{model_.isSelected(position)} : LB_ERR;
    case LB_GETSELCOUNT:
      return model_.multiSelect() ? model_.markedCount() : LB_ERR;
    case LB_GETTEXTLEN:
      return isRow(wide) ? static_cast<LRESULT>(rowText(wide).size()) : LB_ERR;
    case LB_GETTEXT: {
      if (!isRow(wide)) return LB_ERR;
      const std::wstring text = rowText(wide);
      std::copy_n(text.c_str(), text.size() + 1, reinterpret_cast<wchar_t*>(param));
      return static_cast<LRESULT>(text.size());
    }
    case LB_GETTOPINDEX:
      return model_.firstRow();
    case LB_GETITEMRECT: {
      if (!isRow(wide)) return LB_ERR;
      const int top = model_.headHeight() + (position - model_.firstRow()) * model_.rowHeight();
      *reinterpret_cast<RECT*>(param) = {0, top, model_.view().width, top + model_.rowHeight()};
      return 1;
    }
    default:
      return std::nullopt;
  }
}

LRESULT ListPlusWindow::message(UINT message, WPARAM wide, LPARAM param) {
  if (const auto result = mouseMessage(message, wide, param)) return *result;
  if (const auto result = listMessage(message, wide, param)) return *result;
  if (const auto result = listBoxMessage(message, wide, param)) return *result;
  switch (message) {
    case WM_CREATE:
      create();
      return 0;
    case WM_SIZE:
      arrange();
      return 0;
    case WM_SETFONT: {
      const LRESULT done = WidgetWindow::message(message, wide, param);
      fontChanged();
      return done;
    }
    case WM_ENABLE:
      if (!wide) endHold();
      ::EnableWindow(upright_, wide != 0);
      ::EnableWindow(across_, wide != 0);
      break;
    case WM_VSCROLL:
    case WM_HSCROLL:
      scrolled(reinterpret_cast<HWND>(param));
      return 0;
    case WM_KEYDOWN:
      return keyDown(wide, param);
    case WM_CHAR:
      typed(static_cast<wchar_t>(wide));
      return 0;
    case WM_GETDLGCODE:
      return dialogCode(reinterpret_cast<const MSG*>(param));
    case WM_GETOBJECT:
      if (static_cast<LONG>(param) == kClassIndexAsked) return kIsListBox;
      break;
    default:
      break;
  }
  return WidgetWindow::message(message, wide, param);
}

}  // namespace

bool registerListPlus(HINSTANCE program) {
  return WidgetProcedure::add<ListPlusWindow>(program, kListPlusClass, CS_DBLCLKS);
}

}  // namespace plinth
