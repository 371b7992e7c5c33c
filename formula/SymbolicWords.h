// The words and references that a line of a button script holds, replaced by what they stand for before the
// line runs.
#pragma once

#include <string>
#include <string_view>

#include "formula/FormulaHost.h"

namespace plinth {

// Totals that the last search left.
struct SearchTotals {
  double sum = 0, average = 0;
  long count = 0;
};

// ID (record number), SDATE (today's whole day number), Date$ (today as "Short Date"), DateVal$ (now as a
// serial with its fraction), SumTotal$, SumAdv$, CountTotal$: replaced without regard to case. ID only where
// no letter or digit touches it, so that "PAID" stays a text.
std::string replaceSymbolicWords(std::string_view line, const FormulaHost& host, const SearchTotals& totals);

// The same, then fields F<n> by their numeric values, combos C<n> by their texts, check boxes K<n>; case
// counts in these. Variables are left to replaceVariables.
std::string substituteScriptLine(std::string_view line, const FormulaHost& host, const SearchTotals& totals);

}  // namespace plinth
