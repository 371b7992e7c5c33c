// Menus, made of the command tables.
#include "surface/DesignerCommands.h"

#include <algorithm>
#include <array>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "surface/CommandTable.h"
#include "surface/DesignerController.h"

namespace plinth {

namespace {

struct MenuRow {
  MenuPlace place;
  int label;
  const char* english;
};
constexpr auto kMenus = std::to_array<MenuRow>({{MenuPlace::file, 0, "&File"},
                                                {MenuPlace::edit, 0, "&Edit"},
                                                {MenuPlace::add, 0, "&Add"},
                                                {MenuPlace::page, 391, "&Page"},
                                                {MenuPlace::test, 137, "&Test"},
                                                {MenuPlace::options, 371, "&Options"},
                                                {MenuPlace::language, 175, "&Language"},
                                                {MenuPlace::help, 370, "&Help"}});

// Calls visit(row) for every command until it returns true.
template <class F>
bool anyCommand(F visit) {
  for (const auto rows : {fileCommands(), editCommands(), addCommands(), pageCommands(), optionCommands()})
    for (const CommandRow& row : rows)
      if (visit(row)) return true;
  return false;
}

std::vector<CommandEntry> entriesOf(const DesignerController& designer, MenuPlace place);

CommandEntry entryOf(const DesignerController& designer, const CommandRow& row, int index) {
  CommandEntry entry;
  entry.id = static_cast<int>(row.id) + index;
  entry.text = row.text ? row.text(designer, index)
                        : toUtf8(designer.text(row.label, row.english), designer.languageCodePage());
  if (entry.text.empty()) return entry;
  entry.keyText = row.keyText;
  entry.enabled = !designer.busy() && (!row.enabled || row.enabled(designer, index));
  entry.checked = row.checked && row.checked(designer, index);
  if (row.opens != MenuPlace::none) {
    entry.id = static_cast<int>(Command::submenu) + static_cast<int>(row.opens);
    entry.entries = entriesOf(designer, row.opens);
  }
  return entry;
}

std::vector<CommandEntry> entriesOf(const DesignerController& designer, MenuPlace place) {
  std::vector<CommandEntry> entries;
  anyCommand([&](const CommandRow& row) {
    if (row.menu != place) return false;
    bool separate = row.separatorBefore && !entries.empty();
    for (int i = 0; i < row.count; ++i) {
      CommandEntry entry = entryOf(designer, row, i);
      if (entry.text.empty()) continue;
      if (std::exchange(separate, false)) entries.push_back({});
      entries.push_back(std::move(entry));
    }
    return false;
  });
  return entries;
}

// Titles from language files may lack access keys, and then no key would open the menu.
void giveAccessKeys(std::vector<Menu>& menus) {
  std::string taken;
  const auto hasKey = [](const Menu& menu) { return menu.title.find('&') != std::string::npos; };
  for (const Menu& menu : menus)
    if (hasKey(menu)) taken += upperAscii(menu.title).substr(menu.title.find('&') + 1, 1);
  for (Menu& menu : menus) {
    if (hasKey(menu)) continue;
    const std::string letters = upperAscii(menu.title);
    const auto free = std::ranges::find_if(
        letters, [&](char key) { return key >= 'A' && key <= 'Z' && taken.find(key) == std::string::npos; });
    if (free == letters.end()) continue;
    taken += *free;
    menu.title.insert(static_cast<std::size_t>(free - letters.begin()), 1, '&');
  }
}

}  // namespace

std::string menuText(const std::string& utf8) { return replaceAll(utf8, "&", "&&"); }

std::string projectText(const DesignerController& designer, const std::string& text) {
  return menuText(toUtf8(text, codePageOfCharSet(designer.shell().document().charSet)));
}

std::vector<Menu> designerMenus(const DesignerController& designer) {
  std::vector<Menu> menus;
  for (const MenuRow& menu : kMenus) {
    Menu built{toUtf8(designer.text(menu.label, menu.english), designer.languageCodePage()),
               entriesOf(designer, menu.place)};
    if (!built.entries.empty()) menus.push_back(std::move(built));
  }
  giveAccessKeys(menus);
  return menus;
}

std::vector<CommandEntry> popupMenu(const DesignerController& designer) {
  std::vector<CommandEntry> entries = entriesOf(designer, MenuPlace::edit);
  std::erase_if(entries, [](const CommandEntry& entry) {
    return entry.id == static_cast<int>(Command::undo) || entry.id == static_cast<int>(Command::redo);
  });
  if (!entries.empty() && entries.front().id == 0) entries.erase(entries.begin());
  return entries;
}

bool runCommand(DesignerController& designer, int id) {
  bool ran = false;
  anyCommand([&](const CommandRow& row) {
    const int index = id - static_cast<int>(row.id);
    if (!row.run || index < 0 || index >= row.count) return false;
    if (!designer.busy() && (!row.enabled || row.enabled(designer, index))) {
      row.run(designer, index);
      ran = true;
    }
    return true;
  });
  return ran;
}

int commandOfKey(const KeyEvent& key) {
  int id = 0;
  anyCommand([&](const CommandRow& row) {
    if (row.key.key == 0 || row.key.key != key.key || row.key.shift != key.shift) return false;
    id = static_cast<int>(row.id);
    return true;
  });
  return id;
}

bool isEditingKey(const KeyEvent& key) {
  bool editing = false;
  anyCommand([&](const CommandRow& row) {
    if (row.key.key == 0 || row.key.key != key.key || row.key.shift != key.shift) return false;
    editing = row.menu == MenuPlace::edit;
    return true;
  });
  return editing;
}

}  // namespace plinth
