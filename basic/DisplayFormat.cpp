// All forms are laid out from decimal digits and the place of the point, so that a double and a decimal
// number of equal digits always look the same.
#include "basic/DisplayFormat.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "basic/FloatDigits.h"

namespace plinth {
namespace {

constexpr int kMaxDecimals = 28;

// A number is 0.DIGITS x 10^point.
struct Digits {
  std::string text;
  int point = 0;
  bool negative = false;
};

Digits digitsOf(double value) {
  if (!std::isfinite(value)) return {"0", 1, false};
  const FloatDigits found = fifteenDigits(value);
  return {std::string(found.digits()), found.point, found.negative};
}

Digits digitsOf(const Decimal28& value) {
  Digits out{value.absolute().toText(), 0, value.isNegative()};
  const std::size_t dot = out.text.find('.');
  out.point = static_cast<int>(std::min(dot, out.text.size()));
  if (dot != std::string::npos) out.text.erase(dot, 1);
  return out;
}

// Brings the digits to exactly `decimals` behind the point and at least one place before it, half away from
// zero. The sign of what becomes zero is dropped.
void roundAway(Digits& number, int decimals) {
  if (number.point < 0) {
    number.text.insert(0, static_cast<std::size_t>(-number.point), '0');
    number.point = 0;
  }
  const auto kept = static_cast<std::size_t>(number.point + decimals);
  const bool up = kept < number.text.size() && number.text[kept] >= '5';
  number.text.resize(kept, '0');
  if (up) {
    std::size_t i = kept;
    while (i > 0 && number.text[i - 1] == '9') number.text[--i] = '0';
    if (i > 0) {
      ++number.text[i - 1];
    } else {
      number.text.insert(0, 1, '1');
      ++number.point;
    }
  }
  if (number.text.find_first_not_of('0') == std::string::npos) number.negative = false;
}

// Rounded digits without their sign.
std::string laidOut(const Digits& number, const NumberForm& form, const Locale& locale) {
  const auto point = static_cast<std::size_t>(number.point);
  std::string_view whole = std::string_view(number.text).substr(0, point);
  const std::string_view fraction = std::string_view(number.text).substr(point);
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
  if (whole.empty() && (form.leadingZero || fraction.empty())) whole = "0";
  const std::size_t firstGroup = form.grouping ? (whole.size() + 2) % 3 + 1 : whole.size();
  std::string out(whole.substr(0, firstGroup));
  for (std::size_t i = firstGroup; i < whole.size(); i += 3)
    (out += locale.groupSeparator) += whole.substr(i, 3);
  if (!fraction.empty()) (out += locale.decimalSeparator) += fraction;
  return out;
}

std::string formatDigits(Digits number, NumberForm form, const Locale& locale) {
  form.decimals = std::clamp(form.decimals, 0, kMaxDecimals);
  roundAway(number, form.decimals);
  std::string out = laidOut(number, form, locale);
  if (number.negative) out.insert(0, 1, '-');
  return out;
}

// By the system's numbers of the forms; "1" is the place of the number.
constexpr std::string_view kPositiveForms[] = {"$1", "1$", "$ 1", "1 $"};
constexpr std::string_view kNegativeForms[] = {"($1)", "-$1",  "$-1",   "$1-",  "(1$)", "-1$",
                                               "1-$",  "1$-",  "-1 $",  "-$ 1", "1 $-", "$ 1-",
                                               "$ -1", "1- $", "($ 1)", "(1 $)"};

template <std::size_t N>
std::string_view formAt(const std::string_view (&forms)[N], int index) {
  return forms[index < 0 || index >= static_cast<int>(N) ? 0 : index];
}

std::string formatMoney(Digits number, int decimals, const Locale& locale) {
  const NumberForm form{std::clamp(decimals, 0, kMaxDecimals)};
  roundAway(number, form.decimals);
  const std::string amount = laidOut(number, form, locale);
  std::string out;
  for (char c : number.negative ? formAt(kNegativeForms, locale.negativeCurrencyFormat)
                                : formAt(kPositiveForms, locale.positiveCurrencyFormat)) {
    if (c == '1') {
      out += amount;
    } else if (c == '$') {
      out += locale.currencySymbol;
    } else {
      out += c;
    }
  }
  return out;
}

// scaled: value x 10,000. Returns the end; REQUIRES room for 20 characters.
char* putScaled(char* text, std::int64_t scaled, char point) {
  if (scaled < 0) *text++ = '-';
  const std::int64_t size = std::abs(scaled);
  text = std::to_chars(text, text + 16, size / 10000).ptr;
  auto fraction = static_cast<int>(size % 10000);
  if (fraction == 0) return text;
  *text++ = point;
  for (; fraction != 0; fraction = fraction % 1000 * 10) *text++ = static_cast<char>('0' + fraction / 1000);
  return text;
}

std::string general(double value, char point) {
  constexpr double kFirstExponent = 1e15;
  if (!std::isfinite(value) || value == 0) return "0";
  char text[48];
  if (const auto scaled = tenThousandths(value)) return {text, putScaled(text, *scaled, point)};
  if (std::fabs(value) < kFirstExponent && value == std::trunc(value)) {
    return {text, std::to_chars(text, text + sizeof text, static_cast<long long>(value)).ptr};
  }
  const FloatDigits found = fifteenDigits(value);
  char* p = text;
  if (found.negative) *p++ = '-';
  const auto copy = [&](int from, int to) { p = std::copy(found.text + from, found.text + to, p); };
  if (found.point > 15 || found.point < -3) {
    copy(0, 1);
    if (found.count > 1) *p++ = point;
    copy(1, found.count);
    const int exponent = found.point - 1;
    *p++ = 'E';
    *p++ = exponent < 0 ? '-' : '+';
    if (std::abs(exponent) < 10) *p++ = '0';
    p = std::to_chars(p, text + sizeof text, std::abs(exponent)).ptr;
  } else if (found.point <= 0) {
    *p++ = '0';
    *p++ = point;
    p = std::fill_n(p, -found.point, '0');
    copy(0, found.count);
  } else {
    const int whole = std::min(found.point, found.count);
    copy(0, whole);
    p = std::fill_n(p, found.point - whole, '0');
    if (found.count > whole) *p++ = point;
    copy(whole, found.count);
  }
  return {text, p};
}

}  // namespace

std::string formatGeneral(double value, const Locale& locale) {
  return general(value, locale.decimalSeparator);
}

std::string plainNumber(double value) { return general(value, '.'); }

std::string formatNumber(double value, const NumberForm& form, const Locale& locale) {
  return formatDigits(digitsOf(value), form, locale);
}

std::string formatNumber(const Decimal28& value, const NumberForm& form, const Locale& locale) {
  return formatDigits(digitsOf(value), form, locale);
}

std::string formatCurrency(double value, int decimals, const Locale& locale) {
  return formatMoney(digitsOf(value), decimals, locale);
}

std::string formatCurrency(const Decimal28& value, int decimals, const Locale& locale) {
  return formatMoney(digitsOf(value), decimals, locale);
}

std::string zeroPadded(long long value, int digits) {
  std::string out = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  const std::size_t width = static_cast<std::size_t>(std::max(digits, 0)) + sign;
  if (out.size() < width) out.insert(sign, width - out.size(), '0');
  return out;
}

}  // namespace plinth
