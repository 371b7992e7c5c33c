// Numbers as people type them: the leading number, the locale's form, and displayed numbers made plain.
#include "basic/NumberReader.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

Locale german() {
  Locale locale;
  locale.decimalSeparator = ',';
  locale.groupSeparator = ".";
  locale.currencySymbol = "\x80";
  return locale;
}

TEST(NumberReader, ValTakesTheLeadingNumber) {
  const struct {
    std::string_view text;
    double value;
  } kCases[] = {{"1 234.5abc", 1234.5},
                {"\t-\n 1 2", -12},
                {"+.5", 0.5},
                {"5.", 5},
                {"1.2.3", 1.2},
                {"1,234", 1},
                {"--5", 0},
                {"+-5", 0},
                {"", 0},
                {"-", 0},
                {".", 0},
                {"abc", 0},
                {"inf", 0},
                {"nan", 0},
                {"-infinity", 0},
                {"0x10", 0},
                {"1e3", 1000},
                {"1D-2x", 0.01},
                {"1 e 3", 1000},
                {"1e", 1},
                {"1e+", 1},
                {"1e3.5", 1000},
                {"2e400", 0},
                {"1e-400", 0},
                {"&HFF", 255},
                {"&hffff", -1},
                {"&HFFFF&", 65535},
                {"& H 1 0", 16},
                {"&H10000", 65536},
                {"&HFFFFFFFF", -1},
                {"&H100000000", 0},
                {"&O17", 15},
                {"&O8", 0},
                {"&", 0},
                {"12      ", 12},
                {"(5)", 0},
                {"179769313486231570e291", 1.7976931348623157e308},
                {"0.1", 0.1},
                {"1e99999999999", 0}};
  for (const auto& [text, value] : kCases) EXPECT_EQ(val(text), value) << text;
  EXPECT_EQ(val(std::string_view("1\0002", 3)), 1);
}

TEST(NumberReader, WholeTextsFollowTheLocale) {
  const Locale english, germanLocale = german();
  const struct {
    std::string_view text;
    std::optional<double> inEnglish, inGerman;
  } kCases[] = {{"1,234.5", 1234.5, std::nullopt},
                {"1.234,5", std::nullopt, 1234.5},
                {" 1.5 ", 1.5, 15},
                {"-2", -2, -2},
                {"2 -", -2, -2},
                {"(2)", -2, -2},
                {"($1,000.50)", -1000.5, std::nullopt},
                {"-$ 3", -3, std::nullopt},
                {"3 \x80", std::nullopt, 3},
                {"1e2", 100, 100},
                {".5", .5, std::nullopt},
                {"-0", 0, 0},
                {"&HFF", 255, 255}};
  for (const auto& [text, inEnglish, inGerman] : kCases) {
    EXPECT_EQ(readNumber(text, english), inEnglish) << text;
    EXPECT_EQ(readNumber(text, germanLocale), inGerman) << text;
  }
  for (std::string_view bad : {"",   " ",   "-",     "$",   "5x",    "1 2", "-5-",   "(5",  "5)", "(-5)",
                               "1e", "1e+", "1e999", "$$5", "1.2.3", ",5",  "1.2,3", "inf", "&H", "&HG"}) {
    EXPECT_FALSE(readNumber(bad, english)) << bad;
  }
}

TEST(NumberReader, FixedBlanksAndEmptySeparatorsWork) {
  Locale french;
  french.decimalSeparator = ',';
  french.groupSeparator = "\xA0";
  french.currencySymbol = "";
  EXPECT_EQ(readNumber("1\xA0\x32\x33\x34,5", french), 1234.5);
  EXPECT_EQ(readNumber("1 234,5e1 ", french), 12345);
  french.groupSeparator = "";
  EXPECT_FALSE(readNumber("1 234", french));
}

TEST(NumberReader, DisplayedNumbersBecomePlain) {
  EXPECT_EQ(normalizeNumber("1,234.50", Locale()), "1234.50");
  EXPECT_EQ(normalizeNumber("-1.234.567,5", german()), "-1234567.5");
  EXPECT_EQ(normalizeNumber("1'234\xA0\x35x", Locale()), "12345x");
}

}  // namespace
}  // namespace plinth
