// Places in rows are those of the text; the frame lies around it by widgets/PagePlaces.h.
#include "surface/ObjectPlaces.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

// How much of the frame lies left of, above, and altogether beside the text.
struct Inset {
  int left = 0, top = 0, width = 0, height = 0;
};

Inset insetOf(const RectPx& frame, const RectPx& text) {
  return {text.left - frame.left, text.top - frame.top, frame.width - text.width, frame.height - text.height};
}

constexpr RectPx kProbe{100, 100, 100, 100};

template <class Row>
Inset insetOf(const Row&) {
  return {};  // no frame of its own
}
Inset insetOf(const FieldRow&) { return insetOf(fieldFrame(kProbe), kProbe); }
Inset insetOf(const MemoRow& row) { return insetOf(memoFrame(kProbe, row.frameStyle), kProbe); }
Inset insetOf(const ComboRow& row) { return insetOf(comboFrame(kProbe, row.frameStyle), kProbe); }

template <class Row>
concept Placed = requires(Row row) {
  row.left;
};

}  // namespace

RectPx placeOf(const ProjectDocument& document, ObjectRef object, const TextMeasure& measure) {
  if (object.kind == ObjectKind::Line) {
    const auto [from, to] = lineEnds(document, object.index);
    return {std::min(from.x, to.x), std::min(from.y, to.y), std::abs(to.x - from.x), std::abs(to.y - from.y)};
  }
  const PointPx corner = cornerOf(document, object);
  RectPx place{corner.x, corner.y, 0, 0};
  withRow(document, object, [&](const auto& row) {
    const Inset inset = insetOf(row);
    if constexpr (requires { row.width; }) place.width = std::max(0, placePx(row.width)) + inset.width;
    if constexpr (requires { row.height; }) place.height = std::max(0, placePx(row.height)) + inset.height;
    using Row = std::remove_cvref_t<decltype(row)>;
    if constexpr (std::is_same_v<Row, ComboRow>)
      place.height = comboTextHeight(row.fontSize) + inset.height;
    else if constexpr (std::is_same_v<Row, CheckRow>)
      place.width = place.height = kCheckBoxSize;
    else if constexpr (std::is_same_v<Row, TitleRow>) {
      const SizePx size = measure(row.caption, titleFont(row, document.charSet));
      place.width = size.width;
      place.height = size.height;
    }
  });
  return place;
}

PointPx cornerOf(const ProjectDocument& document, ObjectRef object) {
  PointPx corner;
  withRow(document, object, [&](const auto& row) {
    if constexpr (Placed<decltype(row)>) {
      const Inset inset = insetOf(row);
      corner = {placePx(row.left) - inset.left, placePx(row.top) - inset.top};
    } else {
      corner = {placePx(row.x1), placePx(row.y1)};
    }
  });
  return corner;
}

void moveTo(ProjectDocument& document, ObjectRef object, PointPx corner) {
  const PointPx now = cornerOf(document, object);
  moveBy(document, object, corner.x - now.x, corner.y - now.y);
}

void moveBy(ProjectDocument& document, ObjectRef object, int dx, int dy) {
  const auto shift = [](float& twips, int pixels) { twips = pixelsToTwips(placePx(twips) + pixels); };
  withRow(document, object, [&](auto& row) {
    if constexpr (Placed<decltype(row)>) {
      shift(row.left, dx);
      shift(row.top, dy);
    } else {
      shift(row.x1, dx);
      shift(row.x2, dx);
      shift(row.y1, dy);
      shift(row.y2, dy);
    }
  });
}

void resizeTo(ProjectDocument& document, ObjectRef object, SizePx frame) {
  withRow(document, object, [&](auto& row) {
    const Inset inset = insetOf(row);
    if constexpr (requires { row.width; }) row.width = pixelsToTwips(std::max(0, frame.width - inset.width));
    if constexpr (requires { row.height; })
      if (hasHeight(object.kind)) row.height = pixelsToTwips(std::max(0, frame.height - inset.height));
  });
}

LineEnds lineEnds(const ProjectDocument& document, int index) {
  LineEnds ends;
  if (index >= 0 && index <= document.lineCount()) {
    const LineRow& row = document.lines[static_cast<std::size_t>(index)];
    ends = {{placePx(row.x1), placePx(row.y1)}, {placePx(row.x2), placePx(row.y2)}};
  }
  return ends;
}

void setLineEnds(ProjectDocument& document, int index, LineEnds ends) {
  if (index < 0 || index > document.lineCount()) return;
  LineRow& row = document.lines[static_cast<std::size_t>(index)];
  row.x1 = pixelsToTwips(ends.from.x);
  row.y1 = pixelsToTwips(ends.from.y);
  row.x2 = pixelsToTwips(ends.to.x);
  row.y2 = pixelsToTwips(ends.to.y);
}

bool hasWidth(ObjectKind kind) {
  return kind != ObjectKind::Title && kind != ObjectKind::CheckBox && kind != ObjectKind::Line;
}

bool hasHeight(ObjectKind kind) {
  return hasWidth(kind) && kind != ObjectKind::Field && kind != ObjectKind::Combo;
}

}  // namespace plinth
