// Conditions of formulas: one relation between two sides, compared as numbers or as texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formula/FormulaHost.h"

namespace plinth {

// How the sides of a condition are compared. Fields of text types run with `text`, all others and scripts
// with `numeric`; a double quote in a condition makes it `text`.
enum class ValueMode { numeric = 0, text = 1 };

// One condition, a token without blanks: true for -1, false for 0 and for a token without a relation.
// program decides whether texts compare byte for byte (designer) or without regard to case in codePage
// (engine).
bool evaluateCondition(std::string_view token, ValueMode mode, FormulaMode program, int codePage);

// The two sides of the first of `relations` that is present, tried in their order.
struct Relation {
  std::string_view sign;
  std::string left, right;
};
template <class Signs>
std::optional<Relation> findRelation(std::string_view text, const Signs& signs) {
  for (const std::string_view sign : signs) {
    const std::size_t at = text.find(sign);
    if (at == text.npos) continue;
    const std::string_view right = text.substr(at + sign.size());
    return Relation{sign, std::string(text.substr(0, at)), std::string(right.substr(0, right.find(sign)))};
  }
  return std::nullopt;
}

// Whether "a sign b" holds for a three-way comparison of a and b.
bool holds(std::string_view sign, int order);
// Three-way comparison of numbers.
int compareNumbers(double a, double b);

// The numeric value of a side: computed when it holds one of + ~ / * ^ M, else its leading number.
double numericValue(std::string_view text);

}  // namespace plinth
