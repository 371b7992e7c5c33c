// Calendar arithmetic by whole days; the Gregorian calendar is taken back before its introduction, as serials
// do.
#include "basic/DateSerial.h"

#include <cmath>
#include <cstdint>

namespace plinth {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kFirstDay = -657434;
constexpr std::int64_t kLastDay = 2958465;
constexpr std::int64_t kDaysPer400Years = 146097;
constexpr std::int64_t kEpoch = 693899;  // 1899-12-30 counted from 0000-03-01

std::int64_t floorDivide(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0); }

// Days since 1899-12-30. Years are counted from March, so that the leap day is the last of a year.
std::int64_t dayOf(std::int64_t year, std::int64_t month, std::int64_t day) {
  year += floorDivide(month - 1, 12);
  month -= floorDivide(month - 1, 12) * 12;
  if (month < 3) --year;
  const std::int64_t era = floorDivide(year, 400);
  const std::int64_t yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
  return era * kDaysPer400Years + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - kEpoch;
}

void setDate(CivilTime& time, std::int64_t day) {
  day += kEpoch;
  const std::int64_t era = floorDivide(day, kDaysPer400Years);
  const std::int64_t dayOfEra = day - era * kDaysPer400Years;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (kDaysPer400Years - 1)) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t month = (5 * dayOfYear + 2) / 153;  // 0 is March
  time.day = static_cast<int>(dayOfYear - (153 * month + 2) / 5 + 1);
  time.month = static_cast<int>(month < 10 ? month + 3 : month - 9);
  time.year = static_cast<int>(yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0));
}

struct DayAndSecond {
  std::int64_t day = 0;
  std::int64_t second = 0;
};

DayAndSecond apart(double serial) {
  const auto day = static_cast<std::int64_t>(serial);
  const double time = std::fabs(serial - static_cast<double>(day));
  DayAndSecond out{day, time == 0 ? 0 : std::llround(time * kSecondsPerDay)};
  if (out.second == kSecondsPerDay) out = {out.day + 1, 0};
  if (out.day > kLastDay)
    out = {kLastDay, kSecondsPerDay - 1};  // there is no day after the last to round up to
  return out;
}

}  // namespace

bool isDateSerial(double serial) { return serial > kFirstDay - 1 && serial < kLastDay + 1; }

double toSerial(const CivilTime& time) {
  std::int64_t day = dayOf(time.year, time.month, time.day);
  std::int64_t second = std::int64_t{time.hour} * 3600 + std::int64_t{time.minute} * 60 + time.second;
  day += floorDivide(second, kSecondsPerDay);
  second -= floorDivide(second, kSecondsPerDay) * kSecondsPerDay;
  const double fraction = static_cast<double>(second) / kSecondsPerDay;
  return day < 0 ? static_cast<double>(day) - fraction : static_cast<double>(day) + fraction;
}

CivilTime toCivil(double serial) {
  const DayAndSecond parts = apart(serial);
  CivilTime time;
  setDate(time, parts.day);
  time.hour = static_cast<int>(parts.second / 3600);
  time.minute = static_cast<int>(parts.second / 60 % 60);
  time.second = static_cast<int>(parts.second % 60);
  return time;
}

int weekday(double serial) {
  const std::int64_t day = apart(serial).day - 1;  // serial 1 is a Sunday
  return static_cast<int>(day - floorDivide(day, 7) * 7) + 1;
}

int dayOfYear(double serial) {
  const std::int64_t day = apart(serial).day;
  return static_cast<int>(day - dayOf(toCivil(serial).year, 1, 1)) + 1;
}

int weekOfYear(double serial) {
  const std::int64_t newYear = dayOf(toCivil(serial).year, 1, 1);
  return (dayOfYear(serial) - 1 + weekday(static_cast<double>(newYear)) - 1) / 7 + 1;
}

int daysInMonth(int year, int month) {
  return static_cast<int>(dayOf(year, month + 1, 1) - dayOf(year, month, 1));
}

}  // namespace plinth
