// Whole records as users build them, in both programs; results worked out by hand.
#include "formula/RunFormulas.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "tests/formula/FakeRecord.h"

namespace plinth {
namespace {

Locale germanLocale() {
  Locale locale = englishLocale();
  locale.decimalSeparator = ',';
  locale.groupSeparator = ".";
  return locale;
}

void run(FakeRecord& record, FormulaMode mode = FormulaMode::designer) {
  FormulaVariables variables;
  runFormulas(record, mode, variables);
}

// An invoice: two lines, their sum, a discount from 1000 up, tax, total, words, and notes.
FakeRecord invoice() {
  FakeRecord r;
  r.fields = {{.type = 5, .text = "3"},
              {.type = 2, .text = "1,250.50"},
              {.type = 5, .text = "2"},
              {.type = 2, .text = "10.25"},
              {.type = 2, .formula = "F1*F2"},
              {.type = 2, .formula = "F3*F4"},
              {.type = 2, .formula = "SUM(F5:F6)"},
              {.type = 2, .formula = "IF F7>1000 THEN V1=10 ELSE V1=0\r\nF8=F7*V1/100"},
              {.type = 2, .formula = "(F7-F8)*0.19"},
              {.type = 2, .formula = "F7-F8+F9U"},
              {.formula = "F11=CUR(F10)"},
              {.type = 5, .formula = "ID:+1000"},
              {.formula = "IF K0=1 THEN F13=\"PAID\" ELSE F13=\"OPEN\""},
              {.formula = "IF F10>0 AND K0=0 THEN F14=\"Please pay soon\" ELSE F14=\"Thank you\""},
              {.type = 1, .formula = "IF F9=0 OR C1=\"Cash\" THEN F15=1 ELSE F15=0"}};
  r.combos = {"Cash"};
  r.checks = {0};
  return r;
}

TEST(RunFormulas, computesAnInvoiceInFieldOrder) {
  for (const char point : {'.', ','}) {
    FakeRecord r = invoice();
    if (point == ',') {
      r.place = germanLocale();
      r.fields[1].text = "1.250,50";
      r.fields[3].text = "10,25";
    }
    const std::string group = point == '.' ? "," : ".";
    const auto number = [&](std::string thousands, std::string rest, std::string decimals) {
      return thousands + (thousands.empty() ? "" : group) + rest + point + decimals;
    };
    for (int again = 0; again < 2; ++again) {  // a second run changes nothing
      run(r);
      EXPECT_EQ(r.fields[6].text, number("3", "772", "00"));
      EXPECT_EQ(r.fields[7].text, number("", "377", "2"));   // an assigned number stands plain
      EXPECT_EQ(r.fields[8].text, number("", "645", "01"));  // 645.012
      EXPECT_EQ(r.fields[9].text, number("4", "039", "81"));
      EXPECT_EQ(r.fields[10].text, "Four Thousand Thirty-Nine Dollars and Eighty-One Cents");
      EXPECT_EQ(r.fields[11].text, "1" + group + "007");
      EXPECT_EQ(r.fields[12].text, "OPEN");
      EXPECT_EQ(r.fields[13].text, "Please pay soon");
    }
  }
}

TEST(RunFormulas, textsCompareByteForByteInTheDesignerOnly) {
  FakeRecord r = invoice();
  run(r, FormulaMode::designer);
  EXPECT_EQ(r.fields[14].text, "0");  // the rewrite has made "CASH" of the condition's text
  FakeRecord engine = invoice();
  engine.fields[14].formula = "IF F9=0 OR C1=\"CASH\" THEN f15=1 ELSE f15=0";
  run(engine, FormulaMode::engine);
  EXPECT_EQ(engine.fields[14].text, "1");
}

// One field with its formula, others beside it.
struct FormulaCase {
  const char *why, *formula, *shown;
  int type = 1;
};

TEST(RunFormulas, keepsEveryCornerOfTheLanguage) {
  const FormulaCase cases[] = {
      {"division by 0 leaves the value", "F2/F3", "12"},
      {"0 divided is 0", "F3/F2", "0"},
      {"F1 does not hit F12", "F12+F2", "24"},
      {"values are put in with their sign", "F2-F6", "17"},
      {"an index that is not in use is a lower one and a digit", "2+F99", "11"},
      {"two decimals", "F2/5", "2.40", 2},
      {"four", "1/3", "0.3333", 4},
      {"plain to 15 digits", "1/3", "0.333333333333333"},
      {"a whole type has no leading zero, so 0 shows nothing", "F3*2", "", 5},
      {"whole numbers round away from zero", "F2/8", "2", 5},
      {"short time", "F2/24", "12:00", 10},
      {"seconds", "F2/24", "12:00:00", 12},
      {"date parts", "F8+1", "17", 18},
      {"a date of 0 is empty", "F3", "", 7},
      {"AND false skips to OR", "IF F2>99 AND F3>2 OR F2>2 THEN F1=1 ELSE F1=2", "1"},
      {"AND false without OR takes ELSE", "IF F2>99 AND F2>2 THEN F1=1 ELSE F1=2", "2"},
      {"OR true skips the rest", "IF F2>2 OR F2>99 THEN F1=1 ELSE F1=2", "1"},
      {"equal rank: true OR false AND false is true", "IF F2>2 OR F3>2 AND F3>3 THEN F1=1 ELSE F1=2", "1"},
      {"no ELSE", "IF F2>99 THEN F1=1", "old"},
      {"no THEN", "IF F2>2", "old"},
      {"two blanks make an empty, false condition", "IF F2>2  THEN F1=1 ELSE F1=2", "2"},
      {"NOT", "IF NOT(F2>99) THEN F1=1 ELSE F1=2", "1"},
      {"NOT knows no '='", "IF NOT(F2=99) THEN F1=1 ELSE F1=2", "2"},
      {"the NOT of a value does", "F1=NOT(12=F2)", "0"},
      {"where 'F2=' is taken for a target, so 2 is compared", "F1=NOT(F2=12)", "-1"},
      {"a relation as a value", "F1=F2>=12", "-1"},
      {"only the first relation counts", "IF 5<3<9 THEN F1=1 ELSE F1=2", "2"},
      {"a text with an M is computed, so all are equal", "IF C2=\"MAX\" THEN F1=1 ELSE F1=2", "1"},
      {"texts hold their blanks together", "IF C3=\"PAY CASH\" THEN F1=1 ELSE F1=2", "1"},
      {"a later line sees variables", "V1=5\r\nV2=V1*3\r\nF1=V2+V1", "20"},
      {"but not fields", "F2=50\r\nF1=F2+1", "13"},
      {"letters and parentheses count in whole numbers, variables and forms",
       "V1=(F2+F4)S\r\nF1=V1R", "4", 5},
      {"of a text the leading number", "V1=C3\r\nF1=V1", "0"},
      {"a variable below 0", "V1=-5\r\nF1=V1*2", "-10"},
      {"a value of several lines is no bare expression", "F2+F3\r\n", "old"},
      {"text fields are read when they hold numbers", "F5*2", "2469"},
      {"a text assigned to a text, '_' for blanks", "F1=\"No_1 or 2\"", "No 1 or 2", 0},
      {"a minus in a text has become '~'", "F1=\"A-B\"", "A~B", 0},
      {"assigned numbers do not take the decimals of the type", "F1=F2*2", "24", 2},
      {"money", "F1=CUR2(F5)", "$1,234.50", 0},
      {"number", "F1=NUM1(F5/2)", "617.3", 0},
      {"number of a letter's result", "F1=NUM2(F2S)", "3.46", 0},
      {"words take the first number of a sum", "F1=CUR(2.50+3.25)", "Two Dollars and Fifty Cents", 0},
      {"rounding in parentheses", "(2.5R)", "2.5"},
      {"an old sum without ':' is 0", "SUM(F2F3)", "0"},
      {"record number in a text", "F1=\"No.ID:\"", "No.7", 0},
  };
  for (const FormulaCase& c : cases) {
    FakeRecord r;
    r.fields = {{.type = c.type, .text = "old", .formula = c.formula},
                {.type = 1, .text = "12"},
                {.type = 1, .text = "0"},
                {.type = 1, .text = "3"},
                {.text = "1,234.50"},
                {.type = 1, .text = "-5"},
                {},
                {.type = 7, .text = "1/15/2024", .date = 45306},
                {},
                {},
                {},
                {.type = 1, .text = "12"}};
    r.combos = {"Cash", "MIN", "PAY CASH"};
    r.fields[0].dayOffset = 1;
    run(r);
    EXPECT_EQ(r.fields[0].text, c.shown) << c.why << ": " << c.formula;
  }
}

TEST(RunFormulas, writesToAllKindsOfTargets) {
  FakeRecord r;
  r.fields = {
      {.type = 1, .formula = "M1=\"To_whom it may\" C1=\"Net 30\" K0=5 K1=3>2 K2=TRUE F2=0.5 F3=45000"},
      {.type = 12},
      {.type = 7},
      {.type = 7, .formula = "F3+30", .dayOffset = 1, .blankWhenZero = true},
      {.type = 2, .text = "1", .formula = "0", .blankWhenZero = true},
      {.formula = "MSGBOX=\"Low stock\" F6=MSGBOX(Hello_you)"}};
  r.combos = {""};
  r.memos = {""};
  r.checks = {0, 1, 0};
  FakeRecord engine = r;
  run(r);
  EXPECT_EQ(r.memos[0], "To whom it may");
  EXPECT_EQ(r.combos[0], "Net 30");
  EXPECT_EQ(r.checks, (std::vector<int>{1, 0, 1}));  // a true of -1 clears a box, TRUE has become 1
  EXPECT_EQ(r.fields[1].text, "12:00:00");
  EXPECT_EQ(r.fields[2].text, "45000");  // assigned dates stand as numbers
  EXPECT_EQ(r.fields[3].date, 45031);
  EXPECT_EQ(r.fields[3].text, "4/15/2023");
  EXPECT_EQ(r.fields[4].text, "");
  EXPECT_EQ(r.fields[5].text, "MSGBOX(Hello you)");  // the designer has no message boxes
  EXPECT_TRUE(r.messages.empty());
  engine.fields[5].formula = "MSGBOX=\"Low stock\" f6=MSGBOX(Hello_you)";
  run(engine, FormulaMode::engine);
  EXPECT_EQ(engine.messages, (std::vector<std::string>{"Low stock", "Hello you"}));
}

TEST(RunFormulas, referencesThatValuesBringInAreReplacedInTheirTurn) {
  FakeRecord r;
  r.fields = {
      {.text = "one"}, {.text = "F1"}, {.formula = "F3=F2+C1"}, {.formula = "F4=F5"}, {.text = "F2F2F5"}};
  r.combos = {"K0"};
  r.checks = {1};
  run(r);
  EXPECT_EQ(r.fields[2].text, "one+1");
  EXPECT_EQ(r.fields[3].text, "oneoneF5");  // F5 itself is past
}

TEST(RunFormulas, valuesThatMultiplyEachOtherEnd) {
  FakeRecord r;
  for (int n = 1; n <= 2000; ++n) {
    const std::string below = "F" + std::to_string(n - 1);
    r.fields.push_back({.text = below + below, .formula = n == 1 ? "F1=F2000" : ""});
  }
  const auto start = std::chrono::steady_clock::now();
  run(r);
  EXPECT_LT(r.fields[0].text.size(), 1u << 21);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace plinth
