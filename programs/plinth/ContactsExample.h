// The example project that newcomers meet first: an address book with an order page.
#pragma once

#include "model/ProjectDocument.h"

namespace plinth {

// Lays the example's objects, report, columns and texts into an empty document; its menus and message texts
// stay.
void layOutContacts(ProjectDocument& document);

}  // namespace plinth
