// Where objects lie on the page, in whole pixels, over rows that keep twips. The place of an object is that
// of its frame; the text inside follows by the frame's style.
#pragma once

#include "basic/Geometry.h"
#include "model/ObjectKinds.h"
#include "surface/PageView.h"

namespace plinth {

// Outside of the object: frames of fields, memos and combos; a line's smallest rectangle; labels as large as
// their text, which has to be measured. An empty rectangle when there is no such object.
RectPx placeOf(const ProjectDocument& document, ObjectRef object, const TextMeasure& measure);
// Left top corner alone, without measuring; of lines the start.
PointPx cornerOf(const ProjectDocument& document, ObjectRef object);
// Moves the object so that cornerOf() becomes `corner`; a line keeps its length and direction.
void moveTo(ProjectDocument& document, ObjectRef object, PointPx corner);
void moveBy(ProjectDocument& document, ObjectRef object, int dx, int dy);
// Size of the frame. Kinds without one of the two sides ignore it: fields and combos have no height of their
// own, labels and check boxes neither, lines see setLineEnds. Text sides never fall below 0.
void resizeTo(ProjectDocument& document, ObjectRef object, SizePx frame);

struct LineEnds {
  PointPx from, to;
};
LineEnds lineEnds(const ProjectDocument& document, int index);
void setLineEnds(ProjectDocument& document, int index, LineEnds ends);

// Whether people can change the kind's width and height.
bool hasWidth(ObjectKind kind);
bool hasHeight(ObjectKind kind);

}  // namespace plinth
