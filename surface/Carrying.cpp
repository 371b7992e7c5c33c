// Sizes are those of the frame; the text inside follows by itself.
#include "surface/Carrying.h"

#include <algorithm>
#include <cstdlib>

#include "surface/LineEditing.h"
#include "surface/ObjectPlaces.h"
#include "surface/ObjectsOnView.h"
#include "surface/Units.h"

namespace plinth {

namespace {

constexpr int kBehindPointer = 2;
constexpr int kClick = 3;   // pixels that a hand shakes during a click
constexpr int kReach = 10;  // pixels of a carried object that stay on the page

bool isRubberBand(ObjectKind kind) { return kind == ObjectKind::Square || kind == ObjectKind::Script; }

// Labels and check boxes don't keep to the grid in hand, only when they are moved later.
bool keepsToGrid(ObjectKind kind) { return kind != ObjectKind::Title && kind != ObjectKind::CheckBox; }

// A length on the grid that does not vanish.
int snappedLength(const DesignState& state, int length) {
  const int onGrid = snapped(state, length);
  return onGrid > 0 || length <= 0 ? onGrid : snapped(state, static_cast<int>(state.gridStep + 0.5));
}

struct Span {
  int from = 0, length = 0;
};

// One axis of a rubber band between where it began and the pointer, either way round.
Span stretched(int anchor, int pointer) { return {std::min(anchor, pointer), std::abs(pointer - anchor)}; }

void stretch(DesignContext& c, ObjectRef object, PointPx pointer) {
  const PointPx to = SnapPoint(c.state, pointer);
  const Span x = stretched(c.state.anchor.x, to.x), y = stretched(c.state.anchor.y, to.y);
  moveTo(c.document, object, {x.from, y.from});
  resizeTo(c.document, object, {x.length, y.length});
}

void sizeBox(DesignContext& c, ObjectRef object, PointPx pointer) {
  const RectPx frame = placeOf(c.document, object, c.measure);
  const int x = pointer.x - frame.left, y = pointer.y - frame.top;
  if (x <= 1 || (hasHeight(object.kind) && y <= 1)) return;
  SizePx size{snappedLength(c.state, x), snappedLength(c.state, y)};
  if (object.kind == ObjectKind::Field) size.width = std::max(15, size.width);
  if (object.kind == ObjectKind::Memo) size = {std::max(60, size.width), std::max(40, size.height)};
  resizeTo(c.document, object, size);
}

bool isClick(const DesignState& state, PointPx pointer) {
  return std::abs(pointer.x - state.press.x) <= kClick && std::abs(pointer.y - state.press.y) <= kClick;
}

}  // namespace

void carry(DesignContext& c, ObjectRef object, PointPx pointer, bool held) {
  const bool follows = !keepsToGrid(object.kind);
  if (held && !follows) return;
  const PointPx point = onPage(c, pointer);
  const int behind = held && object.kind == ObjectKind::Title ? 0 : kBehindPointer;
  PointPx corner{point.x + behind, point.y + behind};
  if (!follows) corner = SnapPoint(c.state, corner);
  // An object that was put down beyond the page's edge could never be reached again.
  const SizePx page = pageSizePx(c.document);
  corner = {std::min(corner.x, page.width - kReach), std::min(corner.y, page.height - kReach)};
  moveTo(c.document, object, corner);
}

void beginSizing(DesignContext& c, ObjectRef object, PointPx pointer) {
  c.state.press = pointer;
  c.state.anchor = cornerOf(c.document, object);
  c.state.lineEndStart = false;
  c.state.placePhase = PlacePhase::carried;
}

void sizeCarried(DesignContext& c, ObjectRef object, PointPx pointer) {
  if (c.state.placePhase != PlacePhase::sizing && isClick(c.state, pointer)) return;
  c.state.placePhase = PlacePhase::sizing;
  const PointPx point = onPage(c, pointer);
  if (object.kind == ObjectKind::Line)
    dragLineEnd(c, object.index, LineEnd::end, point);
  else if (isRubberBand(object.kind))
    stretch(c, object, point);
  else if (hasWidth(object.kind))
    sizeBox(c, object, point);
}

void dropCarried(DesignContext& c, ObjectRef object) {
  constexpr int kLeast = 10;
  if (object.kind == ObjectKind::Line) return settleLine(c, object.index);
  if (!isRubberBand(object.kind)) return;
  // A square that was not drawn is a small one; a script keeps the size that it came with.
  const bool drawn = c.state.placePhase == PlacePhase::sizing;
  const RectPx frame = placeOf(c.document, object, c.measure);
  const bool empty = drawn ? frame.width < 1 || frame.height < 1 : object.kind == ObjectKind::Square;
  if (empty) resizeTo(c.document, object, {kLeast, kLeast});
}

void settleObject(DesignContext& c, ObjectRef object) {
  const PointPx corner = cornerOf(c.document, object);
  moveTo(c.document, object, SnapPoint(c.state, {std::max(0, corner.x), std::max(0, corner.y)}));
  // A combo's width stays what it is.
  if (!c.state.gridOn() || !hasWidth(object.kind) || object.kind == ObjectKind::Combo) return;
  const RectPx frame = placeOf(c.document, object, c.measure);
  resizeTo(c.document, object, {snappedLength(c.state, frame.width), snappedLength(c.state, frame.height)});
}

bool isLabelOffPage(const DesignContext& c, ObjectRef object) {
  if (object.kind != ObjectKind::Title) return false;
  const RectPx place = placeOf(c.document, object, c.measure);
  return place.right() < 0 || place.bottom() < 0;
}

}  // namespace plinth
