// The significant decimal digits of a floating-point number: what all ways to show one start from.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

namespace plinth {

// value x 10,000 where the value is the double of a decimal number of up to 15 digits, at most four of them
// behind the point; nullopt elsewhere. No two such numbers have the same double, so that these are also the
// digits that read back as the value; whole arithmetic shows them much faster. Inline, since every number
// that is shown comes by.
inline std::optional<std::int64_t> tenThousandths(double value) {
  constexpr double kScale = 10000;
  if (!(std::fabs(value) < 1e11)) return std::nullopt;
  const auto scaled = static_cast<std::int64_t>(value * kScale + (value < 0 ? -0.5 : 0.5));
  if (static_cast<double>(scaled) / kScale != value) return std::nullopt;
  return scaled;
}

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
