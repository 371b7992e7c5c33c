// One condition of a query made ready to be asked of a million records: everything that can be known before is
// known, and nothing is allocated for a record.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "basic/Locale.h"
#include "basic/Slots.h"
#include "engine/search/QueryLine.h"
#include "engine/search/TextMatch.h"

namespace plinth {

// Sum of many values; that of currency and dates is exact over the range of 64 bits.
class QueryTotal {
 public:
  void add(double value) { plain_ += value; }
  void addScaled(std::int64_t value) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(scaled_, value, &sum)) {
      plain_ += static_cast<double>(scaled_) / 10000.0;
      sum = value;
    }
    scaled_ = sum;
  }
  double value() const { return plain_ + static_cast<double>(scaled_) / 10000.0; }

 private:
  double plain_ = 0;
  std::int64_t scaled_ = 0;  // value x 10,000
};

class ConditionTest {
 public:
  // The locale must outlive this.
  ConditionTest(const QueryCondition& condition, const Application& application, const Locale& locale,
                bool matchCase);

  // Whether the condition holds; one without an operator never does. slot: a record as it is stored.
  bool holds(const std::uint8_t* slot) const;
  // Adds the object's value of that record; false when it is none (not-a-number in a damaged file).
  bool add(const std::uint8_t* slot, QueryTotal& total) const;
  bool hasOperator() const { return op_ != QueryOperator::none; }

 private:
  const std::uint8_t* bytesOf(const std::uint8_t* slot) const;
  std::string_view textOf(const std::uint8_t* slot) const;
  bool textHolds(const std::uint8_t* slot) const;
  bool mayFit(const std::uint8_t* bytes) const;
  std::int64_t secondsOf(std::string_view text) const;

  RecordKey key_;
  QueryOperator op_;
  bool scrambled_;
  double number_;
  std::int64_t scaled_, seconds_ = 0;
  const Locale& locale_;
  bool matchCase_, readable_;
  int codePage_;
  std::string text_;
  TextMatch match_;
  std::string start_;         // the plain characters that a text which fits begins with, folded
  bool startIsAll_ = false;   // the pattern has no others
  std::array<std::uint8_t, 256> plain_;  // a stored byte, no longer substituted and case folded
  mutable Bytes unscrambled_;
};

}  // namespace plinth
