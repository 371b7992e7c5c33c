// What boxes show by the type of their field.
#include "formula/FieldDisplay.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

TEST(FieldDisplay, numbersByType) {
  const struct {
    int kind;
    double value;
    const char *shown, *asResult;
  } cases[] = {{1, 1234.5, "1234.5", "1234.5"},
               {1, 1e-5, "1E-05", "0.00001"},
               {2, 1234.505, "1,234.51", "1,234.51"},
               {3, -0.5, "-0.500", "-0.500"},
               {4, 0, "0.0000", "0.0000"},
               {5, 1234.5, "1,235", "1,235"},
               {5, 0, "0", ""},
               {5, -0.4, "0", ""}};
  for (const auto& c : cases) {
    const auto decimal = *Decimal28::fromDouble(c.value);
    EXPECT_EQ(formatFieldNumber(c.kind, c.value, englishLocale()), c.shown) << c.kind << " " << c.value;
    EXPECT_EQ(formatFormulaNumber(c.kind, decimal, englishLocale()), c.asResult) << c.kind << " " << c.value;
  }
  EXPECT_EQ(machineNumber(1e30), "1E+30");  // beyond 28 digits there is no other form
}

TEST(FieldDisplay, datesByType) {
  const double serial = 45306.5625;  // Monday 2024-01-15 13:30
  const char* const shown[] = {"2024-01-15", "1/15/2024", "15-Jan-24", "Monday, January 15, 2024",
                               "13:30",      "01:30 PM",  "13:30:00",  "24",
                               "2024",       "01",        "Jan",       "January",
                               "15",         "Mon",       "Monday",    "2",
                               "3"};
  for (int kind = 6; kind <= 22; ++kind) {
    EXPECT_EQ(formatFieldDate(kind, serial, 4, englishLocale()), shown[kind - 6]) << kind;
  }
  EXPECT_EQ(formatFieldDate(6, serial, 0, englishLocale()), "Monday 15-Jan-2024");
  EXPECT_EQ(formatFieldDate(6, serial, 5, englishLocale()), "1/15/2024");
  EXPECT_EQ(formatFieldDate(7, 1e9, 0, englishLocale()), "");
}

}  // namespace
}  // namespace plinth
