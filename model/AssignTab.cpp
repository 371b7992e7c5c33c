// One sort in place of a sweep over all wanted numbers, with the same result: positions first, then kind,
// then index.
#include "model/AssignTab.h"

#include <algorithm>
#include <climits>
#include <functional>

namespace plinth {
namespace {

struct TabStop {
  int position;  // INT_MAX for unusable ones
  int index;     // as the sweep counts: check boxes one later than their own
  int kind;      // field, memo, combo, check box
  std::function<void(int)> assign;
};

}  // namespace

void assignTab(ProjectDocument& d) {
  const int highest = d.fieldCount() + d.memoCount() + d.comboCount() + d.checkCount() + 100;
  std::vector<TabStop> stops;
  const auto collect = [&](auto& rows, int first, int kind) {
    for (int i = first; i < static_cast<int>(rows.size()); ++i) {
      auto& row = rows[i];
      const bool usable = row.tabOrder >= 1 && row.tabOrder <= highest;
      stops.push_back({usable ? static_cast<int>(row.tabOrder) : INT_MAX, i + 1 - first, kind,
                       [&row](int rank) { row.tabOrder = static_cast<std::int16_t>(rank); }});
    }
  };
  collect(d.fields, 1, 0);
  collect(d.memos, 1, 1);
  collect(d.combos, 1, 2);
  collect(d.checks, 0, 3);
  std::stable_sort(stops.begin(), stops.end(), [](const TabStop& a, const TabStop& b) {
    if (a.position != b.position) return a.position < b.position;
    return a.index != b.index ? a.index < b.index : a.kind < b.kind;
  });
  for (std::size_t i = 0; i < stops.size(); ++i) stops[i].assign(static_cast<int>(i) + 1);
}

}  // namespace plinth
