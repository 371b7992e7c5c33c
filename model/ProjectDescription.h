// A project told to machines (JSON, one key for each element of the file) and to people (pages and their
// objects).
#pragma once

#include <string>

#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFile.h"

namespace plinth {

// JSON in UTF-8 with the elements' names as keys, in twips and points. Embedded files show their length and
// SHA-256. facts: of the file it was read from; size 0 leaves "_file" out.
std::string describeProject(const ProjectDocument& document, const PictureStore& pictures,
                            const FileFacts& facts);

// A listing for people, UTF-8, lines ending in "\n": title, counts, each page with its objects, reports.
std::string showProject(const ProjectDocument& document);

}  // namespace plinth
