// Thousands of formulas, sound and broken, over records with awkward values: what runs in the programs must
// give what the slow word-for-word evaluator gives, in both programs.
#include "tests/formula/ReferenceEvaluator.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "formula/Arithmetic.h"
#include "formula/RunFormulas.h"
#include "tests/formula/FakeRecord.h"

namespace plinth {
namespace {

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  std::string pick(const std::vector<std::string>& from) {
    return from[below(static_cast<int>(from.size()))];
  }

  std::string value() {
    return pick(
        {"",    "0",          "1",    "12",         "-3.5",    "1,234.50", "0.1",   "99999999999999999999",
         "1E5", "John Smith", "F1",   "C1K0",       "x=y",     "F",        "2F1",   "SUM(1)",
         "\"",  "A-B",        "TRUE", "NOTE",       "(2",      "3)",       "12:30", "1/2/2024",
         "M_x", "V1",         "IF",   "F1\r\nF2=3", "\xE4\xC4"});
  }
  std::string reference() {
    return below(9) == 0 ? "V" + std::to_string(below(3))
                         : pick({"F", "F", "F", "C", "K"}) + std::to_string(below(14));
  }
  std::string expression(int depth) {
    std::string out = below(5) == 0 && depth > 0 ? "(" + expression(depth - 1) + ")" : operand();
    for (int n = below(4); n > 0; --n) {
      out += pick({"+", "-", "*", "/", "^", "M", " + ", "--", "*-"}) + (below(4) ? operand() : expression(0));
      out += below(5) == 0 ? pick({"A", "B", "C", "E", "R", "O", "U", "N", "D", "L", "S", "T", "X"}) : "";
    }
    return out;
  }
  std::string operand() {
    return below(3) ? reference() : pick({"2", "0.5", "100", "3.14159", "2.5R", "(", ")", "#"});
  }
  std::string condition() {
    const std::string text = expression(1) + pick({"<>", "<=", ">=", ">", "<", "="}) +
                             (below(3) ? expression(0) : pick({"\"Cash\"", "\"JOHN SMITH\"", "\"\""}));
    return below(6) ? text : "NOT(" + text + ")";
  }
  std::string assignment() {
    const std::string target = pick({"F", "F", "M", "C", "K", "V"}) + std::to_string(below(13));
    const std::string form = pick({"", "", "", "CUR", "CUR2", "NUM0", "NUM3", "NOT", "MSGBOX"});
    const std::string value = below(4) ? expression(1) : below(2) ? condition() : "\"" + value_() + "\"";
    return (below(12) ? target : "MSGBOX") + "=" + (form.empty() ? value : form + "(" + value + ")");
  }
  std::string line() {
    if (below(3)) return below(2) ? assignment() : assignment() + " " + assignment();
    std::string out = "IF " + condition();
    for (int n = below(3); n > 0; --n) out += pick({" AND ", " OR ", "  "}) + condition();
    return out + pick({" THEN ", " THEN ", " "}) + assignment() + (below(2) ? " ELSE " + assignment() : "");
  }
  std::string formula() {
    if (below(3) == 0)
      return below(5) ? expression(3) : pick({"SUM(F1:F4)*2", "ID:+F2", "SUM(F2F3)", "(((", "())("});
    std::string out = line();
    for (int n = below(3); n > 0; --n) out += "\r\n" + line();
    if (below(8) == 0) out.erase(below(static_cast<int>(out.size())), 1 + below(3));
    return out;
  }

 private:
  std::string value_() { return below(2) ? "Please pay" : value(); }
  std::mt19937 random_;
};

FakeRecord makeRecord(Generator& make, FormulaMode mode) {
  FakeRecord r;
  if (make.below(3) == 0) {
    r.place.decimalSeparator = ',';
    r.place.groupSeparator = ".";
  }
  for (int n = 1; n <= 12; ++n) {
    FakeField field{.type = make.below(24), .text = make.value(), .dayOffset = make.below(3)};
    field.blankWhenZero = make.below(2);
    if (field.type >= 6 && field.type <= 12 && make.below(2))
      field.date = make.below(50000) + 0.25 * make.below(4);
    if (make.below(3) == 0) field.formula = make.formula();
    r.fields.push_back(field);
  }
  r.combos = {make.value(), "Cash"};
  r.memos = {"", ""};
  r.checks = {make.below(2), 1, 0};
  if (mode == FormulaMode::engine) {
    for (auto& field : r.fields) field.formula = ReferenceEvaluator(r, mode).prepareFormula(field.formula);
  }
  return r;
}

std::string formulasOf(const FakeRecord& record) {
  std::string out;
  for (const auto& field : record.fields)
    out += std::to_string(field.type) + " " + field.text + ": " + field.formula + "\n";
  return out;
}

TEST(ReferenceEvaluator, agreesOnGeneratedRecords) {
  Generator make(20240115);
  for (int i = 0; i < 1500; ++i) {
    const FormulaMode mode = i % 2 ? FormulaMode::engine : FormulaMode::designer;
    const FakeRecord start = makeRecord(make, mode);
    FakeRecord fast = start, slow = start;
    FormulaVariables variables;
    runFormulas(fast, mode, variables);
    ReferenceEvaluator reference(slow, mode);
    reference.runFormulas();
    for (std::size_t n = 0; n < fast.fields.size(); ++n) {
      ASSERT_EQ(fast.fields[n].text, slow.fields[n].text) << i << " field " << n + 1 << "\n"
                                                          << formulasOf(start);
      ASSERT_EQ(fast.fields[n].date, slow.fields[n].date) << i << " field " << n + 1 << "\n"
                                                          << formulasOf(start);
    }
    ASSERT_EQ(variables, reference.variables()) << formulasOf(start);
    ASSERT_TRUE(fast.combos == slow.combos && fast.memos == slow.memos && fast.checks == slow.checks &&
                fast.messages == slow.messages)
        << formulasOf(start);
  }
}

TEST(ReferenceEvaluator, agreesOnRandomArithmetic) {
  Generator make(7);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (int n = make.below(25); n > 0; --n) {
      text += make.pick({"1", "2", "7", "0", ".", "-", "(", ")", "(", ")", "+", "~", "*",
                         "/", "^", "R", "U", "D", "S", "M", "A", "X", "L", "E", " ", "q"});
    }
    ASSERT_EQ(evaluateArithmetic(text).toText(), ReferenceEvaluator::evaluateArithmetic(text)) << text;
  }
}

}  // namespace
}  // namespace plinth
