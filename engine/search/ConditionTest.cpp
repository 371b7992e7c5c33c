// Most records fail a text condition at its first character: that is looked at in the stored bytes, before the
// text's end is sought and before anything is decoded.
#include "engine/search/ConditionTest.h"

#include <bit>
#include <cmath>
#include <cstring>

#include "basic/CodePage.h"
#include "basic/NumberReader.h"
#include "basic/Substitution.h"
#include "engine/FieldEntry.h"

namespace plinth {
namespace {

template <class T>
bool compares(QueryOperator op, T value, T with) {
  switch (op) {
    case QueryOperator::none:
      return false;
    case QueryOperator::equal:
      return value == with;
    case QueryOperator::notEqual:
      return value != with;
    case QueryOperator::lessEqual:
      return value <= with;
    case QueryOperator::greaterEqual:
      return value >= with;
    case QueryOperator::less:
      return value < with;
    case QueryOperator::greater:
      return value > with;
  }
  return false;
}

// Only these are one byte a character in every code page.
bool isAscii(char c) { return static_cast<unsigned char>(c) < 128; }

std::int64_t wholeSeconds(double time) { return std::isnan(time) ? 0 : std::llround(time * 86400.0); }

}  // namespace

ConditionTest::ConditionTest(const QueryCondition& condition, const Application& application,
                             const Locale& locale, bool matchCase)
    : key_(condition.key),
      op_(condition.op),
      scrambled_(application.scrambleData),
      number_(condition.number),
      scaled_(condition.scaled),
      seconds_(wholeSeconds(condition.number)),
      locale_(locale),
      matchCase_(matchCase),
      readable_(!std::isnan(condition.number)),
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

const std::uint8_t* ConditionTest::bytesOf(const std::uint8_t* slot) const {
  const std::uint8_t* bytes = slot + key_.position;
  if (!scrambled_) return bytes;
  const auto& table = inverseSubstitutionTable();
  for (std::size_t i = 0; i < unscrambled_.size(); ++i) unscrambled_[i] = table[bytes[i]];
  return unscrambled_.data();
}

std::string_view ConditionTest::textOf(const std::uint8_t* slot) const {
  return keyText({bytesOf(slot), static_cast<std::size_t>(key_.length)});
}

std::int64_t ConditionTest::secondsOf(std::string_view text) const {
  return wholeSeconds(heldTime(key_.fieldKind, text, locale_));
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

bool ConditionTest::textHolds(const std::uint8_t* slot) const {
  switch (op_) {
    case QueryOperator::equal:
      return mayFit(slot + key_.position) && match_.fits(textOf(slot));
    case QueryOperator::notEqual: {
      const std::string_view text = textOf(slot);
      if (text.size() != text_.size()) return true;
      return matchCase_ ? text != text_ : compareFolded(text, text_, codePage_) != 0;
    }
    default:
      return hasOperator() && compares(op_, val(textOf(slot)), number_);
  }
}

bool ConditionTest::holds(const std::uint8_t* slot) const {
  const auto wide = static_cast<std::size_t>(key_.length);
  switch (key_.type) {
    case KeyType::text:
      return textHolds(slot);
    case KeyType::number:
      return compares(op_, keyNumber({bytesOf(slot), wide}), number_);
    case KeyType::whole:
      return compares(op_, static_cast<double>(keyWhole({bytesOf(slot), wide})), number_);
    case KeyType::check:
      return compares(op_, static_cast<double>(*bytesOf(slot)), number_);
    case KeyType::currency:
    case KeyType::date:
      return readable_ && compares(op_, keyScaled({bytesOf(slot), wide}), scaled_);
    case KeyType::time:
      return readable_ && hasOperator() && compares(op_, secondsOf(textOf(slot)), seconds_);
    case KeyType::variableLabels:
      break;
  }
  return false;
}

bool ConditionTest::add(const std::uint8_t* slot, QueryTotal& total) const {
  const auto wide = static_cast<std::size_t>(key_.length);
  double value = 0;
  switch (key_.type) {
    case KeyType::currency:
    case KeyType::date:
      total.addScaled(keyScaled({bytesOf(slot), wide}));
      return true;
    case KeyType::text:
      value = val(textOf(slot));
      break;
    case KeyType::number:
      value = keyNumber({bytesOf(slot), wide});
      break;
    case KeyType::whole:
      value = keyWhole({bytesOf(slot), wide});
      break;
    case KeyType::check:
      value = *bytesOf(slot);
      break;
    case KeyType::time:
      value = heldTime(key_.fieldKind, textOf(slot), locale_);
      break;
    case KeyType::variableLabels:
      return false;
  }
  if (!std::isfinite(value)) return false;
  total.add(value);
  return true;
}

}  // namespace plinth
