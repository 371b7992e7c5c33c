// One sort in place of a sweep over all wanted numbers, with the same result: positions first, then index,
// then kind.
#include "model/AssignTab.h"

#include <algorithm>
#include <climits>
#include <compare>
#include <cstddef>
#include <vector>

namespace plinth {
namespace {

enum Kind { field, memo, combo, check };

// Members stand in the order that counts.
struct TabStop {
  int position;  // INT_MAX for unusable ones
  int place;     // index as the sweep counts: check boxes one later than their own
  Kind kind;
  auto operator<=>(const TabStop&) const = default;
};

// Highest memo that takes part: the slot of the document box exists from the start and counts once it was
// placed or has memos behind it.
int highestMemo(const ProjectDocument& d) {
  const bool onlyTheSlot = d.memos.size() == 2 && d.memos[1].page == kPageVacant;
  return onlyTheSlot ? 0 : d.memoCount();
}

void assign(ProjectDocument& d, const TabStop& stop, int rank) {
  const auto place = static_cast<std::size_t>(stop.place);
  const auto number = static_cast<std::int16_t>(rank);
  switch (stop.kind) {
    case field:
      d.fields[place].tabOrder = number;
      break;
    case memo:
      d.memos[place].tabOrder = number;
      break;
    case combo:
      d.combos[place].tabOrder = number;
      break;
    case check:
      d.checks[place - 1].tabOrder = number;
      break;
  }
}

}  // namespace

void assignTab(ProjectDocument& d) {
  const int memos = highestMemo(d);
  const int highest = d.fieldCount() + memos + d.comboCount() + d.checkCount() + 100;
  std::vector<TabStop> stops;
  stops.reserve(static_cast<std::size_t>(highest));
  const auto collect = [&](const auto& rows, int first, int last, Kind kind) {
    for (int i = first; i <= last; ++i) {
      const int position = static_cast<int>(rows[static_cast<std::size_t>(i)].tabOrder);
      const bool usable = position >= 1 && position <= highest;
      stops.push_back({usable ? position : INT_MAX, i + 1 - first, kind});
    }
  };
  collect(d.fields, 1, d.fieldCount(), field);
  collect(d.memos, 1, memos, memo);
  collect(d.combos, 1, d.comboCount(), combo);
  collect(d.checks, 0, d.checkCount(), check);
  std::ranges::sort(stops);
  for (std::size_t i = 0; i < stops.size(); ++i) assign(d, stops[i], static_cast<int>(i) + 1);
}

}  // namespace plinth
