// The keyboard, the direction pad, the selection as such, and labels that are typed in place.
#include <algorithm>
#include <cmath>

#include "surface/Carrying.h"
#include "surface/ObjectPlaces.h"
#include "surface/ObjectsOnView.h"
#include "surface/PageEditor.h"
#include "surface/ToolFrame.h"
#include "surface/Units.h"

namespace plinth {

namespace {

constexpr int kFarStep = 10;  // pixels without a grid

// Where an edge comes by a step of an arrow key: it stops at the page's sides and starts from within only.
int stepped(int edge, int by, int side) {
  if (by < 0) return edge > 0 ? std::max(0, edge + by) : edge;
  if (by > 0) return edge < side ? std::min(side, edge + by) : edge;
  return edge;
}

// Where it comes by the pad, which keeps all of the object on the page.
int padded(int edge, int length, int by, int side) {
  const int last = std::max(0, side - length);
  if (by < 0) return std::min(edge, std::clamp(edge + by, 0, last));
  if (by > 0) return std::max(edge, std::clamp(edge + by, 0, last));
  return edge;
}

}  // namespace

bool PageEditor::keyDown(const KeyEvent& event) {
  if ((event.shift & (kCtrl | kAlt)) != 0) return false;
  const bool far = (event.shift & kShift) != 0;
  switch (event.key) {
    case kLeftKey:
      return nudge(-1, 0, far);
    case kRightKey:
      return nudge(1, 0, far);
    case kUpKey:
      return nudge(0, -1, far);
    case kDownKey:
      return nudge(0, 1, far);
    case kEscapeKey:
      return escape();
    case kEnterKey:
      if (const auto carried = carriedObject()) return putDown(*carried), true;
      return false;
    case kF2Key:
      editLabel();
      return c_.state.editedTitle >= 0;
    default:
      return false;
  }
}

bool PageEditor::nudge(int dx, int dy, bool far) {
  if (c_.state.locked || hold_ != Hold::nothing) return false;
  const int onGrid = static_cast<int>(std::lround(c_.state.gridStep));
  const int step = !far ? 1 : c_.state.gridOn() && onGrid > 0 ? onGrid : kFarStep;
  if (area_.active()) {
    if (!c_.state.userSelVisible) return false;
    area_.moveBy(dx * step, dy * step);
    return true;
  }
  if (nudgeToolFrame(c_, dx * step, dy * step)) return true;
  if (const auto carried = carriedObject()) putDown(*carried);
  const auto object = selectedObject(c_.state, c_.document);
  if (!object) return false;
  const RectPx place = placeOf(c_.document, *object, c_.measure);
  const SizePx page = pageSizePx(c_.document);
  finishNudge(*object, {stepped(place.left, dx * step, page.width) - place.left,
                        stepped(place.top, dy * step, page.height) - place.top});
  return true;
}

void PageEditor::pad(int dx, int dy, bool ten) {
  if (c_.state.locked || hold_ != Hold::nothing) return;
  const int step = static_cast<int>(std::lround(toPixels(ten ? 10 : 1, c_.state.scaleUnit)));
  if (area_.active()) {
    if (c_.state.userSelVisible) area_.moveBy(dx * step, dy * step);
    return;
  }
  if (nudgeToolFrame(c_, dx * step, dy * step)) return;
  if (const auto carried = carriedObject()) putDown(*carried);
  const auto object = selectedObject(c_.state, c_.document);
  if (!object) return;
  const RectPx place = placeOf(c_.document, *object, c_.measure);
  const SizePx page = pageSizePx(c_.document);
  finishNudge(*object, {padded(place.left, place.width, dx * step, page.width) - place.left,
                        padded(place.top, place.height, dy * step, page.height) - place.top});
}

void PageEditor::finishNudge(ObjectRef object, PointPx by) {
  if (by.x == 0 && by.y == 0) return;
  moveBy(c_.document, object, by.x, by.y);
  moved(object);
  if (c_.state.editedTitle >= 0) c_.view.labelEditing();
  finish(c_, "move of " + shortName(object), "nudge " + shortName(object));
}

bool PageEditor::escape() {
  if (c_.state.editedTitle >= 0) {
    endLabel();
    return true;
  }
  if (giveUpCarried()) return true;
  if (hold_ != Hold::nothing) {
    restore_();
    moved(held_);
    letGo();
    return true;
  }
  if (area_.active()) {
    area_.leave();
    return true;
  }
  if (c_.state.selKind == kSelNone) return false;
  deselect();
  return true;
}

// The object in hand goes as if it had never been placed. One with a slot of its own goes back to where it
// was; one that something was done to since is put aside.
bool PageEditor::giveUpCarried() {
  const auto carried = carriedObject();
  if (!carried) return false;
  letGo();
  const bool ownSlot = carried->index < kindInfo(carried->kind).firstIndex;
  if (ownSlot) finishCarried(c_);
  if (c_.history.mergesWith(placingKey(*carried))) {
    c_.history.undo(c_.document);
    c_.state.hidden.clear();  // what its placing put aside
    c_.view.documentChanged();
  } else if (!ownSlot) {
    hideObject(c_, *carried);
    finish(c_, "putting aside of " + shortName(*carried));
  }
  c_.state.placingActive = false;
  deselect();
  c_.view.objectsChanged();
  return true;
}

void PageEditor::deselect() {
  endLabel();
  if (c_.state.selKind == kSelNone) return;
  selectNothing(c_.state);
  c_.view.selectionChanged();
  c_.view.overlayChanged();
}

void PageEditor::selectObject(ObjectRef object) {
  if (!isLive(c_.document, object)) return;
  if (const auto carried = carriedObject(); carried && *carried != object) putDown(*carried);
  if (area_.active()) area_.leave();
  if (object != ObjectRef{ObjectKind::Title, c_.state.editedTitle}) endLabel();
  select(c_.state, object);
  if (!c_.state.placingActive) c_.state.placeTool = kToolNone;
  c_.state.lineEndsShown = object.kind == ObjectKind::Line;
  c_.view.selectionChanged();
  c_.view.overlayChanged();
}

void PageEditor::selectNext(int step) {
  if (hold_ != Hold::nothing) return;
  const std::vector<ObjectRef> walk = tabWalk(c_);
  if (walk.empty() || step == 0) return;
  const int count = static_cast<int>(walk.size());
  int at = step > 0 ? -1 : count;
  if (const auto selected = selectedObject(c_.state, c_.document)) {
    const auto found = std::ranges::find(walk, *selected);
    if (found != walk.end()) at = static_cast<int>(found - walk.begin());
  }
  selectObject(walk[static_cast<std::size_t>(((at + step) % count + count) % count)]);
}

void PageEditor::editLabel() {
  const auto object = selectedObject(c_.state, c_.document);
  if (!object || object->kind != ObjectKind::Title || c_.state.placingActive) return;
  c_.history.seal();
  c_.state.editedTitle = object->index;
  c_.view.labelEditing();
}

void PageEditor::typeLabel(const std::string& caption) {
  const ObjectRef label{ObjectKind::Title, c_.state.editedTitle};
  if (!isLive(c_.document, label)) return;
  c_.document.titles[static_cast<std::size_t>(label.index)].caption = caption;
  if (!finish(c_, "typing in " + shortName(label), "type " + shortName(label))) return;
  c_.view.objectsChanged();
  c_.view.readoutsChanged();
  c_.view.labelEditing();
}

void PageEditor::endLabel() {
  if (c_.state.editedTitle < 0) return;
  c_.state.editedTitle = -1;
  c_.history.seal();
  c_.view.labelEditing();
}

}  // namespace plinth
