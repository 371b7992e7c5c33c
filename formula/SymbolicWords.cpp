// The words first, one after the other over the whole line, then the references.
#include "formula/SymbolicWords.h"

#include <cmath>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/Text.h"
#include "formula/FieldDisplay.h"
#include "formula/FormulaText.h"
#include "formula/FormulaValues.h"

namespace plinth {

namespace {

bool isWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         static_cast<unsigned char>(c) > 127;
}

bool standsAlone(std::string_view text, std::size_t at, std::size_t size) {
  return (at == 0 || !isWordCharacter(text[at - 1])) &&
         (at + size >= text.size() || !isWordCharacter(text[at + size]));
}

std::string replaceWord(std::string_view text, std::string_view word, std::string_view with, int codePage) {
  std::string out;
  std::size_t done = 0;
  for (std::size_t at = findFolded(text, word, 0, codePage); at != text.npos;
       at = findFolded(text, word, at + word.size(), codePage)) {
    if (word.back() != '$' && !standsAlone(text, at, word.size())) continue;
    out.append(text.substr(done, at - done)).append(with);
    done = at + word.size();
    if (out.size() > kMaxFormulaText) return std::string(text);
  }
  return out.append(text.substr(done));
}

}  // namespace

std::string replaceSymbolicWords(std::string_view line, const FormulaHost& host, const SearchTotals& totals) {
  const double today = std::floor(host.now());
  const struct {
    std::string_view word;
    std::string with;
  } words[] = {{"ID", std::to_string(host.recordNumber())},
               {"SDATE", machineNumber(today)},
               {"Date$", formatDate(today, "Short Date", host.locale())},
               {"DateVal$", machineNumber(host.now())},
               {"SumTotal$", machineNumber(totals.sum)},
               {"SumAdv$", machineNumber(totals.average)},
               {"CountTotal$", std::to_string(totals.count)}};
  std::string out(line);
  for (const auto& [word, with] : words) out = replaceWord(out, word, with, host.codePage());
  return out;
}

std::string substituteScriptLine(std::string_view line, const FormulaHost& host, const SearchTotals& totals) {
  return replaceReferences(replaceSymbolicWords(line, host, totals), scriptReferences(host));
}

}  // namespace plinth
