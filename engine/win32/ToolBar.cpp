// Which entries have a picture stands in one table.
#include "engine/win32/ToolBar.h"

#include <cmath>

#include "engine/win32/ControlIds.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/Win32Text.h"
#include "widgets/PagePainter.h"

namespace plinth {
namespace {

constexpr int kHigh = 34, kTool = 26, kMargin = 6, kGroupGap = 12;
constexpr std::int32_t kFace = 0xF5F5F5, kEdge = 0xD0D0D0;

struct ToolRow {
  MenuId id;
  ButtonIcon icon;
};
constexpr ToolRow kTools[] = {{MenuId::printReport, ButtonIcon::print},
                              {MenuId::finden0, ButtonIcon::find},
                              {MenuId::finden4, ButtonIcon::sort},
                              {MenuId::copyadress, ButtonIcon::copy},
                              {MenuId::cal, ButtonIcon::calculator},
                              {MenuId::pdf, ButtonIcon::document},
                              {MenuId::infoo, ButtonIcon::help}};

ButtonIcon iconOf(FieldAction action) {
  return action == FieldAction::mail ? ButtonIcon::mail : ButtonIcon::document;
}

}  // namespace

int ToolBar::highUnits() { return kHigh; }

bool ToolBar::open(HWND parent) {
  Request request;
  request.className = L"PlinthToolBar";
  request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = parent;
  request.classStyle = CS_HREDRAW;
  if (!create(request)) return false;
  makeTools();
  return true;
}

void ToolBar::makeTools() {
  const Application& application = host_.application();
  const auto button = [&](int id, const std::string& text) {
    const HWND window = ::CreateWindowExW(
        0, L"BUTTON", toWide(text, application.codePage).c_str(), WS_CHILD | BS_OWNERDRAW, 0, 0, 10, 10,
        handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    host_.setToolTip(window, text);
    return window;
  };
  int id = kToolId;
  for (const ToolRow& row : kTools) {
    Tool tool;
    tool.entry = findMenu(application.menus, row.id);
    if (tool.entry && tool.entry->visible) {
      tool.window = button(id, tool.entry->toolTip);
      ::ShowWindow(tool.window, SW_SHOWNA);
    }
    tools_.push_back(tool);
    ++id;
  }
  action_ = button(kActionToolId, "");
}

void ToolBar::place(int width) {
  const double scale = host_.scale();
  const auto px = [scale](int units) { return static_cast<int>(std::lround(units * scale)); };
  ::SetWindowPos(handle(), nullptr, 0, 0, width, px(kHigh), SWP_NOZORDER | SWP_NOACTIVATE);
  int left = kMargin;
  const auto put = [&](HWND window) {
    ::SetWindowPos(window, nullptr, px(left), px((kHigh - kTool) / 2), px(kTool), px(kTool),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    left += kTool + 2;
  };
  for (const Tool& tool : tools_)
    if (tool.window) put(tool.window);
  if (left > kMargin) left += kGroupGap;
  if (panel_) {
    panel_->place(left, (kHigh - static_cast<int>(RecordPanel::sizeUnits().cy)) / 2);
    left += static_cast<int>(RecordPanel::sizeUnits().cx) + kGroupGap;
  }
  put(action_);
}

void ToolBar::show() {
  for (const Tool& tool : tools_)
    if (tool.window) {
      ::EnableWindow(tool.window, runs_(*tool.entry));
      ::InvalidateRect(tool.window, nullptr, FALSE);
    }
  const FocusTools& focus = host_.session().tools();
  nameSearch(focus);
  const bool offered = focus.action != FieldAction::none;
  if (offered) host_.setToolTip(action_, focus.actionToolTip);
  ::SetWindowTextW(action_, toWide(focus.actionToolTip, host_.application().codePage).c_str());
  ::ShowWindow(action_, offered ? SW_SHOWNA : SW_HIDE);
  ::InvalidateRect(action_, nullptr, FALSE);
}

// The search tool says what it would search.
void ToolBar::nameSearch(const FocusTools& focus) {
  std::string tip = focus.searchLabel;
  if (!focus.searchToolTip.empty()) tip += (tip.empty() ? "" : "  -  ") + focus.searchToolTip;
  for (const Tool& tool : tools_)
    if (tool.window && tool.entry->id == MenuId::finden0 && focus.find)
      host_.setToolTip(tool.window, tip.empty() ? tool.entry->toolTip : tip);
}

void ToolBar::command(int id) {
  if (id == kActionToolId) return host_.act([&] { host_.session().actionClick(); });
  const auto row = static_cast<std::size_t>(id - kToolId);
  if (id >= kToolId && row < tools_.size() && tools_[row].entry) choose_(*tools_[row].entry);
}

void ToolBar::drawTool(const DRAWITEMSTRUCT& item) const {
  const auto row = static_cast<std::size_t>(static_cast<int>(item.CtlID) - kToolId);
  ButtonItem look;
  look.rect = {0, 0, kTool, kTool};
  look.backColor = kFace;
  look.foreColor = 0x804000;
  look.pressed = (item.itemState & ODS_SELECTED) != 0;
  look.enabled = (item.itemState & ODS_DISABLED) == 0;
  look.icon = item.CtlID == kActionToolId ? iconOf(host_.session().tools().action)
              : row < std::size(kTools)   ? kTools[row].icon
                                          : ButtonIcon::none;
  GdiCanvas canvas(item.hDC, host_.scale());
  paintItem(look, canvas);
}

void ToolBar::paint() {
  BufferedPaint buffer(handle());
  RECT area = {};
  ::GetClientRect(handle(), &area);
  GdiCanvas canvas(buffer.dc());
  const int wide = area.right, high = area.bottom;
  canvas.box({0, 0, wide, high}, {LineStyle::none, 1, 0}, {FillStyle::solid, kFace, false, kFace});
  canvas.box({0, high - 1, wide, 1}, {LineStyle::none, 1, 0}, {FillStyle::solid, kEdge, false, kEdge});
}

LRESULT ToolBar::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(wide) == BN_CLICKED) command(LOWORD(wide));
      return 0;
    case WM_DRAWITEM:
      drawTool(*reinterpret_cast<const DRAWITEMSTRUCT*>(param));
      return TRUE;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
