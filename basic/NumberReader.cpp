// Both readers reduce the text to the plain form that from_chars takes. The common case, a clean number at
// the start of the text, goes to from_chars without a copy.
#include "basic/NumberReader.h"

#include <charconv>
#include <cstdint>

namespace plinth {
namespace {

bool isPassedOver(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isExponent(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

// from_chars would also take "inf" and "nan"; callers pass digits only. 0 for what a double cannot hold.
double plainValue(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} ? value : 0;
}

int digitOf(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 99;
}

// The number after "&H" or "&O" (at `at`; moved behind it). What fits 16 bits is signed 16-bit unless an "&"
// closes it, the rest signed 32-bit.
double radixNumber(std::string_view text, std::size_t& at) {
  const auto next = [&] {
    while (at < text.size() && isPassedOver(text[at])) ++at;
    return at < text.size() ? text[at] : '\0';
  };
  const char letter = next();
  const int base = letter == 'h' || letter == 'H' ? 16 : letter == 'o' || letter == 'O' ? 8 : 0;
  if (base == 0) return 0;
  ++at;
  std::uint64_t value = 0;
  for (int digit; (digit = digitOf(next())) < base; ++at) {
    value = value * base + digit;
    if (value > UINT32_MAX) return 0;
  }
  const bool isLong = next() == '&';
  if (isLong) ++at;
  if (value <= UINT16_MAX && !isLong) return static_cast<std::int16_t>(value);
  return static_cast<std::int32_t>(value);
}

// The leading number without what is passed over, in the form of from_chars.
std::string plainLead(std::string_view text) {
  std::string out;
  enum { sign, whole, fraction, exponentSign, exponent } state = sign;
  for (char c : text) {
    if (isPassedOver(c)) continue;
    if (isDigit(c)) {
      if (state == sign) state = whole;
      if (state == exponentSign) state = exponent;
    } else if (c == '.' && state < fraction) {
      state = fraction;
    } else if ((c == '+' || c == '-') && (out.empty() ? state == sign : out.back() == 'e')) {
      if (c == '+' && state == sign) {
        state = whole;  // a second sign ends the number
        continue;
      }
      if (state == sign) state = whole;
    } else if (isExponent(c) && (state == whole || state == fraction)) {
      state = exponentSign;
      c = 'e';
    } else {
      break;
    }
    out += c;
  }
  return out;
}

}  // namespace

double val(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size() && isPassedOver(text[start])) ++start;
  text.remove_prefix(start);
  while (!text.empty() && isPassedOver(text.back())) text.remove_suffix(1);  // records pad their texts
  if (text.empty()) return 0;
  if (text[0] == '&') {
    std::size_t at = 1;
    return radixNumber(text, at);
  }
  const std::size_t first = text[0] == '-' ? 1 : 0;
  if (first < text.size() && (isDigit(text[first]) || text[first] == '.')) {
    double value = 0;
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    if (error == std::errc{} && (end == last || (!isPassedOver(*end) && !isExponent(*end)))) return value;
  }
  return plainValue(plainLead(text));
}

namespace {

// Takes a whole text apart in the locale's form.
class LocaleNumber {
 public:
  LocaleNumber(std::string_view text, const Locale& locale) : text_(text), locale_(locale) {}

  std::optional<double> read() {
    while (leadingMark()) {
    }
    if (!digits() || !exponent()) return std::nullopt;
    while (trailingMark()) {
    }
    if (at_ != text_.size() || open_ != closed_) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(plain_.data(), plain_.data() + plain_.size(), value);
    const bool isTiny = plain_.find("e-") != std::string::npos;
    if (error != std::errc{} && !isTiny) return std::nullopt;
    return negative_ && value != 0 ? -value : value;
  }

 private:
  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool take(std::string_view what) {
    if (what.empty() || text_.substr(at_, what.size()) != what) return false;
    at_ += what.size();
    return true;
  }
  bool takeBlank() {
    if (!isPassedOver(peek()) && peek() != '\r' && peek() != '\xA0') return false;
    ++at_;
    return true;
  }
  bool takeOnce(std::string_view what, bool& seen) { return !seen && take(what) && (seen = true); }
  bool takeSign() {
    const bool minus = peek() == '-';
    if (signed_ || (!minus && peek() != '+')) return false;
    negative_ = minus;
    ++at_;
    return signed_ = true;
  }
  bool leadingMark() {
    if (takeBlank() || takeOnce(locale_.currencySymbol, currency_) || takeSign()) return true;
    if (signed_ || !takeOnce("(", open_)) return false;
    return signed_ = negative_ = true;
  }
  bool trailingMark() {
    return takeBlank() || takeOnce(locale_.currencySymbol, currency_) || takeSign() ||
           (open_ && takeOnce(")", closed_));
  }
  bool takeGroup() {
    // Where groups are parted by the fixed blank, people type the plain one.
    if (locale_.groupSeparator == "\xA0" && peek() == ' ' &&
        isDigit(at_ + 1 < text_.size() ? text_[at_ + 1] : '\0')) {
      ++at_;
      return true;
    }
    return take(locale_.groupSeparator);
  }
  bool digits() {
    bool any = false;
    bool point = false;
    while (at_ < text_.size()) {
      const char c = peek();
      if (isDigit(c)) {
        any = true;
        plain_ += c;
        ++at_;
      } else if (c == locale_.decimalSeparator && !point) {
        point = true;
        plain_ += '.';
        ++at_;
      } else if (!any || point || c == locale_.currencySymbol[0] || !takeGroup()) {
        break;
      }
    }
    return any;
  }
  bool exponent() {
    const bool isCurrency =
        !locale_.currencySymbol.empty() && text_.substr(at_).starts_with(locale_.currencySymbol);
    if (!isExponent(peek()) || isCurrency) return true;
    plain_ += 'e';
    ++at_;
    if (peek() == '+' || peek() == '-') {
      if (peek() == '-') plain_ += '-';
      ++at_;
    }
    if (!isDigit(peek())) return false;
    for (; isDigit(peek()); ++at_) plain_ += peek();
    return true;
  }

  std::string_view text_;
  const Locale& locale_;
  std::size_t at_ = 0;
  std::string plain_;
  bool negative_ = false, signed_ = false, currency_ = false, open_ = false, closed_ = false;
};

}  // namespace

std::optional<double> readNumber(std::string_view text, const Locale& locale) {
  if (text.starts_with('&')) {
    std::size_t at = 1;
    const double value = radixNumber(text, at);
    return at > 2 && at == text.size() ? std::optional(value) : std::nullopt;
  }
  return LocaleNumber(text, locale).read();
}

std::string normalizeNumber(std::string_view text, const Locale& locale) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    if (locale.decimalSeparator != '.') {
      if (c == '.') continue;
      if (c == locale.decimalSeparator) c = '.';
    }
    if (c != ',' && c != '\'' && c != '\xA0') out += c;
  }
  return out;
}

}  // namespace plinth
