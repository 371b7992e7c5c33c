// A line has no rectangle to hold it by, only its ends.
#include "surface/LineEditing.h"

#include <utility>

#include "surface/ObjectsOnView.h"
#include "surface/Units.h"
#include "widgets/PageItems.h"

namespace plinth {

namespace {

constexpr int kMarker = 8, kBeforeStart = 8, kBehindEnd = 1;

bool meets(const LineEnds& ends, PointPx point) {
  return itemAt({PageItem{{}, LineItem{ends.from, ends.to, {}}}}, point) == 0;
}

}  // namespace

std::optional<ObjectRef> lineAt(const DesignContext& c, PointPx point) {
  for (int i = 0; i <= c.document.lineCount(); ++i) {
    const ObjectRef line{ObjectKind::Line, i};
    if (isOnView(c, line) && meets(lineEnds(c.document, i), point)) return line;
  }
  return std::nullopt;
}

LineEnd nearEnd(const LineEnds& ends, PointPx point) {
  // Doubled, so that halves count. An upright line has no left half: there the height decides.
  const bool upright = ends.from.x == ends.to.x;
  const int along = upright ? point.y - ends.from.y : point.x - ends.from.x;
  const int length = upright ? ends.to.y - ends.from.y : ends.to.x - ends.from.x;
  const bool first = length < 0 ? 2 * along > length : 2 * along < length;
  return first ? LineEnd::start : LineEnd::end;
}

std::array<RectPx, 2> lineMarkers(const LineEnds& ends) {
  return {RectPx{ends.from.x - kBeforeStart, ends.from.y - kBeforeStart, kMarker, kMarker},
          RectPx{ends.to.x + kBehindEnd, ends.to.y + kBehindEnd, kMarker, kMarker}};
}

std::optional<LineEnd> markerAt(const DesignContext& c, PointPx point) {
  const auto object = selectedObject(c.state, c.document);
  if (!c.state.lineEndsShown || !object || object->kind != ObjectKind::Line) return std::nullopt;
  const auto markers = lineMarkers(lineEnds(c.document, object->index));
  if (markers[0].contains(point)) return LineEnd::start;
  if (markers[1].contains(point)) return LineEnd::end;
  return std::nullopt;
}

void dragLineEnd(DesignContext& c, int index, LineEnd end, PointPx to) {
  LineEnds ends = lineEnds(c.document, index);
  (end == LineEnd::start ? ends.from : ends.to) = onPage(c, to);
  setLineEnds(c.document, index, ends);
}

void settleLine(DesignContext& c, int index) {
  LineEnds ends = lineEnds(c.document, index);
  ends = {SnapPoint(c.state, ends.from), SnapPoint(c.state, ends.to)};
  if (ends.to.x < ends.from.x) std::swap(ends.from, ends.to);
  setLineEnds(c.document, index, ends);
}

}  // namespace plinth
