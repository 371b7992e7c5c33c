// The calculator by its keys.
#include "engine/Calculator.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

struct Keys {
  const char* keys;
  const char* display;
  const char* state;
};

TEST(Calculator, ComputesWhatIsTyped) {
  static constexpr Keys kCases[] = {
      {"", "0.", "NONE"},
      {"007", "7.", "NUMS"},
      {"1234567.50", "1,234,567.50", "NUMS"},
      {".5", ".5", "NUMS"},
      {"1..5", "1.5", "NUMS"},
      {"12\b", "1.", "NUMS"},
      {"1\b\b", "0.", "NUMS"},
      {"12n", "-12.", "NUMS"},
      {"2+3*4=", "20.", "OPS"},  // from left to right
      {".1+.2=", ".3", "OPS"},
      {"1/3=", ".3333333333333333333333333333", "OPS"},
      {"1/3=*3=", ".9999999999999999999999999999", "OPS"},
      {"5-8=", "-3.", "OPS"},
      {"5--3=", "8.", "OPS"},
      {"5*-3=", "-15.", "OPS"},
      {"-", "-", "NEG"},
      {"-4=", "-4.", "OPS"},
      {"5*-+3=", "8.", "OPS"},  // the last operator counts
      {"5=-2=", "3.", "OPS"},   // behind a result a minus subtracts
      {"5+==", "5.", "OPS"},
      {"8=3", "3.", "NUMS"},  // a new number behind a result
      {"200*5%=", "10.", "OPS"},
      {"9+4E5=", "14.", "OPS"},
      {"9+4C", "0.", "NONE"},
      {"2+3=n", "-5.", "NUMS"},
      {"7/0=", "Division by zero", "NUMS"},
      {"7/0=+1", "1.", "NUMS"},
      {"7/0=C", "0.", "NONE"},
      {"9999999999999999999999999999*9999=", "The number is too large", "NUMS"},
      {"12345678901234567890123456789", "1,234,567,890,123,456,789,012,345,678.", "NUMS"},
  };
  for (const Keys& row : kCases) {
    Calculator calculator(englishLocale());
    for (const char* key = row.keys; *key; ++key) calculator.press(*key);
    EXPECT_EQ(calculator.display(), row.display) << row.keys;
    EXPECT_STREQ(calculatorStateName(calculator.state()), row.state) << row.keys;
  }
}

TEST(Calculator, SpeaksTheLocaleAndGivesItsValueAway) {
  Locale german = englishLocale();
  german.decimalSeparator = ',';
  german.groupSeparator = ".";
  Calculator calculator(german);
  for (const char key : {'1', '2', '3', '4', ',', '5'}) calculator.press(key);
  EXPECT_EQ(calculator.display(), "1.234,5");
  EXPECT_EQ(calculator.value(), "1234,5");
  EXPECT_TRUE(calculator.paste(" 12.345,25 "));
  calculator.press('+');
  calculator.press('1');
  calculator.press('=');
  EXPECT_EQ(calculator.value(), "12346,25");
  for (const char* none : {"", "abc", "12 apples"}) EXPECT_FALSE(calculator.paste(none)) << none;
  EXPECT_EQ(calculator.value(), "12346,25");
  EXPECT_TRUE(calculator.paste("(7)"));
  EXPECT_EQ(calculator.display(), "-7,");
}

}  // namespace
}  // namespace plinth
