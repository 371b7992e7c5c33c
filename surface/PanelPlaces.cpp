// Places and sizes that a person types into the read-outs.
#include <algorithm>

#include "surface/ObjectPlaces.h"
#include "surface/PanelRows.h"
#include "surface/Units.h"

namespace plinth {

namespace {

// A line's boxes are its two ends.
void setLineEnd(ProjectDocument& document, int index, PanelId id, int pixels) {
  LineEnds ends = lineEnds(document, index);
  switch (id) {
    case PanelId::left:
      ends.from.x = pixels;
      break;
    case PanelId::top:
      ends.from.y = pixels;
      break;
    case PanelId::width:
      ends.to.x = pixels;
      break;
    default:
      ends.to.y = pixels;
  }
  setLineEnds(document, index, ends);
}

// Squares and circles stay as high as they are wide.
bool isEvenSided(const ProjectDocument& document, ObjectRef object) {
  bool even = false;
  withRow(document, object, [&](const auto& row) {
    if constexpr (requires { row.shapeType; }) even = row.shapeType == 1 || row.shapeType == 3;
  });
  return even;
}

void setPlace(DesignContext& c, ObjectRef object, PanelId id, int pixels) {
  ProjectDocument& document = c.document;
  if (object.kind == ObjectKind::Line) return setLineEnd(document, object.index, id, pixels);
  const PointPx corner = cornerOf(document, object);
  const RectPx place = placeOf(document, object, c.measure);
  if (id == PanelId::left) {
    moveTo(document, object, {pixels, corner.y});
  } else if (id == PanelId::top) {
    moveTo(document, object, {corner.x, pixels});
  } else if (id == PanelId::width && hasWidth(object.kind)) {
    resizeTo(document, object, {pixels, isEvenSided(document, object) ? pixels : place.height});
  } else if (id == PanelId::height && hasHeight(object.kind)) {
    resizeTo(document, object, {place.width, pixels});
  }
}

RectPx around(const RectPx& a, const RectPx& b) {
  const int left = std::min(a.left, b.left), top = std::min(a.top, b.top);
  return {left, top, std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top};
}

}  // namespace

// The area's rectangle follows its members: copying takes what lies inside it.
void PropertyPanel::surroundMembers() {
  if (!area() || !c_.state.userSelVisible || objects_.empty()) return;
  RectPx all = placeOf(c_.document, objects_.front(), c_.measure);
  for (const ObjectRef object : objects_) all = around(all, placeOf(c_.document, object, c_.measure));
  c_.state.userSel = all;
  c_.view.overlayChanged();
}

// Nothing is placed off the page: below 0 counts as 0, more than the page has as its width or height.
void PropertyPanel::writePlace(PanelId id, const std::string& text) {
  if (!at(id).enabled || text == at(id).text) return;
  const SizePx page = pageSizePx(c_.document);
  const bool across = id == PanelId::left || id == PanelId::width;
  const int pixels =
      std::clamp(pixelsOfReadout(text, c_.state.scaleUnit), 0, across ? page.width : page.height);
  std::string whose = "the tool panel";
  if (c_.state.selKind == kSelFrame3) {
    float& side = id == PanelId::left ? c_.document.frame3Left : c_.document.frame3Top;
    side = pixelsToTwips(std::max(1, pixels));
  } else {
    for (const ObjectRef object : objects_) setPlace(c_, object, id, pixels);
    whose = shortName(objects_);
  }
  const bool changed = finish(c_, std::string(panelWords(id)) + " of " + whose);
  if (changed) surroundMembers();
  fillPlaces();
  if (changed) c_.view.objectsChanged();
  c_.view.readoutsChanged();
}

}  // namespace plinth
