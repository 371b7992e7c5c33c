// Values of rewritten expressions, each odd corner by name; all expected values worked out by hand.
#include "formula/Arithmetic.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace plinth {
namespace {

TEST(Arithmetic, computesFromLeftToRight) {
  const struct {
    const char *why, *text, *value;
  } cases[] = {
      {"no precedence", "2+3*4", "20"},
      {"parentheses group", "2+(3*4)", "14"},
      {"nested ones from the inside", "1*((1+2)*(3+1))", "12"},
      {"sign and minus", "2~-3", "5"},
      {"leading minus subtracts from 0", "~5+2", "-3"},
      {"decimal, not binary", "0.1+0.2~0.3", "0"},
      {"28 digits", "1/3", "0.3333333333333333333333333333"},
      {"division by 0 leaves the register", "7/0+1", "8"},
      {"0 divided stays 0", "0/0", "0"},
      {"overflow leaves the register", "9999999999999999999*9999999999999999999", "10000000000000000000"},
      {"unary letters are postfix and drop the number behind", "3+6S5+1", "4"},
      {"power", "2^10", "1024"},
      {"0 to a negative power leaves the register", "0^-1+3", "3"},
      {"modulo rounds both sides", "7.5M2.5", "0"},
      {"modulo keeps the sign", "0~7M3", "-1"},
      {"modulo of 0 leaves the register", "7M0", "7"},
      {"absolute", "3~5A", "2"},
      {"logarithm of 0 leaves the register", "0L+4", "4"},
      {"e and back", "1EL", "1"},
      {"arc tangent, tangent", "0.5BT", "0.5"},
      {"cosine", "0C", "1"},
      {"rounding is to the even neighbour", "2.5R", "2"},
      {"O U N D", "1.25O", "1.2"},
      {"two decimals", "1.235U", "1.24"},
      {"three decimals", "1.0005N", "1"},
      {"four decimals", "1.00015D", "1.0002"},
      {"time as minutes", "0.53125X", "765"},
      {"a result beyond 28 digits is 0", "100E", "0"},
      {"a blank cancels the operator before it", "5+ 3", "3"},
      {"a blank before the operator does no harm", "5 +3", "8"},
      {"a letter out of place cancels too", "5+x3", "3"},
      {"empty", "", "0"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(evaluateArithmetic(c.text).toText(), c.value) << c.why << ": " << c.text;
}

TEST(Arithmetic, keepsTheCornersOfParentheses) {
  const struct {
    const char *why, *text, *value;
  } cases[] = {
      {"rounding in parentheses looks at the whole formula: '5' is no letter", "(2.5R)", "2.5"},
      {"here the whole formula has a letter at that index", "2.4R+(3.5R)", "6"},
      {"the same without that letter", "2.40+(3.5R)", "5.9"},
      {"a formula that opens with two parentheses misreads the outer one", "((1+2)*3)+1", "4"},
      {"a value longer than the parenthesis pushes later ones beyond the walk", "(1/3)*(2+1)", "1"},
      {"empty parentheses are 0", "5+()", "5"},
      {"every occurrence at once", "(1+1)*(1+1)", "4"},
      {"closing without opening", "2)", "2"},
      {"only opening", "(((", "0"},
      {"mixed", "())(", "0"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(evaluateArithmetic(c.text).toText(), c.value) << c.why << ": " << c.text;
}

TEST(Arithmetic, endsSoonOnTextsMadeToKeepItBusy) {
  std::string closing = "(1", distinct, growing;
  for (int i = 0; i < 200000; ++i) {
    closing += ")";
    distinct += "(" + std::to_string(i) + ")+";
    growing += "(1/7)";
  }
  const auto start = std::chrono::steady_clock::now();
  for (const auto& text : {closing, distinct, growing, std::string(1 << 20, '('), "((1)" + closing}) {
    evaluateArithmetic(text);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace plinth
