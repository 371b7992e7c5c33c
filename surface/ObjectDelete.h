// Taking objects out of the tables. Fields, memos, combos, pictures and scripts close their gaps, and
// formulas follow; the other kinds keep their slots until the file is written.
#pragma once

#include <vector>

#include "model/ObjectKinds.h"
#include "model/ProjectDocument.h"

namespace plinth {

// Removes the objects, whatever their order, and brings references in formulas, scripts and the email fields
// in step. The tab positions become dense again.
void deleteObjects(ProjectDocument& document, const std::vector<ObjectRef>& objects);

}  // namespace plinth
