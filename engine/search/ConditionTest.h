// One condition of a query made ready to be asked of a million records. It is asked of many at once, so that
// what depends on the condition alone is decided once for all of them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// Records as they are stored, one behind the other, of which rows name some by their number in it, from 0.
struct SlotRun {
  const std::uint8_t* slots = nullptr;
  std::size_t recLen = 0;
  const std::uint8_t* slot(std::int32_t row) const { return slots + static_cast<std::size_t>(row) * recLen; }
};
using SlotRows = std::vector<std::int32_t>;

class ConditionTest {
 public:
  // The locale must outlive this.
  ConditionTest(const QueryCondition& condition, const Application& application, const Locale& locale,
                bool matchCase);

  bool hasOperator() const { return op_ != QueryOperator::none; }
  // Removes the rows for which the condition does not hold; all of them where it has no operator.
  void keep(SlotRun run, SlotRows& rows) const;
  // Adds the object's values in these rows. How many they were: not-a-number in a damaged file is left out.
  std::int64_t add(SlotRun run, const SlotRows& rows, QueryTotal& total) const;

 private:
  template <class T>
  auto storedAs() const;
  template <class ValueOf, class T>
  void keepCompared(SlotRun run, SlotRows& rows, ValueOf valueOf, T with) const;
  void keepTexts(SlotRun run, SlotRows& rows) const;
  bool mayFit(const std::uint8_t* bytes) const;
  std::string_view textOf(const std::uint8_t* slot) const;
  bool differs(std::string_view text) const;
  double timeOf(std::string_view text) const;

  RecordKey key_;
  QueryOperator op_;
  double number_;
  std::int64_t scaled_;
  const Locale& locale_;
  bool scrambled_, matchCase_;
  int codePage_;
  std::string text_;
  TextMatch match_;
  std::string start_;                    // the plain characters that a text which fits begins with, folded
  bool startIsAll_ = false;              // the pattern has no others
  std::array<std::uint8_t, 256> plain_;  // a stored byte, no longer substituted and case folded
  mutable Bytes unscrambled_;
};

}  // namespace plinth
