// The scanner and its register. The strange corners here are the language: formulas that users have written
// depend on them, so each one stands as it was found.
#include "formula/Arithmetic.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "formula/FormulaText.h"

namespace plinth {

namespace {

// Characters looked at for all parentheses of one text: far above any real formula's need, a fraction of a
// second.
constexpr std::size_t kParenthesisBudget = 64u << 20;

constexpr double kMaxModulo = 9.0e18;  // both sides of a modulo are 64-bit whole numbers

// A decimal as long as the value allows; a double after a transcendental letter.
class Register {
 public:
  // op: one of the operators, or 0 for a number without one.
  void apply(char op, double v);
  Decimal28 result() const {
    return isDouble_ ? Decimal28::fromDouble(double_).value_or(Decimal28()) : decimal_;
  }

 private:
  double value() const { return isDouble_ ? double_ : decimal_.toDouble(); }
  bool isZero() const { return isDouble_ ? double_ == 0 : decimal_.isZero(); }
  void set(const std::optional<Decimal28>& result);
  void setDouble(double result);
  void setWhereItFits(double result);
  void combine(char op, double v);
  void power(double v);
  void modulo(double v);
  void round(int decimals);
  void timeToMinutes();

  Decimal28 decimal_;
  double double_ = 0;
  bool isDouble_ = false;
};

void Register::set(const std::optional<Decimal28>& result) {
  if (!result) return;  // an error leaves the register
  decimal_ = *result;
  isDouble_ = false;
}

void Register::setDouble(double result) {
  if (!std::isfinite(result)) return;
  double_ = result;
  isDouble_ = true;
}

void Register::setWhereItFits(double result) {
  const auto decimal = std::isfinite(result) ? Decimal28::fromDouble(result) : std::nullopt;
  decimal ? set(decimal) : setDouble(result);
}

void Register::combine(char op, double v) {
  if (op == '/' && isZero()) return;  // 0 stays 0 whatever the divisor
  if (isDouble_) {
    setDouble(op == '+' ? double_ + v : op == '~' ? double_ - v : op == '*' ? double_ * v : double_ / v);
    return;
  }
  const auto operand = Decimal28::fromDouble(v);
  if (!operand) return;
  switch (op) {
    case '+':
      return set(Decimal28::add(decimal_, *operand));
    case '~':
      return set(Decimal28::subtract(decimal_, *operand));
    case '*':
      return set(Decimal28::multiply(decimal_, *operand));
    default:
      return set(Decimal28::divide(decimal_, *operand));
  }
}

void Register::power(double v) {
  if (isZero() && v < 0) return;
  setWhereItFits(std::pow(value(), v));
}

void Register::modulo(double v) {
  const double dividend = std::nearbyint(value()), divisor = std::nearbyint(v);
  if (divisor == 0 || std::abs(dividend) > kMaxModulo || std::abs(divisor) > kMaxModulo) return;
  set(Decimal28(static_cast<std::int64_t>(dividend) % static_cast<std::int64_t>(divisor)));
}

void Register::round(int decimals) {
  const auto decimal = isDouble_ ? Decimal28::fromDouble(double_) : std::make_optional(decimal_);
  if (decimal) set(decimal->rounded(decimals));
}

void Register::timeToMinutes() {
  if (!isDateSerial(value())) return;
  const CivilTime time = toCivil(value());
  set(Decimal28(time.hour * 60 + time.minute));
}

void Register::apply(char op, double v) {
  switch (op) {
    case 0:
      return set(Decimal28::fromDouble(v));
    case '+':
    case '~':
    case '*':
    case '/':
      return combine(op, v);
    case '^':
      return power(v);
    case 'M':
      return modulo(v);
    case 'A':
      return isDouble_ ? setDouble(std::abs(double_)) : set(decimal_.absolute());
    case 'B':
      return setDouble(std::atan(value()));
    case 'C':
      return setDouble(std::cos(value()));
    case 'E':
      return setDouble(std::exp(value()));
    case 'L':
      return setDouble(value() > 0 ? std::log(value()) : HUGE_VAL);
    case 'S':
      return setDouble(value() >= 0 ? std::sqrt(value()) : HUGE_VAL);
    case 'T':
      return setDouble(std::tan(value()));
    case 'R':
      return round(0);
    case 'O':
      return round(1);
    case 'U':
      return round(2);
    case 'N':
      return round(3);
    case 'D':
      return round(4);
    case 'X':
      return timeToMinutes();
    default:
      return;
  }
}

// The operator at an index, 0 for none. Inside parentheses `text` is the inner text and `whole` the formula
// around it: the rounding letters are looked for in the formula at the inner index, all others in the inner
// text.
char operatorAt(std::string_view text, std::string_view whole, std::size_t i) {
  constexpr std::string_view kBeforeRounding = "+~*/^ABCE", kRounding = "ROUND", kBehindRounding = "LSTMX";
  if (kBeforeRounding.find(text[i]) != kBeforeRounding.npos) return text[i];
  if (i < whole.size() && kRounding.find(whole[i]) != kRounding.npos) return whole[i];
  return kBehindRounding.find(text[i]) != kBehindRounding.npos ? text[i] : '\0';
}

Decimal28 scan(std::string_view text, std::string_view whole) {
  Register acc;
  char pending = 0;
  std::string buffer;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if ((c >= '0' && c <= '9') || c == '.' || c == '-') {
      buffer += c;
    } else if (const char op = operatorAt(text, whole, i)) {
      acc.apply(pending, val(buffer));
      buffer.clear();
      pending = op;
    } else {
      pending = 0;  // a character out of place cancels the operator before it; the number stays
    }
  }
  acc.apply(pending, val(buffer));
  return acc.result();
}

// Replaces parentheses by their values. Kept as found: the walk ends at the length the text had at first, it
// starts again at the second character, and it remembers the last "(" across that. So a formula that opens
// with two parentheses takes its outer pair for a wrong one, which then stands as two characters without
// meaning.
std::string withoutParentheses(std::string_view text) {
  std::string work(text);
  const std::size_t limit = work.size();
  std::size_t inside = work.npos, spent = 0;
  for (std::size_t i = 0; i < limit && i < work.size(); ++i) {
    if (++spent > kParenthesisBudget) break;
    if (work[i] == '(') inside = i + 1;
    if (work[i] != ')' || inside > i) continue;  // ")" without its "("
    const std::string piece = "(" + work.substr(inside, i - inside) + ")";
    spent += work.size() + piece.size();
    if (work.find(piece) == work.npos) continue;  // nothing would change, for ever
    const std::string_view part = std::string_view(work).substr(inside, i - inside);
    std::string replaced = replaceBounded(work, piece, scan(part, work).toText());
    if (replaced.size() == work.size() && replaced == work) continue;
    work = std::move(replaced);
    i = 0;
  }
  return work;
}

}  // namespace

Decimal28 evaluateArithmetic(std::string_view text) {
  if (text.find(')') == text.npos) return scan(text, text);
  const std::string flat = withoutParentheses(text);
  return scan(flat, flat);
}

}  // namespace plinth
