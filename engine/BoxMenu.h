// The menu that a right click on a field, combo or memo opens, as rows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/Application.h"
#include "engine/EngineView.h"

namespace plinth {

enum class BoxCommand { undo, cut, copy, paste, entry };

struct BoxMenuRow {
  BoxCommand command = BoxCommand::entry;
  const MenuEntry* entry = nullptr;  // entry: a row of the application's menus
  std::string caption;
  bool enabled = false;
  bool separatorBefore = false;
};

// What the box can do now.
struct BoxMenuState {
  bool canUndo = false, hasSelection = false, canWrite = false, canPaste = false;
};

// Undo, cut, copy and paste, then what the application's search menu has for the object in focus: the search
// line, both sort orders, the index, under the application's own captions and only where the design shows
// them. tools: of the box. mayRun: whether an entry can be chosen now. The rows point into `application`.
std::vector<BoxMenuRow> boxMenu(const Application& application, const FocusTools& tools,
                                const BoxMenuState& state,
                                const std::function<bool(const MenuEntry&)>& mayRun);

}  // namespace plinth
