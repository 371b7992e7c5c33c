// Tab positions: dense and unique over fields, memos, combos and check boxes.
#pragma once

#include "model/ProjectDocument.h"

namespace plinth {

// Renumbers the tab positions of all data-bearing objects from 1. Equal positions fall to the lower index
// (check boxes, which begin at 0, count from 1 here), then to the kind in the order field, memo, combo, check
// box. Objects without a usable position (below 1 or above the number of objects plus 100) go behind all
// others. Vacant slots count too, but for that of the document box while nothing was ever placed in it or
// behind.
void assignTab(ProjectDocument& document);

}  // namespace plinth
