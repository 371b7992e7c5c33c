// The only place that knows the order of a project file; its stretches stand in the three headers beside it.
// An archive reads any version, writes the newest, or describes, with the same calls.
#pragma once

#include "model/ProjectWalkLooks.h"
#include "model/ProjectWalkObjects.h"
#include "model/ProjectWalkTail.h"

namespace plinth {

// document: const when the archive writes or describes. False when the file is not a project; nothing but the
// first text was then read.
template <class Archive, class Document>
bool walkProject(Archive& ar, Document& document, FileExtras& extras) {
  if (!walkHeader(ar, document, extras)) return false;
  walkDocuments(ar, document);
  walkLooks(ar, document, extras);
  walkSquares(ar, document);
  walkLines(ar, document);
  walkImages(ar, document);
  walkPictures(ar, document);
  walkFields(ar, document);
  walkTitles(ar, document);
  walkCombos(ar, document);
  walkMemos(ar, document);
  walkMenus(ar, document);
  walkChecks(ar, document);
  walkButtons(ar, document);
  walkApplication(ar, document);
  walkSearch(ar, document);
  walkSwitches(ar, document);
  walkScripts(ar, document);
  walkReports(ar, document);
  walkEnd(ar, document);
  return true;
}

}  // namespace plinth
