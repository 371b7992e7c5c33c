// Each button is a button of the system with a flat face; this window lays them out and forwards presses.
#include "surface/win32/ToolboxWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "surface/DesignerCommands.h"
#include "surface/ToolIcons.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr const wchar_t* kClass = L"PlinthToolbox";
constexpr int kButton = 32, kLeastButton = 20, kMargin = 6, kGap = 2, kGroupGap = 10;
constexpr int kIcon = 20, kIconMargin = 4;
constexpr int kRampSteps = 30;

// Paints a picture in the middle of a rectangle in device pixels.
template <class Picture>
FlatButton::Glyph glyphOf(const ChromeStyle& style, Picture picture) {
  return [&style, picture](HDC dc, const RECT& rect, std::int32_t ink) {
    const int room = static_cast<int>((rect.bottom - rect.top) / style.scale);
    const int icon = std::min(kIcon, room - kIconMargin), side = style.px(icon);
    const PointPx corner{static_cast<int>(rect.left + rect.right - side) / 2,
                         static_cast<int>(rect.top + rect.bottom - side) / 2};
    GdiCanvas canvas(dc, style.scale, corner);
    paintToolIcon(canvas, {0, 0, icon, icon}, picture(), ink, ink != style.colors.disabled);
  };
}

}  // namespace

ToolboxWindow::ToolboxWindow(HWND parent, int id, const DesignSurface& surface, RunCommand run)
    : surface_(surface), run_(std::move(run)) {
  registerWindowClass(kClass, windowProcedure<ToolboxWindow>);
  style_.scale = windowScale(parent);
  style_.colors = systemChrome();
  style_.font = messageFont(style_.scale);
  window_ =
      ::CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"Toolbox", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                        0, 10, 10, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, this);
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, window_, nullptr, nullptr, nullptr);
  makeButtons();
  layout();
}

ToolboxWindow::~ToolboxWindow() {
  buttons_.clear();
  if (window_) ::SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
}

void ToolboxWindow::addButton(int id, int command, int label, const char* english, bool tool, int gap,
                              FlatButton::Glyph glyph) {
  const std::wstring name = wideUtf8(english);
  // One tab stop for the column; arrow keys go on from there.
  const DWORD stop = buttons_.empty() ? WS_TABSTOP | WS_GROUP : 0;
  buttons_.push_back(
      {id, command, label, english, tool, gap,
       std::make_unique<FlatButton>(window_, id, FlatLook::toggle, name.c_str(),
                                    BS_CHECKBOX | BS_NOTIFY | WS_VISIBLE | stop, style_, std::move(glyph))});
}

void ToolboxWindow::makeButtons() {
  const auto action = [this](ActionIcon icon) { return glyphOf(style_, [icon] { return icon; }); };
  addButton(kSelectArea, static_cast<int>(Command::selectArea), 0, "Select Area", true, 0,
            action(ActionIcon::selectArea));
  int gap = kGroupGap;
  for (const ToolInfo& info : toolInfos()) {
    const int index = static_cast<int>(info.tool);
    const Tool tool = info.tool;
    addButton(kFirstTool + index, static_cast<int>(Command::tool) + index, info.label, info.english, true,
              std::exchange(gap, kGap), glyphOf(style_, [tool] { return tool; }));
  }
  addButton(kErase, static_cast<int>(Command::remove), 115, "Delete selected object...", false, kGroupGap,
            action(ActionIcon::erase));
  addButton(
      kLock, static_cast<int>(Command::lock), 111, "Lock Controls...", false, kGap,
      glyphOf(style_, [this] { return surface_.state().locked ? ActionIcon::lock : ActionIcon::unlock; }));
  addButton(kUndo, static_cast<int>(Command::undo), 0, "Undo", false, kGroupGap, action(ActionIcon::undo));
  addButton(kRedo, static_cast<int>(Command::redo), 0, "Redo", false, kGap, action(ActionIcon::redo));
}

int ToolboxWindow::width() const { return style_.px(kButton + 2 * kMargin); }

// Low windows get smaller buttons, so that none is out of reach.
void ToolboxWindow::layout() {
  const bool locked = surface_.state().locked;
  int count = 0, gaps = 2 * kMargin;
  for (const Button& each : buttons_) {
    if (each.tool && locked) continue;
    ++count;
    gaps += each.gap;
  }
  RECT client;
  ::GetClientRect(window_, &client);
  const int room = static_cast<int>(client.bottom / style_.scale) - gaps;
  const int side = std::clamp(room / std::max(1, count), kLeastButton, kButton);
  const int x = kMargin + (kButton - side) / 2;
  int y = kMargin;
  for (const Button& each : buttons_) {
    const bool shown = !each.tool || !locked;
    if (shown) {
      y += each.gap;
      ::MoveWindow(each.button->window(), style_.px(x), style_.px(y), style_.px(side), style_.px(side), TRUE);
      y += side;
    }
    ::ShowWindow(each.button->window(), shown ? SW_SHOWNA : SW_HIDE);
  }
}

void ToolboxWindow::show() {
  const DesignState& state = surface_.state();
  const bool lockedBefore = !::IsWindowVisible(buttons_.front().button->window());
  if (lockedBefore != state.locked && ::IsWindowVisible(window_)) {
    layout();
    ::InvalidateRect(window_, nullptr, TRUE);
  }
  const std::optional<Tool> inHand = toolInHand(state, surface_.document());
  for (const Button& each : buttons_) {
    bool on = false;
    if (each.id == kSelectArea) on = state.selKind == kSelArea;
    if (each.id == kLock) on = state.locked;
    if (inHand && each.id == kFirstTool + static_cast<int>(*inHand)) on = true;
    bool usable = true;
    if (each.id == kErase) usable = surface_.hasSelection();
    if (each.id == kUndo) usable = surface_.history().canUndo();
    if (each.id == kRedo) usable = surface_.history().canRedo();
    const HWND button = each.button->window();
    if ((::SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED) != on)
      ::SendMessageW(button, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    if ((::IsWindowEnabled(button) != 0) != usable) {
      if (!usable && ::GetFocus() == button) ::SetFocus(::GetParent(window_));
      ::EnableWindow(button, usable);
    }
  }
}

void ToolboxWindow::retext(const TextOf& text) {
  for (const Button& each : buttons_) {
    std::wstring name = text(each.label, each.english);
    std::erase(name, L'&');
    ::SetWindowTextW(each.button->window(), name.c_str());
    setToolTip(tips_, each.button->window(), std::move(name));
  }
}

void ToolboxWindow::scaleChanged() {
  style_.scale = windowScale(window_);
  style_.font = messageFont(style_.scale);
  layout();
}

void ToolboxWindow::setColors(const ChromeColors& colors) {
  style_.colors = colors;
  ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void ToolboxWindow::move(int step) {
  const HWND focus = ::GetFocus();
  const auto at =
      std::ranges::find_if(buttons_, [focus](const Button& each) { return each.button->window() == focus; });
  if (at == buttons_.end()) return;
  const int count = static_cast<int>(buttons_.size());
  int index = static_cast<int>(at - buttons_.begin());
  for (int tried = 0; tried < count; ++tried) {
    index = (index + step + count) % count;
    const HWND next = buttons_[static_cast<std::size_t>(index)].button->window();
    if (!::IsWindowVisible(next) || !::IsWindowEnabled(next)) continue;
    ::SetFocus(next);
    return;
  }
}

bool ToolboxWindow::translate(MSG& message) {
  if (message.message != WM_KEYDOWN || !::IsChild(window_, message.hwnd)) return false;
  switch (message.wParam) {
    case VK_UP:
    case VK_LEFT:
      move(-1);
      return true;
    case VK_DOWN:
    case VK_RIGHT:
      move(1);
      return true;
    case VK_RETURN:
      ::SendMessageW(message.hwnd, BM_CLICK, 0, 0);
      return true;
    default:
      return false;
  }
}

void ToolboxWindow::paint() {
  BufferedPaint paint(window_);
  if (!paint.dc()) return;
  RECT client;
  ::GetClientRect(window_, &client);
  // A ramp of steps from top to bottom, each a little darker.
  for (int i = 0; i < kRampSteps; ++i) {
    const auto channel = [&](int shift) {
      return static_cast<BYTE>(std::max(0, ((style_.colors.ground >> shift) & 0xFF) - i / 2));
    };
    const RECT band{0, client.bottom * i / kRampSteps, client.right, client.bottom * (i + 1) / kRampSteps};
    fillRect(paint.dc(), band, static_cast<std::int32_t>(RGB(channel(0), channel(8), channel(16))));
  }
  fillRect(paint.dc(), {client.right - 1, 0, client.right, client.bottom}, style_.colors.edge);
}

LRESULT ToolboxWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      layout();
      ::InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_COMMAND:
      if (HIWORD(wParam) != BN_CLICKED) return 0;
      for (const Button& each : buttons_)
        if (each.id == LOWORD(wParam)) {
          const int command = each.command;
          run_(command);
          return 0;
        }
      return 0;
    default:
      return ::DefWindowProcW(window_, message, wParam, lParam);
  }
}

}  // namespace plinth
