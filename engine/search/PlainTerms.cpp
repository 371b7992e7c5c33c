// Each kind of object reads the terms its own way; what cannot be read as its kind of value is looked for in
// the text that a box would show.
#include "engine/search/PlainTerms.h"

#include <algorithm>
#include <cmath>

#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "engine/FieldEntry.h"
#include "engine/RecordCodec.h"
#include "engine/VariableArea.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

constexpr double kSecondsOfDay = 86400.0;
constexpr std::size_t kShortestDate = 6, kLongestDate = 40;
constexpr std::size_t kMostDaysKept = 100'000;

std::vector<std::string> withoutEmpty(const std::vector<std::string>& pieces) {
  std::vector<std::string> kept;
  for (const std::string& piece : pieces)
    if (std::string term = trim(piece); !term.empty()) kept.push_back(std::move(term));
  return kept;
}

// The pieces of `line` between the places where `separator` stands, case aside, from position `from` on.
std::vector<std::string> piecesBetween(std::string_view line, std::string_view separator, std::size_t from) {
  const std::string lower = lowerAscii(line);
  std::vector<std::string> pieces;
  std::size_t begin = 0;
  for (std::size_t at; (at = lower.find(separator, from)) != std::string::npos;) {
    pieces.emplace_back(line.substr(begin, at - begin));
    begin = from = at + separator.size();
  }
  pieces.emplace_back(line.substr(begin));
  return pieces;
}

template <class Value>
bool compares(PlainOperator op, Value value, Value low, Value high) {
  switch (op) {
    case PlainOperator::equal:
      return value == low;
    case PlainOperator::notEqual:
      return value != low;
    case PlainOperator::lessEqual:
      return value <= low;
    case PlainOperator::greaterEqual:
      return value >= low;
    case PlainOperator::less:
      return value < low;
    case PlainOperator::greater:
      return value > low;
    case PlainOperator::between:
      return value > low && value < high;
  }
  return false;
}

bool hasDigit(std::string_view text) { return text.find_first_of("0123456789") != std::string_view::npos; }

// An empty value is zero, so that "=" finds what nobody filled in; words are no number.
bool isNumberText(std::string_view text) { return text.empty() || hasDigit(text); }

std::int64_t secondsOf(double time) { return std::llround(time * kSecondsOfDay); }

}  // namespace

PlainLine takePlainLineApart(std::string_view line) {
  PlainLine out;
  std::string text = trim(line);
  if (!text.empty() && text[0] == '!') {
    out.wholeRecord = true;
    text = trim(text.substr(1));
  }
  // A "+" in front belongs to the term, as in a telephone number.
  out.all = text.find('+', 1) != std::string::npos;
  out.terms = withoutEmpty(out.all ? piecesBetween(text, "+", 1) : piecesBetween(text, " or ", 0));
  return out;
}

PlainComparison plainComparison(std::string_view term) {
  if (const std::size_t at = term.find("><"); at != std::string_view::npos)
    return {PlainOperator::between, trim(term.substr(0, at)), trim(term.substr(at + 2))};
  const std::size_t at = term.find_first_of("<>=");
  if (at == std::string_view::npos) return {PlainOperator::equal, trim(term), ""};
  struct Row {
    std::string_view mark;
    PlainOperator op;
  };
  static constexpr Row kRows[] = {
      {"<>", PlainOperator::notEqual}, {">=", PlainOperator::greaterEqual}, {"<=", PlainOperator::lessEqual},
      {">", PlainOperator::greater},   {"<", PlainOperator::less},          {"=", PlainOperator::equal}};
  const std::string_view rest = term.substr(at);
  const Row* row = std::find_if(std::begin(kRows), std::end(kRows),
                                [&](const Row& r) { return rest.substr(0, r.mark.size()) == r.mark; });
  return {row->op, trim(rest.substr(row->mark.size())), ""};
}

std::int32_t timeOfTerm(int kind, std::string_view text) {
  std::string digits;
  for (const char c : text)
    if (c >= '0' && c <= '9') digits += c;
  if (digits.empty()) return -1;
  const std::size_t width = kind == 12 || digits.size() > 4 ? 6 : 4;
  digits.insert(0, width - std::min(width, digits.size()), '0');
  const auto part = [&](std::size_t at) {
    return at < width ? (digits[at] - '0') * 10 + (digits[at + 1] - '0') : 0;
  };
  std::int32_t hour = part(0);
  const bool afternoon = text.find_first_of("pP") != std::string_view::npos;
  if (hour < 12 && afternoon) hour += 12;
  if (hour == 12 && kind == 11 && !afternoon) hour = 0;
  return hour * 3600 + part(2) * 60 + part(4);
}

PlainTest::PlainTest(const PlainLine& line, const RecordKey& key, const PlainContext& context)
    : line_(line), key_(key), context_(context) {
  terms_.reserve(line.terms.size());
  for (const std::string& text : line.terms) terms_.push_back(termOf(text));
}

PlainTest::Term PlainTest::termOf(const std::string& text) const {
  const bool isText = key_.type == KeyType::text || key_.type == KeyType::variableLabels;
  const PlainComparison comparison = isText ? PlainComparison{} : plainComparison(text);
  const bool one = !isText && comparison.op != PlainOperator::between;
  Term term{.op = comparison.op,
            .match = {one ? comparison.value : text, context_.matchCase, context_.application.codePage},
            .days = {}};
  if (key_.type == KeyType::date)
    readDays(comparison, term);
  else if (key_.type == KeyType::time)
    readTimes(comparison, term);
  else if (!isText)
    readNumbers(comparison, term);
  return term;
}

void PlainTest::readNumbers(const PlainComparison& comparison, Term& term) const {
  if (!isNumberText(comparison.value) || !isNumberText(comparison.upper)) {
    term.sense = comparison.op == PlainOperator::notEqual ? Sense::everything : Sense::nothing;
    return;
  }
  term.low = val(normalizeNumber(comparison.value, context_.locale));
  term.high = val(normalizeNumber(comparison.upper, context_.locale));
  term.exactLow = scaledFromText(comparison.value, context_.locale);
  term.exactHigh = scaledFromText(comparison.upper, context_.locale);
}

void PlainTest::readDays(const PlainComparison& comparison, Term& term) const {
  const auto day = [&](const std::string& text, std::int64_t& to) {
    if (text.size() < kShortestDate || text.size() > kLongestDate) return false;
    const auto serial = readDate(text, context_.locale, context_.today);
    if (!serial || std::trunc(*serial) == 0) return false;  // a time alone is no day
    to = static_cast<std::int64_t>(*serial);
    return true;
  };
  const bool isRange = comparison.op == PlainOperator::between;
  if (day(comparison.value, term.exactLow) && (!isRange || day(comparison.upper, term.exactHigh))) return;
  term.sense = comparison.op == PlainOperator::notEqual ? Sense::negatedPattern : Sense::pattern;
}

void PlainTest::readTimes(const PlainComparison& comparison, Term& term) const {
  term.exactLow = timeOfTerm(key_.fieldKind, comparison.value);
  term.exactHigh = timeOfTerm(key_.fieldKind, comparison.upper);
  const bool isRange = comparison.op == PlainOperator::between;
  if (term.exactLow >= 0 && (!isRange || term.exactHigh >= 0)) return;
  term.sense = comparison.op == PlainOperator::notEqual ? Sense::negatedPattern : Sense::pattern;
}

template <class Test>
bool PlainTest::joined(const Test& test) {
  for (Term& term : terms_)
    if (test(term) != line_.all) return !line_.all;
  return line_.all;
}

bool PlainTest::holdsText(std::span<const std::uint8_t> bytes) {
  // Terms are trimmed: padding cannot be part of a hit, so only a pattern needs to know where it begins.
  const std::string_view padded(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return joined([&](const Term& term) {
    return term.match.isIn(padded) || (term.match.hasWildcards() && term.match.fits(keyText(bytes)));
  });
}

bool PlainTest::holdsNumber(double value) {
  return joined([value](const Term& term) {
    if (term.sense != Sense::compared) return term.sense == Sense::everything;
    return compares(term.op, value, term.low, term.high);
  });
}

bool PlainTest::holdsExact(std::int64_t value) {
  return joined([value](const Term& term) {
    if (term.sense != Sense::compared) return term.sense == Sense::everything;
    return compares(term.op, value, term.exactLow, term.exactHigh);
  });
}

bool PlainTest::holdsDay(std::int64_t day) {
  return joined([&](Term& term) {
    if (term.sense == Sense::compared) return compares(term.op, day, term.exactLow, term.exactHigh);
    return dayFits(term, day) != (term.sense == Sense::negatedPattern);
  });
}

bool PlainTest::dayFits(Term& term, std::int64_t day) const {
  if (const auto known = term.days.find(day); known != term.days.end()) return known->second;
  if (term.days.size() >= kMostDaysKept) term.days.clear();
  std::string text;
  if (day != 0)
    text = formatFieldDate(key_.fieldKind, static_cast<double>(day), context_.application.dateFormat,
                           context_.locale);
  return term.days[day] = term.match.found(text);
}

bool PlainTest::holdsTime(std::string_view text, double time) {
  return joined([&](const Term& term) {
    if (term.sense == Sense::compared)
      return compares(term.op, secondsOf(time), term.exactLow, term.exactHigh);
    return term.match.found(text) != (term.sense == Sense::negatedPattern);
  });
}

// Patterns are tried on the time as a box shows it, since the line has only its serial.
bool PlainTest::holdsTimeLine(double time) {
  return holdsTime(time == 0 ? std::string()
                             : formatFieldDate(key_.fieldKind, time, context_.application.dateFormat,
                                               context_.locale),
                   time);
}

bool PlainTest::holdsLabels(std::span<const std::uint8_t> area) {
  readVariableArea(area, labels_);
  return joined([&](const Term& term) {
    return std::any_of(labels_.labels.begin(), labels_.labels.end(), [&](const VariableLabel& label) {
      return label.visible && term.match.found(label.text);
    });
  });
}

bool PlainTest::holds(std::span<const std::uint8_t> bytes) {
  switch (key_.type) {
    case KeyType::text:
      return holdsText(bytes);
    case KeyType::number:
      return holdsNumber(keyNumber(bytes));
    case KeyType::whole:
      return holdsNumber(keyWhole(bytes));
    case KeyType::check:
      return holdsNumber(bytes[0]);
    case KeyType::currency:
      return holdsExact(keyScaled(bytes));
    case KeyType::date:
      return holdsDay(dayOfScaled(keyScaled(bytes)));
    case KeyType::time: {
      const std::string_view text = keyText(bytes);
      return holdsTime(text, heldTime(key_.fieldKind, text, context_.locale));
    }
    case KeyType::variableLabels:
      return holdsLabels(bytes);
  }
  return false;
}

bool PlainTest::holdsLine(std::string_view line) {
  switch (key_.type) {
    case KeyType::number:
    case KeyType::whole:
    case KeyType::check:
      return holdsNumber(val(line));
    case KeyType::currency:
      return holdsExact(scaledValue(val(line)));
    case KeyType::date:
      return holdsDay(dayOfScaled(scaledValue(val(line))));
    case KeyType::time:
      return holdsTimeLine(val(line));
    case KeyType::text:
    case KeyType::variableLabels:
      break;
  }
  return holdsText({reinterpret_cast<const std::uint8_t*>(line.data()), line.size()});
}

}  // namespace plinth
