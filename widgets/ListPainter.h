// How a list looks, on any canvas. Only the rows in view are asked for and drawn.
#pragma once

#include "widgets/ControlPainter.h"
#include "widgets/ListModel.h"

namespace plinth {

struct ListLook {
  ControlColors colors;  // `surround` is the face of the heads, `mark` the ground of selected rows
  ControlState state;
  FontSpec font;
};

// Pixels that a row and the heads need for a font.
struct ListHeights {
  int row, head;
};
ListHeights listHeights(Canvas& canvas, const FontSpec& font);

// Fills all of `size`, of which the model's view is a part.
void paintList(Canvas& canvas, SizePx size, const ListModel& model, const ListLook& look);

// The width in pixels at which neither head nor a row in view of a column is cut.
int fittingWidth(Canvas& canvas, const ListModel& model, int column, const FontSpec& font);

}  // namespace plinth
