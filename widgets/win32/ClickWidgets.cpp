// OptionBox and TabButton: what can be clicked, answering like buttons of the system.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <windowsx.h>

#include <optional>

#include "widgets/win32/WidgetWindow.h"

namespace plinth {

namespace {

constexpr DWORD kButtonKind = 0x000F;  // the bits of a button's style that say what it is
constexpr LONG kClassIndexAsked = static_cast<LONG>(0xFFFFFFF4);  // by assistive programs
constexpr LRESULT kIsButton = 65536 + 2;

class ClickWidget : public WidgetWindow {
 public:
  explicit ClickWidget(HWND window) : WidgetWindow(window) {}

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;
  // The click that the person meant.
  virtual void clicked() { tell(BN_CLICKED); }
  bool checked() const { return checked_; }
  void setChecked(bool checked);
  ControlState clickState() const {
    ControlState now = state();
    now.pressed = pressed_;
    return now;
  }

 private:
  std::optional<LRESULT> buttonMessage(UINT message, WPARAM wide);
  void setPressed(bool pressed);
  void mouseDown();
  void mouseUp(LPARAM point, bool cancelled);
  bool inside(LPARAM point) const;
  bool checked_ = false, pressed_ = false, mouseHeld_ = false, keyHeld_ = false;
};

void ClickWidget::setChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  repaint();
}

void ClickWidget::setPressed(bool pressed) {
  if (pressed_ == pressed) return;
  pressed_ = pressed;
  repaint();
}

bool ClickWidget::inside(LPARAM point) const {
  const SizePx now = size();
  return RectPx{0, 0, now.width, now.height}.contains({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
}

void ClickWidget::mouseDown() {
  if (style() & WS_TABSTOP) ::SetFocus(window());
  mouseHeld_ = true;
  ::SetCapture(window());
  setPressed(true);
}

void ClickWidget::mouseUp(LPARAM point, bool cancelled) {
  if (!mouseHeld_) return;
  mouseHeld_ = false;
  if (::GetCapture() == window()) ::ReleaseCapture();
  setPressed(false);
  if (!cancelled && inside(point)) clicked();
}

std::optional<LRESULT> ClickWidget::buttonMessage(UINT message, WPARAM wide) {
  switch (message) {
    case BM_GETCHECK:
      return checked_ ? BST_CHECKED : BST_UNCHECKED;
    case BM_SETCHECK:
      setChecked(wide == BST_CHECKED);
      return 0;
    case BM_GETSTATE:
      return (checked_ ? BST_CHECKED : 0) | (pressed_ ? BST_PUSHED : 0) |
             (::GetFocus() == window() ? BST_FOCUS : 0);
    case BM_SETSTATE:
      setPressed(wide != 0);
      return 0;
    case BM_CLICK:  // as a person's click, focus and all
      if (!::IsWindowEnabled(window())) return 0;
      mouseDown();
      mouseUp(0, false);
      return 0;
    default:
      return std::nullopt;
  }
}

LRESULT ClickWidget::message(UINT message, WPARAM wide, LPARAM param) {
  if (const auto result = buttonMessage(message, wide)) return *result;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      mouseDown();
      return 0;
    case WM_MOUSEMOVE:
      if (mouseHeld_) setPressed(inside(param));
      return 0;
    case WM_LBUTTONUP:
      mouseUp(param, false);
      return 0;
    case WM_CAPTURECHANGED:
      mouseUp(0, true);
      return 0;
    case WM_KEYDOWN:
      if (wide != VK_SPACE || mouseHeld_) break;
      keyHeld_ = true;
      setPressed(true);
      return 0;
    case WM_KEYUP:
      if (wide != VK_SPACE || !keyHeld_) break;
      keyHeld_ = false;
      setPressed(false);
      clicked();
      return 0;
    case WM_SETFOCUS:
      repaint();
      tell(BN_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      keyHeld_ = false;
      setPressed(false);
      repaint();
      tell(BN_KILLFOCUS);
      return 0;
    case WM_ENABLE:
      if (!wide) mouseUp(0, true);
      break;
    case WM_GETDLGCODE:
      return DLGC_BUTTON;
    case WM_GETOBJECT:
      if (static_cast<LONG>(param) == kClassIndexAsked) return kIsButton;
      break;
    default:
      break;
  }
  return WidgetWindow::message(message, wide, param);
}

class OptionBoxWindow : public ClickWidget {
 public:
  explicit OptionBoxWindow(HWND window) : ClickWidget(window) {}

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override {
    if (message == WM_CREATE && (style() & kButtonKind) != BS_CHECKBOX)
      setStyle(kButtonKind, BS_AUTOCHECKBOX);
    if (message != kOptionSetAppearance) return ClickWidget::message(message, wide, param);
    appearance_ = static_cast<int>(wide);
    repaint();
    return 0;
  }
  void paint(Canvas& canvas, SizePx size) override {
    paintOptionBox(canvas, size, checked(), appearance_, colors(), clickState());
  }
  void clicked() override {
    if ((style() & kButtonKind) == BS_AUTOCHECKBOX) setChecked(!checked());
    ClickWidget::clicked();
  }

 private:
  int appearance_ = 1;
};

class TabButtonWindow : public ClickWidget {
 public:
  explicit TabButtonWindow(HWND window) : ClickWidget(window) {
    colors_.back = systemColor(COLOR_BTNFACE);
    colors_.fore = systemColor(COLOR_BTNTEXT);
  }

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override {
    // To assistive programs the tabs are choices of which one holds.
    if (message == WM_CREATE) {
      setStyle(kButtonKind, BS_RADIOBUTTON);
      if (!reinterpret_cast<const CREATESTRUCTW*>(param)->lpszName) ::SetWindowTextW(window(), L"Page 1");
    }
    if (message == WM_KEYDOWN && wide == VK_RETURN) {
      clicked();
      return 0;
    }
    if (message == kFrameSetFillColor) {
      selectedBack_ = static_cast<std::int32_t>(param);
      repaint();
      return 0;
    }
    return ClickWidget::message(message, wide, param);
  }
  void paint(Canvas& canvas, SizePx size) override {
    // The light of the button face is what a chosen tab is filled with.
    const auto chosen = static_cast<std::int32_t>(gdiColor(selectedBack_));
    paintTabButton(canvas, size, {text(), font_, checked(), chosen}, colors(), clickState());
  }

 private:
  std::int32_t selectedBack_ = systemColor(COLOR_HIGHLIGHTTEXT);
};

}  // namespace

bool registerClickWidgets(HINSTANCE program) {
  return WidgetProcedure::add<OptionBoxWindow>(program, kOptionBoxClass, CS_DBLCLKS) &&
         WidgetProcedure::add<TabButtonWindow>(program, kTabButtonClass, CS_DBLCLKS);
}

}  // namespace plinth
