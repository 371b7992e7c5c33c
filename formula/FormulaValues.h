// What the objects of a record stand for inside a formula: texts that hold no blank, numbers with "." as the
// point.
#pragma once

#include <string>
#include <vector>

#include "formula/FormulaHost.h"
#include "formula/FormulaText.h"

namespace plinth {

// Value of field n: the serial of a date or time, "" for none; of all others what the box shows, with the
// locale's decimal separator turned into "." and grouping removed (in texts too). Blanks stay.
std::string fieldValue(const FormulaHost& host, int n);

// The reference kinds of a formula, to be replaced in this order: F, C, K. Blanks in values become "_".
std::vector<ReferenceKind> formulaReferences(const FormulaHost& host);
// The same for a line of a script: fields as plain numbers ("0" for a text), combos as shown, blanks and all.
std::vector<ReferenceKind> scriptReferences(const FormulaHost& host);

}  // namespace plinth
