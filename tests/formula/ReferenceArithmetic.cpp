// The reference's rewrite and arithmetic.
#include <cmath>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "tests/formula/ReferenceEvaluator.h"

namespace plinth {

namespace {

using std::string;

string mid(const string& text, int from, int count) {
  if (from < 1 || count < 0 || from > static_cast<int>(text.size())) return "";
  return text.substr(from - 1, count);
}

struct Acc {
  bool real = false;
  Decimal28 dec;
  double dbl = 0;

  double number() const { return real ? dbl : dec.toDouble(); }
  void keep(std::optional<Decimal28> d) {
    if (d) dec = *d, real = false;
  }
  void keep(double d) {
    if (std::isfinite(d)) dbl = d, real = true;
  }
  void rounded(int digits) {
    if (const auto d = real ? Decimal28::fromDouble(dbl) : dec) keep(d->rounded(digits));
  }
};

void applyBinary(Acc& acc, char op, double v) {
  if (op == '/' && acc.number() == 0) return;
  if (acc.real) {
    if (op == '+') acc.keep(acc.dbl + v);
    if (op == '~') acc.keep(acc.dbl - v);
    if (op == '*') acc.keep(acc.dbl * v);
    if (op == '/') acc.keep(acc.dbl / v);
  } else if (const auto d = Decimal28::fromDouble(v)) {
    if (op == '+') acc.keep(Decimal28::add(acc.dec, *d));
    if (op == '~') acc.keep(Decimal28::subtract(acc.dec, *d));
    if (op == '*') acc.keep(Decimal28::multiply(acc.dec, *d));
    if (op == '/') acc.keep(Decimal28::divide(acc.dec, *d));
  }
}

void apply(Acc& acc, char op, const string& buffer) {
  const double v = buffer.empty() ? 0 : val(buffer);
  const double a = acc.number();
  if (op == ' ') acc.keep(Decimal28::fromDouble(v));
  if (contains("+~*/", {&op, 1})) applyBinary(acc, op, v);
  if (op == '^' && !(a == 0 && v < 0) && std::isfinite(std::pow(a, v))) {
    acc.keep(std::pow(a, v));
    acc.keep(Decimal28::fromDouble(acc.dbl));
  }
  if (op == 'M' && std::nearbyint(v) != 0 && std::abs(a) <= 9e18 && std::abs(v) <= 9e18) {
    acc.keep(Decimal28(std::llrint(a) % std::llrint(v)));
  }
  if (op == 'A') acc.real ? acc.keep(std::abs(a)) : acc.keep(acc.dec.absolute());
  if (op == 'B') acc.keep(std::atan(a));
  if (op == 'C') acc.keep(std::cos(a));
  if (op == 'E') acc.keep(std::exp(a));
  if (op == 'L' && a > 0) acc.keep(std::log(a));
  if (op == 'S' && a >= 0) acc.keep(std::sqrt(a));
  if (op == 'T') acc.keep(std::tan(a));
  const auto digits = string("ROUND").find(op);
  if (digits != string::npos) acc.rounded(static_cast<int>(digits));
  if (op == 'X' && isDateSerial(a)) acc.keep(Decimal28(toCivil(a).hour * 60 + toCivil(a).minute));
}

string scan(const string& inner, const string& whole) {
  Acc acc;
  char pending = ' ';
  string buffer;
  for (int i = 1; i <= static_cast<int>(inner.size()); ++i) {
    const string c = mid(inner, i, 1);
    if (contains("0123456789.-", c)) {
      buffer += c;
      continue;
    }
    char found = ' ';
    for (const char op : string("+~*/^ABCEROUNDLSTMX")) {
      const bool rounding = contains("ROUND", {&op, 1});
      if (found == ' ' && (rounding ? mid(whole, i, 1) : c) == string(1, op)) found = op;
    }
    if (found != ' ') {
      apply(acc, pending, buffer);
      buffer = "";
    }
    pending = found;
  }
  apply(acc, pending, buffer);
  return acc.real ? Decimal28::fromDouble(acc.dbl).value_or(Decimal28()).toText() : acc.dec.toText();
}

}  // namespace

string ReferenceEvaluator::evaluateArithmetic(string text) {
  const int limit = static_cast<int>(text.size());
  int remembered = 0;
  for (int i = 1; i <= limit; ++i) {
    if (mid(text, i, 1) == "(") remembered = i + 1;
    if (mid(text, i, 1) != ")" || remembered == 0 || remembered > i) continue;
    const string part = mid(text, remembered, i - remembered);
    const string result = part.empty() ? "0" : scan(part, text);
    const string after = replaceAll(text, "(" + part + ")", result);
    if (after == text) continue;  // the walk would come back here for ever
    text = after;
    i = 1;
  }
  return scan(text, text);
}

string ReferenceEvaluator::prepareFormula(string text) const {
  const auto sum = text.find("SUM("), close = text.find(")", sum == string::npos ? 0 : sum);
  if (sum != string::npos && close != string::npos) {
    const string whole = text.substr(sum, close - sum + 1);
    const auto ends = split(replaceAll(whole.substr(4, whole.size() - 5), "F", ""), ":");
    if (ends.size() > 1) {
      string list;
      for (int n = std::nearbyint(val(ends[0])); n <= std::nearbyint(val(ends[1])); ++n) {
        list += (list.empty() ? "F" : "+F") + std::to_string(n);
      }
      text = replaceAll(text, whole, list);
    }
  }
  const auto mark = [&](const string& big, const string& small, int from, int to) {
    for (int n = from; n <= to; ++n) {
      text = replaceAll(text, big + std::to_string(n) + "=", small + std::to_string(n) + "=");
    }
  };
  mark("F", "f", 1, host_.fieldCount());
  mark("M", "m", 1, host_.memoCount());
  mark("C", "c", 1, host_.comboCount());
  mark("K", "k", 0, host_.checkCount());
  mark("V", "v", 0, 99);
  string out;
  for (auto begin = text.find("IF"); begin != string::npos; begin = text.find("IF")) {
    const auto then = text.find("THEN", begin);
    if (then == string::npos) break;
    out += text.substr(0, begin) + upperCase(text.substr(begin, then - begin), host_.codePage());
    text = text.substr(then);
  }
  text = replaceAll(replaceAll(out + text, "FALSE", "0"), "TRUE", "1");
  text = replaceAll(replaceAll(text, "-", "~"), "~~", "~-");
  for (const string op : {"*", "+", "/", "^"}) text = replaceAll(text, op + "~", op + "-");
  return text;
}

}  // namespace plinth
