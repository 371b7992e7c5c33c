// Geometry first, then events, then painting. Nothing here changes the project: whoever does gets the events
// with the object under the pointer.
#include "surface/PageSurface.h"

#include <algorithm>
#include <cmath>

#include "surface/Units.h"
#include "widgets/OffsetCanvas.h"
#include "widgets/PagePainter.h"

namespace plinth {

namespace {

constexpr int kTabStrip = 34, kTabTop = 7, kTabHeight = 27, kTabGap = 3, kTabLeft = 14, kTabPadding = 16,
              kTabLeast = 64;
constexpr int kMargin = 18, kLineStep = 24;
constexpr int kOverlayMargin = 12;  // how far handles and markers reach around an object

int keyOf(ItemRef ref) {
  constexpr int kIndices = 1 << 16;
  return ref.kind * kIndices + ref.index;
}

// Each channel halved: a link under the pointer.
std::int32_t halved(std::int32_t color) { return (color >> 1) & 0x7F7F7F; }

}  // namespace

PageSurface::PageSurface(const ProjectDocument& document, const DesignState& state, PageImages& images,
                         TextMeasure measure, SurfaceView& view, PageHand& hand)
    : document_(document),
      state_(state),
      images_(images),
      measure_(std::move(measure)),
      view_(view),
      hand_(hand) {}

void PageSurface::projectChanged() {
  horizontal_.value = vertical_.value = 0;
  objectsChanged();
  view_.pageChanged();
}

void PageSurface::objectsChanged() {
  tile_ = images_.at(document_.tileImage);
  items_ = pageItems(document_, currentPage(), images_, measure_);
  std::erase_if(items_, [this](const PageItem& item) { return isHidden(state_, objectRef(item.ref)); });
  places_.clear();
  for (std::size_t i = 0; i < items_.size(); ++i) places_.emplace(keyOf(items_[i].ref), i);
  pageSize_ = pageSizePx(document_);
  layoutTabs();
  pointed_ = {};
  view_.objectPointedAt("");
  layout();
  view_.invalidate();
}

void PageSurface::layoutTabs() {
  tabs_.clear();
  int left = kTabLeft;
  for (int i = 0; i < kPages; ++i) {
    std::string caption = document_.pageCaptions[static_cast<std::size_t>(i)];
    if (caption.empty()) caption = "Page " + std::to_string(i + 1);
    FontSpec font{.points = 9, .charSet = document_.charSet};
    const int width = std::max(kTabLeast, measure_(caption, font).width + 2 * kTabPadding);
    tabs_.push_back({{}, TabItem{{left, kTabTop, width, kTabHeight}, caption, font, i == currentPage()}});
    left += width + kTabGap;
  }
  view_.tabsChanged();
}

// Lays one item out anew and has its old and new place painted.
void PageSurface::refresh(std::size_t index) {
  PageItem& item = items_[index];
  const ObjectRef object = objectRef(item.ref);
  std::optional<ItemShape> shape = itemOf(document_, object, images_, measure_);
  if (!shape) return;
  if (object == state_.hoverLabel)
    if (auto* title = std::get_if<TitleItem>(&*shape)) title->color = halved(title->color);
  const PointPx origin = sheetOrigin();
  const auto paintSoon = [&](const RectPx& place) {
    const RectPx r = inflated(place, kOverlayMargin);
    view_.invalidateArea(intersection({r.left + origin.x, r.top + origin.y, r.width, r.height}, viewport()));
  };
  paintSoon(boundsOf(item.shape));
  item.shape = std::move(*shape);
  paintSoon(boundsOf(item.shape));
  if (item.ref == pointed_) view_.objectPointedAt(pointedWords());
}

void PageSurface::objectsMoved(const std::vector<ObjectRef>& objects) {
  for (const ObjectRef object : objects) {
    const auto found = places_.find(keyOf(itemRef(object)));
    if (found == places_.end()) return objectsChanged();  // it came on view by moving
    refresh(found->second);
  }
}

void PageSurface::overlayChanged() {
  if (hovered_ != state_.hoverLabel) {
    for (const ObjectRef label : {std::exchange(hovered_, state_.hoverLabel), state_.hoverLabel})
      if (const auto found = places_.find(keyOf(itemRef(label))); found != places_.end())
        refresh(found->second);
  }
  view_.invalidateArea(viewport());
}

void PageSurface::setColors(const SurfaceColors& colors) {
  colors_ = colors;
  view_.invalidate();
}

void PageSurface::resize(SizePx client) {
  client_ = client;
  layout();
  view_.invalidate();
}

RectPx PageSurface::viewport() const {
  return {0, kTabStrip, std::max(0, client_.width), std::max(0, client_.height - kTabStrip)};
}

void PageSurface::layout() {
  const RectPx view = viewport();
  horizontal_.content = pageSize_.width + 2 * kMargin;
  vertical_.content = pageSize_.height + 2 * kMargin;
  horizontal_.view = view.width;
  vertical_.view = view.height;
  horizontal_.value = std::clamp(horizontal_.value, 0, horizontal_.most());
  vertical_.value = std::clamp(vertical_.value, 0, vertical_.most());
  view_.scrollChanged();
}

void PageSurface::scrollTo(int x, int y) {
  const int newX = std::clamp(x, 0, horizontal_.most()), newY = std::clamp(y, 0, vertical_.most());
  if (newX == horizontal_.value && newY == vertical_.value) return;
  horizontal_.value = newX;
  vertical_.value = newY;
  view_.scrollChanged();
  view_.invalidate();
}

PointPx PageSurface::sheetOrigin() const {
  const auto place = [](const ScrollAxis& axis, int size) {
    return axis.content <= axis.view ? (axis.view - size) / 2 : kMargin - axis.value;
  };
  return {place(horizontal_, pageSize_.width), kTabStrip + place(vertical_, pageSize_.height)};
}

RectPx PageSurface::visiblePage() const {
  const PointPx origin = sheetOrigin();
  const RectPx seen = viewport();
  return intersection({seen.left - origin.x, seen.top - origin.y, seen.width, seen.height},
                      {0, 0, pageSize_.width, pageSize_.height});
}

void PageSurface::reveal(const RectPx& place) {
  const RectPx seen = visiblePage();
  const auto step = [](int from, int to, int seenFrom, int seenTo) {
    if (from >= seenFrom && to <= seenTo) return 0;
    return from < seenFrom || to - from > seenTo - seenFrom ? from - seenFrom : to - seenTo;
  };
  scrollBy(step(place.left, place.right(), seen.left, seen.right()),
           step(place.top, place.bottom(), seen.top, seen.bottom()));
}

ItemRef PageSurface::objectAt(PointPx point) const {
  if (!viewport().contains(point)) return {};
  const PointPx origin = sheetOrigin();
  const int found = itemAt(items_, {point.x - origin.x, point.y - origin.y});
  return found < 0 ? ItemRef{} : items_[static_cast<std::size_t>(found)].ref;
}

MouseEvent PageSurface::onPage(const MouseEvent& event) const {
  const PointPx origin = sheetOrigin();
  return {event.button, event.shift, event.x - origin.x, event.y - origin.y};
}

void PageSurface::mouseDown(const MouseEvent& event) {
  const PointPx point{event.x, event.y};
  if (viewport().contains(point)) hand_.pressed(onPage(event), objectAt(point));
}

void PageSurface::mouseMove(const MouseEvent& event) {
  const ItemRef now = objectAt({event.x, event.y});
  tellPointed(now);
  hand_.moved(onPage(event), now);
}

void PageSurface::mouseUp(const MouseEvent& event) { hand_.released(onPage(event)); }

void PageSurface::doubleClick(const MouseEvent& event) {
  const PointPx point{event.x, event.y};
  if (viewport().contains(point)) hand_.pressedTwice(onPage(event), objectAt(point));
}

void PageSurface::tellPointed(ItemRef now) {
  if (std::exchange(pointed_, now) != now) view_.objectPointedAt(pointedWords());
}

std::string PageSurface::pointedWords() const {
  const auto found = places_.find(keyOf(pointed_));
  if (found == places_.end()) return {};
  const RectPx r = boundsOf(items_[found->second].shape);
  return objectName(document_, static_cast<ObjectKind>(pointed_.kind), pointed_.index) + "   " +
         std::to_string(r.left) + ", " + std::to_string(r.top) + "   " + std::to_string(r.width) + " x " +
         std::to_string(r.height);
}

void PageSurface::mouseLeave() { tellPointed({}); }

void PageSurface::wheel(int lines, unsigned shift) {
  const int by = -lines * kLineStep;
  (shift & kShift) != 0 ? scrollBy(by, 0) : scrollBy(0, by);
}

bool PageSurface::keyDown(const KeyEvent& event) {
  const int screen = std::max(kLineStep, vertical_.view - kLineStep);
  if ((event.shift & kCtrl) != 0) {
    if (event.key == kHomeKey) scrollTo(0, 0);
    if (event.key == kEndKey) scrollTo(horizontal_.most(), vertical_.most());
    return event.key == kHomeKey || event.key == kEndKey;
  }
  switch (event.key) {
    case kPageUpKey:
      scrollBy(0, -screen);
      return true;
    case kPageDownKey:
      scrollBy(0, screen);
      return true;
    case kHomeKey:
      scrollTo(0, vertical_.value);
      return true;
    case kEndKey:
      scrollTo(horizontal_.most(), vertical_.value);
      return true;
    case kLeftKey:
      scrollBy(-kLineStep, 0);
      return true;
    case kRightKey:
      scrollBy(kLineStep, 0);
      return true;
    case kUpKey:
      scrollBy(0, -kLineStep);
      return true;
    case kDownKey:
      scrollBy(0, kLineStep);
      return true;
    default:
      return false;
  }
}

void PageSurface::paintStrip(Canvas& canvas) const {
  constexpr Pen kNone{LineStyle::none, 1, 0};
  canvas.box({0, 0, client_.width, kTabStrip}, kNone, {FillStyle::solid, colors_.strip, false, 0});
  canvas.box({0, kTabStrip - 1, client_.width, 1}, kNone, {FillStyle::solid, colors_.ruler, false, 0});
}

void PageSurface::paintSheet(Canvas& canvas, const RectPx& clip) const {
  constexpr Pen kNone{LineStyle::none, 1, 0};
  const RectPx sheet{0, 0, pageSize_.width, pageSize_.height};
  canvas.box({3, 3, sheet.width + 1, sheet.height + 1}, kNone, {FillStyle::solid, colors_.shadow, false, 0});
  const std::int32_t color = pageColorOf(document_, currentPage());
  canvas.box(inflated(sheet, 1), {LineStyle::solid, 1, colors_.edge},
             {FillStyle::solid, color, false, color});
  if (tile_) paintTiles(canvas, *tile_, document_.tileMode, pageSize_, clip);
  if (state_.gridOn()) paintGrid(canvas, intersection(clip, sheet), color);
  paintPage(items_, canvas, intersection(clip, sheet));
  canvas.pushClip(intersection(clip, inflated(sheet, kMargin)));
  hand_.paintOverlay(canvas);
  canvas.popClip();
}

// Lines at each step, as faint as can be seen, and numbers along the edges where they have room.
void PageSurface::paintGrid(Canvas& canvas, const RectPx& clip, std::int32_t pageColor) const {
  constexpr int kNumberRoom = 44;
  constexpr int kFaint = -10, kClear = -45;
  const double step = state_.gridStep;
  if (step < 2 || clip.width == 0 || clip.height == 0) return;
  const Pen pen{LineStyle::solid, 1, shaded(pageColor, kFaint)};
  const FontSpec font{.points = 7};
  const int every = std::max(1, static_cast<int>(std::ceil(kNumberRoom / step)));
  const auto along = [&](int from, int to, auto draw) {
    for (int i = std::max(1, static_cast<int>(from / step)); i * step < to; ++i)
      draw(static_cast<int>(std::lround(i * step)), i % every == 0);
  };
  const auto number = [&](int x, int y, int at) {
    canvas.text({x, y, kNumberRoom, kNumberRoom}, readout(at, state_.scaleUnit), font,
                shaded(pageColor, kClear));
  };
  canvas.pushClip(clip);
  along(clip.left - kNumberRoom, clip.right(), [&](int x, bool numbered) {
    canvas.line({x, clip.top}, {x, clip.bottom()}, pen);
    if (numbered) number(x + 2, 1, x);
  });
  along(clip.top - kNumberRoom, clip.bottom(), [&](int y, bool numbered) {
    canvas.line({clip.left, y}, {clip.right(), y}, pen);
    if (numbered) number(2, y + 1, y);
  });
  canvas.popClip();
}

void PageSurface::paint(Canvas& canvas, const RectPx& clip) const {
  if (clip.top < kTabStrip) paintStrip(canvas);
  const RectPx seen = intersection(clip, viewport());
  if (seen.width == 0 || seen.height == 0) return;
  canvas.pushClip(seen);
  canvas.box(seen, {LineStyle::none, 1, 0}, {FillStyle::solid, colors_.ground, false, 0});
  const PointPx origin = sheetOrigin();
  OffsetCanvas sheet(canvas, origin);
  paintSheet(sheet, {seen.left - origin.x, seen.top - origin.y, seen.width, seen.height});
  canvas.popClip();
}

}  // namespace plinth
