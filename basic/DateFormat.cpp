// Display forms are read letter run by letter run. Named forms and the locale's patterns are turned into the
// same steps, so that there is one place that writes a day or a month.
#include "basic/DateSerial.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "basic/Text.h"

namespace plinth {
namespace {

char lowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t runLength(std::string_view text, bool foldCase) {
  const auto same = [&](char c) { return foldCase ? lowerLetter(c) == lowerLetter(text[0]) : c == text[0]; };
  std::size_t length = 1;
  while (length < text.size() && same(text[length])) ++length;
  return length;
}

class DateWriter {
 public:
  DateWriter(double serial, const Locale& locale)
      : serial_(serial), time_(toCivil(serial)), locale_(locale) {}

  std::string spelled(std::string_view format) {
    twelveHours_ = hasHalfDay(format);
    while (!format.empty()) format.remove_prefix(step(format));
    return out_;
  }

  // A pattern in the system's letters, where case tells hours of 12 from 24 and months from minutes.
  void systemPattern(std::string_view pattern) {
    while (!pattern.empty()) {
      const char c = pattern[0];
      std::size_t length = runLength(pattern, false);
      const int digits = length > 1 ? 2 : 1;
      switch (c) {
        case 'd':
          day(length);
          break;
        case 'M':
          month(length);
          break;
        case 'y':
          length > 2 ? number(time_.year, 4) : number(time_.year % 100, digits);
          break;
        case 'h':
          number((time_.hour + 11) % 12 + 1, digits);
          break;
        case 'H':
          number(time_.hour, digits);
          break;
        case 'm':
          number(time_.minute, digits);
          break;
        case 's':
          number(time_.second, digits);
          break;
        case 't':
          out_ += halfDayText().substr(0, length > 1 ? std::string::npos : 1);
          break;
        case 'g':
          break;  // the era: dates here have but one
        case '\'':
          length = quoted(pattern);
          break;
        case '/':
          out_.append(length, locale_.dateSeparator);
          break;
        case ':':
          out_.append(length, locale_.timeSeparator);
          break;
        default:
          out_.append(length, c);
      }
      pattern.remove_prefix(length);
    }
  }

  void generalDate() {
    const bool hasTime = time_.hour != 0 || time_.minute != 0 || time_.second != 0;
    const bool hasDate = time_.year != 1899 || time_.month != 12 || time_.day != 30;
    if (hasDate) systemPattern(locale_.shortDatePattern);
    if (hasDate && hasTime) out_ += ' ';
    if (hasTime || !hasDate) systemPattern(locale_.timePattern);
  }

  std::string take() { return std::move(out_); }

 private:
  static std::size_t halfDayLength(std::string_view format) {
    for (std::string_view word : {"am/pm", "a/p", "ampm"}) {
      if (equalAsciiNoCase(format.substr(0, word.size()), word)) return word.size();
    }
    return 0;
  }

  // Whether an AM/PM stands outside quotes: hours then count to 12, also those before it.
  static bool hasHalfDay(std::string_view format) {
    for (std::size_t i = 0; i < format.size(); ++i) {
      if (format[i] == '\\') {
        ++i;
      } else if (format[i] == '"') {
        i = std::min(format.find('"', i + 1), format.size());
      } else if (halfDayLength(format.substr(i)) != 0) {
        return true;
      }
    }
    return false;
  }

  bool isMorning() const { return time_.hour < 12; }
  const std::string& halfDayText() const { return isMorning() ? locale_.amText : locale_.pmText; }
  // value: 0 to 9999; digits: 1 to 4.
  void number(int value, int digits) {
    const auto digit = [this](int unit) { out_ += static_cast<char>('0' + unit % 10); };
    if (value >= 1000 || digits > 3) digit(value / 1000);
    if (value >= 100 || digits > 2) digit(value / 100);
    if (value >= 10 || digits > 1) digit(value / 10);
    digit(value);
  }

  void day(std::size_t length) {
    if (length < 3) {
      number(time_.day, static_cast<int>(length));
      return;
    }
    const auto& names = length > 3 ? locale_.dayNames : locale_.dayAbbreviations;
    out_ += names[static_cast<std::size_t>(weekday(serial_) - 1)];
  }

  void month(std::size_t length) {
    const auto index = static_cast<std::size_t>(time_.month - 1);
    if (length >= 4) {
      out_ += locale_.monthNames[index];
    } else if (length == 3) {
      out_ += locale_.monthAbbreviations[index];
    } else {
      number(time_.month, static_cast<int>(length));
    }
  }

  // System patterns: text between single quotes, a doubled one being itself. Returns the length with its
  // quotes.
  std::size_t quoted(std::string_view pattern) {
    std::size_t i = 1;
    for (; i < pattern.size(); ++i) {
      if (pattern[i] != '\'') {
        out_ += pattern[i];
      } else if (pattern.substr(i + 1, 1) == "'") {
        out_ += pattern[i++];
      } else {
        return i + 1;
      }
    }
    return i;
  }

  // The step at the start of a spelled format. Returns its length.
  std::size_t step(std::string_view format) {
    if (const std::size_t length = halfDayLength(format)) {
      halfDay(format.substr(0, length));
      return length;
    }
    switch (format[0]) {
      case '/':
        out_ += locale_.dateSeparator;
        return 1;
      case ':':
        out_ += locale_.timeSeparator;
        return 1;
      case '\\':
        out_ += format.substr(1, 1);
        return std::min<std::size_t>(2, format.size());
      case '"': {
        const std::size_t end = std::min(format.find('"', 1), format.size());
        out_ += format.substr(1, end - 1);
        return std::min(end + 1, format.size());
      }
      default:
        return letters(format);
    }
  }

  void halfDay(std::string_view word) {
    if (equalAsciiNoCase(word, "ampm")) {
      out_ += halfDayText();
      return;
    }
    const std::size_t half = word.size() / 2;
    out_ += isMorning() ? word.substr(0, half) : word.substr(half + 1);
  }

  std::size_t letters(std::string_view format) {
    const std::size_t run = runLength(format, true);
    const auto upTo = [run](std::size_t most) { return std::min(run, most); };
    const auto two = [&](int value) {
      number(value, static_cast<int>(upTo(2)));
      return upTo(2);
    };
    const char letter = lowerLetter(format[0]);
    const bool afterHour = std::exchange(afterHour_, letter == 'h' || (afterHour_ && !isLetter(letter)));
    switch (letter) {
      case 'd':
        return dayRun(upTo(6));
      case 'w':
        number(run > 1 ? weekOfYear(serial_) : weekday(serial_), 1);
        return upTo(2);
      case 'm':
        if (afterHour) return two(time_.minute);
        month(upTo(4));
        return upTo(4);
      case 'q':
        number((time_.month - 1) / 3 + 1, 1);
        return 1;
      case 'y':
        return yearRun(run);
      case 'h':
        return two(twelveHours_ ? (time_.hour + 11) % 12 + 1 : time_.hour);
      case 'n':
        return two(time_.minute);
      case 's':
        return two(time_.second);
      case 't':
        if (run < 5) break;
        systemPattern(locale_.timePattern);
        return 5;
      case 'c':
        generalDate();
        return 1;
      default:
        break;
    }
    out_ += format[0];
    return 1;
  }

  static bool isLetter(char c) { return c >= 'a' && c <= 'z'; }

  std::size_t dayRun(std::size_t length) {
    if (length > 4) {
      systemPattern(length == 5 ? locale_.shortDatePattern : locale_.longDatePattern);
    } else {
      day(length);
    }
    return length;
  }

  std::size_t yearRun(std::size_t run) {
    if (run >= 4) {
      number(time_.year, 4);
      return 4;
    }
    if (run >= 2) {
      number(time_.year % 100, 2);
      return 2;
    }
    number(dayOfYear(serial_), 1);
    return 1;
  }

  double serial_;
  CivilTime time_;
  const Locale& locale_;
  std::string out_;
  bool twelveHours_ = false;
  bool afterHour_ = false;
};

}  // namespace

std::string formatDate(double serial, std::string_view format, const Locale& locale) {
  if (!isDateSerial(serial)) return {};
  DateWriter writer(serial, locale);
  const auto isNamed = [&](std::string_view name) {
    return format == name || equalAsciiNoCase(format, name);
  };
  if (format.empty() || isNamed("General Date")) {
    writer.generalDate();
  } else if (isNamed("Long Date")) {
    writer.systemPattern(locale.longDatePattern);
  } else if (isNamed("Short Date")) {
    writer.systemPattern(locale.shortDatePattern);
  } else if (isNamed("Long Time")) {
    writer.systemPattern(locale.timePattern);
  } else if (isNamed("Medium Date")) {
    return writer.spelled("dd-mmm-yy");
  } else if (isNamed("Medium Time")) {
    return writer.spelled("hh:mm AM/PM");
  } else if (isNamed("Short Time")) {
    return writer.spelled("hh:mm");
  } else {
    return writer.spelled(format);
  }
  return writer.take();
}

}  // namespace plinth
