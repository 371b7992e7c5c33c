// Records as texts by label, for programs without windows: what the boxes show, and setting a box as if
// somebody typed into it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basic/Result.h"
#include "engine/RecordSession.h"

namespace plinth {

enum class BoxKind { field, combo, check, memo, picture };

struct BoxRef {
  BoxKind kind = BoxKind::field;
  int index = 0;
  std::string label;      // the search and export label (Tag), 8-bit text
  std::string reference;  // "F12", "C3", "K0", "M2", "P1"
};

// Every box that holds data (global fields and data pictures included), in tab order.
std::vector<BoxRef> recordBoxes(const Application& application);
// The box of a label (without regard to case), else of a reference such as "F12"; nullptr when there is none.
// The first of several boxes with one label.
const BoxRef* findBox(const std::vector<BoxRef>& boxes, std::string_view labelOrReference, int codePage);

// What the box shows; check boxes "1" or "0", pictures the name of their file.
std::string boxText(const RecordForm& form, const BoxRef& box);

// Whether the box would take the text in some record. Error wrongUsage: a picture, a check box value other
// than 0 and 1, or text that the box does not take.
Result<void> acceptsText(const RecordSession& session, const BoxRef& box, std::string_view text);
// Whether the box would take it in the session's current record. Errors: denied (locked, read-only),
// wrongUsage.
Result<void> mayType(const RecordSession& session, const BoxRef& box, std::string_view text);
// Sets a box of the session's current record as if typed: got focus, text, lost focus, with key filters,
// lengths, formats and calculated fields. Errors: denied (locked, read-only), wrongUsage (a picture, a check
// box value other than 0, 1, or text that the box does not take), locked (another user edits the record).
Result<void> typeIntoBox(RecordSession& session, const BoxRef& box, std::string_view text);

}  // namespace plinth
