// The mouse. Every gesture is a press, moves and a release of the left button; its step of the history is
// made at the release.
#include "surface/PageEditor.h"

#include <utility>

#include "surface/Carrying.h"
#include "surface/HoverZones.h"
#include "surface/ObjectPlaces.h"
#include "surface/ObjectsOnView.h"
#include "surface/SelectionOverlay.h"

namespace plinth {

namespace {

constexpr int kLeft = 1, kRight = 2;

bool same(PointPx a, PointPx b) { return a.x == b.x && a.y == b.y; }
PointPx operator-(PointPx a, PointPx b) { return {a.x - b.x, a.y - b.y}; }

// What puts the object's row back to what it is now.
std::function<void()> restorer(ProjectDocument& document, ObjectRef object) {
  std::function<void()> restore = [] {};
  withRow(document, object, [&](const auto& row) {
    restore = [&document, object, kept = row] {
      withRow(document, object, [&kept](auto& now) {
        if constexpr (requires { now = kept; }) now = kept;
      });
    };
  });
  return restore;
}

}  // namespace

void PageEditor::mouseDown(const MouseEvent& event, ItemRef hit) {
  if (hold_ != Hold::nothing) {
    if (event.button != kLeft) return;
    release(c_.state.cur);  // the release went to another window
  }
  const PointPx point{event.x, event.y};
  c_.state.cur = point;
  setHoverLabel(-1);
  endLabel();
  if (event.button == kRight) return pressRight(point, hit);
  if (event.button != kLeft) return;
  if (!area_.active()) return press(point, hit);
  if (!c_.state.locked) area_.mouseDown(event);
}

void PageEditor::press(PointPx point, ItemRef hit) {
  if (const auto carried = carriedObject()) {
    // A finger presses without having moved there.
    if (c_.state.placePhase == PlacePhase::none) follow(*carried, point, false);
    beginSizing(c_, *carried, point);
    return hold(Hold::carried, *carried);
  }
  c_.history.seal();
  if (const auto marker = markerAt(c_, point)) {
    const ObjectRef line{ObjectKind::Line, c_.state.selLine};
    const LineEnds ends = lineEnds(c_.document, line.index);
    return pressLine(line, *marker, point - (*marker == LineEnd::start ? ends.from : ends.to));
  }
  const auto object = objectAt(point, hit);
  if (!object) return deselect();
  selectObject(*object);
  c_.state.press = point;
  if (object->kind == ObjectKind::Line)
    return pressLine(*object, nearEnd(lineEnds(c_.document, object->index), point), {});
  edge_ = pointerOver(c_, *object, point);
  grip_ = point - cornerOf(c_.document, *object);
  hold(isEdge(edge_) ? Hold::edge : Hold::body, *object);
}

void PageEditor::pressLine(ObjectRef line, LineEnd end, PointPx grip) {
  c_.state.placeTool = kindInfo(ObjectKind::Line).placeTool;
  c_.state.lineEndStart = end == LineEnd::start;
  c_.state.press = c_.state.cur;
  grip_ = grip;
  hold(Hold::lineEnd, line);
}

void PageEditor::pressRight(PointPx point, ItemRef hit) {
  if (c_.state.userSelVisible) {
    c_.state.locked = !c_.state.locked;
    c_.view.selectionChanged();
    c_.view.overlayChanged();
  } else if (!area_.active() && !carriedObject()) {
    if (const auto object = objectAt(point, hit)) selectObject(*object);
  }
  c_.view.popupMenu(point);
}

void PageEditor::hold(Hold what, ObjectRef object) {
  hold_ = what;
  held_ = object;
  dragged_ = false;
  restore_ = restorer(c_.document, object);
}

void PageEditor::letGo() {
  hold_ = Hold::nothing;
  restore_ = nullptr;
  c_.state.placeTool = kToolNone;
  c_.state.placePhase = PlacePhase::none;
}

std::optional<ObjectRef> PageEditor::objectAt(PointPx point, ItemRef hit) const {
  const bool known = hit.kind >= 0 && hit.kind < kObjectKinds;
  const ObjectRef object{known ? static_cast<ObjectKind>(hit.kind) : ObjectKind::Line, hit.index};
  // Lines lie above squares alone; where several cross, the first one is meant.
  if (!known || object.kind == ObjectKind::Line || object.kind == ObjectKind::Square)
    if (const auto line = lineAt(c_, point)) return line;
  return known && isOnView(c_, object) ? std::optional(object) : std::nullopt;
}

std::optional<ObjectRef> PageEditor::carriedObject() const {
  return c_.state.placingActive ? selectedObject(c_.state, c_.document) : std::nullopt;
}

void PageEditor::mouseMove(const MouseEvent& event, ItemRef hit) {
  const bool held = (event.button & kLeft) != 0 && !area_.active();
  if (hold_ != Hold::nothing && !held) release(c_.state.cur);
  if (area_.active()) {
    if (!c_.state.locked) area_.mouseMove(event);
    return;
  }
  const PointPx point{event.x, event.y};
  if (c_.state.locked) {
    setHoverLabel(-1);
    return setPointer(PointerShape::standard);
  }
  c_.state.cur = point;
  const auto carried = carriedObject();
  if (hold_ == Hold::carried && !carried) letGo();  // it is gone meanwhile
  if (hold_ == Hold::nothing && !carried) return hover(point, hit);
  setHoverLabel(-1);
  if (!carried) return drag(point);
  const bool overLine =
      hit.kind == static_cast<int>(ObjectKind::Line) && *carried != ObjectRef{ObjectKind::Line, hit.index};
  setPointer(overLine ? PointerShape::upArrow : PointerShape::standard);
  if (hold_ == Hold::carried)
    drag(point);
  else
    follow(*carried, point, false);
}

// Brings the carried object to the pointer, or sizes it.
void PageEditor::follow(ObjectRef object, PointPx point, bool held) {
  if (!held) c_.state.placePhase = PlacePhase::carried;
  carry(c_, object, point, held);
  if (held) sizeCarried(c_, object, point);
  moved(object);
}

void PageEditor::drag(PointPx point) {
  if (!dragged_ && same(point, c_.state.press)) return;  // systems report moves that are none
  dragged_ = true;
  if (hold_ == Hold::carried) return follow(held_, point, true);
  const PointPx to = point - grip_;
  if (hold_ == Hold::body)
    moveTo(c_.document, held_, to);
  else if (hold_ == Hold::edge)
    resizeTo(c_.document, held_, sizeAtEdge(c_, held_, edge_, point));
  else
    dragLineEnd(c_, held_.index, c_.state.lineEndStart ? LineEnd::start : LineEnd::end, to);
  moved(held_);
}

void PageEditor::moved(ObjectRef object) {
  c_.view.objectsMoved({object});
  c_.view.readoutsChanged();
}

void PageEditor::mouseUp(const MouseEvent& event) {
  if (event.button == kLeft && hold_ != Hold::nothing)
    release({event.x, event.y});
  else if (area_.active() && !c_.state.locked)
    area_.mouseUp(event);
}

void PageEditor::endGesture() {
  const PointPx at = c_.state.cur;
  if (hold_ != Hold::nothing)
    release(at);
  else if (area_.active())
    area_.mouseUp({kLeft, 0, at.x, at.y});
}

void PageEditor::release(PointPx point) {
  if (hold_ == Hold::carried && !carriedObject()) return letGo();
  if (!c_.state.locked && !same(point, c_.state.cur)) drag(point);
  if (hold_ == Hold::carried)
    putDown(held_);
  else
    releasePlaced();
}

// Ends the carrying where the object is now.
void PageEditor::putDown(ObjectRef object) {
  dropCarried(c_, object);
  letGo();
  c_.state.placingActive = false;
  c_.state.multiSel.clear();
  c_.state.lineEndsShown = object.kind == ObjectKind::Line;
  moved(object);
  finish(c_, "placing of " + shortName(object), placingKey(object));
  c_.view.overlayChanged();
  afterRelease(object);
}

void PageEditor::releasePlaced() {
  const Hold held = std::exchange(hold_, Hold::nothing);
  letGo();
  if (dragged_) {
    if (held_.kind == ObjectKind::Line)
      settleLine(c_, held_.index);
    else if (isLabelOffPage(c_, held_))
      hideObject(c_, held_);
    else
      settleObject(c_, held_);
    moved(held_);
    finish(c_, (held == Hold::body ? "move of " : "sizing of ") + shortName(held_));
  }
  afterRelease(held_);
}

// A label that was let go is there to be typed over.
void PageEditor::afterRelease(ObjectRef object) {
  if (object.kind != ObjectKind::Title) return;
  if (isOnView(c_, object))
    editLabel();
  else
    deselect();
}

void PageEditor::doubleClick(const MouseEvent& event, ItemRef hit) {
  const PointPx point{event.x, event.y};
  const auto object = objectAt(point, hit);
  // The second press of a quick hand that has other work to do.
  if (event.button != kLeft || area_.active() || carriedObject() || !object) return mouseDown(event, hit);
  endLabel();
  selectObject(*object);
  c_.view.openProperties(*object);
}

void PageEditor::hover(PointPx point, ItemRef hit) {
  if (markerAt(c_, point)) {
    setHoverLabel(-1);
    return setPointer(PointerShape::sizeAll);
  }
  const auto object = objectAt(point, hit);
  const bool linked = object && object->kind == ObjectKind::Title &&
                      !c_.document.titles[static_cast<std::size_t>(object->index)].tag.empty();
  setHoverLabel(linked ? object->index : -1);
  if (!object)
    setPointer(PointerShape::standard);
  else if (object->kind == ObjectKind::Line)
    setPointer(PointerShape::upArrow);
  else
    setPointer(pointerOver(c_, *object, point));
}

void PageEditor::setPointer(PointerShape pointer) {
  if (std::exchange(c_.state.pointer, pointer) != pointer) c_.view.pointerChanged();
}

void PageEditor::setHoverLabel(int index) {
  if (std::exchange(c_.state.hoverLabel.index, index) != index) c_.view.overlayChanged();
}

void PageEditor::paintOverlay(Canvas& canvas) const { paintSelection(canvas, c_); }

}  // namespace plinth
