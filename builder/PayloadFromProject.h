// Turns an open project into the payload of a finished application: default names, prepared formulas, checked
// search columns, generated HTML and the pictures' bytes. The order in the file is PayloadWalk.h's business.
#pragma once

#include <string>
#include <vector>

#include "builder/payload/Payload.h"
#include "model/ProjectDocument.h"

namespace plinth {

class PictureStore;

// appName: the application's name, which embedded pictures are named after. Blank object names receive their
// defaults in the document too, search columns without an object are emptied there. `notes` receives what
// could not be taken along (for people).
Payload payloadFromProject(ProjectDocument& document, const std::string& appName, PictureStore& pictures,
                           std::vector<std::string>& notes);

// An XML template of a record: an element for each field label with the mark of its value.
std::string XMLc(const ProjectDocument& document, const std::string& appName);

}  // namespace plinth
