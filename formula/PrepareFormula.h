// The rewrite of a formula from what its author typed to what is evaluated: sums spelled out, assignment
// targets marked by a lower-case letter, the two kinds of minus told apart. A finished application holds its
// formulas rewritten.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

// How far the marking of targets goes: highest index of each kind in use, and whose letters are put in upper
// case.
struct FormulaCounts {
  int fields = 0;
  int combos = 0;
  int memos = 0;
  int checks = -1;  // check boxes count from 0
  int codePage = 1252;
};

inline constexpr int kVariableCount = 100;  // V0 to V99

// The rewritten formula. Never fails; a malformed part stays as it is. Not for a text that is rewritten
// already: its second SUM would be taken for a first one.
std::string prepareFormula(std::string_view text, const FormulaCounts& counts);

}  // namespace plinth
