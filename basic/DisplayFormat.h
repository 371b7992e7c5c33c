// Numbers and money as people read them, in the locale's form.
#pragma once

#include <string>

#include "basic/Decimal28.h"
#include "basic/Locale.h"

namespace plinth {

// A number as plain text with the locale's decimal separator, up to 15 significant digits, no grouping,
// exponent form from 1E15 up ("1.5E+20") and below 1E-4 ("1E-05"); "0" for zero and for what is not a finite
// number.
std::string formatGeneral(double value, const Locale& locale);
// The same with "." as the point: machine-readable.
std::string plainNumber(double value);

// Options of formatNumber.
struct NumberForm {
  int decimals = 2;         // 0 to 28
  bool grouping = true;     // thousands separated by the locale's separator
  bool leadingZero = true;  // "0.50" rather than ".50"
};
// Rounded half away from zero on the decimal digits of the value (1.005 with 2 decimals is "1.01").
std::string formatNumber(double value, const NumberForm& form, const Locale& locale);
std::string formatNumber(const Decimal28& value, const NumberForm& form, const Locale& locale);
// Money in the locale's positive and negative form with the currency sign.
std::string formatCurrency(double value, int decimals, const Locale& locale);
std::string formatCurrency(const Decimal28& value, int decimals, const Locale& locale);
// A whole number padded with zeros on the left to `digits`; a minus stands before the zeros.
std::string zeroPadded(long long value, int digits);

}  // namespace plinth
