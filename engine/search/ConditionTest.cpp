// Type and operator are chosen outside the loops over records. Most records fail a text condition at its
// first character: that is looked at in the stored bytes, before the text's end is sought and anything is
// decoded.
#include "engine/search/ConditionTest.h"

#include <cmath>
#include <cstring>
#include <functional>

#include "basic/CodePage.h"
#include "basic/NumberReader.h"
#include "basic/Substitution.h"
#include "engine/FieldEntry.h"

namespace plinth {
namespace {

// Only these are one byte a character in every code page.
bool isAscii(char c) { return static_cast<unsigned char>(c) < 128; }

std::int64_t wholeSeconds(double time) { return std::llround(time * 86400.0); }

// Calls `loop` with the operator's comparison.
template <class Loop>
void withComparison(QueryOperator op, Loop loop) {
  switch (op) {
    case QueryOperator::none:
      return loop([](auto, auto) { return false; });
    case QueryOperator::equal:
      return loop(std::equal_to<>{});
    case QueryOperator::notEqual:
      return loop(std::not_equal_to<>{});
    case QueryOperator::lessEqual:
      return loop(std::less_equal<>{});
    case QueryOperator::greaterEqual:
      return loop(std::greater_equal<>{});
    case QueryOperator::less:
      return loop(std::less<>{});
    case QueryOperator::greater:
      return loop(std::greater<>{});
  }
}

// No branch depends on a record, since nobody can predict which ones hold.
template <class Holds>
void keepIf(SlotRun run, SlotRows& rows, Holds holds) {
  std::int32_t* kept = rows.data();
  for (const std::int32_t row : rows) {
    *kept = row;
    kept += holds(run.slot(row)) ? 1 : 0;
  }
  rows.resize(static_cast<std::size_t>(kept - rows.data()));
}

// Reads a value of type T from slots.
template <class T>
struct StoredAs {
  std::int32_t position;
  const std::uint8_t* table;  // takes the substitution back; nullptr where there is none
  T operator()(const std::uint8_t* slot) const {
    if (!table) return storedValue<T>(slot + position);
    std::array<std::uint8_t, sizeof(T)> plain;
    for (std::size_t i = 0; i < plain.size(); ++i)
      plain[i] = table[slot[static_cast<std::size_t>(position) + i]];
    return storedValue<T>(plain.data());
  }
};

template <class ValueOf>
std::int64_t addFinite(SlotRun run, const SlotRows& rows, QueryTotal& total, ValueOf valueOf) {
  std::int64_t added = 0;
  double sum = 0;
  for (const std::int32_t row : rows) {
    const double value = valueOf(run.slot(row));
    if (!std::isfinite(value)) continue;
    sum += value;
    ++added;
  }
  total.add(sum);
  return added;
}

}  // namespace

ConditionTest::ConditionTest(const QueryCondition& condition, const Application& application,
                             const Locale& locale, bool matchCase)
    : key_(condition.key),
      op_(condition.op),
      number_(condition.number),
      scaled_(condition.scaled),
      locale_(locale),
      scrambled_(application.scrambleData),
      matchCase_(matchCase),
      codePage_(application.codePage),
      text_(condition.text),
      match_(condition.text, matchCase, application.codePage) {
  const std::string folded = matchCase ? text_ : lowerCase(text_, codePage_);
  std::size_t plain = 0;
  while (plain < folded.size() && isAscii(folded[plain]) && !std::strchr("*?#[", folded[plain])) ++plain;
  start_ = folded.substr(0, plain);
  startIsAll_ = plain == folded.size();
  const auto fold = searchFold(codePage_, matchCase);
  for (std::size_t i = 0; i < plain_.size(); ++i)
    plain_[i] = fold[scrambled_ ? inverseSubstitutionTable()[i] : i];
  if (scrambled_) unscrambled_.resize(static_cast<std::size_t>(key_.length));
}

template <class T>
auto ConditionTest::storedAs() const {
  return StoredAs<T>{key_.position, scrambled_ ? inverseSubstitutionTable().data() : nullptr};
}

template <class ValueOf, class T>
void ConditionTest::keepCompared(SlotRun run, SlotRows& rows, ValueOf valueOf, T with) const {
  withComparison(op_, [&](auto compare) {
    keepIf(run, rows, [=](const std::uint8_t* slot) { return compare(static_cast<T>(valueOf(slot)), with); });
  });
}

void ConditionTest::keep(SlotRun run, SlotRows& rows) const {
  const bool readable = !std::isnan(number_);
  if (!hasOperator() || !readable) return rows.clear();
  switch (key_.type) {
    case KeyType::text:
      return keepTexts(run, rows);
    case KeyType::number:
      return keepCompared(run, rows, storedAs<double>(), number_);
    case KeyType::whole:
      return keepCompared(run, rows, storedAs<std::int32_t>(), number_);
    case KeyType::check:
      return keepCompared(run, rows, storedAs<std::uint8_t>(), number_);
    case KeyType::currency:
    case KeyType::date:
      return keepCompared(run, rows, storedAs<std::int64_t>(), scaled_);
    case KeyType::time: {
      const auto seconds = [this](const std::uint8_t* slot) { return wholeSeconds(timeOf(textOf(slot))); };
      return keepCompared(run, rows, seconds, wholeSeconds(number_));
    }
    case KeyType::variableLabels:
      return rows.clear();
  }
}

void ConditionTest::keepTexts(SlotRun run, SlotRows& rows) const {
  if (op_ == QueryOperator::equal) {
    if (!start_.empty() && key_.length > 0)
      keepIf(run, rows,
             [table = plain_.data(), at = key_.position, first = static_cast<std::uint8_t>(start_[0])](
                 const std::uint8_t* slot) { return table[slot[at]] == first; });
    keepIf(run, rows, [this](const std::uint8_t* slot) { return mayFit(slot + key_.position); });
    return keepIf(run, rows, [this](const std::uint8_t* slot) { return match_.fits(textOf(slot)); });
  }
  if (op_ == QueryOperator::notEqual)
    return keepIf(run, rows, [this](const std::uint8_t* slot) { return differs(textOf(slot)); });
  keepCompared(
      run, rows, [this](const std::uint8_t* slot) { return val(textOf(slot)); }, number_);
}

bool ConditionTest::mayFit(const std::uint8_t* bytes) const {
  const auto length = static_cast<std::size_t>(key_.length);
  if (start_.size() > length) return false;
  for (std::size_t i = 0; i < start_.size(); ++i)
    if (plain_[bytes[i]] != static_cast<std::uint8_t>(start_[i])) return false;
  if (!startIsAll_ || start_.size() == length) return true;
  const std::uint8_t next = plain_[bytes[start_.size()]];
  return next == ' ' || next == 0;
}

bool ConditionTest::differs(std::string_view text) const {
  if (text.size() != text_.size()) return true;
  return matchCase_ ? text != text_ : compareFolded(text, text_, codePage_) != 0;
}

// The view is valid until the next call.
std::string_view ConditionTest::textOf(const std::uint8_t* slot) const {
  const std::span<const std::uint8_t> bytes(slot + key_.position, static_cast<std::size_t>(key_.length));
  if (!scrambled_) return keyText(bytes);
  const auto& table = inverseSubstitutionTable();
  for (std::size_t i = 0; i < bytes.size(); ++i) unscrambled_[i] = table[bytes[i]];
  return keyText(unscrambled_);
}

double ConditionTest::timeOf(std::string_view text) const { return heldTime(key_.fieldKind, text, locale_); }

std::int64_t ConditionTest::add(SlotRun run, const SlotRows& rows, QueryTotal& total) const {
  switch (key_.type) {
    case KeyType::currency:
    case KeyType::date: {
      const auto valueOf = storedAs<std::int64_t>();
      for (const std::int32_t row : rows) total.addScaled(valueOf(run.slot(row)));
      return static_cast<std::int64_t>(rows.size());
    }
    case KeyType::number:
      return addFinite(run, rows, total, storedAs<double>());
    case KeyType::whole:
      return addFinite(run, rows, total, storedAs<std::int32_t>());
    case KeyType::check:
      return addFinite(run, rows, total, storedAs<std::uint8_t>());
    case KeyType::text:
      return addFinite(run, rows, total, [this](const std::uint8_t* slot) { return val(textOf(slot)); });
    case KeyType::time:
      return addFinite(run, rows, total, [this](const std::uint8_t* slot) { return timeOf(textOf(slot)); });
    case KeyType::variableLabels:
      break;
  }
  return 0;
}

}  // namespace plinth
