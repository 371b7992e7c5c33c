// The typed line of a plain search, taken apart into terms, and the terms made ready for one kind of object:
// numbers, days and times are read once, then compared with a million stored values.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "basic/Locale.h"
#include "engine/RecordForm.h"
#include "engine/search/RecordKey.h"
#include "engine/search/TextMatch.h"

namespace plinth {

struct PlainLine {
  bool wholeRecord = false;  // "!" stood in front
  bool all = false;          // "+" joined the terms: each must match; else one is enough
  std::vector<std::string> terms;  // trimmed, none empty; no terms: nothing to look for
};
PlainLine takePlainLineApart(std::string_view line);

enum class PlainOperator { equal, notEqual, lessEqual, greaterEqual, less, greater, between };

// A term with its operator taken off. between: value and upper are the bounds, both left out.
struct PlainComparison {
  PlainOperator op = PlainOperator::equal;
  std::string value, upper;
};
PlainComparison plainComparison(std::string_view term);

// What a term is compared with in fields of time: "230" is half past two, in fields with seconds (kind 12)
// two and a half minutes; a "p" makes it afternoon, and in kind 11 twelve o'clock without one is midnight. In
// seconds of the day; -1 where the text holds no digit.
std::int32_t timeOfTerm(int kind, std::string_view text);

struct PlainContext {
  const Application& application;
  const Locale& locale;
  bool matchCase = false;
  double today = 0;  // serial, for dates without a year
};

// The terms against the stored values of one object.
class PlainTest {
 public:
  // line, context and what it refers to must outlive the test.
  PlainTest(const PlainLine& line, const RecordKey& key, const PlainContext& context);

  // bytes: of the key, no longer substituted, at least its length.
  bool holds(std::span<const std::uint8_t> bytes);
  // A value as a line of the key's index has it.
  bool holdsLine(std::string_view line);

 private:
  enum class Sense { compared, pattern, negatedPattern, nothing, everything };
  struct Term {
    PlainOperator op = PlainOperator::equal;
    Sense sense = Sense::compared;
    double low = 0, high = 0;                   // kinds 1 and 5, check boxes
    std::int64_t exactLow = 0, exactHigh = 0;   // kinds 2 to 4 scaled, dates in days, times in seconds
    TextMatch match;
    std::unordered_map<std::int64_t, bool> days;  // which days' texts fit the pattern, as found so far
  };
  Term termOf(const std::string& text) const;
  void readNumbers(const PlainComparison& comparison, Term& term) const;
  void readDays(const PlainComparison& comparison, Term& term) const;
  void readTimes(const PlainComparison& comparison, Term& term) const;
  template <class Test>
  bool joined(const Test& test);
  bool holdsText(std::span<const std::uint8_t> bytes);
  bool holdsNumber(double value);
  bool holdsExact(std::int64_t value);
  bool holdsDay(std::int64_t day);
  bool holdsTime(std::string_view text, double time);
  bool holdsTimeLine(double time);
  bool holdsLabels(std::span<const std::uint8_t> area);
  bool dayFits(Term& term, std::int64_t day) const;

  const PlainLine& line_;
  RecordKey key_;
  const PlainContext& context_;
  std::vector<Term> terms_;
  RecordForm labels_;  // working space
};

// The day of a stored date: its serial without the time.
inline std::int64_t dayOfScaled(std::int64_t scaled) { return scaled / 10000; }

}  // namespace plinth
