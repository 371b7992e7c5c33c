// What a person can order of the designer, as one table: menus, keys and their availability all read it.
#pragma once

#include <string>
#include <vector>

#include "platform/Events.h"

namespace plinth {

class DesignerController;

// Numbers are the menu's command ids. Entries of a series (recent files, pages, languages) count on from the
// first.
enum class Command : int {
  none = 0,
  newProject = 1001,
  open,
  save,
  saveAs,
  createApplication,
  exit,
  fileProperties,
  nextPage,
  previousPage,
  help,
  about,
  recent = 1101,    // to 1105
  page = 1201,      // to 1205
  language = 1301,  // to 1399
};

// Texts are UTF-8, since menus mix language texts with paths and the project's own words.
struct MenuEntry {
  int id = 0;  // 0: a separator
  std::string text;
  std::string keyText;
  bool enabled = true, checked = false;
};

struct Menu {
  std::string title;
  std::vector<MenuEntry> entries;
};

// The menu bar as it is now.
std::vector<Menu> designerMenus(const DesignerController& designer);
// Runs a command by its id. False when there is none or it is not available now.
bool runCommand(DesignerController& designer, int id);
// The command of a key; 0 for none.
int commandOfKey(const KeyEvent& key);

}  // namespace plinth
