// Marks stand on pages of any colour: each is a strong line, handles have a light inside.
#include "surface/SelectionOverlay.h"

#include "surface/HoverZones.h"
#include "surface/LineEditing.h"
#include "surface/ObjectPlaces.h"
#include "surface/ObjectsOnView.h"

namespace plinth {

namespace {

constexpr std::int32_t kAccent = 0xD77800, kLockedInk = 0x808080, kLight = 0xFFFFFF;
constexpr int kAround = 2;      // pixels between an object and its frame
constexpr int kHandleSide = 7;  // odd, so that it sits on the frame's line

const Brush kHollow{.style = FillStyle::none};

RectPx around(const RectPx& place) { return inflated(place, kAround); }

void handle(Canvas& canvas, PointPx middle) {
  const RectPx place{middle.x - kHandleSide / 2, middle.y - kHandleSide / 2, kHandleSide, kHandleSide};
  canvas.box(place, {LineStyle::solid, 1, kAccent}, {.color = kLight});
}

// Right, bottom and corner as far as they size the object.
void edgeHandles(Canvas& canvas, ObjectKind kind, const RectPx& frame) {
  const int right = frame.right() - 1, bottom = frame.bottom() - 1;
  if (hasWidth(kind)) handle(canvas, {right, frame.top + frame.height / 2});
  if (!hasHeight(kind)) return;
  handle(canvas, {frame.left + frame.width / 2, bottom});
  handle(canvas, {right, bottom});
}

void paintObject(Canvas& canvas, const DesignContext& c, ObjectRef object) {
  const std::int32_t ink = c.state.locked ? kLockedInk : kAccent;
  if (object.kind == ObjectKind::Line) {
    const LineEnds ends = lineEnds(c.document, object.index);
    for (const RectPx& marker : lineMarkers(ends))
      canvas.box(marker, {LineStyle::solid, 1, ink}, {.color = kLight});
    return;
  }
  const RectPx frame = around(placeOf(c.document, object, c.measure));
  canvas.box(frame, {LineStyle::solid, 1, ink}, kHollow);
  if (!c.state.locked && !c.state.placingActive) edgeHandles(canvas, object.kind, frame);
}

void paintArea(Canvas& canvas, const DesignContext& c) {
  const std::int32_t ink = c.state.locked ? kLockedInk : kAccent;
  for (const ObjectRef member : c.state.multiSel)
    if (isOnView(c, member))
      canvas.box(around(placeOf(c.document, member, c.measure)), {LineStyle::solid, 1, ink}, kHollow);
  const RectPx& area = c.state.userSel;
  if (!c.state.userSelVisible) return;
  canvas.box(area, {LineStyle::dash, 1, ink}, kHollow);
  if (c.state.locked) return;
  const int right = area.right() - 1, bottom = area.bottom() - 1;
  for (const PointPx corner : {PointPx{area.left, area.top}, PointPx{right, area.top},
                               PointPx{area.left, bottom}, PointPx{right, bottom}})
    handle(canvas, corner);
}

}  // namespace

void paintSelection(Canvas& canvas, const DesignContext& c) {
  if (c.state.selKind == kSelArea) return paintArea(canvas, c);
  const auto object = selectedObject(c.state, c.document);
  if (object && isOnView(c, *object)) paintObject(canvas, c, *object);
}

}  // namespace plinth
