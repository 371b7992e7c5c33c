// The rows that the designer's menus, keys and availability are made of. Each file of commands gives its
// rows; the menus show them in the order of the files.
#pragma once

#include <span>
#include <string>

#include "platform/Events.h"
#include "surface/DesignerCommands.h"

namespace plinth {

enum class MenuPlace {
  none,
  file,
  edit,
  align,
  moveToPage,
  add,
  date,
  dateStamp,
  table,
  page,
  paper,
  unit,
  grid,
  background,
  test,
  options,
  language,
  help
};

struct CommandRow {
  Command id;
  MenuPlace menu;
  int label;            // language text; 0: only English
  const char* english;  // "": text() tells
  const char* keyText;
  KeyEvent key;  // 0: none
  void (*run)(DesignerController& designer, int index);
  bool separatorBefore = false;
  int count = 1;  // entries of a series, ids counting on
  // Not given: the entry's own text, always enabled, never checked. An empty text leaves the entry out.
  std::string (*text)(const DesignerController& designer, int index) = nullptr;  // UTF-8
  bool (*enabled)(const DesignerController& designer, int index) = nullptr;
  bool (*checked)(const DesignerController& designer, int index) = nullptr;
  MenuPlace opens = MenuPlace::none;  // a menu of its own instead of a command
};

std::span<const CommandRow> fileCommands();
std::span<const CommandRow> editCommands();
std::span<const CommandRow> addCommands();
std::span<const CommandRow> pageCommands();
std::span<const CommandRow> optionCommands();

// Names from outside must not make access keys.
std::string menuText(const std::string& utf8);
// 8-bit text of the project, as menus show it.
std::string projectText(const DesignerController& designer, const std::string& text);

}  // namespace plinth
