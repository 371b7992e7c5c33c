// References by letter and number inside formulas and scripts ("F12", "K3"), and what happens to them when
// objects change their numbers.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/ProjectDocument.h"

namespace plinth {

// The text with the number of each reference of `letter` replaced by newNumber(old). References are a capital
// letter that stands alone and a number behind it: "SUM(F1:F5)" holds two, "XF1" and text inside double
// quotes none.
std::string renumbered(std::string_view text, char letter, const std::function<int(int)>& newNumber);
// The same in every formula and script of the project, and wherever else objects are named by letter and
// number (search columns, report labels).
void renumberReferences(ProjectDocument& document, char letter, const std::function<int(int)>& newNumber);

// The project as its file and its application hold it: without the rows that wait to be dropped, references
// to the rows behind them following.
ProjectDocument withoutDeleted(const ProjectDocument& document);

}  // namespace plinth
