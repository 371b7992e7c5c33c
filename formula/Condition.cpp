// The order in which relations are tried, and what happens under NOT, is fixed: formulas that users have
// written depend on it.
#include "formula/Condition.h"

#include <array>

#include "basic/CodePage.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "formula/Arithmetic.h"

namespace plinth {

namespace {

bool isArithmetic(std::string_view text) { return text.find_first_of("+~/*^M") != text.npos; }

// A text with an "M" in it is taken for a modulo, in text mode too.
std::string computedSide(const std::string& side) {
  return isArithmetic(side) ? evaluateArithmetic(side).toText() : side;
}

// Under NOT there is no "=" and no "<>", and sides are leading numbers, never computed.
bool evaluateNot(std::string_view token) {
  constexpr std::array<std::string_view, 4> kSigns{">=", "<=", "<", ">"};
  const auto relation = findRelation(replaceAll(replaceAll(token, "NOT(", ""), ")", ""), kSigns);
  return relation && !holds(relation->sign, compareNumbers(val(relation->left), val(relation->right)));
}

int compareTexts(std::string_view a, std::string_view b, FormulaMode program, int codePage) {
  return program == FormulaMode::engine ? compareFolded(a, b, codePage) : a.compare(b);
}

}  // namespace

bool holds(std::string_view sign, int order) {
  if (sign == "<>") return order != 0;
  if (sign == "<=") return order <= 0;
  if (sign == ">=") return order >= 0;
  if (sign == ">") return order > 0;
  if (sign == "<") return order < 0;
  return order == 0;
}

int compareNumbers(double a, double b) { return a < b ? -1 : a > b ? 1 : 0; }

double numericValue(std::string_view text) {
  return isArithmetic(text) ? evaluateArithmetic(text).toDouble() : val(text);
}

bool evaluateCondition(std::string_view token, ValueMode mode, FormulaMode program, int codePage) {
  constexpr std::array<std::string_view, 6> kSigns{"<>", "<=", ">=", ">", "<", "="};
  if (token.find('"') != token.npos) mode = ValueMode::text;
  const std::string text = replaceAll(token, "\"", "");
  if (text.find("NOT") != text.npos) return evaluateNot(text);
  const auto relation = findRelation(text, kSigns);
  if (!relation) return false;
  const std::string left = computedSide(relation->left), right = computedSide(relation->right);
  const int order = mode == ValueMode::numeric ? compareNumbers(val(left), val(right))
                                               : compareTexts(left, right, program, codePage);
  return holds(relation->sign, order);
}

}  // namespace plinth
