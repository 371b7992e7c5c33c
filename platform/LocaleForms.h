// From the C library's way of telling number, money and date forms to that of our Locale, which follows
// Windows.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

// A strftime format as a date or time pattern: "%d.%m.%Y" gives "dd.MM.yyyy". Literal letters come out
// between single quotes; conversions that a pattern cannot say (time zones, week numbers) vanish with the
// blanks before them.
std::string patternOfStrftime(std::string_view format);

// The first separator of a date or time pattern: '.' of "dd.MM.yyyy"; `fallback` when it has none.
char separatorOfPattern(std::string_view pattern, char fallback);

// A long form in the order of a short one, since the C library knows none: day first "dddd, d MMMM yyyy",
// year first "dddd, yyyy MMMM d", else "dddd, MMMM d, yyyy".
std::string longDatePatternLike(std::string_view shortPattern);

// Locale::positiveCurrencyFormat and ::negativeCurrencyFormat from lconv's cs_precedes, sep_by_space and
// sign_posn (0 parentheses, 1 before all, 2 behind all, 3 right before the symbol, 4 right behind it; others
// as 1).
int positiveCurrencyFormat(bool symbolFirst, bool blankBetween);
int negativeCurrencyFormat(bool symbolFirst, bool blankBetween, int signPosition);

// The Windows code page of a locale name such as "de_DE.UTF-8@euro"; 1252 for unknown languages.
int codePageOfLocaleName(std::string_view name);

}  // namespace plinth
