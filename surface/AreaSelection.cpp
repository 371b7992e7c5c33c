// The rectangle and its members. A drag moves the rows at once, so that the page shows it; the step in the
// history comes at the release.
#include "surface/AreaSelection.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>

#include "surface/ObjectPlaces.h"
#include "surface/Units.h"
#include "widgets/PageItems.h"

namespace plinth {

namespace {

constexpr int kLeastSide = 10;
constexpr int kFarEdge = 20;
constexpr double kGripUnits = 2;  // in the unit of the read-outs, whatever it is
constexpr unsigned kLeftButton = 1;
constexpr const char* kNudges = "nudge area";

constexpr ObjectKind kCollecting[] = {
    ObjectKind::Line, ObjectKind::Title,    ObjectKind::Square, ObjectKind::Picture, ObjectKind::Field,
    ObjectKind::Memo, ObjectKind::CheckBox, ObjectKind::Combo,  ObjectKind::Button,  ObjectKind::Script};

bool holds(const RectPx& outer, const RectPx& inner) {
  return inner.left >= outer.left && inner.right() <= outer.right() && inner.top >= outer.top &&
         inner.bottom() <= outer.bottom();
}

// Where a side of the rectangle may come to lie. One that is off the page already may stay there.
int kept(int from, int by, int pageSide) {
  return std::clamp(from + by, std::min(from, 0), std::max(from, pageSide - kFarEdge));
}

bool inGrip(const DesignState& state, PointPx point) {
  const int grip = static_cast<int>(toPixels(kGripUnits, state.scaleUnit));
  return state.userSelVisible && inflated(state.userSel, grip).contains(point);
}

// Every live row of a kind that shows on the page on view. Row 0 of the kinds that begin later is a template.
template <class F>
void forEachShown(const DesignContext& c, ObjectKind kind, F visit) {
  visitTable(c.document, kind, [&](const auto& rows) {
    const int first = std::min(kindInfo(kind).firstIndex, 1);
    for (int i = first; i < static_cast<int>(rows.size()); ++i) {
      const auto& row = rows[static_cast<std::size_t>(i)];
      bool visible = true;
      if constexpr (requires { row.visible; }) visible = row.visible;
      const ObjectRef object{kind, i};
      if (showsOnPage(static_cast<int>(row.page), visible, c.state.currentPage) && !isHidden(c.state, object))
        visit(object);
    }
  });
}

std::string moveWords(const std::vector<ObjectRef>& members) { return "move of " + shortName(members); }

}  // namespace

void AreaSelection::toggle() {
  if (active()) {
    leave();
  } else if (!c_.state.locked) {
    enter();
    c_.view.selectionChanged();
    c_.view.overlayChanged();
  }
}

void AreaSelection::leave() {
  if (!active()) return;
  endDrag();
  selectNothing(c_.state);
  setPointer(PointerShape::standard);
  c_.view.selectionChanged();
  c_.view.overlayChanged();
}

void AreaSelection::selectAll() {
  enter();
  const SizePx page = pageSizePx(c_.document);
  c_.state.userSel = {0, 0, page.width, page.height};
  c_.state.userSelVisible = true;
  release();
}

void AreaSelection::mouseDown(const MouseEvent& event) {
  if (!active() || c_.state.locked || event.button != static_cast<int>(kLeftButton)) return;
  endDrag();
  DesignState& state = c_.state;
  state.press = state.cur = {event.x, event.y};
  moved_ = false;
  if (inGrip(state, state.press)) {
    drag_ = Drag::moving;
    state.anchor = {event.x - state.userSel.left, event.y - state.userSel.top};
    setPointer(PointerShape::sizeAll);
    return;
  }
  drag_ = Drag::stretching;
  state.lineEndsShown = false;
  state.multiSel.clear();
  const SizePx page = pageSizePx(c_.document);
  state.anchor = SnapPoint(state, {std::clamp(event.x, 0, page.width), std::clamp(event.y, 0, page.height)});
  state.userSel = {state.anchor.x, state.anchor.y, 0, 0};
  state.userSelVisible = true;
  setPointer(PointerShape::area);
  c_.view.selectionChanged();
  c_.view.overlayChanged();
}

void AreaSelection::mouseMove(const MouseEvent& event) {
  if (!active() || c_.state.locked) return;
  DesignState& state = c_.state;
  state.cur = {event.x, event.y};
  if ((static_cast<unsigned>(event.button) & kLeftButton) == 0) {
    setPointer(inGrip(state, state.cur) ? PointerShape::sizeAll : PointerShape::area);
  } else if (drag_ == Drag::stretching) {
    stretchTo(state.cur);
  } else if (drag_ == Drag::moving) {
    const PointPx corner{event.x - state.anchor.x, event.y - state.anchor.y};
    if (shift(corner.x - state.userSel.left, corner.y - state.userSel.top)) moved_ = true;
  }
}

void AreaSelection::mouseUp(const MouseEvent& event) {
  if (event.button != static_cast<int>(kLeftButton) || drag_ == Drag::none) return;
  const RectPx& area = c_.state.userSel;
  const bool collects =
      drag_ == Drag::stretching || (!moved_ && area.width > 0 && area.height > 0);  // a click inside
  endDrag();
  if (active() && collects) release();
}

void AreaSelection::collect() {
  DesignState& state = c_.state;
  state.multiSel.clear();
  c_.history.seal();
  if (!state.userSelVisible) return;
  RectPx& area = state.userSel;
  area.width = std::max(area.width, kLeastSide);
  area.height = std::max(area.height, kLeastSide);
  for (const ObjectKind kind : kCollecting) {
    forEachShown(c_, kind, [&](ObjectRef object) {
      const PointPx corner = cornerOf(c_.document, object);
      // The corner alone rules out most, before a label's text has to be measured.
      if (holds(area, {corner.x, corner.y, 0, 0}) && holds(area, placeOf(c_.document, object, c_.measure)))
        state.multiSel.push_back(object);
    });
  }
}

void AreaSelection::show(const std::vector<ObjectRef>& objects) {
  std::vector<ObjectRef> live;
  std::ranges::copy_if(objects, std::back_inserter(live),
                       [this](ObjectRef object) { return isLive(c_.document, object); });
  if (live.empty()) return;
  enter();
  enclose(live);
  c_.state.multiSel = std::move(live);
  c_.state.userSelVisible = true;
  c_.view.selectionChanged();
  c_.view.overlayChanged();
}

void AreaSelection::moveBy(int dx, int dy) {
  if (!active() || !c_.state.userSelVisible || c_.state.locked) return;
  endDrag();
  if (shift(dx, dy)) finish(c_, moveWords(members()), kNudges);
}

void AreaSelection::enter() {
  endDrag();
  finishCarried(c_);
  if (c_.state.editedTitle >= 0) c_.view.labelEditing();
  selectNothing(c_.state);
  c_.state.selKind = kSelArea;
  c_.history.seal();
  setPointer(PointerShape::area);
}

// People know the message by now: for each picture in the rectangle it tells the file of the last picture
// there is, not of the one that was found.
void AreaSelection::release() {
  collect();
  c_.view.selectionChanged();
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
  const auto found = std::ranges::count(c_.state.multiSel, ObjectKind::Picture, &ObjectRef::kind);
  if (found == 0) return;
  const std::string path = c_.document.pictures.back().picturePath;
  for (auto i = found; i > 0 && !path.empty(); --i) c_.messages.show(path);
}

void AreaSelection::endDrag() {
  if (active() && drag_ == Drag::moving && moved_) finish(c_, moveWords(members()));
  drag_ = Drag::none;
  moved_ = false;
}

// Moves rectangle and members as far as the rectangle may; false when that is not at all.
bool AreaSelection::shift(int dx, int dy) {
  RectPx& area = c_.state.userSel;
  const SizePx page = pageSizePx(c_.document);
  dx = kept(area.left, dx, page.width) - area.left;
  dy = kept(area.top, dy, page.height) - area.top;
  if (dx == 0 && dy == 0) return false;
  area.left += dx;
  area.top += dy;
  const std::vector<ObjectRef> moved = members();
  for (const ObjectRef object : moved) plinth::moveBy(c_.document, object, dx, dy);
  c_.view.objectsMoved(moved);
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
  return true;
}

void AreaSelection::stretchTo(PointPx pointer) {
  const SizePx page = pageSizePx(c_.document);
  const PointPx snappedPoint = SnapPoint(c_.state, pointer);
  const PointPx to{std::clamp(snappedPoint.x, 0, page.width), std::clamp(snappedPoint.y, 0, page.height)};
  const PointPx from = c_.state.anchor;
  c_.state.userSel = {std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x),
                      std::abs(to.y - from.y)};
  c_.view.readoutsChanged();
  c_.view.overlayChanged();
}

// The smallest rectangle around the objects, but one that can be seen.
void AreaSelection::enclose(const std::vector<ObjectRef>& objects) {
  if (objects.empty()) return;
  RectPx& area = c_.state.userSel;
  area = placeOf(c_.document, objects.front(), c_.measure);
  for (const ObjectRef object : objects) {
    const RectPx place = placeOf(c_.document, object, c_.measure);
    const int right = std::max(area.right(), place.right()), bottom = std::max(area.bottom(), place.bottom());
    area.left = std::min(area.left, place.left);
    area.top = std::min(area.top, place.top);
    area.width = right - area.left;
    area.height = bottom - area.top;
  }
  area.width = std::max(area.width, kLeastSide);
  area.height = std::max(area.height, kLeastSide);
  c_.view.readoutsChanged();
}

void AreaSelection::setPointer(PointerShape pointer) {
  if (c_.state.pointer == pointer) return;
  c_.state.pointer = pointer;
  c_.view.pointerChanged();
}

}  // namespace plinth
