// Date serials: the calendar, all display forms, and what people type.
#include "basic/DateSerial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <tuple>

namespace plinth {
namespace {

constexpr double kToday = 45352;  // 2024-03-01

Locale german() {
  Locale locale;
  locale.decimalSeparator = ',';
  locale.groupSeparator = ".";
  locale.shortDatePattern = "dd.MM.yyyy";
  locale.longDatePattern = "dddd, d. MMMM yyyy";
  locale.timePattern = "HH:mm:ss";
  locale.dateSeparator = '.';
  locale.amText = locale.pmText = "";
  locale.monthNames[2] = "M\xE4rz";
  locale.monthAbbreviations[2] = "Mrz";
  locale.dayNames[5] = "Freitag";
  return locale;
}

Locale swedish() {
  Locale locale;
  locale.shortDatePattern = "yyyy-MM-dd";
  locale.longDatePattern = "'den 'd MMMM yyyy";
  locale.dateSeparator = '-';
  return locale;
}

TEST(DateSerial, CountsFromItsEpochInBothDirections) {
  const struct {
    CivilTime time;
    double serial;
  } kCases[] = {{{1899, 12, 30}, 0},        {{1900, 1, 1}, 2},
                {{1900, 3, 1}, 61},         {{2000, 2, 29}, 36585},
                {{2024, 3, 1}, kToday},     {{100, 1, 1}, kFirstDateSerial},
                {{9999, 12, 31}, 2958465},  {{1899, 12, 29, 6}, -1.25},
                {{1899, 12, 30, 18}, 0.75}, {{1899, 12, 31, 12, 0, 0}, 1.5}};
  for (const auto& [time, serial] : kCases) {
    EXPECT_EQ(toSerial(time), serial);
    const CivilTime back = toCivil(serial);
    EXPECT_EQ(std::tie(back.year, back.month, back.day, back.hour),
              std::tie(time.year, time.month, time.day, time.hour));
  }
}

TEST(DateSerial, EveryDayComesBack) {
  double previous = kFirstDateSerial - 1;
  for (double day = kFirstDateSerial; day <= kLastDateSerial; day += day < -600000 || day > 0 ? 1 : 37) {
    const CivilTime time = toCivil(day);
    ASSERT_EQ(toSerial(time), day);
    ASSERT_LE(time.day, daysInMonth(time.year, time.month));
    previous = day;
  }
  EXPECT_EQ(previous, 2958465);
}

TEST(DateSerial, EveryYearShowsItsDigits) {
  for (double day = kFirstDateSerial; day <= kLastDateSerial; day += 367) {
    const CivilTime time = toCivil(day);
    char text[40];
    std::snprintf(text, sizeof text, "%d-%02d %04d %02d %d", time.day, time.month, time.year, time.year % 100,
                  dayOfYear(day));
    ASSERT_EQ(formatDate(day, "d-mm yyyy yy y", Locale()), text);
  }
}

TEST(DateSerial, PartsOutsideTheirRangeCarryOver) {
  EXPECT_EQ(toSerial({2023, 13, 1}), toSerial({2024, 1, 1}));
  EXPECT_EQ(toSerial({2024, 0, 31}), toSerial({2023, 12, 31}));
  EXPECT_EQ(toSerial({2024, -13, 1}), toSerial({2022, 11, 1}));
  EXPECT_EQ(toSerial({2023, 2, 29}), toSerial({2023, 3, 1}));
  EXPECT_EQ(toSerial({2024, 1, 1, 25, -1, 3600}), toSerial({2024, 1, 2, 1, 59, 0}));
}

TEST(DateSerial, TimesRoundToSecondsWithoutLeavingTheRange) {
  EXPECT_EQ(toCivil(1.9999999).day, 1);  // midnight of the next day
  EXPECT_EQ(toCivil(kLastDateSerial).hour, 23);
  EXPECT_EQ(toCivil(kLastDateSerial).year, 9999);
  EXPECT_FALSE(isDateSerial(NAN));
  EXPECT_FALSE(isDateSerial(2958466));
  EXPECT_FALSE(isDateSerial(-657435));
  EXPECT_TRUE(isDateSerial(-657434.9));
}

TEST(DateSerial, WeeksBeginOnSunday) {
  EXPECT_EQ(weekday(1), 1);
  EXPECT_EQ(weekday(0), 7);
  EXPECT_EQ(weekday(kToday), 6);
  EXPECT_EQ(weekday(-7.5), 7);
  EXPECT_EQ(weekOfYear(toSerial({2024, 1, 6})), 1);
  EXPECT_EQ(weekOfYear(toSerial({2024, 1, 7})), 2);
  EXPECT_EQ(weekOfYear(toSerial({2000, 12, 31})), 54);
}

TEST(DateSerial, DisplayFormsUseTheLocalesWords) {
  const double serial = toSerial({2024, 3, 1, 15, 4, 5});
  const struct {
    const char *format, *english, *german;
  } kCases[] = {{"General Date", "3/1/2024 3:04:05 PM", "01.03.2024 15:04:05"},
                {"long date", "Friday, March 1, 2024", "Freitag, 1. M\xE4rz 2024"},
                {"Medium Date", "01-Mar-24", "01-Mrz-24"},
                {"Short Date", "3/1/2024", "01.03.2024"},
                {"Long Time", "3:04:05 PM", "15:04:05"},
                {"Medium Time", "03:04 PM", "03:04 PM"},
                {"Short Time", "15:04", "15:04"},
                {"dddd dd-mmm-yyyy", "Friday 01-Mar-2024", "Freitag 01-Mrz-2024"},
                {"dd-mmmm-yyyy", "01-March-2024", "01-M\xE4rz-2024"},
                {"m/d/yy", "3/1/24", "3.1.24"},
                {"hh:nn:ss", "15:04:05", "15:04:05"},
                {"h:mmam/pm", "3:04pm", "3:04pm"},
                {"HH:MM A/P", "03:04 P", "03:04 P"},
                {"hh-mm mm", "15-04 03", "15-04 03"},
                {"w ww q y", "6 9 1 61", "6 9 1 61"},
                {"ddddd ttttt", "3/1/2024 3:04:05 PM", "01.03.2024 15:04:05"},
                {"\"day\" d \\d\\", "day 1 d", "day 1 d"},
                {"\"am/pm\" h", "am/pm 15", "am/pm 15"},
                {"\"open h", "open h", "open h"},
                {"", "3/1/2024 3:04:05 PM", "01.03.2024 15:04:05"}};
  for (const auto& [format, english, inGerman] : kCases) {
    EXPECT_EQ(formatDate(serial, format, Locale()), english) << format;
    EXPECT_EQ(formatDate(serial, format, german()), inGerman) << format;
  }
  EXPECT_EQ(formatDate(0.5, "c", Locale()), "12:00:00 PM");
  EXPECT_EQ(formatDate(0, "c", Locale()), "12:00:00 AM");
  EXPECT_EQ(formatDate(kToday, "c", Locale()), "3/1/2024");
  EXPECT_EQ(formatDate(toSerial({2024, 5, 6}), "Long Date", swedish()), "den 6 May 2024");
  EXPECT_EQ(formatDate(3e6, "c", Locale()), "");
  EXPECT_EQ(formatDate(NAN, "yyyy", Locale()), "");
}

TEST(DateSerial, ReadsWhatPeopleType) {
  const struct {
    const char *text, *english, *german;  // as yyyy-mm-dd hh:nn:ss, "" for none
  } kCases[] = {{"3/4/2024", "2024-03-04 00:00:00", "2024-04-03 00:00:00"},
                {"13/5/24", "2024-05-13 00:00:00", "2024-05-13 00:00:00"},
                {"5/13", "2024-05-13 00:00:00", "2024-05-13 00:00:00"},
                {"3-4-30", "1930-03-04 00:00:00", "1930-04-03 00:00:00"},
                {"2024-03-04", "2024-03-04 00:00:00", "2024-03-04 00:00:00"},
                {"2024-03-04T07:08:09", "2024-03-04 07:08:09", "2024-03-04 07:08:09"},
                {"5.6.", "2024-05-06 00:00:00", "2024-06-05 00:00:00"},
                {"5.6", "", "2024-06-05 00:00:00"},
                {"5,6", "", ""},
                {"1.234", "", ""},
                {"Jan 5, 1999", "1999-01-05 00:00:00", "1999-01-05 00:00:00"},
                {"5 january", "2024-01-05 00:00:00", "2024-01-05 00:00:00"},
                {"5. M\xC4RZ 24", "", "2024-03-05 00:00:00"},
                {"Fri, 1 Mar 2024", "2024-03-01 00:00:00", "2024-03-01 00:00:00"},
                {"Freitag, 1. M\xE4rz 2024", "", "2024-03-01 00:00:00"},
                {"Mar 2023", "2023-03-01 00:00:00", "2023-03-01 00:00:00"},
                {"5/1999", "1999-05-01 00:00:00", "1999-05-01 00:00:00"},
                {"29 Feb", "2024-02-29 00:00:00", "2024-02-29 00:00:00"},
                {"15:04", "1899-12-30 15:04:00", "1899-12-30 15:04:00"},
                {"3:04:05 pm", "1899-12-30 15:04:05", "1899-12-30 15:04:05"},
                {"12am", "1899-12-30 00:00:00", "1899-12-30 00:00:00"},
                {"3/4/2024 5 p", "2024-03-04 17:00:00", "2024-04-03 17:00:00"},
                {"7:30 1/2/2024", "2024-01-02 07:30:00", "2024-02-01 07:30:00"}};
  const auto shown = [](const char* text, const Locale& locale) {
    const auto serial = readDate(text, locale, kToday);
    return serial ? formatDate(*serial, "yyyy-mm-dd hh:nn:ss", englishLocale()) : "";
  };
  for (const auto& [text, english, inGerman] : kCases) {
    EXPECT_EQ(shown(text, Locale()), english) << text;
    EXPECT_EQ(shown(text, german()), inGerman) << text;
  }
}

TEST(DateSerial, RefusesWhatIsNoDate) {
  for (const char* text :
       {"",        " ",        "5",         "1234",    "-5",          "1e5",          "(5)",
        "hello",   "May",      "Friday",    "2/30",    "2/29/2023",   "31/31/2000",   "0/1/2000",
        "1/2/3/4", "1/2000/3", "1/2/99999", "1/2/050", "24:00",       "10:60",        "1:2:3:4",
        "10:",     ":10",      "13 am",     "5 pm pm", "10:00 11:00", "1/10:00/2024", "1//2/2024",
        "1/2/",    "/1/2",     "Jan Feb 2", "Marx 5",  "1/2/2024 x",  "am",           "T5"}) {
    EXPECT_FALSE(readDate(text, Locale(), kToday)) << text;
  }
}

TEST(DateSerial, WhatIsShownReadsBack) {
  Locale spanish;
  spanish.shortDatePattern = "dd/MM/yyyy";
  spanish.longDatePattern = "dddd, d' de 'MMMM' de 'yyyy";
  for (const Locale& locale : {Locale(), german(), swedish(), spanish}) {
    for (double day : {kToday, 36526.0, 20000.0, 45291.0}) {
      for (const char* format : {"Short Date", "Medium Date", "Long Date"}) {
        EXPECT_EQ(readDate(formatDate(day, format, locale), locale, kToday), day)
            << formatDate(day, format, locale);
      }
      const double moment = day + 0.75;
      EXPECT_EQ(readDate(formatDate(moment, "c", locale), locale, kToday), moment);
    }
  }
}

TEST(DateSerial, AnyBytesGiveNothingOrAValidDate) {
  const std::string_view pieces[] = {"1",  "29",  "2024", "/", "-", ".",    ":", " ",
                                     "am", "Feb", "Mon",  "T", ",", "\xE4", "x", "0"};
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (unsigned n = random() % 9; n > 0; --n) {
      text += random() % 8 ? std::string(pieces[random() % std::size(pieces)])
                           : std::string(1, static_cast<char>(random()));
    }
    const auto serial = readDate(text, i % 2 ? Locale() : german(), kToday);
    EXPECT_TRUE(!serial || isDateSerial(*serial)) << text;
    formatDate(static_cast<double>(random() % 3000000), text, Locale());
  }
  EXPECT_FALSE(readDate(std::string(100000, '1'), Locale(), kToday));
}

}  // namespace
}  // namespace plinth
