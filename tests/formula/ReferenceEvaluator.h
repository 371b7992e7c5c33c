// The language once more, slow and word for word: positions from 1, value arrays filled before the run, the
// whole text replaced once for every object. What runs in the programs must give the same.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "basic/Decimal28.h"
#include "formula/FormulaHost.h"

namespace plinth {

class ReferenceEvaluator {
 public:
  ReferenceEvaluator(FormulaHost& host, FormulaMode mode) : host_(host), mode_(mode) {}

  // One pass over all objects.
  void runFormulas();
  std::string prepareFormula(std::string formula) const;
  static std::string evaluateArithmetic(std::string text);
  const std::array<std::string, 100>& variables() const { return v_; }

 private:
  void fillArrays();
  void fillField(int n);
  void runPass(int textMode);
  void runOne(int n, int textMode);
  void showBare(int n, const std::string& number);
  void executeIf(std::string line, int textMode);
  void executeAssign(std::string line);
  void assignmentStep(std::string token);
  std::string formOf(const std::string& token, const std::string& right, bool& done, bool& displayed);
  void storeInTarget(const std::string& target, const std::string& value, bool displayed);
  bool evaluateCondition(std::string token, int textMode) const;

  FormulaHost& host_;
  FormulaMode mode_;
  std::vector<std::string> f_, c_, k_;
  std::array<std::string, 100> v_;
};

}  // namespace plinth
