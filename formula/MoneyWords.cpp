// Three-digit groups from the right, each with its scale word, behind two tables of words.
#include "formula/MoneyWords.h"

#include <algorithm>
#include <array>
#include <optional>

#include "basic/CodePage.h"
#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"

namespace plinth {

namespace {

constexpr std::string_view kInvalid = "Invalid Dollar Amount.";
constexpr std::array<std::string_view, 20> kOnes{"Zero",    "One",     "Two",       "Three",    "Four",
                                                 "Five",    "Six",     "Seven",     "Eight",    "Nine",
                                                 "Ten",     "Eleven",  "Twelve",    "Thirteen", "Fourteen",
                                                 "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
constexpr std::array<std::string_view, 10> kTens{"",      "",      "Twenty",  "Thirty", "Forty",
                                                 "Fifty", "Sixty", "Seventy", "Eighty", "Ninety"};
constexpr std::array<std::string_view, 10> kScale{"",           "Thousand",    "Million",     "Billion",
                                                  "Trillion",   "Quadrillion", "Quintillion", "Sextillion",
                                                  "Septillion", "Octillion"};

bool isDigits(std::string_view text) { return text.find_first_not_of("0123456789") == text.npos; }

// Words of 1 to 999 and their scale. The blank behind "Hundred" and the one before the scale both stand where
// nothing is between them: texts on file are compared with these.
std::string groupOfThree(int group, std::string_view scale) {
  const int hundreds = group / 100, rest = group % 100;
  std::string out;
  if (hundreds > 0) out.append(kOnes[hundreds]).append(" Hundred ");
  if (rest >= 20) out.append(kTens[rest / 10]).append(rest % 10 > 0 ? "-" : "");
  const int ones = rest < 20 ? rest : rest % 10;
  if (ones > 0) out.append(kOnes[ones]);
  return trim(out.append(" ").append(scale));
}

// Words of digits without leading zeros, two or more in value; nullopt beyond the scale words.
std::optional<std::string> numberWords(std::string_view digits) {
  std::string out;
  for (std::size_t scale = 0; !digits.empty(); ++scale) {
    const std::size_t from = digits.size() - std::min<std::size_t>(3, digits.size());
    const int group = static_cast<int>(val(digits.substr(from)));
    digits = digits.substr(0, from);
    if (group == 0) continue;
    if (scale >= kScale.size()) return std::nullopt;
    out = trim(groupOfThree(group, kScale[scale]) + " " + out);
  }
  return out;
}

}  // namespace

const CMoney::Currency& CMoney::currencyOf(const Locale& locale) {
  static constexpr Currency kPound{" Pound", " Pounds", "No Pence", " Pence", " Pence"};
  static constexpr Currency kEuro{" Euro", " Euros", "No Euros", " Cent", " Cents"};
  static constexpr Currency kDollar{" Dollar", " Dollars", "No Cents", " Cent", " Cents"};
  const std::u16string zero = toUtf16(formatCurrency(0.0, locale.currencyDecimals, locale), locale.codePage);
  if (zero.find(u'\u00A3') != zero.npos) return kPound;
  return zero.find(u'\u20AC') != zero.npos ? kEuro : kDollar;
}

CMoney::CMoney(const Locale& locale) : currency_(currencyOf(locale)) {}

std::string CMoney::groupWords(std::string_view digits, int withUnit) const {
  if (!isDigits(digits)) return std::string(kInvalid);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  const bool unit = withUnit == -1;
  if (digits == "1") return std::string(kOnes[1]).append(unit ? currency_.unit : "");
  const auto words = digits.empty() ? std::make_optional(std::string(kOnes[0])) : numberWords(digits);
  return words ? *words + std::string(unit ? currency_.units : "") : std::string(kInvalid);
}

std::string CMoney::monetaryToWords(std::string_view amount) const {
  const std::size_t point = amount.find('.') + 1;  // 1-based, 0 for none
  amount = amount.substr(0, point + 2);
  if (val(amount) < 0) return std::string(kInvalid);
  std::string whole = trim(point > 0 ? amount.substr(0, point - 1) : amount);
  std::string small(point > 0 ? amount.substr(point) : "");
  small.resize(2, '0');
  if (!whole.empty() && (whole[0] == '-' || whole[0] == '+')) whole.erase(0, 1);
  const std::string wholeWords = groupWords(whole, -1);
  if (wholeWords == kInvalid || !isDigits(small)) return std::string(kInvalid);
  std::string smallWords(currency_.noSmall);
  if (small != "00") {
    smallWords = groupWords(small, 0).append(small == "01" ? currency_.small : currency_.smalls);
  }
  return wholeWords + " and " + smallWords;
}

}  // namespace plinth
