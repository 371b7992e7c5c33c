// Reading numbers from what people typed: the leading-number reader, the locale's form, and the rewrite of a
// displayed number into a machine-readable one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "basic/Locale.h"

namespace plinth {

// The leading number of a text, always with "." as the point: blanks, tabs and line feeds anywhere before and
// inside the number are passed over; an exponent with E or D; "&H" hexadecimal and "&O" octal (16- and
// 32-bit, signed). 0 when there is none. Never fails; a number too large for a double is 0.
double val(std::string_view text);

// A whole text as a number in the locale's form: optional sign (also behind, also parentheses for negative),
// group separators, the locale's decimal separator, currency sign, exponent. nullopt when the text is not a
// number.
std::optional<double> readNumber(std::string_view text, const Locale& locale);

// Makes a displayed number machine-readable: with a decimal separator other than "." every "." is removed and
// the separator becomes "."; then every ",", "'" and byte 160 is removed.
std::string normalizeNumber(std::string_view text, const Locale& locale);

}  // namespace plinth
