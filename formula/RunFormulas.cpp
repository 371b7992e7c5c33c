// References to fields, combos and check boxes are replaced once for the whole formula, variables line by
// line: a later line sees a variable set by an earlier one, but not a field. Formulas that users have written
// depend on it.
#include "formula/RunFormulas.h"

#include <vector>

#include "basic/DateSerial.h"
#include "basic/Text.h"
#include "formula/Arithmetic.h"
#include "formula/FieldDisplay.h"
#include "formula/FormulaText.h"
#include "formula/FormulaValues.h"

namespace plinth {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// A date in the type's form. 0 is no date, whatever the days to be added.
void showDateResult(FormulaHost& host, int n, const Decimal28& result) {
  const int type = host.fieldType(n);
  const double serial =
      result.isZero() ? 0 : result.toDouble() + (isTimeType(type) ? 0 : host.fieldDayOffset(n));
  if (!isDateSerial(serial)) return;
  const bool empty = result.isZero() && (isDateType(type) || host.fieldBlankWhenZero(n));
  if (holdsSerial(type)) host.setFieldDate(n, serial);
  host.setFieldText(n, empty ? "" : formatDate(serial, datePattern(type), host.locale()));
}

// The value of a formula that is a bare expression, shown by the type of its own field.
void showResult(FormulaHost& host, int n, const Decimal28& result) {
  const int type = host.fieldType(n);
  if (isDateType(type) || isTimeType(type)) return showDateResult(host, n, result);
  const bool empty = result.isZero() && host.fieldBlankWhenZero(n);
  host.setFieldText(n, empty ? "" : formatFormulaNumber(type, result, host.locale()));
}

FormulaCounts countsOf(const FormulaHost& host) {
  return {.fields = host.fieldCount(),
          .combos = host.comboCount(),
          .memos = host.memoCount(),
          .checks = host.checkCount(),
          .codePage = host.codePage()};
}

class Run {
 public:
  Run(FormulaHost& host, FormulaMode mode, FormulaVariables& variables)
      : host_(host),
        context_{host, mode, variables},
        counts_(countsOf(host)),
        references_(formulaReferences(host)) {}

  void pass(ValueMode mode) {
    for (int n = 1; n <= counts_.fields; ++n) {
      const std::string_view formula = host_.fieldFormula(n);
      if (!formula.empty() && isTextType(host_.fieldType(n)) == (mode == ValueMode::text)) {
        runField(n, formula, mode);
      }
    }
  }

 private:
  void runField(int n, std::string_view formula, ValueMode mode) {
    const std::string prepared =
        context_.program == FormulaMode::designer ? prepareFormula(formula, counts_) : std::string(formula);
    const std::string text =
        replaceReferences(replaceBounded(prepared, "ID:", std::to_string(host_.recordNumber())), references_);
    if (text.find(kLineEnd) == text.npos) return runSingleLine(n, text, mode);
    for (const std::string& line : split(text, kLineEnd)) {
      executeLine(context_, replaceVariables(line, context_.variables), mode);
    }
  }

  void runSingleLine(int n, std::string_view text, ValueMode mode) {
    const std::string line = replaceVariables(text, context_.variables);
    const bool isBare = !isIfLine(line) && line.find('=') == line.npos;
    isBare ? showResult(host_, n, evaluateArithmetic(line)) : executeLine(context_, line, mode);
  }

  FormulaHost& host_;
  FormulaContext context_;
  FormulaCounts counts_;
  std::vector<ReferenceKind> references_;
};

}  // namespace

void runFormulas(FormulaHost& host, FormulaMode mode, FormulaVariables& variables) {
  variables.fill("");
  Run run(host, mode, variables);
  run.pass(ValueMode::numeric);
  run.pass(ValueMode::text);
}

}  // namespace plinth
