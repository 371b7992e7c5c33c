// The recalculation of a record: every field's formula once, in field order, numbers and dates before texts.
#pragma once

#include "formula/Execute.h"
#include "formula/FormulaHost.h"

namespace plinth {

// Runs all formulas of the host once. variables: emptied first; afterwards what the formulas have left in
// them, for scripts. In designer mode formulas are rewritten by prepareFormula here; in engine mode they come
// rewritten. Never fails: a formula that cannot be computed gives a wrong value or leaves its box as it is.
// The caller prevents re-entry (a host's write, or its message box, may lead back here).
void runFormulas(FormulaHost& host, FormulaMode mode, FormulaVariables& variables);

}  // namespace plinth
