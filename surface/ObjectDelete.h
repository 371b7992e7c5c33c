// Taking objects out of the tables. Fields, memos, combos, pictures and scripts close their gaps, and
// formulas follow; the other kinds keep their slots until the file is written.
#pragma once

#include <vector>

#include "model/ObjectKinds.h"
#include "model/ProjectDocument.h"

namespace plinth {

// Removes the objects, whatever their order, and brings references in formulas, scripts and the email fields
// in step; references to a removed object stay as they are and name the one that moved there. Objects that
// are gone already are passed over. The tab positions become dense again.
// ofArea: check boxes that go with an area leave a vacant slot; one that is deleted alone is dropped when the
// file is written.
void deleteObjects(ProjectDocument& document, const std::vector<ObjectRef>& objects, bool ofArea = false);

}  // namespace plinth
