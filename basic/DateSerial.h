// Dates as numbers: whole days since 1899-12-30, the time of day as the fraction (for negative serials the
// fraction still counts forward in absolute value). Reading what people type and all display forms, in the
// locale's words.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "basic/Locale.h"

namespace plinth {

struct CivilTime {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
};

// Range of valid serials: year 100 to year 9999.
inline constexpr double kFirstDateSerial = -657434.0;
inline constexpr double kLastDateSerial = 2958465.99999999;
bool isDateSerial(double serial);

// Serial of a civil date and time; months, days, hours... outside their range carry over (month 13 is next
// January).
double toSerial(const CivilTime& time);
// The civil time of a serial, rounded to whole seconds. REQUIRES isDateSerial(serial).
CivilTime toCivil(double serial);
// 1 Sunday to 7 Saturday.
int weekday(double serial);
// 1 to 366.
int dayOfYear(double serial);
// 1 to 54: week 1 holds January 1st, weeks begin on Sunday (a leap year that begins on a Saturday touches 54
// weeks).
int weekOfYear(double serial);
// 28 to 31, for a month 1 to 12.
int daysInMonth(int year, int month);

// A typed date, time or both, in the locale's order (day, month, year by its short date pattern) and words:
// separators "/", "-", ".", "," and blanks; month names and abbreviations (locale's and English); two-digit
// years 00-29 are 2000s, 30-99 1900s; a missing year is that of `today`; ISO yyyy-mm-dd always works; times
// h:mm[:ss] with am/pm; an impossible order is tried the other way round (13/5 in a month-first locale is May
// 13th). A plain number is not a date. nullopt when the text is none.
std::optional<double> readDate(std::string_view text, const Locale& locale, double today);

// Display forms. Named: "General Date", "Long Date", "Medium Date" (dd-mmm-yy), "Short Date", "Long Time",
// "Medium Time" (hh:mm AM/PM), "Short Time" (hh:mm). Spelled letters, without regard to case: d dd ddd dddd
// (day), w (weekday number) ww (week), m mm mmm mmmm (month; minutes directly after h or hh), q, y (day of
// year) yy yyyy, h hh, n nn (minutes), s ss, AM/PM am/pm A/P a/p, ttttt, c; "/" and ":" are the locale's
// separators; text in double quotes and after "\" stands as it is. A serial outside the valid range gives "".
std::string formatDate(double serial, std::string_view format, const Locale& locale);

}  // namespace plinth
