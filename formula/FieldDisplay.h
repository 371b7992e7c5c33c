// How a field's value looks in its box, by the field's type: one place for records, formulas, defaults and
// typed values, so that a number or date looks the same wherever it comes from.
#pragma once

#include <string>

#include "basic/Decimal28.h"
#include "basic/Locale.h"

namespace plinth {

// The groups that the types 0 to 23 fall into; every other number counts as text.
constexpr bool isTimeType(int type) { return type == 10 || type == 12; }
// Types that show a date, a clock time taken as a date (11), or one part of a date (13 to 22).
constexpr bool isDateType(int type) {
  return (type >= 6 && type <= 9) || type == 11 || (type >= 13 && type <= 22);
}
// Types whose value is the serial held beside the box rather than what the box shows.
constexpr bool holdsSerial(int type) { return type >= 6 && type <= 12; }
constexpr bool isTextType(int type) { return type < 1 || type > 22; }

// A number as a record shows it. kind 1: up to 15 significant digits, ungrouped; 2, 3, 4: that many decimals,
// grouped; 5: rounded to a whole number, grouped. Other kinds as 1. All in the locale's form; 0 gives "0",
// "0.00", ...
std::string formatFieldNumber(int kind, double value, const Locale& locale);

// A number as a formula's result shows it: as a record shows it, but kind 1 never takes the exponent form and
// a kind 5 that rounds to zero is "".
std::string formatFormulaNumber(int kind, const Decimal28& value, const Locale& locale);

// A number as it enters a formula: "." as the point, no grouping, up to 15 significant digits, no exponent
// form while it fits 28 digits (an "E" would be an operator there).
std::string machineNumber(double value);
// The same in the locale's form: its decimal separator.
std::string localNumber(double value, const Locale& locale);

// A date or time serial (days since 1899-12-30, the fraction the time) as its box shows it.
// kind: 6 by applicationDateFormat (0 to 5, see applicationDatePattern), 7 "Short Date", 8 "Medium Date", 9
// "Long Date", 10 "Short Time", 11 "Medium Time", 12 "hh:nn:ss", 13 to 22 "yy", "yyyy", "mm", "mmm", "mmmm",
// "dd", "ddd", "dddd", "w", "ww". Other kinds, and serials outside the years 100 to 9999, give "".
std::string formatFieldDate(int kind, double serial, int applicationDateFormat, const Locale& locale);

// The display form of a kind 6 to 22 in the words of formatDate; kind 6 gives "General Date". "" for other
// kinds.
const char* datePattern(int kind);
// The application's own date formats: 0 "dddd dd-mmm-yyyy", 1 "dd-mmmm-yyyy", 2 "dd-mm-yyyy", 3 "mm-dd-yyyy",
// 4 "yyyy-mm-dd", 5 and all others "Short Date".
const char* applicationDatePattern(int applicationDateFormat);

}  // namespace plinth
