// The four small commands of the search line: select, replace, sum and count, from the line as typed to plain
// conditions over a record's bytes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/Locale.h"
#include "basic/Slots.h"
#include "engine/search/RecordKey.h"

namespace plinth {

enum class QueryVerb { plain, select, replace, sum, count };
enum class QueryOperator { none = -1, equal = 0, notEqual, lessEqual, greaterEqual, less, greater };

// A value that one object of a record is compared with.
struct QueryCondition {
  RecordKey key;
  QueryOperator op = QueryOperator::none;
  double number = 0;        // the value as a number; of dates and times their serial
  std::int64_t scaled = 0;  // the same x 10,000
  std::string text;         // the value as text, cleaned of quotes and with its blanks back
  bool operator==(const QueryCondition&) const = default;
};

struct QueryReplacement {
  std::int32_t position = 0;  // 0-based in a slot
  Bytes bytes;                // written as they are, also where records are stored substituted
  bool operator==(const QueryReplacement&) const = default;
};

using ShowColumns = std::array<std::int16_t, 11>;  // codes: F n, C 2000+n, K 4000+n, M 6000+n, 0 none

struct Query {
  QueryVerb verb = QueryVerb::plain;
  std::vector<QueryCondition> conditions;
  std::vector<QueryReplacement> replacements;
  ShowColumns columns{};  // of select: those to show
};

// What the line is by its first word and " where "; case does not count.
QueryVerb queryVerb(std::string_view line);

struct QueryContext {
  const Application& application;
  const RecordLayout& layout;
  const Locale& locale;
  bool matchCase = false;
  double today = 0;              // serial, for dates without a year
  ShowColumns defaultColumns{};  // those of select *
};
// The line taken apart. verb plain: not a command, search for it as text. Terms that name no object are left
// out.
Query parseQuery(std::string_view line, const QueryContext& context);

// A command's text with its blanks inside single quotes kept as "~", single blanks elsewhere and no quotes.
std::string normaliseQuery(std::string_view line);

}  // namespace plinth
