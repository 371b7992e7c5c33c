// The application's pocket calculator: keys in, what the display shows out. Exact decimal arithmetic, from
// left to right, without precedence.
#pragma once

#include <string>
#include <string_view>

#include "basic/Decimal28.h"
#include "basic/Locale.h"

namespace plinth {

// What the last key was: nothing yet, part of a number, an operator, the sign of a number to come.
enum class CalculatorState { none, numbers, operators, negative };
// "NONE", "NUMS", "OPS", "NEG".
const char* calculatorStateName(CalculatorState state);

class Calculator {
 public:
  explicit Calculator(const Locale& locale) : locale_(&locale) {}  // which must outlive this

  static constexpr char kBackspace = '\b', kSign = 'n', kClear = 'C', kClearEntry = 'E';

  // One key: a digit, '.' (also the locale's separator), + - * / = % or one of the above; others are ignored.
  // % makes a hundredth of the shown number. After a division by zero or a result of more than 28 digits the
  // display says so until the next digit or kClear.
  void press(char key);
  CalculatorState state() const { return state_; }

  // The number with groups and up to 28 decimals, its point always shown ("1,234."); or the error.
  std::string display() const;
  // The number as text for the clipboard and for fields: the locale's separator, no groups, "" after an
  // error.
  std::string value() const;
  // Takes a number in the locale's form as if it were typed; false when it is none, and nothing changes.
  bool paste(std::string_view text);

 private:
  void digit(char key);
  void begin();
  void sign();
  void percent();
  void backspace();
  void operate(char key);
  bool compute(const Decimal28& right);
  void take(const Decimal28& number);
  Decimal28 shown() const;

  const Locale* locale_;
  CalculatorState state_ = CalculatorState::none;
  Decimal28 result_;     // shown outside a number being typed; the left side of the operator
  char operator_ = '=';  // waiting for its right side
  std::string typed_;    // digits and point of the number being typed
  bool negative_ = false;
  const char* error_ = nullptr;
};

}  // namespace plinth
