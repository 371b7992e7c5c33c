// Numbers and money as people and machines read them.
#include "basic/DisplayFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>

#include "basic/Json.h"

namespace plinth {
namespace {

TEST(DisplayFormat, GeneralNumbersHaveUpToFifteenDigits) {
  const struct {
    double value;
    const char* text;
  } kCases[] = {{0, "0"},
                {-0.0, "0"},
                {240, "240"},
                {-1.5, "-1.5"},
                {0.1 + 0.2, "0.3"},
                {1.0 / 3, "0.333333333333333"},
                {2e6 / 3, "666666.666666667"},
                {999999999999999, "999999999999999"},
                {999999999999999.9, "1E+15"},
                {1e15, "1E+15"},
                {-1.5e20, "-1.5E+20"},
                {1e300, "1E+300"},
                {0.0001, "0.0001"},
                {0.00001, "1E-05"},
                {1.25e-100, "1.25E-100"},
                {NAN, "0"},
                {INFINITY, "0"}};
  for (const auto& [value, text] : kCases) EXPECT_EQ(plainNumber(value), text);
  Locale german;
  german.decimalSeparator = ',';
  EXPECT_EQ(formatGeneral(1.5e20, german), "1,5E+20");
  EXPECT_EQ(formatGeneral(-0.25, german), "-0,25");
}

TEST(DisplayFormat, ShortDecimalsShowTheDigitsOfTheLongWay) {
  std::mt19937_64 random(4);
  const auto printed = [](const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return std::string(text);
  };
  for (int i = 0; i < 3000; ++i) {
    const auto scaled = static_cast<std::int64_t>(random() >> (15 + random() % 49)) + 1;
    const double value = static_cast<double>(i % 2 ? scaled : -scaled) / 10000;
    for (const double beside : {value, std::nextafter(value, 0), value / 8})
      EXPECT_EQ(plainNumber(beside), printed("%.15G", beside));
    EXPECT_EQ(formatNumber(value, {4, false}, Locale()), printed("%.4f", value));
  }
  EXPECT_EQ(plainNumber(99999999999.9999), "99999999999.9999");
  EXPECT_EQ(plainNumber(100000000000.001), "100000000000.001");
  EXPECT_EQ(formatNumber(-0.0, {2}, Locale()), "0.00");
}

TEST(DisplayFormat, NumbersRoundHalfAwayOnTheirDecimalDigits) {
  const struct {
    double value;
    NumberForm form;
    const char* text;
  } kCases[] = {{1.005, {2}, "1.01"},
                {-1.005, {2}, "-1.01"},
                {2.5, {0}, "3"},
                {0.5, {0}, "1"},
                {0.49, {0}, "0"},
                {-0.004, {2}, "0.00"},
                {0.005, {2}, "0.01"},
                {999.995, {2}, "1,000.00"},
                {1234567.891, {2, false}, "1234567.89"},
                {1234567, {0}, "1,234,567"},
                {123456, {1}, "123,456.0"},
                {0.5, {2, true, false}, ".50"},
                {0, {0, true, false}, "0"},
                {-0.5, {1, true, false}, "-.5"},
                {1e20, {1}, "100,000,000,000,000,000,000.0"},
                {1e-300, {3}, "0.000"},
                {NAN, {1}, "0.0"},
                {1, {-4}, "1"}};
  for (const auto& [value, form, text] : kCases)
    EXPECT_EQ(formatNumber(value, form, Locale()), text) << value;
  const Decimal28 digits = *Decimal28::fromText("-1234567890123456789012.345");
  EXPECT_EQ(formatNumber(digits, {2}, Locale()), "-1,234,567,890,123,456,789,012.35");
  EXPECT_EQ(formatNumber(*Decimal28::fromText("0.05"), {1}, Locale()), "0.1");
  EXPECT_EQ(formatNumber(Decimal28(), {2}, Locale()), "0.00");
}

TEST(DisplayFormat, MoneyHasTheSystemsForms) {
  const struct {
    int positive, negative;
    const char *plus, *minus;
  } kCases[] = {{0, 0, "$1,234.50", "($1,234.50)"},  {1, 5, "1,234.50$", "-1,234.50$"},
                {2, 9, "$ 1,234.50", "-$ 1,234.50"}, {3, 8, "1,234.50 $", "-1,234.50 $"},
                {0, 3, "$1,234.50", "$1,234.50-"},   {3, 15, "1,234.50 $", "(1,234.50 $)"},
                {9, -1, "$1,234.50", "($1,234.50)"}};
  for (const auto& [positive, negative, plus, minus] : kCases) {
    Locale locale;
    locale.positiveCurrencyFormat = positive;
    locale.negativeCurrencyFormat = negative;
    EXPECT_EQ(formatCurrency(1234.5, 2, locale), plus);
    EXPECT_EQ(formatCurrency(*Decimal28::fromText("-1234.5"), 2, locale), minus);
    EXPECT_EQ(formatCurrency(-0.001, 2, locale), formatCurrency(0.0, 2, locale));
  }
}

TEST(DisplayFormat, ZerosPadBehindTheSign) {
  EXPECT_EQ(zeroPadded(42, 8), "00000042");
  EXPECT_EQ(zeroPadded(-42, 4), "-0042");
  EXPECT_EQ(zeroPadded(123, -1), "123");
}

TEST(Json, WritesItemsInOrder) {
  JsonWriter json;
  json.beginObject().key("a").whole(-1).key("b").beginArray().real(240.0).real(0.1f).null().endArray();
  json.key("c").beginObject().endObject().key("d").boolean(true).endObject();
  EXPECT_EQ(json.str(), R"({"a": -1, "b": [240.0, 0.1, null], "c": {}, "d": true})");
  JsonWriter tree(2);
  tree.beginArray()
      .beginObject()
      .key("x")
      .text("y")
      .key("z")
      .beginArray()
      .endArray()
      .endObject()
      .whole(1)
      .endArray();
  EXPECT_EQ(tree.str(), "[\n  {\n    \"x\": \"y\",\n    \"z\": []\n  },\n  1\n]");
}

TEST(Json, EscapesTextsAndRepairsUtf8) {
  JsonWriter json;
  json.beginArray().text("\"\\\r\n\t\x01 ü").text("a\xFF\xC3").endArray();
  EXPECT_EQ(json.str(), "[\"\\\"\\\\\\r\\n\\t\\u0001 ü\", \"a\xEF\xBF\xBD\xEF\xBF\xBD\"]");
}

TEST(Json, RealsAlwaysShowThatTheyAreReal) {
  JsonWriter json;
  json.beginArray().real(1e15).real(1e16).real(1.5e-5).real(0.0001).real(-0.0).real(5e-324).real(1e22f).real(
      NAN);
  json.endArray();
  EXPECT_EQ(json.str(), "[1000000000000000.0, 1e+16, 1.5e-05, 0.0001, -0.0, 5e-324, 1e+22, null]");
}

}  // namespace
}  // namespace plinth
