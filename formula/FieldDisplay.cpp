// The display forms by field type, as tables where they are lists of patterns.
#include "formula/FieldDisplay.h"

#include <array>

#include "basic/DateSerial.h"
#include "basic/DisplayFormat.h"

namespace plinth {

namespace {

int decimalsOf(int kind) { return kind >= 2 && kind <= 4 ? kind : 0; }

}  // namespace

std::string formatFieldNumber(int kind, double value, const Locale& locale) {
  if (kind < 2 || kind > 5) return formatGeneral(value, locale);
  return formatNumber(value, {.decimals = decimalsOf(kind)}, locale);
}

std::string formatFormulaNumber(int kind, const Decimal28& value, const Locale& locale) {
  if (kind < 2 || kind > 5) return localNumber(value.toDouble(), locale);
  // The platform's number format without a leading zero shows nothing at all for a whole zero.
  if (kind == 5 && value.roundedAway(0).isZero()) return "";
  return formatNumber(value, {.decimals = decimalsOf(kind)}, locale);
}

std::string machineNumber(double value) {
  const auto decimal = Decimal28::fromDouble(value);
  return decimal ? decimal->toText() : plainNumber(value);
}

std::string localNumber(double value, const Locale& locale) {
  std::string text = machineNumber(value);
  for (char& c : text) {
    if (c == '.') c = locale.decimalSeparator;
  }
  return text;
}

const char* datePattern(int kind) {
  static constexpr std::array<const char*, 17> kPatterns{
      "General Date", "Short Date", "Medium Date", "Long Date", "Short Time", "Medium Time",
      "hh:nn:ss",     "yy",         "yyyy",        "mm",        "mmm",        "mmmm",
      "dd",           "ddd",        "dddd",        "w",         "ww"};
  return kind >= 6 && kind <= 22 ? kPatterns[static_cast<std::size_t>(kind - 6)] : "";
}

const char* applicationDatePattern(int applicationDateFormat) {
  static constexpr std::array<const char*, 5> kPatterns{"dddd dd-mmm-yyyy", "dd-mmmm-yyyy", "dd-mm-yyyy",
                                                        "mm-dd-yyyy", "yyyy-mm-dd"};
  return applicationDateFormat >= 0 && applicationDateFormat <= 4
             ? kPatterns[static_cast<std::size_t>(applicationDateFormat)]
             : "Short Date";
}

std::string formatFieldDate(int kind, double serial, int applicationDateFormat, const Locale& locale) {
  if (kind < 6 || kind > 22 || !isDateSerial(serial)) return "";
  return formatDate(serial, kind == 6 ? applicationDatePattern(applicationDateFormat) : datePattern(kind),
                    locale);
}

}  // namespace plinth
