// Text work that all parts of the language share: replacing with a bound on growth, and the order in which
// references are replaced by values.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace plinth {

// Replacements that would make a text longer than this leave it as it stands, so that values that hold
// references to each other cannot grow without end.
inline constexpr std::size_t kMaxFormulaText = 1 << 20;

// Every occurrence replaced from left to right, unless the result would exceed kMaxFormulaText.
std::string replaceBounded(std::string_view text, std::string_view what, std::string_view with);

// Every upper-case reference `letter` and index is replaced by its value, as if done by one replacement of
// the whole text for each index from `high` down to `low`: "F12" is then safe from "F1", and references that
// a value brings in, or that arise where a value meets its neighbours, are replaced in their turn. valueOf(n)
// is asked only for indices that occur. low is 0 or 1.
struct ReferenceKind {
  char letter;
  int low, high;
  std::function<std::string(int)> valueOf;
};
// The kinds one after the other.
std::string replaceReferences(std::string_view text, const std::vector<ReferenceKind>& kinds);

// Blanks inside double quotes become "_": a token of the language holds no blank.
std::string joinQuoted(std::string_view text);

}  // namespace plinth
