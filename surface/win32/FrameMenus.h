// Menus of the system, made of the designer's command tables.
#pragma once

#include <vector>

#include "platform/win32/WindowsApi.h"
#include "surface/DesignerCommands.h"

namespace plinth {

// Whether two menu bars hold the same entries in the same words.
bool sameStory(const std::vector<Menu>& a, const std::vector<Menu>& b);
// The window owns the menu once it is set.
HMENU menuBar(const std::vector<Menu>& menus);
// A popup menu; the caller destroys it.
HMENU popupOf(const std::vector<CommandEntry>& entries);
// Brings the entries of an open menu up to date: words, what can be used, what is chosen.
void refreshMenu(HMENU menu, const DesignerController& designer);

}  // namespace plinth
