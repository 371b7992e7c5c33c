// The reference's conditions, assignments and driver.
#include "tests/formula/ReferenceEvaluator.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "formula/FieldDisplay.h"
#include "formula/MoneyWords.h"

namespace plinth {

using std::string;

namespace {

std::vector<string> tokens(string line) {
  line = replaceAll(replaceAll(line, "TRUE", "-1"), "FALSE", "0");
  bool quoted = false;
  for (char& c : line) {
    if (c == '"') quoted = !quoted;
    if (c == ' ' && quoted) c = '_';
  }
  return split(line, " ");
}

bool relate(const string& sign, double order) {
  return (contains(sign, "<") && order < 0) || (contains(sign, ">") && order > 0) ||
         (contains(sign, "=") && order == 0);
}

string number(const string& side) {
  return side.find_first_of("+~/*^M") == string::npos ? side : ReferenceEvaluator::evaluateArithmetic(side);
}

// Of an assignment: letters and parentheses count too where nothing but arithmetic stands.
string assigned(const string& value) {
  const bool onlyArithmetic = value.find_first_not_of("0123456789.-+~*/^()ABCEROUNDLSTMX") == string::npos;
  return onlyArithmetic ? ReferenceEvaluator::evaluateArithmetic(value) : number(value);
}

// One form of "which relation is it": sign and both sides, "" for none.
std::array<string, 3> parts(const string& text, const std::vector<string>& signs) {
  for (const string& sign : signs) {
    if (contains(text, sign)) return {sign, split(text, sign)[0], split(text, sign)[1]};
  }
  return {};
}

bool isOneOf(int type, const std::vector<int>& types) {
  return std::count(types.begin(), types.end(), type) > 0;
}
const std::vector<int> kDateTypes{6, 7, 8, 9, 11, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22};

}  // namespace

void ReferenceEvaluator::fillField(int n) {
  f_[n] = normalizeNumber(host_.fieldText(n), host_.locale());
  if (isOneOf(host_.fieldType(n), {6, 7, 8, 9, 10, 11, 12})) {
    const auto typed = readDate(host_.fieldText(n), host_.locale(), host_.now());
    if (host_.fieldDate(n) != 0) {
      f_[n] = machineNumber(host_.fieldDate(n));
    } else if (typed) {
      f_[n] = machineNumber(*typed);
    }
  }
}

void ReferenceEvaluator::fillArrays() {
  f_.assign(host_.fieldCount() + 1, "");
  c_.assign(host_.comboCount() + 1, "");
  k_.assign(host_.checkCount() + 1, "");
  v_.fill("");
  for (int n = 1; n <= host_.fieldCount(); ++n) fillField(n);
  for (int n = 1; n <= host_.comboCount(); ++n) c_[n] = host_.comboText(n);
  for (int n = 0; n <= host_.checkCount(); ++n) k_[n] = std::to_string(host_.checkValue(n));
}

void ReferenceEvaluator::runFormulas() {
  fillArrays();
  runPass(0);
  runPass(1);
}

void ReferenceEvaluator::runPass(int textMode) {
  for (int n = 1; n <= host_.fieldCount(); ++n) {
    const bool text = host_.fieldType(n) == 0 || host_.fieldType(n) == 23;
    if (!host_.fieldFormula(n).empty() && text == (textMode == 1)) runOne(n, textMode);
  }
}

void ReferenceEvaluator::runOne(int n, int textMode) {
  string text(host_.fieldFormula(n));
  if (mode_ == FormulaMode::designer) text = prepareFormula(text);
  text = replaceAll(text, "ID:", std::to_string(host_.recordNumber()));
  const auto put = [](string& in, const string& letter, int high, int low, const auto& values) {
    for (int i = high; i >= low; --i) {
      in = replaceAll(in, letter + std::to_string(i), replaceAll(values[i], " ", "_"));
    }
  };
  put(text, "F", host_.fieldCount(), 1, f_);
  put(text, "C", host_.comboCount(), 1, c_);
  put(text, "K", host_.checkCount(), 0, k_);
  const auto lines = split(text, "\r\n");
  for (string line : lines) {
    put(line, "V", 99, 0, v_);
    if (line.substr(0, 2) == "IF") {
      executeIf(line, textMode);
    } else if (lines.size() > 1 || contains(line, "=")) {
      executeAssign(line);
    } else {
      showBare(n, evaluateArithmetic(line));
    }
  }
}

void ReferenceEvaluator::showBare(int n, const string& result) {
  const int type = host_.fieldType(n);
  const Locale& locale = host_.locale();
  const double value = val(result);
  const bool zero = result == "0", isDate = isOneOf(type, kDateTypes);
  string text = localNumber(value, locale);
  double serial = 0;
  if (type >= 2 && type <= 4) text = formatNumber(*Decimal28::fromText(result), {.decimals = type}, locale);
  if (type == 5) text = formatNumber(*Decimal28::fromText(result), {.decimals = 0}, locale);
  if (type == 5 && (text == "0" || text == "-0")) text = "";
  if (isDate || type == 10 || type == 12) {
    serial = zero ? 0 : value + (isDate ? host_.fieldDayOffset(n) : 0);
    if (!isDateSerial(serial)) return;
    text = formatDate(serial, datePattern(type), locale);
  }
  if (zero && (isDate || host_.fieldBlankWhenZero(n))) text = "";
  if (type >= 6 && type <= 12) host_.setFieldDate(n, serial);
  host_.setFieldText(n, text);
  fillField(n);
}

void ReferenceEvaluator::executeIf(string line, int textMode) {
  auto t = tokens(line);
  for (string& token : t) token = replaceAll(token, "_", " ");
  const int count = static_cast<int>(t.size());
  const auto next = [&](const string& what, int from) {
    while (from < count && t[from] != what) ++from;
    return from;
  };
  bool last = false;
  int start = count;
  for (int i = 1; i < count; ++i) {
    if (t[i] == "OR") {
      if (last) {
        start = next("THEN", i) + 1;
        break;
      }
    } else if (t[i] == "AND") {
      if (last) continue;
      const int orAt = next("OR", i), elseAt = next("ELSE", i);
      if (orAt == count || elseAt < orAt) {
        start = elseAt + 1;
        break;
      }
      i = orAt;
    } else if (t[i] == "THEN") {
      start = last ? i + 1 : next("ELSE", i) + 1;
      break;
    } else {
      last = evaluateCondition(t[i], textMode);
    }
  }
  for (int i = start; i < count && t[i] != "ELSE"; ++i) assignmentStep(t[i]);
}

void ReferenceEvaluator::executeAssign(string line) {
  for (const string& token : tokens(line)) assignmentStep(token);
}

bool ReferenceEvaluator::evaluateCondition(string token, int textMode) const {
  if (contains(token, "\"")) {
    token = replaceAll(token, "\"", "");
    textMode = 1;
  }
  if (contains(token, "NOT")) {
    const auto [sign, a, b] =
        parts(replaceAll(replaceAll(token, "NOT(", ""), ")", ""), {">=", "<=", "<", ">"});
    return !sign.empty() && !relate(sign, val(a) - val(b));
  }
  const auto [sign, a, b] = parts(token, {"<>", "<=", ">=", ">", "<", "="});
  if (sign.empty()) return false;
  const string left = number(a), right = number(b);
  if (textMode == 0) return relate(sign, val(left) - val(right));
  return relate(sign, mode_ == FormulaMode::engine ? compareFolded(left, right, host_.codePage())
                                                   : left.compare(right));
}

string ReferenceEvaluator::formOf(const string& token, const string& right, bool& done, bool& displayed) {
  const auto bare = [&](const string& form) { return replaceAll(replaceAll(right, form, ""), ")", ""); };
  const auto truth = [](bool value) { return value ? "-1" : "0"; };
  if (contains(token, "CUR(")) {
    const Locale& locale = host_.locale();
    const bool isLocal = contains(bare("CUR("), string(1, locale.decimalSeparator));
    const string amount =
        isLocal || locale.decimalSeparator == '.' ? normalizeNumber(bare("CUR("), locale) : bare("CUR(");
    return replaceAll(CMoney(locale).monetaryToWords(amount), " ", "_");
  }
  for (int d = 0; d <= 9; ++d) {
    const string form = (d < 5 ? "CUR" : "NUM") + std::to_string(d % 5) + "(";
    if (!contains(token, form)) continue;
    displayed = true;
    const double value = val(assigned(bare(form)));
    return d < 5 ? formatCurrency(value, d, host_.locale())
                 : formatNumber(value, {.decimals = d - 5}, host_.locale());
  }
  if (mode_ == FormulaMode::engine && contains(token, "MSGBOX(")) {
    host_.showMessage(replaceAll(replaceAll(bare("MSGBOX("), "(", ""), "_", " "));
    done = true;
    return "";
  }
  const bool negated = contains(token, "NOT(");
  const auto [sign, a, b] =
      negated ? parts(bare("NOT("), {">=", "<=", "=", "<", ">"}) : parts(right, {">=", "<=", "<", ">"});
  if (sign.empty()) return negated ? "0" : right;
  return truth(relate(sign, val(evaluateArithmetic(a)) - val(evaluateArithmetic(b))) != negated);
}

void ReferenceEvaluator::assignmentStep(string token) {
  if (!contains(token, "=")) return;
  token = replaceAll(token, "\"", "");
  const string target = token.substr(0, token.find("="));
  bool done = false, displayed = false;
  const string value = formOf(token, token.substr(token.find("=") + 1), done, displayed);
  if (!done) storeInTarget(target, value, displayed);
}

void ReferenceEvaluator::storeInTarget(const string& target, const string& value, bool displayed) {
  const Locale& locale = host_.locale();
  const string text = replaceAll(value, "_", " "),
               machine = displayed ? normalizeNumber(value, locale) : value;
  if (target == "MSGBOX" && mode_ == FormulaMode::engine) host_.showMessage(text);
  const string digits = target.substr(std::min<std::size_t>(1, target.size()));
  if (digits.empty() || digits.size() > 6 || digits.find_first_not_of("0123456789") != string::npos) return;
  const int n = std::stoi(digits);
  const double numeric = val(assigned(machine));
  if (target[0] == 'm' && n >= 1 && n <= host_.memoCount()) host_.setMemoText(n, text);
  if (target[0] == 'c' && n >= 1 && n <= host_.comboCount()) {
    host_.setComboText(n, text);
    c_[n] = text;
  }
  if (target[0] == 'k' && n <= host_.checkCount()) {
    host_.setCheckValue(n, numeric > 0.5 ? 1 : 0);
    k_[n] = numeric > 0.5 ? "1" : "0";
  }
  if (target[0] == 'v' && n <= 99) v_[n] = machineNumber(numeric);
  if (target[0] != 'f' || n < 1 || n > host_.fieldCount()) return;
  const int type = host_.fieldType(n);
  const double computed = val(evaluateArithmetic(machine));
  if (type == 0 || type == 23) {
    host_.setFieldText(n, text);
  } else if (type <= 4) {
    host_.setFieldText(n, localNumber(computed, locale));
  } else if (type == 10 || type == 12) {
    if (!isDateSerial(computed)) return;
    host_.setFieldDate(n, computed);
    host_.setFieldText(n, formatDate(computed, type == 10 ? "Short Time" : "hh:nn:ss", locale));
  } else {
    if (isOneOf(type, {6, 7, 8, 9, 11})) host_.setFieldDate(n, isDateSerial(numeric) ? numeric : 0);
    host_.setFieldText(n, localNumber(numeric, locale));
  }
  fillField(n);
}

}  // namespace plinth
