// The recalculation of a record with 100 formulas: what a person waits for on leaving a box.
#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "formula/RunFormulas.h"

namespace plinth {
namespace {

// 200 fields: a value, then a formula of two lines' variety over the values before it.
class BenchHost : public FormulaHost {
 public:
  BenchHost() {
    for (int n = 1; n <= 200; ++n) {
      texts_.push_back(n % 2 ? std::to_string(n) + ".50" : "");
      const std::string a = "F" + std::to_string(n - 1), b = "F" + std::to_string((n * 7) % 100 * 2 + 1);
      const std::array<std::string, 4> shapes{
          a + "*" + b, "(" + a + "+" + b + ")/3*1.19U",
          "IF " + a + ">100 THEN F" + std::to_string(n) + "=" + b + " ELSE F" + std::to_string(n) + "=0",
          "SUM(F1:F9)*2"};
      formulas_.push_back(n % 2 ? "" : shapes[static_cast<std::size_t>(n / 2) % 4]);
    }
  }
  int fieldCount() const override { return 200; }
  int comboCount() const override { return 0; }
  int memoCount() const override { return 0; }
  int checkCount() const override { return -1; }
  int fieldType(int) const override { return 2; }
  std::string_view fieldFormula(int n) const override { return formulas_[static_cast<std::size_t>(n - 1)]; }
  int fieldDayOffset(int) const override { return 0; }
  bool fieldBlankWhenZero(int) const override { return false; }
  std::string fieldText(int n) const override { return texts_[static_cast<std::size_t>(n - 1)]; }
  void setFieldText(int n, std::string_view text) override { texts_[static_cast<std::size_t>(n - 1)] = text; }
  double fieldDate(int) const override { return 0; }
  void setFieldDate(int, double) override {}
  std::string comboText(int) const override { return {}; }
  void setComboText(int, std::string_view) override {}
  std::string memoText(int) const override { return {}; }
  void setMemoText(int, std::string_view) override {}
  int checkValue(int) const override { return 0; }
  void setCheckValue(int, int) override {}
  long recordNumber() const override { return 1; }
  void showMessage(std::string_view) override {}
  const Locale& locale() const override { return englishLocale(); }
  double now() const override { return 45000.5; }
  int codePage() const override { return 1252; }

 private:
  std::vector<std::string> texts_, formulas_;
};

// One iteration is a thousand runs, so that its time reads in microseconds a run.
void BM_ThousandRunFormulas(benchmark::State& state) {
  BenchHost host;
  FormulaVariables variables;
  for (auto _ : state) {
    for (int i = 0; i < 1000; ++i) runFormulas(host, FormulaMode::designer, variables);
  }
}
BENCHMARK(BM_ThousandRunFormulas)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace plinth
