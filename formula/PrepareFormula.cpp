// Five rewrites in a fixed order, each blind to what the text means. Their side effects are part of the
// language: formulas that users have written depend on them.
#include "formula/PrepareFormula.h"

#include <cmath>

#include "basic/CodePage.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "formula/FormulaText.h"

namespace plinth {

namespace {

// "F2+F3+F4", "" for a range that runs backwards. Stops just beyond what a formula may hold.
std::string spelledSum(double first, double last) {
  std::string out;
  for (double n = first; n <= last && out.size() <= kMaxFormulaText; ++n) {
    out += (out.empty() ? "F" : "+F") + std::to_string(static_cast<long long>(n));
  }
  return out;
}

// Only the first SUM, with all its repetitions: a second, different one stays, as it always has.
std::string expandFirstSum(std::string_view text) {
  const std::size_t open = text.find("SUM(");
  const std::size_t close = open == text.npos ? text.npos : text.find(')', open);
  if (close == text.npos) return std::string(text);
  const std::string_view whole = text.substr(open, close + 1 - open);
  const auto ends = split(replaceAll(whole.substr(4, whole.size() - 5), "F", ""), ":");
  if (ends.size() < 2) return std::string(text);  // old files have lost the ":"; there is no range to tell
  const double first = std::nearbyint(val(ends[0])), last = std::nearbyint(val(ends[1]));
  if (std::abs(first) > kMaxFormulaText) return std::string(text);
  return replaceBounded(text, whole, spelledSum(first, last));
}

// "F7=" becomes "f7=" for each index in use. By text alone, so the "F7=" of a comparison is marked too.
void markTargets(std::string& text, char letter, int low, int high) {
  for (std::size_t i = text.find(letter); i != text.npos; i = text.find(letter, i + 1)) {
    long long index = 0;
    std::size_t end = i + 1;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9' && end - i <= 9) {
      index = index * 10 + (text[end++] - '0');
    }
    const bool canonical = end > i + 1 && (text[i + 1] != '0' || end == i + 2);
    if (canonical && end < text.size() && text[end] == '=' && index >= low && index <= high) {
      text[i] = static_cast<char>(letter - 'A' + 'a');
    }
  }
}

// Takes the marking back where a condition stands. All else in the condition, quoted text too, goes to upper
// case with it: so the designer, which compares byte for byte, never finds a text with small letters.
void raiseConditions(std::string& text, int codePage) {
  for (std::size_t begin = text.find("IF"); begin != text.npos;) {
    const std::size_t end = text.find("THEN", begin);
    if (end == text.npos) return;
    text.replace(begin, end - begin, upperCase(std::string_view(text).substr(begin, end - begin), codePage));
    begin = text.find("IF", end);
  }
}

// Afterwards "~" subtracts and "-" is a sign. A minus at the start or behind "(" stays "~", a subtraction
// from 0.
std::string splitMinus(std::string_view text) {
  std::string out = replaceAll(replaceAll(text, "-", "~"), "~~", "~-");
  for (const char before : {'*', '+', '/', '^'}) {
    out = replaceAll(out, std::string{before, '~'}, std::string{before, '-'});
  }
  return out;
}

}  // namespace

std::string prepareFormula(std::string_view text, const FormulaCounts& counts) {
  std::string out = expandFirstSum(text);
  markTargets(out, 'F', 1, counts.fields);
  markTargets(out, 'M', 1, counts.memos);
  markTargets(out, 'C', 1, counts.combos);
  markTargets(out, 'K', 0, counts.checks);
  markTargets(out, 'V', 0, kVariableCount - 1);
  raiseConditions(out, counts.codePage);
  out = replaceAll(replaceAll(out, "FALSE", "0"), "TRUE", "1");
  return splitMinus(out);
}

}  // namespace plinth
