// The paper sizes a page can have, and the size that a project's pages do have.
#pragma once

#include "model/ProjectDocument.h"

namespace plinth {

struct PageSizeTwips {
  float width = 0, height = 0;
};

inline constexpr int kUserPageSize = 22;

// Size of the pages on the surface. A user size is taken as stored; a paper size comes from its table, width and
// height exchanged when landscape is chosen; a code without a paper reads as a user size. Always from 1 to 500
// centimetres in both directions, whatever the project says.
PageSizeTwips pageSizeOf(const ProjectDocument& document);

}  // namespace plinth
