// Looks a project over for what its person would stumble upon later: references to objects that do not exist,
// labels that stand twice, lengths and rows beyond the limits.
#pragma once

#include <string>
#include <vector>

#include "model/PictureStore.h"
#include "model/ProjectDocument.h"

namespace plinth {

// One sentence for each thing found, 8-bit text; empty when there is nothing.
std::vector<std::string> checkProject(const ProjectDocument& document);
// The same for pictures that the project names and `pictures` does not have: a save leaves them out.
std::vector<std::string> missingPictures(const ProjectDocument& document, const PictureStore& pictures);

}  // namespace plinth
