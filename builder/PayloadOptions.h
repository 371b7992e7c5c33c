// The parts of a payload that come from a project's options rather than from its objects; for
// PayloadFromProject.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "builder/payload/Payload.h"
#include "model/ProjectDocument.h"

namespace plinth {

class PictureStore;

PayloadHeader payloadHeader(const ProjectDocument& document);

// Search columns that name no object of the document are emptied in it.
PayloadApplication payloadApplication(ProjectDocument& document, const std::string& appName);

// The HTML blocks of the scripts, placed in pixels; index 0 is unused.
std::vector<PayloadFragment> payloadFragments(const ProjectDocument& document);

// A template that names an existing file is that file's text, else it is the text itself.
std::array<PayloadTemplate, 10> payloadTemplates(const ProjectDocument& document, const std::string& appName,
                                                 const PictureStore& pictures);

// The code of a search column such as "F12", "C3", "K0", "M2": n, 2000 + n, 4000 + n, 6000 + n; 0 when it
// names no object of the document.
std::int16_t columnCode(const ProjectDocument& document, std::string_view column);

}  // namespace plinth
