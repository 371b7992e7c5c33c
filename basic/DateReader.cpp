// A typed date is cut into numbers, words and separators; a time is taken out of them, and what is left is a
// date in one of a few orders. The first order that gives a day of the calendar wins.
#include <vector>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"

namespace plinth {
namespace {

constexpr std::size_t kLongestTyped = 200;  // no date in any words is longer

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) > 0xA0;
}

enum class Kind { number, month, weekday, am, pm, isoTime, separator };

struct Token {
  Kind kind;
  int value = 0;   // of a number or a month; of a separator its character, ' ' when only blanks stood there
  int digits = 0;  // of a number
};

// Numbers, words and separators of a text; fails at the first thing that no date holds.
class Scanner {
 public:
  Scanner(std::string_view text, const Locale& locale) : text_(text), locale_(locale) {}

  bool scan(std::vector<Token>& tokens) {
    while (at_ < text_.size()) {
      if (isDigit(text_[at_])) {
        if (!number(tokens)) return false;
      } else if (!word(tokens) && !separator(tokens)) {
        return false;
      }
    }
    return true;
  }

 private:
  bool number(std::vector<Token>& tokens) {
    constexpr int kMostDigits = 4;
    Token token{Kind::number};
    for (; at_ < text_.size() && isDigit(text_[at_]); ++at_) {
      token.value = token.value * 10 + (text_[at_] - '0');
      if (++token.digits > kMostDigits) return false;
    }
    tokens.push_back(token);
    return true;
  }

  void consider(std::string_view name, Token token) {
    // A name that ends in a letter must not go on as another word; an abbreviation may end in ".".
    const std::string_view here = text_.substr(at_, name.size());
    if (name.size() <= bestLength_ || compareFolded(here, name, locale_.codePage) != 0) return;
    const std::size_t end = at_ + name.size();
    if (end < text_.size() && isLetter(name.back()) && isLetter(text_[end])) return;
    bestLength_ = name.size();
    best_ = token;
  }

  bool word(std::vector<Token>& tokens) {
    bestLength_ = 0;
    for (const Locale* names : {&locale_, &englishLocale()}) {
      for (int i = 0; i < 12; ++i) {
        consider(names->monthNames[i], {Kind::month, i + 1});
        consider(names->monthAbbreviations[i], {Kind::month, i + 1});
      }
      for (int i = 0; i < 7; ++i) {
        consider(names->dayNames[i], {Kind::weekday});
        consider(names->dayAbbreviations[i], {Kind::weekday});
      }
      consider(names->amText, {Kind::am});
      consider(names->pmText, {Kind::pm});
    }
    consider("a", {Kind::am});
    consider("p", {Kind::pm});
    // Words of the locale's long form, such as the "de" of "5 de enero de 2024", say nothing.
    const std::vector<std::string> pieces = split(locale_.longDatePattern, "'");
    for (std::size_t i = 1; i < pieces.size(); i += 2) consider(trim(pieces[i]), {Kind::separator, ' '});
    const bool afterNumber = !tokens.empty() && tokens.back().kind == Kind::number;
    if (afterNumber && text_[at_] == 'T' && isDigit(at_ + 1 < text_.size() ? text_[at_ + 1] : '\0')) {
      bestLength_ = 1;
      best_ = {Kind::isoTime};
    }
    if (bestLength_ == 0) return false;
    tokens.push_back(best_);
    at_ += bestLength_;
    return true;
  }

  // A run of blanks with at most one mark in it, or an abbreviation's "." and a mark.
  bool separator(std::vector<Token>& tokens) {
    Token token{Kind::separator, ' '};
    const std::size_t start = at_;
    for (; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == ' ' || c == '\t') continue;
      const bool mark = c == '/' || c == '-' || c == '.' || c == ',' || c == ':' ||
                        c == locale_.dateSeparator || c == locale_.timeSeparator;
      if (!mark || isDigit(c) || isLetter(c)) break;
      const bool abbreviated = token.value == '.' && !tokens.empty() && tokens.back().kind != Kind::number;
      if (token.value != ' ' && !abbreviated) return false;
      token.value = c;
    }
    if (at_ == start) return false;
    tokens.push_back(token);
    return true;
  }

  std::string_view text_;
  const Locale& locale_;
  std::size_t at_ = 0;
  std::size_t bestLength_ = 0;
  Token best_{Kind::separator};
};

// Takes the time of day, if there is one, out of the tokens.
class TimeReader {
 public:
  TimeReader(std::vector<Token>& tokens, const Locale& locale) : tokens_(tokens), locale_(locale) {}

  // False when there is a time that no clock shows.
  bool read() {
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (tokens_[i].kind != Kind::number || !(isColon(i + 1) || halfDay(i + 1))) continue;
      return found_ ? false : take(i) && (found_ = true) && read();
    }
    for (const Token& token : tokens_) {
      if (token.kind == Kind::am || token.kind == Kind::pm || token.kind == Kind::isoTime) return false;
    }
    return true;
  }
  bool found() const { return found_; }
  void put(CivilTime& time) const {
    time.hour = parts_[0];
    time.minute = parts_[1];
    time.second = parts_[2];
  }

 private:
  bool isColon(std::size_t i) const {
    if (i + 1 >= tokens_.size() || tokens_[i].kind != Kind::separator) return false;
    const int c = tokens_[i].value;
    return c == ':' || (c == locale_.timeSeparator && c != locale_.dateSeparator && c != ' ');
  }
  // How many tokens from i on are an AM or PM with the blank before it.
  std::size_t halfDay(std::size_t i) const {
    const auto is = [&](std::size_t k) {
      return k < tokens_.size() && (tokens_[k].kind == Kind::am || tokens_[k].kind == Kind::pm);
    };
    if (is(i)) return 1;
    return i < tokens_.size() && tokens_[i].kind == Kind::separator && tokens_[i].value == ' ' && is(i + 1)
               ? 2
               : 0;
  }

  bool take(std::size_t first) {
    std::size_t i = first;
    for (int part = 0;; ++part) {
      if (part > 2 || tokens_[i].kind != Kind::number || tokens_[i].digits > 2) return false;
      parts_[part] = tokens_[i++].value;
      if (!isColon(i)) break;
      ++i;
    }
    if (const std::size_t length = halfDay(i)) {
      i += length;
      if (!toTwentyFour(tokens_[i - 1].kind == Kind::pm)) return false;
    }
    if (parts_[0] > 23 || parts_[1] > 59 || parts_[2] > 59) return false;
    return remove(first, i);
  }

  // "13:00 PM" is what people write who think in 24 hours.
  bool toTwentyFour(bool afternoon) {
    if (parts_[0] > 12) return afternoon;
    parts_[0] = parts_[0] % 12 + (afternoon ? 12 : 0);
    return true;
  }

  // With the time goes what joins it to the date: blanks, a comma or the "T". False when it stands amid a
  // date.
  bool remove(std::size_t first, std::size_t end) {
    const auto joins = [&](const Token& token) {
      return token.kind == Kind::isoTime ||
             (token.kind == Kind::separator && (token.value == ' ' || token.value == ','));
    };
    if (end < tokens_.size() && !joins(tokens_[end])) return false;
    if (first > 0 && !joins(tokens_[first - 1])) return false;
    if (first > 0 && end < tokens_.size() && end + 1 < tokens_.size()) return false;
    if (end < tokens_.size()) ++end;
    if (first > 0) --first;
    tokens_.erase(tokens_.begin() + static_cast<std::ptrdiff_t>(first),
                  tokens_.begin() + static_cast<std::ptrdiff_t>(end));
    return true;
  }

  std::vector<Token>& tokens_;
  const Locale& locale_;
  int parts_[3] = {0, 0, 0};
  bool found_ = false;
};

// Puts numbers and a month word in an order that is a day.
class DateReader {
 public:
  DateReader(const Locale& locale, double today) : locale_(locale) {
    if (isDateSerial(today)) thisYear_ = toCivil(today).year;
  }

  bool read(const std::vector<Token>& tokens, CivilTime& date) {
    if (!collect(tokens)) return false;
    const bool found = month_ != 0 ? withMonthWord() : numbers_.size() == 2 ? twoNumbers() : threeNumbers();
    date.year = year_;
    date.month = foundMonth_;
    date.day = day_;
    return found;
  }

 private:
  bool collect(const std::vector<Token>& tokens) {
    bool weekdaySeen = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      const Token& token = tokens[i];
      if (token.kind == Kind::number) {
        numbers_.push_back(token);
      } else if (token.kind == Kind::month && month_ == 0) {
        month_ = token.value;
      } else if (token.kind == Kind::weekday && !weekdaySeen) {
        weekdaySeen = true;
      } else if (token.kind != Kind::separator) {
        return false;
      } else if (token.value == ':' || (i == 0 && token.value != ' ')) {
        return false;
      } else if (i + 1 == tokens.size() && token.value != ' ' && token.value != '.') {
        return false;  // half typed; but "5.6." is a whole date where dates have points
      }
    }
    return numbers_.size() + (month_ != 0) >= 2 && numbers_.size() + (month_ != 0) <= 3;
  }

  static bool isYearOnly(const Token& number) { return number.digits > 2 || number.value > 31; }

  bool take(const Token* year, int month, const Token* day) {
    year_ = thisYear_;
    if (year) {
      year_ = year->value;
      if (year->digits <= 2) year_ += year_ < 30 ? 2000 : 1900;
    }
    day_ = day ? day->value : 1;
    foundMonth_ = month;
    if (day && day->digits > 2) return false;
    return year_ >= 100 && year_ <= 9999 && month >= 1 && month <= 12 && day_ >= 1 &&
           day_ <= daysInMonth(year_, month);
  }
  bool takeNumbers(const Token& year, const Token& month, const Token& day) {
    return month.digits <= 2 && take(&year, month.value, &day);
  }

  bool withMonthWord() {
    const Token& first = numbers_[0];
    if (numbers_.size() == 1)
      return take(nullptr, month_, &first) || (isYearOnly(first) && take(&first, month_, nullptr));
    const Token& second = numbers_[1];
    return take(&second, month_, &first) || take(&first, month_, &second);
  }

  bool twoNumbers() {
    const Token& first = numbers_[0];
    const Token& second = numbers_[1];
    const auto monthAndDay = [&](const Token& m, const Token& d) {
      return m.digits <= 2 && take(nullptr, m.value, &d);
    };
    if (order() == Order::dayMonthYear ? monthAndDay(second, first) || monthAndDay(first, second)
                                       : monthAndDay(first, second) || monthAndDay(second, first)) {
      return true;
    }
    const auto monthAndYear = [&](const Token& m, const Token& y) {
      return isYearOnly(y) && y.digits != 3 && m.digits <= 2 && take(&y, m.value, nullptr);
    };
    return monthAndYear(first, second) || monthAndYear(second, first);
  }

  bool threeNumbers() {
    const Token &a = numbers_[0], &b = numbers_[1], &c = numbers_[2];
    const auto yearFirst = [&] { return takeNumbers(a, b, c) || (isYearOnly(a) && takeNumbers(a, c, b)); };
    const auto yearLast = [&](bool dayFirst) {
      return dayFirst ? takeNumbers(c, b, a) || takeNumbers(c, a, b)
                      : takeNumbers(c, a, b) || takeNumbers(c, b, a);
    };
    if (isYearOnly(a)) return yearFirst();
    if (order() == Order::yearMonthDay) return yearFirst() || yearLast(false);
    return yearLast(order() == Order::dayMonthYear) || yearFirst();
  }

  enum class Order { monthDayYear, dayMonthYear, yearMonthDay };
  Order order() const {
    const std::size_t at = locale_.shortDatePattern.find_first_of("dMy");
    if (at == std::string::npos || locale_.shortDatePattern[at] == 'M') return Order::monthDayYear;
    return locale_.shortDatePattern[at] == 'd' ? Order::dayMonthYear : Order::yearMonthDay;
  }

  const Locale& locale_;
  std::vector<Token> numbers_;
  int month_ = 0;  // of the month word, 0 for none
  int thisYear_ = 1899;
  int year_ = 0, foundMonth_ = 0, day_ = 0;
};

// "1.5" and "1,234" are numbers, even though their marks also part dates; "5.6" is a date where dates have
// points.
bool isPlainNumber(std::string_view text, const Locale& locale) {
  return text.find(locale.dateSeparator) == std::string_view::npos && readNumber(text, locale).has_value();
}

}  // namespace

std::optional<double> readDate(std::string_view text, const Locale& locale, double today) {
  const std::string trimmed = trim(text);
  if (trimmed.empty() || trimmed.size() > kLongestTyped || isPlainNumber(trimmed, locale))
    return std::nullopt;
  std::vector<Token> tokens;
  if (!Scanner(trimmed, locale).scan(tokens)) return std::nullopt;
  TimeReader time(tokens, locale);
  if (!time.read()) return std::nullopt;
  CivilTime found;
  const bool timeOnly = time.found() && tokens.empty();
  if (!timeOnly && !DateReader(locale, today).read(tokens, found)) return std::nullopt;
  time.put(found);
  return toSerial(found);
}

}  // namespace plinth
