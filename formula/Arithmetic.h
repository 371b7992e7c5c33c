// The arithmetic of formulas: one register, operators strictly from left to right, and parentheses that are
// replaced in the text by their value.
#pragma once

#include <string_view>

#include "basic/Decimal28.h"

namespace plinth {

// The value of a rewritten expression ("~" subtracts, "-" is a sign). Never fails: what cannot be computed
// (division by zero, overflow, logarithm of 0, ...) leaves the register as it stood and the rest goes on. A
// result that has no place in 28 digits is 0. Cost: linear in the text without parentheses; with them
// bounded, the last of a great many then stand unread.
Decimal28 evaluateArithmetic(std::string_view text);

}  // namespace plinth
