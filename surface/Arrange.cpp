// Lining up, spreading and sizing the members of an area selection. Everything is reckoned along one axis at
// a time, on spans.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <tuple>

#include "surface/AreaSelection.h"
#include "surface/ObjectPlaces.h"

namespace plinth {

namespace {

struct Member {
  ObjectRef object;
  RectPx place;
};
using Members = std::vector<Member>;

struct Span {
  int from = 0, size = 0;
  int end() const { return from + size; }
};

enum class Axis { horizontal, vertical };
// Where in the common span a member comes to lie.
enum class Edge { near, middle, far };

Span spanOf(const RectPx& place, Axis axis) {
  return axis == Axis::horizontal ? Span{place.left, place.width} : Span{place.top, place.height};
}

void moveAlong(ProjectDocument& document, ObjectRef object, Axis axis, int by) {
  if (by == 0) return;  // twips between pixels stay
  if (axis == Axis::horizontal)
    moveBy(document, object, by, 0);
  else
    moveBy(document, object, 0, by);
}

void lineUp(ProjectDocument& document, const Members& members, Axis axis, Edge edge) {
  Span common = spanOf(members.front().place, axis);
  for (const Member& member : members) {
    const Span span = spanOf(member.place, axis);
    const int end = std::max(common.end(), span.end());
    common.from = std::min(common.from, span.from);
    common.size = end - common.from;
  }
  for (const Member& member : members) {
    const Span span = spanOf(member.place, axis);
    const int room = common.size - span.size;
    const int to = common.from + (edge == Edge::near ? 0 : edge == Edge::far ? room : room / 2);
    moveAlong(document, member.object, axis, to - span.from);
  }
}

// The first and the last stay where they are; rounding never adds up from gap to gap.
void spread(ProjectDocument& document, Members members, Axis axis) {
  std::ranges::stable_sort(members, {}, [axis](const Member& member) {
    const Span span = spanOf(member.place, axis);
    return std::tuple(span.from, span.end());
  });
  const Span first = spanOf(members.front().place, axis), last = spanOf(members.back().place, axis);
  int room = last.from - first.end();
  for (std::size_t i = 1; i + 1 < members.size(); ++i) room -= spanOf(members[i].place, axis).size;
  const double gap = static_cast<double>(room) / static_cast<double>(members.size() - 1);
  int filled = 0;  // by the members before
  for (std::size_t i = 1; i + 1 < members.size(); ++i) {
    const Span span = spanOf(members[i].place, axis);
    const int to = first.end() + filled + static_cast<int>(std::lround(gap * static_cast<double>(i)));
    moveAlong(document, members[i].object, axis, to - span.from);
    filled += span.size;
  }
}

// Squares and circles, whose sides are always alike.
bool hasEqualSides(const ProjectDocument& document, ObjectRef object) {
  if (object.kind != ObjectKind::Square) return false;
  const int shape = document.squares[static_cast<std::size_t>(object.index)].shapeType;
  return shape == 1 || shape == 3;
}

// Members whose side on that axis people can change.
bool hasSide(ObjectKind kind, Axis axis) {
  return axis == Axis::horizontal ? hasWidth(kind) : hasHeight(kind);
}

// The side of the topmost, then leftmost member that has one.
std::optional<int> modelSide(const Members& members, Axis axis) {
  const Member* model = nullptr;
  for (const Member& member : members) {
    if (!hasSide(member.object.kind, axis)) continue;
    if (!model ||
        std::tie(member.place.top, member.place.left) < std::tie(model->place.top, model->place.left))
      model = &member;
  }
  return model ? std::optional(spanOf(model->place, axis).size) : std::nullopt;
}

void resize(ProjectDocument& document, const Members& members, std::optional<int> width,
            std::optional<int> height) {
  for (const auto& [object, place] : members) {
    SizePx size{width.value_or(place.width), height.value_or(place.height)};
    if (hasEqualSides(document, object)) size.width = size.height = width ? size.width : size.height;
    resizeTo(document, object, size);
  }
}

std::string wordsOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::sameWidth:
    case Alignment::sameHeight:
    case Alignment::sameSize:
      return "sizing of ";
    case Alignment::evenHorizontal:
    case Alignment::evenVertical:
      return "even spacing of ";
    default:
      return "alignment of ";
  }
}

void arrange(ProjectDocument& document, const Members& members, Alignment alignment) {
  using enum Alignment;
  switch (alignment) {
    case left:
      return lineUp(document, members, Axis::horizontal, Edge::near);
    case right:
      return lineUp(document, members, Axis::horizontal, Edge::far);
    case top:
      return lineUp(document, members, Axis::vertical, Edge::near);
    case bottom:
      return lineUp(document, members, Axis::vertical, Edge::far);
    case centerHorizontal:
      return lineUp(document, members, Axis::horizontal, Edge::middle);
    case centerVertical:
      return lineUp(document, members, Axis::vertical, Edge::middle);
    case sameWidth:
      return resize(document, members, modelSide(members, Axis::horizontal), std::nullopt);
    case sameHeight:
      return resize(document, members, std::nullopt, modelSide(members, Axis::vertical));
    case sameSize:
      return resize(document, members, modelSide(members, Axis::horizontal),
                    modelSide(members, Axis::vertical));
    case evenHorizontal:
      return spread(document, members, Axis::horizontal);
    case evenVertical:
      return spread(document, members, Axis::vertical);
  }
}

}  // namespace

void AreaSelection::align(Alignment alignment) {
  const bool spreads = alignment == Alignment::evenHorizontal || alignment == Alignment::evenVertical;
  const std::vector<ObjectRef> objects = members();
  if (!active() || c_.state.locked || objects.size() < (spreads ? 3u : 2u)) return;
  endDrag();
  Members placed;
  for (const ObjectRef object : objects) placed.push_back({object, placeOf(c_.document, object, c_.measure)});
  arrange(c_.document, placed, alignment);
  enclose(objects);
  c_.view.objectsMoved(objects);
  c_.view.overlayChanged();
  finish(c_, wordsOf(alignment) + shortName(objects));
}

}  // namespace plinth
