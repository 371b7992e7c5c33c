// Counting in place of a sweep over all wanted numbers, with the same result: positions first, then index,
// then kind.
#include "model/AssignTab.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace plinth {
namespace {

// Highest memo that takes part: the slot of the document box exists from the start and counts once it was
// placed or has memos behind it.
int highestMemo(const ProjectDocument& d) {
  const bool onlyTheSlot = d.memos.size() == 2 && d.memos[1].page == kPageVacant;
  return onlyTheSlot ? 0 : d.memoCount();
}

// Calls visit with each position, by index and within it by kind: the order of equal ones.
template <class F>
void forEachPosition(ProjectDocument& d, F visit) {
  const int memos = highestMemo(d), checks = d.checkCount() + 1;  // check boxes begin at 0
  const int last = std::max({d.fieldCount(), memos, d.comboCount(), checks});
  for (int i = 1; i <= last; ++i) {
    const auto at = static_cast<std::size_t>(i);
    if (i <= d.fieldCount()) visit(d.fields[at].tabOrder);
    if (i <= memos) visit(d.memos[at].tabOrder);
    if (i <= d.comboCount()) visit(d.combos[at].tabOrder);
    if (i <= checks) visit(d.checks[at - 1].tabOrder);
  }
}

}  // namespace

void assignTab(ProjectDocument& d) {
  const int highest = d.fieldCount() + highestMemo(d) + d.comboCount() + d.checkCount() + 100;
  // Unusable positions share the last bucket.
  const auto bucketOf = [highest](int position) {
    return static_cast<std::size_t>(position >= 1 && position <= highest ? position : highest + 1);
  };
  std::vector<int> ranks(static_cast<std::size_t>(highest) + 2);
  forEachPosition(d, [&](const auto& position) { ++ranks[bucketOf(position)]; });
  std::exclusive_scan(ranks.begin(), ranks.end(), ranks.begin(), 0);
  forEachPosition(d,
                  [&](auto& position) { position = static_cast<std::int16_t>(++ranks[bucketOf(position)]); });
}

}  // namespace plinth
