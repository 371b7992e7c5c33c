// What the designer tells its main window.
#include "platform/win32/WindowsApi.h"  // before the parts of Windows that lean on it

#include <commctrl.h>

#include <optional>

#include "basic/CodePage.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/CommonLabelsWindow.h"
#include "surface/win32/DesignerFrame.h"
#include "surface/win32/FrameMenus.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

void DesignerFrame::invalidate() {
  if (area_) area_->invalidate();
}

void DesignerFrame::invalidateArea(const RectPx& area) {
  if (area_) area_->invalidate(area);
}

void DesignerFrame::scrollChanged() {
  if (area_) area_->showScroll();
}

void DesignerFrame::pageChanged() {
  if (ready_) statusChanged();
}

void DesignerFrame::tabsChanged() {
  if (area_) area_->showTabs();
}

void DesignerFrame::objectPointedAt(const std::string& name) {
  if (ready_) designer_.setPointed(name);
}

void DesignerFrame::panelChanged() {
  if (!ready_ || !panel_) return;
  panel_->show(designer_.surface().panel());
  toolbox_->show();
  statusChanged();
}

void DesignerFrame::readoutsChanged() {
  if (ready_ && panel_) panel_->showPlaces(designer_.surface().panel());
}

void DesignerFrame::pointerChanged(PointerShape pointer) {
  if (area_) area_->showPointer(pointer);
}

void DesignerFrame::popupMenu(PointPx point) {
  // Once the press has been told to all, so that panel and menu speak of the same object.
  const POINT at = area_->onScreen(point);
  ::PostMessageW(window_, kShowPopup, 0, MAKELPARAM(at.x, at.y));
}

void DesignerFrame::showPopup(POINT at) {
  const HMENU popup = popupOf(plinth::popupMenu(designer_));
  const int chosen =
      ::TrackPopupMenu(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, window_, nullptr);
  ::DestroyMenu(popup);
  if (chosen != 0) ::PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(chosen), 0);
}

void DesignerFrame::labelEditing(const RectPx& place) {
  if (area_) area_->editLabel(place, designer_.surface().document());
}

void DesignerFrame::objectOpened(ObjectRef) { focusPanel(); }

void DesignerFrame::stepMade() {
  if (!ready_ || !toolbox_) return;
  toolbox_->show();
  wordsChanged();
  statusChanged();
}

void DesignerFrame::showCaption(const std::string& utf8) {
  ::SetWindowTextW(window_, wideUtf8(utf8).c_str());
}

void DesignerFrame::menusChanged() {
  if (!ready_ || !window_) return;
  retext();
  std::vector<Menu> now = designerMenus(designer_);
  if (sameStory(menus_, now)) return;
  menus_ = std::move(now);
  const HMENU before = ::GetMenu(window_);
  ::SetMenu(window_, menuBar(menus_));
  if (before) ::DestroyMenu(before);
}

void DesignerFrame::retext() {
  if (!panel_) return;
  const auto label = [this](int number, const char* english) { return designer_.text(number, english); };
  const int page = designer_.languageCodePage();
  const int textPage = codePageOfCharSet(designer_.shell().document().charSet);
  toolbox_->retext(
      [&](int number, const char* english) { return toWide(designer_.text(number, english), page); });
  panel_->retext(label, page, textPage);
  if (colors_) colors_->retext(label, page);
  strip_->retext(toWide(designer_.text(133, "Edit Menu Label"), page),
                 toWide(designer_.text(134, "Change the menu item name"), page));
}

void DesignerFrame::statusChanged() {
  if (!ready_ || !status_ || working_) return;
  const std::vector<std::string> parts = designer_.status();
  for (std::size_t i = 0; i < parts.size(); ++i)
    ::SendMessageW(status_, SB_SETTEXTW, i, reinterpret_cast<LPARAM>(wideUtf8(" " + parts[i]).c_str()));
}

void DesignerFrame::wordsChanged() {
  if (!ready_ || !strip_) return;
  const DesignSurface& surface = designer_.surface();
  strip_->show(surface.menuWords().menus(), surface.state().menuLabelEdit, surface.menuWords().words(),
               codePageOfCharSet(surface.document().charSet));
}

void DesignerFrame::setBusy(bool busy) {
  waiting_ = busy;
  ::SetCursor(::LoadCursorA(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

void DesignerFrame::showColorTable() {
  if (!colors_) {
    const auto position = [this]() -> std::optional<POINT> {
      constexpr int kNone = -1;
      const int left = designer_.shell().position("ConfigLeft", kNone);
      const int top = designer_.shell().position("ConfigTop", kNone);
      if (left == kNone || top == kNone) return std::nullopt;
      return POINT{twipsToPixels(static_cast<float>(left)), twipsToPixels(static_cast<float>(top))};
    };
    const auto keep = [this](POINT corner) {
      designer_.shell().keepPosition("ConfigLeft", static_cast<int>(pixelsToTwips(corner.x)));
      designer_.shell().keepPosition("ConfigTop", static_cast<int>(pixelsToTwips(corner.y)));
    };
    colors_ = std::make_unique<ColorTableWindow>(
        window_, designer_.surface().colors(),
        ColorTableEvents{[this](std::int32_t color) {
                           // Message boxes lock the main window alone.
                           if (!designer_.busy()) designer_.surface().useColor(color);
                         },
                         [this] { designer_.surface().finished("color table"); }, position, keep});
    colors_->setColors(systemChrome());
    retext();
  }
  colors_->refresh();
  colors_->open(designer_.surface().colors().chosen());
}

void DesignerFrame::focusPanel() {
  const HWND first = ::GetNextDlgTabItem(panel_->window(), nullptr, FALSE);
  if (first) ::SetFocus(first);
}

void DesignerFrame::editCommonLabels(CommonLabels& labels) {
  const int page = designer_.languageCodePage();
  plinth::editCommonLabels(window_, labels, page, toWide(designer_.text(176, "Common Labels..."), page),
                           toWide(designer_.text(302, "Close"), page));
}

void DesignerFrame::end() {
  keepPlace();
  if (colors_) colors_->hide();
  ::DestroyWindow(window_);
}

}  // namespace plinth
