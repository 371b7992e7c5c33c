// An amount of money in English words, as written on cheques: "One Dollar and Fifty Cents".
#pragma once

#include <string>
#include <string_view>

#include "basic/Locale.h"

namespace plinth {

// Words in dollars, pounds or euros, by the sign in the locale's currency format.
class CMoney {
 public:
  explicit CMoney(const Locale& locale);

  // amount: a machine-readable number ("." as the point, no grouping), up to 30 digits before the point. A
  // third decimal is dropped. An amount without a point keeps its first two digits only: formulas that users
  // have written depend on it; pass "1234.00" for a whole amount. A negative amount or no number gives
  // "Invalid Dollar Amount.".
  std::string monetaryToWords(std::string_view amount) const;

  // Words of a whole number given by its digits ("" is zero). withUnit: -1 with the currency's unit, 0
  // without. A group of whole hundreds has two blanks before its scale word ("One Hundred  Thousand"), as
  // texts on file have. "Invalid Dollar Amount." for anything but digits and for more than 30 of them
  // (leading zeros aside).
  std::string groupWords(std::string_view digits, int withUnit) const;

 private:
  struct Currency {
    std::string_view unit, units, noSmall, small, smalls;
  };
  static const Currency& currencyOf(const Locale& locale);
  const Currency& currency_;
};

}  // namespace plinth
