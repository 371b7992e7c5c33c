// The command table and the menus made of it.
#include "surface/DesignerCommands.h"

#include <array>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "surface/DesignerController.h"

namespace plinth {

namespace {

enum class Place { file, view, language, help };

struct CommandRow {
  Command id;
  Place menu;
  int label;  // language text; 0: only English
  const char* english;
  const char* keyText;
  KeyEvent key;  // 0: none
  int count;     // entries of a series
  bool separatorBefore;
  void (*run)(DesignerController& designer, int index);
};

constexpr unsigned kCtrlShift = kCtrl | kShift;

constexpr auto kCommands = std::to_array<CommandRow>({
    {Command::newProject,
     Place::file,
     152,
     "&New Project",
     "Ctrl+N",
     {'N', kCtrl},
     1,
     false,
     [](DesignerController& d, int) { d.newProject(); }},
    {Command::open,
     Place::file,
     153,
     "&Open...",
     "Ctrl+O",
     {'O', kCtrl},
     1,
     false,
     [](DesignerController& d, int) { d.open(); }},
    {Command::save,
     Place::file,
     155,
     "&Save",
     "Ctrl+S",
     {'S', kCtrl},
     1,
     false,
     [](DesignerController& d, int) { d.save(); }},
    {Command::saveAs,
     Place::file,
     156,
     "Save &As...",
     "Ctrl+Shift+S",
     {'S', kCtrlShift},
     1,
     false,
     [](DesignerController& d, int) { d.saveAs(); }},
    {Command::createApplication,
     Place::file,
     179,
     "Create &Application...",
     "F9",
     {120, 0},
     1,
     true,
     [](DesignerController& d, int) { d.createApplication(); }},
    {Command::fileProperties,
     Place::file,
     0,
     "File &Properties...",
     "",
     {},
     1,
     false,
     [](DesignerController& d, int) { d.fileProperties(); }},
    {Command::recent,
     Place::file,
     0,
     "",
     "",
     {},
     kRecentFiles,
     true,
     [](DesignerController& d, int i) { d.openRecent(i + 1); }},
    {Command::exit, Place::file, 157, "E&xit", "", {}, 1, true, [](DesignerController& d, int) { d.exit(); }},
    {Command::page,
     Place::view,
     0,
     "",
     "",
     {},
     kPages,
     false,
     [](DesignerController& d, int i) { d.showPage(i); }},
    {Command::nextPage,
     Place::view,
     0,
     "&Next Page",
     "Ctrl+PageDown",
     {34, kCtrl},
     1,
     true,
     [](DesignerController& d, int) { d.showNextPage(1); }},
    {Command::previousPage,
     Place::view,
     0,
     "&Previous Page",
     "Ctrl+PageUp",
     {33, kCtrl},
     1,
     false,
     [](DesignerController& d, int) { d.showNextPage(-1); }},
    {Command::language,
     Place::language,
     0,
     "",
     "",
     {},
     99,
     false,
     [](DesignerController& d, int i) { d.chooseLanguage(i); }},
    {Command::about,
     Place::help,
     0,
     "&About Plinth...",
     "",
     {},
     1,
     false,
     [](DesignerController& d, int) { d.about(); }},
});

struct MenuRow {
  Place place;
  int label;
  const char* english;
};
constexpr auto kMenus = std::to_array<MenuRow>({{Place::file, 0, "&File"},
                                                {Place::view, 391, "&Page"},
                                                {Place::language, 175, "&Language"},
                                                {Place::help, 370, "&Help"}});

// Names from outside must not make access keys.
std::string escaped(const std::string& text) { return replaceAll(text, "&", "&&"); }

std::string plainPage(const DesignerController& designer, int page) {
  const auto& captions = designer.shell().document().pageCaptions;
  const std::string& caption = captions[static_cast<std::size_t>(page)];
  return caption.empty() ? "Page " + std::to_string(page + 1) : caption;
}

// The text of entry `index` of a series; "" when there is none.
std::string seriesText(const DesignerController& designer, Command series, int index) {
  const DesignerShell& shell = designer.shell();
  const std::string number = "&" + std::to_string(index + 1) + " ";
  if (series == Command::recent) {
    const std::string& path = shell.recentFiles()[static_cast<std::size_t>(index)];
    return path.empty() ? "" : number + escaped(toUtf8(path, designer.systemCodePage()));
  }
  if (series == Command::page)
    return number + escaped(toUtf8(plainPage(designer, index), codePageOfCharSet(shell.document().charSet)));
  const bool there = index < static_cast<int>(shell.languages().size());
  return there
             ? escaped(toUtf8(shell.languages()[static_cast<std::size_t>(index)], designer.systemCodePage()))
             : "";
}

bool isChecked(const DesignerController& designer, Command series, int index) {
  if (series == Command::page) return designer.surface().currentPage() == index;
  if (series != Command::language) return false;
  return designer.shell().languages()[static_cast<std::size_t>(index)] == designer.shell().languageName();
}

void addEntries(const DesignerController& designer, const CommandRow& row, std::vector<MenuEntry>& entries) {
  const int first = static_cast<int>(row.id);
  const std::size_t before = entries.size();
  for (int i = 0; i < row.count; ++i) {
    const std::string text = row.count > 1
                                 ? seriesText(designer, row.id, i)
                                 : toUtf8(designer.text(row.label, row.english), designer.languageCodePage());
    if (text.empty()) continue;
    entries.push_back(
        {first + i, text, row.keyText, !designer.busy(), row.count > 1 && isChecked(designer, row.id, i)});
  }
  if (row.separatorBefore && before > 0 && entries.size() > before)
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(before), MenuEntry{});
}

}  // namespace

std::vector<Menu> designerMenus(const DesignerController& designer) {
  std::vector<Menu> menus;
  for (const MenuRow& menu : kMenus) {
    Menu built{toUtf8(designer.text(menu.label, menu.english), designer.languageCodePage()), {}};
    for (const CommandRow& row : kCommands)
      if (row.menu == menu.place) addEntries(designer, row, built.entries);
    if (!built.entries.empty()) menus.push_back(std::move(built));
  }
  return menus;
}

bool runCommand(DesignerController& designer, int id) {
  for (const CommandRow& row : kCommands) {
    const int index = id - static_cast<int>(row.id);
    if (index < 0 || index >= row.count) continue;
    if (designer.busy()) return false;
    row.run(designer, index);
    return true;
  }
  return false;
}

int commandOfKey(const KeyEvent& key) {
  for (const CommandRow& row : kCommands)
    if (row.key.key != 0 && row.key.key == key.key && row.key.shift == key.shift)
      return static_cast<int>(row.id);
  return 0;
}

}  // namespace plinth
