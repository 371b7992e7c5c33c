// Any text as formulas and values of a small record: no crash, no hang, no text without bound.
// Input: parts between empty lines; the first byte of each says what it is: "A" to "X" a field of type 0 to
// 23 with its text, "c" a combo, else the formula of the last field.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "basic/Text.h"
#include "formula/RunFormulas.h"
#include "formula/SymbolicWords.h"
#include "tests/formula/FakeRecord.h"

namespace {

plinth::FakeRecord recordOf(std::string_view input) {
  plinth::FakeRecord record;
  record.combos = {"Cash"};
  record.memos = {""};
  record.checks = {1, 0};
  for (const std::string& part : plinth::split(input, "\n\n")) {
    if (part.empty() || record.fields.size() >= 40) continue;
    const std::string rest = part.substr(1);
    if (part[0] == 'c') {
      record.combos.push_back(rest);
    } else if (part[0] >= 'A' && part[0] <= 'X') {
      record.fields.push_back({.type = part[0] - 'A', .text = rest});
    } else if (!record.fields.empty()) {
      record.fields.back().formula = rest;
    }
  }
  return record;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  for (const auto mode : {plinth::FormulaMode::designer, plinth::FormulaMode::engine}) {
    plinth::FakeRecord record = recordOf(input);
    plinth::FormulaVariables variables;
    plinth::runFormulas(record, mode, variables);
    plinth::substituteScriptLine(input, record, {});
    for (const auto& field : record.fields) {
      if (field.text.size() > (std::size_t{8} << 20)) std::abort();
    }
  }
  return 0;
}
