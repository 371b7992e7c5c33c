// What a value typed in a query line is to the object that it stands beside: a number, a date, a time, or the
// bytes that a record stores for it.
#pragma once

#include <cstdint>
#include <string>

#include "basic/Locale.h"
#include "basic/Slots.h"
#include "engine/search/RecordKey.h"

namespace plinth {

struct QueryValueContext {
  const Locale& locale;
  double today = 0;  // serial, for dates without a year
};

struct QueryNumber {
  // Of dates days since 1899-12-30, of times the fraction of a day; not-a-number where the text of a date or
  // a time is none. Nothing typed is 0, as in a record where nothing was entered.
  double value = 0;
  std::int64_t scaled = 0;  // value x 10,000
};
// The value as a comparison takes it.
QueryNumber queryNumber(const RecordKey& key, const std::string& text, const QueryValueContext& context);

// The value as a record stores it, key.length bytes: texts padded with blanks or cut, check boxes the code of
// the value's first character. Empty where nothing can be stored: no room, no character for a check box, a
// date that cannot be read.
Bytes replacementBytes(const RecordKey& key, const std::string& text, const QueryValueContext& context);

}  // namespace plinth
