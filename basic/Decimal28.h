// A decimal number of up to 28 significant digits (96-bit whole number and a scale of 0 to 28): the register
// of the expression language, where 0.1 + 0.2 must be 0.3. Every operation reports overflow instead of
// wrapping.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plinth {

class Decimal28 {
 public:
  Decimal28() = default;
  Decimal28(std::int64_t whole);
  // From a double, rounded to 15 significant digits; nullopt when outside +-79228162514264337593543950335 or
  // not finite.
  static std::optional<Decimal28> fromDouble(double value);
  // From text: optional sign, digits, optional "." and digits, optional exponent. More digits than fit are
  // rounded half to even. nullopt when malformed or too large.
  static std::optional<Decimal28> fromText(std::string_view text);

  double toDouble() const;
  // Shortest text: no trailing zeros behind the point, "." as the point, "0" for zero, a leading "-" when
  // negative; always a digit before the point.
  std::string toText() const;

  bool isZero() const;
  bool isNegative() const;
  Decimal28 negated() const;
  Decimal28 absolute() const;
  // Rounded half to even to 0..28 decimals.
  Decimal28 rounded(int decimals) const;
  // Rounded half away from zero (the way numbers are formatted).
  Decimal28 roundedAway(int decimals) const;

  // nullopt on overflow (and on division by zero). Results keep up to 28 decimals, rounded half to even.
  static std::optional<Decimal28> add(const Decimal28& a, const Decimal28& b);
  static std::optional<Decimal28> subtract(const Decimal28& a, const Decimal28& b);
  static std::optional<Decimal28> multiply(const Decimal28& a, const Decimal28& b);
  static std::optional<Decimal28> divide(const Decimal28& a, const Decimal28& b);
  static int compare(const Decimal28& a, const Decimal28& b);

  bool operator==(const Decimal28& other) const { return compare(*this, other) == 0; }

 private:
  friend class DecimalWork;  // the arithmetic, which needs wider whole numbers than this header should show
  std::array<std::uint32_t, 3> words_{};  // little-endian magnitude
  std::uint8_t scale_ = 0;                // digits behind the point, 0 to 28
  bool negative_ = false;
};

}  // namespace plinth
