// IF lines and assignments. The forms of a value are looked for in a fixed order anywhere in the token, and
// what each target makes of a value is fixed too: formulas that users have written depend on it.
#include "formula/Execute.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "basic/DateSerial.h"
#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "formula/Arithmetic.h"
#include "formula/FieldDisplay.h"
#include "formula/FormulaText.h"
#include "formula/MoneyWords.h"

namespace plinth {

namespace {

constexpr std::string_view kThen = "THEN", kElse = "ELSE", kAnd = "AND", kOr = "OR";

std::vector<std::string> tokensOf(std::string_view line) {
  return split(joinQuoted(replaceAll(replaceAll(line, "TRUE", "-1"), "FALSE", "0")), " ");
}

std::string blanksBack(std::string_view text) { return replaceAll(text, "_", " "); }

// Right side of an assignment after its form has been applied.
struct Value {
  std::string text;
  bool isDisplayed = false;  // money or number in the locale's form
};

std::string inner(std::string_view right, std::string_view form) {
  return replaceAll(replaceAll(right, form, ""), ")", "");
}

// The number that a value stands for. Made of the signs of arithmetic alone it is an expression, letters
// behind numbers and parentheses too; of any other text the leading number counts.
double assignedNumber(std::string_view text) {
  constexpr std::string_view kArithmetic = "0123456789.-+~*/^()ABCEROUNDLSTMX";
  const bool isExpression = text.find_first_not_of(kArithmetic) == text.npos;
  return isExpression ? evaluateArithmetic(text).toDouble() : numericValue(text);
}

// "CUR0(" to "CUR4(" and "NUM0(" to "NUM4(".
std::optional<Value> formattedValue(std::string_view token, std::string_view right, const Locale& locale) {
  for (const std::string_view name : {"CUR", "NUM"}) {
    for (int decimals = 0; decimals <= 4; ++decimals) {
      const std::string form = std::string(name) + std::to_string(decimals) + "(";
      if (token.find(form) == token.npos) continue;
      const double value = assignedNumber(inner(right, form));
      return Value{name == "CUR" ? formatCurrency(value, decimals, locale)
                                 : formatNumber(value, {.decimals = decimals}, locale),
                   true};
    }
  }
  return std::nullopt;
}

std::string truth(bool value) { return value ? "-1" : "0"; }

bool compareComputed(const Relation& relation) {
  return holds(relation.sign, compareNumbers(evaluateArithmetic(relation.left).toDouble(),
                                             evaluateArithmetic(relation.right).toDouble()));
}

// Unlike the NOT of a condition this one knows "=" and computes its sides.
std::string negatedValue(std::string_view right) {
  constexpr std::array<std::string_view, 5> kSigns{">=", "<=", "=", "<", ">"};
  const auto relation = findRelation(inner(right, "NOT("), kSigns);
  return truth(relation && !compareComputed(*relation));
}

// A value that came from a field has "." as its point already; in a locale with another separator a second
// rewrite would drop the point and make a hundredfold of the amount.
std::string machineAmount(std::string_view text, const Locale& locale) {
  const bool isLocal = locale.decimalSeparator == '.' || text.find(locale.decimalSeparator) != text.npos;
  return isLocal ? normalizeNumber(text, locale) : std::string(text);
}

// nullopt when the token was a message: then nothing is assigned.
std::optional<Value> valueOf(const FormulaContext& context, std::string_view token, std::string_view right) {
  constexpr std::array<std::string_view, 4> kSigns{">=", "<=", "<", ">"};
  const Locale& locale = context.host.locale();
  if (token.find("CUR(") != token.npos) {
    return Value{CMoney(locale).monetaryToWords(machineAmount(inner(right, "CUR("), locale))};
  }
  if (auto value = formattedValue(token, right, locale)) return value;
  if (context.program == FormulaMode::engine && token.find("MSGBOX(") != token.npos) {
    context.host.showMessage(blanksBack(replaceAll(inner(right, "MSGBOX("), "(", "")));
    return std::nullopt;
  }
  if (token.find("NOT(") != token.npos) return Value{negatedValue(right)};
  if (const auto relation = findRelation(right, kSigns)) return Value{truth(compareComputed(*relation))};
  return Value{std::string(right)};
}

// The expression in a value. A displayed number loses its grouping first, which in some locales is the point.
Decimal28 computed(const Value& value, const Locale& locale) {
  return evaluateArithmetic(value.isDisplayed ? normalizeNumber(value.text, locale) : value.text);
}

double numeric(const Value& value, const Locale& locale) {
  return assignedNumber(value.isDisplayed ? normalizeNumber(value.text, locale) : value.text);
}

void assignTime(FormulaHost& host, int n, double serial) {
  if (!isDateSerial(serial)) return;
  host.setFieldDate(n, serial);
  host.setFieldText(n, formatDate(serial, datePattern(host.fieldType(n)), host.locale()));
}

// A number goes into the box plain, without the decimals or the date form of the field's type. The box shows
// the locale's decimal separator, since what it shows is read back and stored.
void assignField(FormulaHost& host, int n, const Value& value) {
  const Locale& locale = host.locale();
  const int type = host.fieldType(n);
  if (isTextType(type)) return host.setFieldText(n, blanksBack(value.text));
  if (type <= 4) return host.setFieldText(n, localNumber(computed(value, locale).toDouble(), locale));
  if (isTimeType(type)) return assignTime(host, n, computed(value, locale).toDouble());
  const double number = numeric(value, locale);
  if (holdsSerial(type)) host.setFieldDate(n, isDateSerial(number) ? number : 0);
  host.setFieldText(n, localNumber(number, locale));
}

// "f12" is 12; -1 when it is no index.
int targetIndex(std::string_view target) {
  const std::string_view digits = target.substr(1);
  if (digits.empty() || digits.size() > 6 || digits.find_first_not_of("0123456789") != digits.npos) return -1;
  return static_cast<int>(val(digits));
}

void assignTo(const FormulaContext& context, std::string_view target, const Value& value) {
  FormulaHost& host = context.host;
  if (target == "MSGBOX") {
    if (context.program == FormulaMode::engine) host.showMessage(blanksBack(value.text));
    return;
  }
  const int n = target.empty() ? -1 : targetIndex(target);
  if (n < 0) return;
  switch (target.front()) {
    case 'f':
      if (n >= 1 && n <= host.fieldCount()) assignField(host, n, value);
      break;
    case 'm':
      if (n >= 1 && n <= host.memoCount()) host.setMemoText(n, blanksBack(value.text));
      break;
    case 'c':
      if (n >= 1 && n <= host.comboCount()) host.setComboText(n, blanksBack(value.text));
      break;
    case 'k':  // so a true of -1 clears the box
      if (n <= host.checkCount()) {
        host.setCheckValue(n, std::clamp(numeric(value, host.locale()), 0.0, 1.0) > 0.5 ? 1 : 0);
      }
      break;
    case 'v':
      if (n < kVariableCount) context.variables[n] = machineNumber(numeric(value, host.locale()));
      break;
    default:
      break;
  }
}

void assign(const FormulaContext& context, std::string_view rawToken) {
  const std::string token = replaceAll(rawToken, "\"", "");
  const std::size_t equals = token.find('=');
  if (equals == token.npos) return;
  const std::string_view right = std::string_view(token).substr(equals + 1);
  if (const auto value = valueOf(context, token, right)) {
    assignTo(context, std::string_view(token).substr(0, equals), *value);
  }
}

using Tokens = std::vector<std::string>;

std::size_t findToken(const Tokens& tokens, std::string_view what, std::size_t from) {
  while (from < tokens.size() && tokens[from] != what) ++from;
  return from;
}

// The first token of the part that the condition chooses; tokens.size() for none.
std::size_t choosePart(const FormulaContext& context, const Tokens& tokens, ValueMode mode) {
  bool last = false;
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const std::string& token = tokens[i];
    if (token == kThen) return last ? i + 1 : std::min(findToken(tokens, kElse, i) + 1, tokens.size());
    if (token == kOr) {
      if (last) i = findToken(tokens, kThen, i) - 1;
    } else if (token == kAnd) {
      if (last) continue;
      while (i < tokens.size() && tokens[i] != kOr && tokens[i] != kElse) ++i;
      if (i < tokens.size() && tokens[i] == kElse) return i + 1;
    } else {
      last = evaluateCondition(token, mode, context.program, context.host.codePage());
    }
  }
  return tokens.size();
}

}  // namespace

std::string replaceVariables(std::string_view line, const FormulaVariables& variables) {
  return replaceReferences(line, {{'V', 0, kVariableCount - 1, [&](int n) { return variables[n]; }}});
}

void executeIf(const FormulaContext& context, std::string_view line, ValueMode mode) {
  Tokens tokens = tokensOf(line);
  for (std::string& token : tokens) token = blanksBack(token);
  for (std::size_t i = choosePart(context, tokens, mode); i < tokens.size() && tokens[i] != kElse; ++i) {
    assign(context, tokens[i]);
  }
}

void executeAssign(const FormulaContext& context, std::string_view line) {
  for (const std::string& token : tokensOf(line)) assign(context, token);
}

void executeLine(const FormulaContext& context, std::string_view line, ValueMode mode) {
  isIfLine(line) ? executeIf(context, line, mode) : executeAssign(context, line);
}

}  // namespace plinth
