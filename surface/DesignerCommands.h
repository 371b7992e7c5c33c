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
  undo,
  redo,
  cut,
  copy,
  paste,
  remove,
  selectArea,
  selectAll,
  lock,
  editLabel,
  focusPanel,
  documentBox,
  recordId,
  clock,
  helpBar,
  namePage,
  pageColor,
  backgroundPicture,
  customPaper,
  commonLabels,
  colorTable,
  toolPanel,
  tryProject,
  openExample = 1090,  // to 1099
  recent = 1101,       // to 1105
  page = 1201,         // to 1205
  language = 1301,     // to 1399
  tool = 1401,         // to 1412, in the order of Tool
  align = 1421,        // to 1431, in the order of Alignment
  moveToPage = 1441,   // to 1445
  date = 1451,         // to 1456
  dateStamp = 1461,    // to 1466
  table = 1471,        // to 1477
  paper = 1501,        // to 1518, sizes; then portrait and landscape
  portrait = 1521,
  landscape,
  unit = 1531,          // to 1534
  grid = 1541,          // to 1545
  tile = 1551,          // to 1554
  testTemplate = 1561,  // to 1570
  testScript = 1571,
  submenu = 1601,  // entries that open a menu count on from here; they run nothing
};

// Texts are UTF-8, since menus mix language texts with paths and the project's own words.
struct CommandEntry {
  int id = 0;  // 0: a separator
  std::string text;
  std::string keyText;
  bool enabled = true, checked = false;
  std::vector<CommandEntry> entries;  // of a menu that this one opens
};

struct Menu {
  std::string title;
  std::vector<CommandEntry> entries;
};

// The menu bar as it is now.
std::vector<Menu> designerMenus(const DesignerController& designer);
// The menu of the right mouse button.
std::vector<CommandEntry> popupMenu(const DesignerController& designer);
// Runs a command by its id. False when there is none or it is not available now.
bool runCommand(DesignerController& designer, int id);
// The command of a key; 0 for none.
int commandOfKey(const KeyEvent& key);
// Whether a key's command belongs to the page: a text box that has the keyboard keeps such keys for itself.
bool isEditingKey(const KeyEvent& key);

}  // namespace plinth
