// The significant decimal digits of a floating-point number: what all ways to show one start from.
#pragma once

#include <string_view>

namespace plinth {

// The number is 0.DIGITS x 10^point, with `negative` for its sign. Zero has the digit "0" and point 1.
struct FloatDigits {
  char text[24];
  int count = 0;  // without trailing zeros, at least 1
  int point = 0;
  bool negative = false;

  std::string_view digits() const { return {text, static_cast<std::size_t>(count)}; }
};

// The fewest digits that read back as the same number. REQUIRES a finite value.
FloatDigits shortestDigits(double value);
FloatDigits shortestDigits(float value);
// At most 15 digits, all that a double keeps of any decimal number. REQUIRES a finite value.
FloatDigits fifteenDigits(double value);

}  // namespace plinth
