// How a person's system writes numbers, money, dates and times: a plain value that is passed in everywhere,
// so that tests and the command-line tool choose it freely. All texts are in the locale's 8-bit code page.
#pragma once

#include <array>
#include <string>

namespace plinth {

struct Locale {
  int codePage = 1252;
  char decimalSeparator = '.';
  std::string groupSeparator = ",";       // may be empty or the byte 160
  std::string currencySymbol = "$";
  int currencyDecimals = 2;
  int positiveCurrencyFormat = 0;          // as Windows' ICURRENCY: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $"
  int negativeCurrencyFormat = 0;          // as Windows' INEGCURR: 0 "($1)", 1 "-$1", 5 "-1$", 8 "-1 $", ...
  std::string shortDatePattern = "M/d/yyyy";           // d, dd, ddd, dddd, M..MMMM, yy, yyyy as the system's
  std::string longDatePattern = "dddd, MMMM d, yyyy";  // quoted text between single quotes
  std::string timePattern = "h:mm:ss tt";              // H/HH 24 hours, h/hh 12 hours, mm, ss, t/tt
  char dateSeparator = '/';
  char timeSeparator = ':';
  std::string amText = "AM";
  std::string pmText = "PM";
  std::array<std::string, 7> dayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                      "Thursday", "Friday", "Saturday"};
  std::array<std::string, 7> dayAbbreviations{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  std::array<std::string, 12> monthNames{"January",   "February", "March",    "April",
                                         "May",       "June",     "July",     "August",
                                         "September", "October",  "November", "December"};
  std::array<std::string, 12> monthAbbreviations{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

// United States English, code page 1252: the locale of tests and of programs that know no other.
const Locale& englishLocale();

}  // namespace plinth
