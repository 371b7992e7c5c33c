// One table names the entries, their numbers and where their words stand; what an application has several of
// (reports, document templates, programs) is counted on from a number of its own.
#include "surface/MenuWords.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "basic/Text.h"
#include "model/DerivedTexts.h"

namespace plinth {
namespace {

enum class Source { menus, apart, report, document, program };

struct MenuRow {
  int id;
  const char* name;
  int group;  // entries of one group stand together between lines; 0 is the title of a menu
  Source source = Source::menus;
  std::string RunMenus::*inMenus = nullptr;
  std::string ProjectValues::*apart = nullptr;
};

constexpr MenuRow word(int id, const char* name, int group, std::string RunMenus::*caption) {
  return {id, name, group, Source::menus, caption};
}
constexpr MenuRow word(int id, const char* name, int group, std::string ProjectValues::*caption) {
  return {id, name, group, Source::apart, nullptr, caption};
}
constexpr MenuRow several(int id, const char* name, int group, Source source) {
  return {id, name, group, source};
}

constexpr int kDocuments = 100, kPrograms = 200, kReports = 1000;

constexpr MenuRow kRows[] = {
    word(19, "File", 0, &RunMenus::fmenu),
    word(1, "Open", 1, &RunMenus::mlist),
    word(2, "Create", 1, &RunMenus::newin),
    word(13, "Export", 2, &RunMenus::expot),
    word(25, "Import", 2, &RunMenus::importmenu),
    word(18, "New View", 3, &RunMenus::newview),
    word(3, "Print", 4, &RunMenus::printingit),
    several(kReports, "Report", 4, Source::report),
    word(4, "Exit", 5, &RunMenus::exitit),
    word(20, "Edit", 0, &RunMenus::ops),
    word(16, "Cut", 1, &RunMenus::cuting),
    word(14, "Copy", 1, &RunMenus::copying),
    word(5, "Copy Record", 1, &RunMenus::copyadress),
    word(15, "Paste", 1, &RunMenus::pasting),
    word(29, "Replace", 2, &ProjectValues::replaceMenuCaption),
    word(6, "Clear Record", 3, &RunMenus::erasefile),
    word(28, "Delete Record", 3, &ProjectValues::deleteRecordCaption),
    word(7, "New Record", 3, &RunMenus::deletemarkrec),
    word(10, "Calculator", 4, &RunMenus::cal),
    several(kPrograms, "Program", 5, Source::program),
    word(21, "Search", 0, &RunMenus::finding),
    word(8, "Find", 1, &RunMenus::finden0),
    word(9, "Sort Old-New", 2, &RunMenus::finden3),
    word(17, "Sort A-Z", 2, &RunMenus::finden4),
    word(24, "Sort Z-A", 2, &RunMenus::finden5),
    word(27, "Statistics", 3, &ProjectValues::statisticsCaption),
    word(26, "Index", 3, &ProjectValues::indexFeldCaption),
    word(23, "Document", 0, &RunMenus::viewDoc),
    several(kDocuments, "Document", 1, Source::document),
    word(22, "Help", 0, &RunMenus::helpit),
    word(11, "Contents", 1, &RunMenus::infoo),
    word(12, "About", 2, &RunMenus::aboutit),
};

// How many entries a row stands for; not all of them are shown.
int countOf(const MenuRow& row, const ProjectValues& values) {
  switch (row.source) {
    case Source::report:
      return static_cast<int>(values.reports.size());
    case Source::document:
      return static_cast<int>(values.documents.size());
    case Source::program:
      return static_cast<int>(values.programs.size());
    default:
      return 1;
  }
}

template <class Values>
auto& captionOf(const MenuRow& row, int index, Values& values) {
  const auto i = static_cast<std::size_t>(index);
  switch (row.source) {
    case Source::report:
      return values.reports[i].title;
    case Source::document:
      return values.documents[i].viewDocName;
    case Source::program:
      return values.programs[i].caption;
    case Source::apart:
      return values.*row.apart;
    case Source::menus:
      break;
  }
  return values.menus.*row.inMenus;
}

bool isShown(const MenuRow& row, int index, const ProjectValues& values) {
  const auto i = static_cast<std::size_t>(index);
  if (row.source == Source::report) return !values.reports[i].title.empty();
  if (row.source == Source::program) return values.programs[i].visible;
  if (row.source != Source::document) return true;
  return !values.documents[i].plateExt.empty() && !values.documents[i].templatePath.empty();
}

struct Place {
  const MenuRow* row;
  int index;
};

std::optional<Place> placeOf(int id, const ProjectValues& values) {
  for (const MenuRow& row : kRows)
    if (id >= row.id && id - row.id < countOf(row, values) && isShown(row, id - row.id, values))
      return Place{&row, id - row.id};
  return std::nullopt;
}

// The project's tables of texts hold the same words once more.
void followInTables(const MenuRow& row, const std::string& words, ProjectDocument& document) {
  for (const MenuCaption& caption : menuCaptions()) {
    if (caption.inMenus != row.inMenus || caption.apart != row.apart) continue;
    const bool dots = caption.opensDialog && words.ends_with("...");
    applyLabel(caption.label, dots ? words.substr(0, words.size() - 3) : words, document);
  }
}

std::string nameOf(const Place& place) {
  const bool one = place.row->source == Source::menus || place.row->source == Source::apart;
  return place.row->name + (one ? "" : " " + std::to_string(place.index + 1));
}

MenuWord shown(const Place& place, const ProjectValues& values, bool separator) {
  const std::string& caption = captionOf(*place.row, place.index, values);
  // Without words there would be nothing to click at to bring the entry back.
  return {place.row->id + place.index, caption.empty() ? "(" + nameOf(place) + ")" : caption, separator};
}

}  // namespace

std::vector<MirroredMenu> MenuWords::menus() const {
  const ProjectValues& values = c_.document;
  std::vector<MirroredMenu> menus;
  int group = 0;
  for (const MenuRow& row : kRows) {
    if (row.group == 0) {
      menus.push_back({shown({&row, 0}, values, false), {}});
      continue;
    }
    std::vector<MenuWord>& entries = menus.back().entries;
    for (int i = 0; i < countOf(row, values); ++i) {
      if (!isShown(row, i, values)) continue;
      entries.push_back(shown({&row, i}, values, !entries.empty() && row.group != group));
      group = row.group;
    }
  }
  return menus;
}

void MenuWords::begin(int id) {
  if (!placeOf(id, c_.document)) return;
  c_.history.seal();
  c_.state.menuLabelEdit = id;
  c_.view.selectionChanged();
}

std::string MenuWords::words() const {
  const auto place = placeOf(c_.state.menuLabelEdit, c_.document);
  return place ? captionOf(*place->row, place->index, std::as_const(c_.document)) : "";
}

void MenuWords::change(const std::string& words) {
  const auto place = placeOf(c_.state.menuLabelEdit, c_.document);
  if (!place) return;
  const MenuRow& row = *place->row;
  if (row.source == Source::report && words.empty()) return;  // a report without a title is not kept in files
  captionOf(row, place->index, c_.document) = words;
  if (row.source == Source::menus || row.source == Source::apart) followInTables(row, words, c_.document);
  const std::string kind = row.group == 0 ? "menu " : "menu entry ";
  finish(c_, "words of " + kind + nameOf(*place), "menu words " + std::to_string(c_.state.menuLabelEdit));
}

void MenuWords::end() {
  if (c_.state.menuLabelEdit < 0) return;
  c_.state.menuLabelEdit = -1;
  c_.history.seal();
  c_.view.selectionChanged();
}

}  // namespace plinth
