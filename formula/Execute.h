// Running one line of the language after all references are replaced: IF lines and lists of assignments.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "formula/Condition.h"
#include "formula/FormulaHost.h"
#include "formula/PrepareFormula.h"

namespace plinth {

// V0 to V99, as the texts that stand for them; empty at the start of a run of all formulas. Scripts keep
// theirs from line to line.
using FormulaVariables = std::array<std::string, kVariableCount>;

// What a line works on.
struct FormulaContext {
  FormulaHost& host;
  FormulaMode program;
  FormulaVariables& variables;
};

// V<n> replaced by the variables' values.
std::string replaceVariables(std::string_view line, const FormulaVariables& variables);

// "IF a AND b OR c THEN f1=1 ... ELSE f1=2 ...". Blanks separate the tokens; AND and OR have equal rank and
// decide from left to right. Never fails; a line without a fitting THEN does nothing.
void executeIf(const FormulaContext& context, std::string_view line, ValueMode mode);
// Assignments, one a token. Tokens without "=" are passed over. Never fails.
void executeAssign(const FormulaContext& context, std::string_view line);
// Whether a line is an IF line: by its first two characters alone.
constexpr bool isIfLine(std::string_view line) { return line.substr(0, 2) == "IF"; }
// executeIf for a line that starts with "IF", else executeAssign.
void executeLine(const FormulaContext& context, std::string_view line, ValueMode mode);

}  // namespace plinth
