// A number being typed is text, so that its zeros behind the point show; everything else is a decimal.
#include "engine/Calculator.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"

namespace plinth {
namespace {

constexpr std::ptrdiff_t kMostDigits = 28;
constexpr const char* kDivisionByZero = "Division by zero";
constexpr const char* kOverflow = "The number is too large";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int decimalsOf(std::string_view number) {
  const std::size_t point = number.find('.');
  return point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

}  // namespace

const char* calculatorStateName(CalculatorState state) {
  static constexpr const char* kNames[] = {"NONE", "NUMS", "OPS", "NEG"};
  return kNames[static_cast<int>(state)];
}

void Calculator::press(char key) {
  if (key == kClear) {
    *this = Calculator(*locale_);
    return;
  }
  if (key == locale_->decimalSeparator) key = '.';
  if (isDigit(key) || key == '.') return digit(key);
  if (error_) return;
  if (key == kSign) return sign();
  if (key == '%') return percent();
  if (key == kBackspace) return backspace();
  if (key == kClearEntry) {
    if (operator_ == '=') result_ = {};
    state_ = operator_ == '=' ? CalculatorState::none : CalculatorState::operators;
    typed_.clear();
    negative_ = false;
  } else if (key != '\0' && std::strchr("+-*/=", key)) {
    operate(key);
  }
}

// The number under way gives way to a new one.
void Calculator::begin() {
  if (error_) press(kClear);
  negative_ = state_ == CalculatorState::negative;
  typed_.clear();
  state_ = CalculatorState::numbers;
}

void Calculator::digit(char key) {
  if (error_ || state_ != CalculatorState::numbers) begin();
  if (key == '.') {
    if (!contains(typed_, ".")) typed_ += typed_.empty() ? "0." : ".";
    return;
  }
  const auto digits = std::count_if(typed_.begin(), typed_.end(), isDigit);
  if (digits >= kMostDigits) return;
  if (typed_ == "0") typed_.clear();
  typed_ += key;
}

void Calculator::sign() {
  if (state_ == CalculatorState::numbers)
    negative_ = !negative_;
  else if (state_ != CalculatorState::negative)
    take(result_.negated());
}

void Calculator::percent() {
  if (const auto part = Decimal28::divide(shown(), Decimal28(100))) take(*part);
}

void Calculator::backspace() {
  if (state_ == CalculatorState::numbers && !typed_.empty()) typed_.pop_back();
}

void Calculator::operate(char key) {
  const bool numberDone = state_ == CalculatorState::numbers;
  // Where a number has to follow, a minus is its sign.
  const bool expectsNumber =
      state_ == CalculatorState::none || (state_ == CalculatorState::operators && operator_ != '=');
  if (key == '-' && !numberDone && expectsNumber) {
    state_ = CalculatorState::negative;
    return;
  }
  if (numberDone && !compute(shown())) return;
  operator_ = key;
  state_ = CalculatorState::operators;
}

bool Calculator::compute(const Decimal28& right) {
  std::optional<Decimal28> result = right;
  if (operator_ == '+') result = Decimal28::add(result_, right);
  if (operator_ == '-') result = Decimal28::subtract(result_, right);
  if (operator_ == '*') result = Decimal28::multiply(result_, right);
  if (operator_ == '/') result = Decimal28::divide(result_, right);
  if (!result) {
    error_ = operator_ == '/' && right.isZero() ? kDivisionByZero : kOverflow;
    return false;
  }
  result_ = *result;
  return true;
}

// A number that was not typed digit by digit; the next digit begins another, an operator takes it.
void Calculator::take(const Decimal28& number) {
  if (error_) press(kClear);
  negative_ = number.isNegative();
  typed_ = number.absolute().toText();
  state_ = CalculatorState::numbers;
}

Decimal28 Calculator::shown() const {
  if (state_ != CalculatorState::numbers) return result_;
  const Decimal28 number = Decimal28::fromText(typed_.empty() ? "0" : typed_).value_or(Decimal28());
  return negative_ ? number.negated() : number;
}

std::string Calculator::display() const {
  if (error_) return error_;
  if (state_ == CalculatorState::negative) return "-";
  const bool typing = state_ == CalculatorState::numbers;
  const Decimal28 number = shown();
  const int decimals = typing ? decimalsOf(typed_) : decimalsOf(number.toText());
  std::string text = formatNumber(number.absolute(), {decimals, true, decimals == 0}, *locale_);
  if (decimals == 0) text += locale_->decimalSeparator;
  if (number.isNegative() || (typing && negative_)) text.insert(text.begin(), '-');
  return text;
}

std::string Calculator::value() const {
  if (error_ || state_ == CalculatorState::negative) return {};
  const Decimal28 number = shown();
  const int decimals = decimalsOf(number.toText());
  return formatNumber(number, {decimals, false, true}, *locale_);
}

bool Calculator::paste(std::string_view text) {
  const std::string typed = trim(text);
  if (!readNumber(typed, *locale_)) return false;
  // By its digits, since a double would round them; what only a double can say goes through it.
  std::optional<Decimal28> number = Decimal28::fromText(normalizeNumber(typed, *locale_));
  if (!number) number = Decimal28::fromDouble(*readNumber(typed, *locale_));
  if (!number) return false;
  take(*number);
  return true;
}

}  // namespace plinth
