// Tab positions: dense and unique over fields, memos, combos and check boxes.
#pragma once

#include "model/ProjectDocument.h"

namespace plinth {

// Renumbers the tab positions of all data-bearing objects from 1. Equal positions fall to the kind in the order field,
// memo, combo, check box, then to the lower index; objects without a usable position (below 1 or above the number of
// objects plus 100) go behind all others. Vacant slots get numbers too.
void assignTab(ProjectDocument& document);

}  // namespace plinth
