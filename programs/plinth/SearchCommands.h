// What the tool does beyond single records: query lines, orders, indexes, button scripts and logins, by the
// same searches that the application's windows run.
#pragma once

#include <string_view>

#include "engine/RecordSession.h"
#include "engine/RecordText.h"
#include "programs/plinth/Tool.h"
#include "programs/plinth/ToolMessages.h"

namespace plinth {

struct SearchTool {
  const ToolOptions& options;
  ToolMachine& machine;
  RecordSession& session;  // open, but for printUsers()
  ToolMessages& messages;
  const BoxRef* box = nullptr;  // FIELD or --field
};

// Each returns an exit code and prints what went wrong.
int runQueryLine(SearchTool& tool);
int printOrder(SearchTool& tool);
int indexBox(SearchTool& tool);
int printUsers(SearchTool& tool);

// Whether the line can run: a plain search wants a box, unless it begins with "!".
bool queryWantsBox(std::string_view line);

// The button of a number or caption (without regard to case); -1 when there is none that shows. Of several
// with one caption the first.
int findButton(const Application& application, std::string_view numberOrCaption);
// Presses it, with the query lines of its script running on the open data. The record stays to be saved.
void pressButton(SearchTool& tool, int button);

}  // namespace plinth
