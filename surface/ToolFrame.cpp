// The panel is no object: it has no row, no page and no number, only a place and the option that shows it.
#include "surface/ToolFrame.h"

#include <algorithm>
#include <utility>

#include "widgets/PagePainter.h"
#include "widgets/PagePlaces.h"
#include "widgets/RecordPanelPlaces.h"

namespace plinth {

namespace {

constexpr int kLeft = 1;
constexpr int kLeast = 1;             // of left and top
constexpr PointPx kHiddenAt{2, 184};  // as new projects have it
constexpr int kBoxHigh = 20;
constexpr int kCountLeft = kRecordPanelBoxLeft + kRecordPanelBoxWidth + 4,
              kCountWide = kRecordPanelCountWidth - 4;
constexpr int kGripReach = 4;  // pixels around the left top corner
constexpr std::int32_t kFace = 0xF5F5F5, kIcon = 0x804000, kEdge = 0x7A7A7A, kInk = 0x404040,
                       kLight = 0xFFFFFF, kAccent = 0xD77800, kLockedInk = 0x808080;

RectPx gripOf(const RectPx& panel) {
  return {panel.left - kGripReach, panel.top - kGripReach, 2 * kGripReach + 1, 2 * kGripReach + 1};
}

// A side that stays keeps its fraction of a pixel.
void setSide(float& twips, int pixels) {
  if (placePx(twips) != pixels) twips = pixelsToTwips(pixels);
}

void setCorner(ProjectDocument& document, PointPx corner) {
  setSide(document.frame3Left, corner.x);
  setSide(document.frame3Top, corner.y);
}

// Keeps the panel on the page, without pulling back one that lies outside.
int stepped(int edge, int length, int by, int side) {
  const int to = std::clamp(edge + by, kLeast, std::max(kLeast, side - length));
  return by < 0 ? std::min(edge, to) : by > 0 ? std::max(edge, to) : edge;
}

void selectFrame(DesignContext& c) {
  const bool labelEdited = c.state.editedTitle >= 0;
  selectNothing(c.state);
  c.state.selKind = kSelFrame3;
  c.history.seal();
  if (labelEdited) c.view.labelEditing();
  c.view.selectionChanged();
  c.view.overlayChanged();
}

}  // namespace

bool toolFrameShown(const ProjectDocument& document) { return document.options.check5 == 1; }

RectPx toolFramePlace(const ProjectDocument& document) {
  return {placePx(document.frame3Left), placePx(document.frame3Top), kRecordPanelWidth, kRecordPanelHeight};
}

bool nudgeToolFrame(DesignContext& c, int dx, int dy) {
  if (!toolFrameShown(c.document) || c.state.selKind != kSelFrame3) return false;
  const RectPx place = toolFramePlace(c.document);
  const SizePx page = pageSizePx(c.document);
  setCorner(c.document, {stepped(place.left, place.width, dx, page.width),
                         stepped(place.top, place.height, dy, page.height)});
  finish(c, "move of the tool panel", "nudge tool panel");
  c.view.readoutsChanged();
  c.view.overlayChanged();
  return true;
}

void ToolFrame::toggle() {
  finishCarried(c_);
  if (shown()) {
    if (selected()) {
      selectNothing(c_.state);
      c_.view.selectionChanged();
    }
    c_.document.options.check5 = 0;
    setCorner(c_.document, kHiddenAt);
  } else {
    c_.document.options.check5 = 1;
    if (!c_.state.placingActive && c_.state.selKind != kSelArea) selectFrame(c_);
  }
  finish(c_, "tool panel");
  c_.view.overlayChanged();
}

// The panel takes the mouse only while nothing else is under way.
bool ToolFrame::isUnder(PointPx point) const {
  if (!shown() || c_.state.locked || c_.state.placingActive || c_.state.selKind == kSelArea) return false;
  const RectPx panel = toolFramePlace(c_.document);
  return panel.contains(point) || gripOf(panel).contains(point);
}

bool ToolFrame::mouseDown(const MouseEvent& event) {
  if (held_ && event.button != kLeft) return true;
  endGesture();  // the release went to another window
  const PointPx point{event.x, event.y};
  if (event.button != kLeft || !isUnder(point)) return false;
  selectFrame(c_);
  const RectPx panel = toolFramePlace(c_.document);
  c_.state.cur = c_.state.press = point;
  grip_ = {point.x - panel.left, point.y - panel.top};
  leftBefore_ = c_.document.frame3Left;
  topBefore_ = c_.document.frame3Top;
  held_ = true;
  dragged_ = false;
  return true;
}

bool ToolFrame::mouseMove(const MouseEvent& event) {
  const PointPx point{event.x, event.y};
  if (held_ && (event.button & kLeft) != 0) {
    if (!c_.state.locked) dragTo(point);
    return true;
  }
  endGesture();
  if (event.button != 0 || !isUnder(point)) return false;
  c_.state.cur = point;
  if (std::exchange(c_.state.hoverLabel.index, -1) >= 0) c_.view.overlayChanged();
  if (std::exchange(c_.state.pointer, PointerShape::sizeAll) != PointerShape::sizeAll)
    c_.view.pointerChanged();
  return true;
}

void ToolFrame::dragTo(PointPx point) {
  if (point.x == c_.state.cur.x && point.y == c_.state.cur.y) return;
  c_.state.cur = point;
  dragged_ = true;
  setCorner(c_.document, {point.x - grip_.x, point.y - grip_.y});
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
}

bool ToolFrame::mouseUp(const MouseEvent& event) {
  if (!held_ || event.button != kLeft) return held_;
  if (!c_.state.locked) dragTo({event.x, event.y});
  endGesture();
  return true;
}

void ToolFrame::endGesture() {
  if (!std::exchange(held_, false) || !dragged_) return;
  const RectPx panel = toolFramePlace(c_.document);
  setCorner(c_.document, {std::max(kLeast, panel.left), std::max(kLeast, panel.top)});
  finish(c_, "move of the tool panel");
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
}

bool ToolFrame::keyDown(const KeyEvent& event) {
  if (!held_) return false;
  if (event.key != kEscapeKey) return true;
  held_ = false;
  c_.document.frame3Left = leftBefore_;
  c_.document.frame3Top = topBefore_;
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
  return true;
}

void ToolFrame::paint(Canvas& canvas) const {
  if (!shown()) return;
  constexpr Pen kNone{LineStyle::none, 1, 0};
  const RectPx panel = toolFramePlace(c_.document);
  canvas.box(panel, kNone, {.color = kFace});
  for (const RecordPanelButton& button : kRecordPanelButtons) {
    ButtonItem look;
    look.rect = {panel.left + button.left, panel.top, kRecordPanelButton, panel.height};
    look.foreColor = kIcon;
    look.backColor = kFace;
    look.icon = button.icon;
    paintItem(look, canvas);
  }
  const FontSpec font{.charSet = 0};
  const RectPx box{panel.left + kRecordPanelBoxLeft, panel.top + (panel.height - kBoxHigh) / 2,
                   kRecordPanelBoxWidth, kBoxHigh};
  canvas.box(box, {LineStyle::solid, 1, kEdge}, {.color = kLight});
  canvas.text(box, "1", font, kInk, TextAlign::center, false, true);
  canvas.text({panel.left + kCountLeft, panel.top, kCountWide, panel.height}, "/ 1", font, kInk,
              TextAlign::left, false, true);

  const std::int32_t ink = c_.state.locked ? kLockedInk : kAccent;
  if (selected()) canvas.box(inflated(panel, 2), {LineStyle::solid, 1, ink}, {.style = FillStyle::none});
  const RectPx grip = gripOf(panel);
  canvas.box(grip, {LineStyle::solid, 1, ink}, {.color = ink});
  canvas.line({panel.left - 2, panel.top}, {panel.left + 3, panel.top}, {LineStyle::solid, 1, kLight});
  canvas.line({panel.left, panel.top - 2}, {panel.left, panel.top + 3}, {LineStyle::solid, 1, kLight});
}

}  // namespace plinth
