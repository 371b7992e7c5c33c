// The seam between button scripts and the search window: a line that is a query goes through it, and the totals that
// queries leave come back to the lines after it.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

struct QueryTotals {
  std::string sum = "0", average = "0", count = "0";  // SumTotal$, SumAdv$, CountTotal$
};

class QueryRunner {
 public:
  virtual ~QueryRunner() = default;
  // Runs one query line, already substituted.
  virtual void run(std::string_view line) = 0;
  virtual QueryTotals totals() const = 0;
};

// Whether a script line is a query: begins with "replace " or "select " and holds " where ", or begins with "sum " or
// "count "; case does not count.
bool isQueryLine(std::string_view line);

}  // namespace plinth
