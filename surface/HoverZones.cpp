// Zones are measured on the part inside the frame, as it takes the mouse; the frame around counts to them.
#include "surface/HoverZones.h"

#include <algorithm>
#include <type_traits>

#include "surface/ObjectPlaces.h"
#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

// Pixels along the right and the bottom edge that size an object; 0: none. A memo's are wide, since its
// scroll bar lies there.
struct Zones {
  int right = 0, bottom = 0;
};

Zones zonesOf(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Field:
      return {4, 0};
    case ObjectKind::Combo:
      return {3, 0};
    case ObjectKind::Memo:
      return {21, 8};
    case ObjectKind::Picture:
    case ObjectKind::Script:
    case ObjectKind::Square:
    case ObjectKind::Button:
      return {4, 4};
    default:
      return {};
  }
}

template <class Row>
constexpr bool kFramed = std::is_same_v<Row, FieldRow> || std::is_same_v<Row, MemoRow>;

// The text of fields and memos and the width of a combo's; all of the other kinds.
RectPx bodyOf(const DesignContext& c, ObjectRef object) {
  RectPx body = placeOf(c.document, object, c.measure);
  withRow(c.document, object, [&body](const auto& row) {
    using Row = std::remove_cvref_t<decltype(row)>;
    if constexpr (kFramed<Row>) {
      body = placePx(row.left, row.top, row.width, row.height);
    } else if constexpr (std::is_same_v<Row, ComboRow>) {
      body.left = placePx(row.left);
      body.width = std::max(0, placePx(row.width));
    }
  });
  return body;
}

// A text that is pushed together beyond its left edge stays this wide.
constexpr int kLeastFieldText = 20;

int orLeast(int value, int least) { return value < least ? least : value; }

bool keepsSidesEqual(const ProjectDocument& document, ObjectRef square) {
  constexpr int kSquareForm = 1, kCircleForm = 3;
  bool equal = false;
  withRow(document, square, [&equal](const auto& row) {
    if constexpr (requires { row.shapeType; })
      equal = row.shapeType == kSquareForm || row.shapeType == kCircleForm;
  });
  return equal;
}

SizePx equalSides(SizePx size, PointerShape edge) {
  const int side = edge == PointerShape::eastWest     ? size.width
                   : edge == PointerShape::northSouth ? size.height
                                                      : std::max(size.width, size.height);
  return {side, side};
}

}  // namespace

bool isEdge(PointerShape pointer) {
  return pointer == PointerShape::northSouth || pointer == PointerShape::northWestSouthEast ||
         pointer == PointerShape::eastWest;
}

PointerShape pointerOver(const DesignContext& c, ObjectRef object, PointPx point) {
  const Zones zones = zonesOf(object.kind);
  const RectPx body = bodyOf(c, object);
  const bool right = zones.right > 0 && point.x >= body.right() - zones.right;
  const bool bottom = zones.bottom > 0 && point.y >= body.bottom() - zones.bottom;
  if (right && bottom) return PointerShape::northWestSouthEast;
  if (right) return PointerShape::eastWest;
  if (bottom) return PointerShape::northSouth;
  const bool own = object.kind == ObjectKind::Picture || object.kind == ObjectKind::Script;
  return own ? PointerShape::area : PointerShape::arrow;
}

SizePx sizeAtEdge(const DesignContext& c, ObjectRef object, PointerShape edge, PointPx point) {
  const RectPx frame = placeOf(c.document, object, c.measure);
  const RectPx body = bodyOf(c, object);
  const SizePx border{frame.width - body.width, frame.height - body.height};
  const int x = point.x - body.left, y = point.y - body.top;
  SizePx wanted;
  switch (object.kind) {
    case ObjectKind::Field:
      wanted = {(x < 1 ? kLeastFieldText : x) + border.width, frame.height};
      break;
    case ObjectKind::Combo:  // the pointer gives the frame's width, not the text's
      wanted = {orLeast(point.x - frame.left, 30), frame.height};
      break;
    case ObjectKind::Square:
      wanted = {orLeast(x, 1), orLeast(y, 1)};
      if (keepsSidesEqual(c.document, object)) return equalSides(wanted, edge);
      break;
    default:
      wanted = {orLeast(x, 20) + border.width, orLeast(y, 20) + border.height};
      break;
  }
  return {edge == PointerShape::northSouth ? frame.width : wanted.width,
          edge == PointerShape::eastWest ? frame.height : wanted.height};
}

}  // namespace plinth
