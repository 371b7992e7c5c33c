// Values are read from the host when a formula asks for them: a value that an earlier formula has set counts
// at once.
#include "formula/FormulaValues.h"

#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "formula/FieldDisplay.h"

namespace plinth {

namespace {

std::string serialValue(const FormulaHost& host, int n) {
  const double held = host.fieldDate(n);
  if (held != 0) return machineNumber(held);
  const std::string text = host.fieldText(n);
  if (text.empty()) return "";
  // A time that was typed, or came from a file, before anyone held it as a serial.
  const auto read = readDate(text, host.locale(), host.now());
  return read ? machineNumber(*read) : normalizeNumber(text, host.locale());
}

std::string joined(std::string_view text) { return replaceAll(text, " ", "_"); }

}  // namespace

std::string fieldValue(const FormulaHost& host, int n) {
  return holdsSerial(host.fieldType(n)) ? serialValue(host, n)
                                        : normalizeNumber(host.fieldText(n), host.locale());
}

std::vector<ReferenceKind> formulaReferences(const FormulaHost& host) {
  return {{'F', 1, host.fieldCount(), [&host](int n) { return joined(fieldValue(host, n)); }},
          {'C', 1, host.comboCount(), [&host](int n) { return joined(host.comboText(n)); }},
          {'K', 0, host.checkCount(), [&host](int n) { return std::to_string(host.checkValue(n)); }}};
}

std::vector<ReferenceKind> scriptReferences(const FormulaHost& host) {
  return {{'F', 1, host.fieldCount(), [&host](int n) { return machineNumber(val(fieldValue(host, n))); }},
          {'C', 1, host.comboCount(), [&host](int n) { return host.comboText(n); }},
          {'K', 0, host.checkCount(), [&host](int n) { return std::to_string(host.checkValue(n)); }}};
}

}  // namespace plinth
