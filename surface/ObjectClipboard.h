// Objects as text on the clipboard: one line for each, behind a signature.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "surface/AreaSelection.h"
#include "surface/DesignContext.h"

namespace plinth {

inline constexpr std::string_view kClipboardSignature = "~QRVTM2.0";

// Signature and the objects' lines, CR LF behind each. Objects that are gone are passed over.
std::string clipboardText(const ProjectDocument& document, const std::vector<ObjectRef>& objects,
                          const TextMeasure& measure);

struct PasteResult {
  std::vector<ObjectRef> objects;  // that were made, in the order of the lines
  bool fieldsFull = false;         // at least one field had no room
  int skipped = 0;                 // lines that could not be read or had no room
};
// Makes the objects of a clipboard text on a page, moved by `offset` pixels. Nothing without the signature.
// References between pasted fields follow them. The text is not trusted: tables end at their limits, places
// within 30000 pixels, and a picture keeps its path only when the project shows that image already or the
// path is that of an image on a drive of this machine.
PasteResult pasteObjects(ProjectDocument& document, std::string_view text, int page, PointPx offset);

class ObjectClipboard {
 public:
  ObjectClipboard(DesignContext& context, AreaSelection& area) : c_(context), area_(area) {}

  // The text of the selection, "" when nothing is selected; the caller puts it on the system's clipboard. An
  // area takes what lies inside its rectangle now. Remembers where the page was scrolled to.
  std::string copy();
  // The same for Cut, which must not remove more than what is outlined: an area is not collected anew.
  std::string selectionText();
  // Puts the objects of a text on the page on view, 10 pixels down and right of where they were, and selects
  // them.
  void paste(std::string_view text);
  // DeleteTheObject: the selected object, or the area's members, with formulas following.
  void remove();
  // MovetoPage: 0 to 4.
  void moveToPage(int page);

 private:
  void endSelection();

  DesignContext& c_;
  AreaSelection& area_;
};

}  // namespace plinth
