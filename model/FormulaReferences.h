// References by letter and number inside formulas and scripts ("F12", "K3"), and what happens to them when
// objects change their numbers.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/ProjectDocument.h"

namespace plinth {

// The text with the number of each reference of `letter` replaced by newNumber(old). References are a capital
// letter that stands alone and a number behind it: "SUM(F1:F5)" holds two, "XF1" none. Text inside double
// quotes counts too, since values are put in there when the formula runs. A letter behind ")" is an operator
// of the formula language ("(F1+F2)M3").
std::string renumbered(std::string_view text, char letter, const std::function<int(int)>& newNumber);
// The same in every formula and script of the project, and wherever else objects are named by letter and
// number: links, search columns, report labels, the marks of document templates (":3F"), and for fields the
// email fields and the function keys. Letters: F, C, M, K, and for marks alone L (labels) and P (pictures).
void renumberReferences(ProjectDocument& document, char letter, const std::function<int(int)>& newNumber);

// The project as its file and its application hold it: without the rows that wait to be dropped, references
// to the rows behind them following.
ProjectDocument withoutDeleted(const ProjectDocument& document);

// Takes out the rows whose index gone() names; the others close the gaps. The new number of each old one:
// removed rows keep theirs, which then names the row that moved there.
template <class Row, class Gone>
std::vector<int> closeGaps(std::vector<Row>& rows, Gone&& gone) {
  std::vector<int> numbers(rows.size());
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool removed = gone(static_cast<int>(i));
    numbers[i] = static_cast<int>(removed ? i : kept);
    if (removed) continue;
    if (kept != i) rows[kept] = std::move(rows[i]);
    ++kept;
  }
  rows.resize(kept);
  return numbers;
}
// The same as renumberReferences takes it; numbers beyond the table stay. REQUIRES that `numbers` outlives
// it.
std::function<int(int)> numberedBy(const std::vector<int>& numbers);

}  // namespace plinth
