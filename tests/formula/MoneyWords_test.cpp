// Cheque words in all three currencies, and the texts that give none.
#include "formula/MoneyWords.h"

#include <gtest/gtest.h>

#include <string>

#include "basic/CodePage.h"

namespace plinth {
namespace {

TEST(MoneyWords, wordsOfAmounts) {
  const CMoney money(englishLocale());
  const std::string invalid = "Invalid Dollar Amount.";
  const struct {
    std::string amount, words;
  } cases[] = {
      {"1234.56", "One Thousand Two Hundred Thirty-Four Dollars and Fifty-Six Cents"},
      {"1.01", "One Dollar and One Cent"},
      {"0.00", "Zero Dollars and No Cents"},
      {"", "Zero Dollars and No Cents"},
      {".5", "Zero Dollars and Fifty Cents"},
      {"2.019", "Two Dollars and One Cent"},
      {"12", "Twelve Dollars and No Cents"},
      {"1234", "Twelve Dollars and No Cents"},  // without a point two digits remain
      {"1000000.", "One Million Dollars and No Cents"},
      {"1000015.20", "One Million Fifteen Dollars and Twenty Cents"},
      {"100000.00", "One Hundred  Thousand Dollars and No Cents"},  // both blanks are on file
      {"900.00", "Nine Hundred Dollars and No Cents"},
      {"0001.00", "One Dollar and No Cents"},
      {"-0.00", "Zero Dollars and No Cents"},
      {"7" + std::string(27, '0') + ".00", "Seven Octillion Dollars and No Cents"},
      {"1" + std::string(29, '0') + ".00", "One Hundred  Octillion Dollars and No Cents"},
      {"1" + std::string(30, '0') + ".00", invalid},
      {"-1.00", invalid},
      {"12a.00", invalid},
      {"1.x", invalid},
  };
  for (const auto& c : cases) EXPECT_EQ(money.monetaryToWords(c.amount), c.words) << c.amount;
  EXPECT_EQ(money.groupWords("21", 0), "Twenty-One");
}

TEST(MoneyWords, currencyFollowsTheSignOfTheLocale) {
  Locale locale = englishLocale();
  locale.currencySymbol = fromUtf16(u"\u00A3", locale.codePage);
  EXPECT_EQ(CMoney(locale).monetaryToWords("1.01"), "One Pound and One Pence");
  EXPECT_EQ(CMoney(locale).monetaryToWords("2.00"), "Two Pounds and No Pence");
  locale.codePage = 1251;  // the euro has another byte there
  locale.currencySymbol = fromUtf16(u"\u20AC", locale.codePage);
  EXPECT_EQ(CMoney(locale).monetaryToWords("2.00"), "Two Euros and No Euros");
}

}  // namespace
}  // namespace plinth
