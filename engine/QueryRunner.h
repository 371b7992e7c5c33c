// The seam between button scripts and the search window: a line that is a query goes through it, and the
// totals that queries leave come back to the lines after it.
#pragma once

#include <string_view>

#include "formula/SymbolicWords.h"

namespace plinth {

class QueryRunner {
 public:
  virtual ~QueryRunner() = default;
  // Runs one query line, already substituted.
  virtual void run(std::string_view line) = 0;
  // What the last sum or count left (SumTotal$, SumAdv$, CountTotal$).
  virtual SearchTotals totals() const = 0;
};

// Whether a script line is a query: begins with "replace " or "select " and holds " where ", or begins with
// "sum " or "count "; case does not count.
bool isQueryLine(std::string_view line);

}  // namespace plinth
