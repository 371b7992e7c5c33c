// Geometry first, then events, then painting. Nothing here changes the project: tools that do will be handed
// the same events with the object under the pointer.
#include "surface/PageSurface.h"

#include <algorithm>

#include "widgets/OffsetCanvas.h"
#include "widgets/PagePainter.h"

namespace plinth {

namespace {

constexpr int kTabStrip = 34, kTabTop = 7, kTabHeight = 27, kTabGap = 3, kTabLeft = 14, kTabPadding = 16,
              kTabLeast = 64;
constexpr int kMargin = 18, kLineStep = 24;
constexpr std::int32_t kGround = 0xD6D2CE, kStrip = 0xEFEDEB, kShadow = 0xB4B0AC, kEdge = 0x9A9692;
constexpr int kPageUp = 33, kPageDown = 34, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39,
              kDown = 40;

bool inRange(int page) { return page >= 0 && page < kPages; }

}  // namespace

PageSurface::PageSurface(const ProjectDocument& document, PageImages& images, TextMeasure measure,
                         SurfaceView& view)
    : document_(document), images_(images), measure_(std::move(measure)), view_(view) {}

void PageSurface::projectChanged() {
  page_ = 0;
  tile_ = images_.at(document_.tileImage);
  horizontal_.value = vertical_.value = 0;
  objectsChanged();
  view_.pageChanged();
}

void PageSurface::objectsChanged() {
  items_ = pageItems(document_, page_, images_, measure_);
  pageSize_ = pageSizePx(document_);
  tabs_.clear();
  int left = kTabLeft;
  for (int i = 0; i < kPages; ++i) {
    std::string caption = document_.pageCaptions[static_cast<std::size_t>(i)];
    if (caption.empty()) caption = "Page " + std::to_string(i + 1);
    FontSpec font{.points = 9, .charSet = document_.charSet};
    const int width = std::max(kTabLeast, measure_(caption, font).width + 2 * kTabPadding);
    tabs_.push_back({{}, TabItem{{left, kTabTop, width, kTabHeight}, caption, font, i == page_}});
    left += width + kTabGap;
  }
  pointed_ = {};
  view_.objectPointedAt("");
  layout();
  view_.invalidate();
}

void PageSurface::showPage(int page) {
  if (!inRange(page) || page == page_) return;
  page_ = page;
  objectsChanged();
  view_.pageChanged();
}

void PageSurface::showNextPage(int step) { showPage((page_ + step + kPages) % kPages); }

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

RectPx PageSurface::tabRect(int tab) const { return boundsOf(tabs_[static_cast<std::size_t>(tab)].shape); }

int PageSurface::tabAt(PointPx point) const {
  for (int i = 0; i < static_cast<int>(tabs_.size()); ++i)
    if (tabRect(i).contains(point)) return i;
  return -1;
}

ItemRef PageSurface::objectAt(PointPx point) const {
  if (!viewport().contains(point)) return {};
  const PointPx origin = sheetOrigin();
  const int found = itemAt(items_, {point.x - origin.x, point.y - origin.y});
  return found < 0 ? ItemRef{} : items_[static_cast<std::size_t>(found)].ref;
}

void PageSurface::mouseDown(const MouseEvent& event) {
  if (event.button == 1 && tabAt({event.x, event.y}) >= 0) showPage(tabAt({event.x, event.y}));
}

void PageSurface::mouseMove(const MouseEvent& event) {
  const ItemRef now = objectAt({event.x, event.y});
  if (now == pointed_) return;
  pointed_ = now;
  std::string name;
  if (now.kind >= 0) {
    const PointPx origin = sheetOrigin();
    const int found = itemAt(items_, {event.x - origin.x, event.y - origin.y});
    const RectPx r = boundsOf(items_[static_cast<std::size_t>(found)].shape);
    name = objectName(document_, static_cast<ObjectKind>(now.kind), now.index) + "   " +
           std::to_string(r.left) + ", " + std::to_string(r.top) + "   " + std::to_string(r.width) + " x " +
           std::to_string(r.height);
  }
  view_.objectPointedAt(name);
}

void PageSurface::mouseLeave() {
  if (pointed_ == ItemRef{}) return;
  pointed_ = {};
  view_.objectPointedAt("");
}

void PageSurface::wheel(int lines, unsigned shift) {
  const int by = -lines * kLineStep;
  (shift & kShift) != 0 ? scrollBy(by, 0) : scrollBy(0, by);
}

bool PageSurface::keyDown(const KeyEvent& event) {
  const int screen = std::max(kLineStep, vertical_.view - kLineStep);
  if ((event.shift & kCtrl) != 0) {
    switch (event.key) {
      case kPageUp:
        showNextPage(-1);
        return true;
      case kPageDown:
        showNextPage(1);
        return true;
      case kHome:
        scrollTo(0, 0);
        return true;
      case kEnd:
        scrollTo(horizontal_.most(), vertical_.most());
        return true;
      default:
        return false;
    }
  }
  switch (event.key) {
    case kPageUp:
      scrollBy(0, -screen);
      return true;
    case kPageDown:
      scrollBy(0, screen);
      return true;
    case kHome:
      scrollTo(0, vertical_.value);
      return true;
    case kEnd:
      scrollTo(horizontal_.most(), vertical_.value);
      return true;
    case kLeft:
      scrollBy(-kLineStep, 0);
      return true;
    case kRight:
      scrollBy(kLineStep, 0);
      return true;
    case kUp:
      scrollBy(0, -kLineStep);
      return true;
    case kDown:
      scrollBy(0, kLineStep);
      return true;
    default:
      return false;
  }
}

void PageSurface::paintTabs(Canvas& canvas) const {
  constexpr Pen kNone{LineStyle::none, 1, 0};
  canvas.box({0, 0, client_.width, kTabStrip}, kNone, {FillStyle::solid, kStrip, false, 0});
  canvas.box({0, kTabStrip - 1, client_.width, 1}, kNone, {FillStyle::solid, 0xB0B0B0, false, 0});
  paintPage(tabs_, canvas, {0, 0, client_.width, kTabStrip});
}

void PageSurface::paintSheet(Canvas& canvas, const RectPx& clip) const {
  constexpr Pen kNone{LineStyle::none, 1, 0};
  const RectPx sheet{0, 0, pageSize_.width, pageSize_.height};
  canvas.box({3, 3, sheet.width + 1, sheet.height + 1}, kNone, {FillStyle::solid, kShadow, false, 0});
  const std::int32_t color = pageColorOf(document_, page_);
  canvas.box(inflated(sheet, 1), {LineStyle::solid, 1, kEdge}, {FillStyle::solid, color, false, color});
  if (tile_) paintTiles(canvas, *tile_, document_.tileMode, pageSize_, clip);
  paintPage(items_, canvas, intersection(clip, sheet));
}

void PageSurface::paint(Canvas& canvas, const RectPx& clip) const {
  if (clip.top < kTabStrip) paintTabs(canvas);
  const RectPx seen = intersection(clip, viewport());
  if (seen.width == 0 || seen.height == 0) return;
  canvas.pushClip(seen);
  canvas.box(seen, {LineStyle::none, 1, 0}, {FillStyle::solid, kGround, false, 0});
  const PointPx origin = sheetOrigin();
  OffsetCanvas sheet(canvas, origin);
  paintSheet(sheet, {seen.left - origin.x, seen.top - origin.y, seen.width, seen.height});
  canvas.popClip();
}

}  // namespace plinth
