// Which language text goes where in a project. The run-time tables follow the numbers of the texts but where
// the designer's own windows have the number.
#include "model/DerivedTexts.h"

#include "basic/DateSerial.h"

namespace plinth {
namespace {

constexpr bool kDialog = true;

constexpr MenuCaption menu(std::string RunMenus::*caption, int label, bool opensDialog = false) {
  return {caption, nullptr, label, opensDialog};
}
constexpr MenuCaption apart(std::string ProjectValues::*caption, int label, bool opensDialog = false) {
  return {nullptr, caption, label, opensDialog};
}

constexpr MenuCaption kMenuCaptions[] = {menu(&RunMenus::mlist, 394, kDialog),
                                         menu(&RunMenus::newin, 159, kDialog),
                                         menu(&RunMenus::printingit, 178, kDialog),
                                         menu(&RunMenus::exitit, 157),
                                         menu(&RunMenus::copyadress, 384),
                                         menu(&RunMenus::erasefile, 385),
                                         menu(&RunMenus::deletemarkrec, 386),
                                         menu(&RunMenus::finden0, 388, kDialog),
                                         menu(&RunMenus::finden3, 389),
                                         menu(&RunMenus::cal, 375),
                                         menu(&RunMenus::infoo, 373),
                                         menu(&RunMenus::aboutit, 374, kDialog),
                                         menu(&RunMenus::newview, 395),
                                         menu(&RunMenus::fmenu, 367),
                                         menu(&RunMenus::ops, 371),
                                         menu(&RunMenus::finding, 369),
                                         menu(&RunMenus::helpit, 370),
                                         menu(&RunMenus::viewDoc, 372),
                                         menu(&RunMenus::expot, 118, kDialog),
                                         menu(&RunMenus::copying, 381),
                                         menu(&RunMenus::pasting, 383),
                                         menu(&RunMenus::cuting, 382),
                                         menu(&RunMenus::finden4, 390),
                                         menu(&RunMenus::finden5, 393),
                                         menu(&RunMenus::importmenu, 380, kDialog),
                                         apart(&ProjectValues::indexFeldCaption, 399),
                                         apart(&ProjectValues::statisticsCaption, 397),
                                         apart(&ProjectValues::deleteRecordCaption, 387),
                                         apart(&ProjectValues::replaceMenuCaption, 396, kDialog)};

// Calls visit(label, entry) for each entry of the three tables.
template <class F>
void forEachDerived(ProjectDocument& d, F visit) {
  const auto walk = [&visit](auto& table, int (*labelOf)(int)) {
    for (std::size_t i = 0; i < table.size(); ++i) visit(labelOf(static_cast<int>(i)), table[i]);
  };
  walk(d.engineText, engineTextLabel);
  walk(d.menuText, menuTextLabel);
  walk(d.statLabels, statLabel);
}

}  // namespace

int engineTextLabel(int index) {
  constexpr int kFirst = 237, kShownByEngine = 81, kRest = 331;
  switch (index) {
    case 44:
      return 376;
    case 46:
      return 377;
    case 47:
      return 378;
    case 48:
      return 379;
    default:
      return index < kShownByEngine ? kFirst + index : kRest + index - kShownByEngine;
  }
}

int menuTextLabel(int index) { return index < 57 ? 180 + index : 364 + index - 57; }

int statLabel(int index) { return 318 + index; }

std::span<const MenuCaption> menuCaptions() { return kMenuCaptions; }

void applyLabels(const LanguageTexts& texts, ProjectDocument& d) {
  if (texts.empty()) return;
  forEachDerived(d, [&](int label, std::string& entry) { entry = texts.text(label); });
  for (const MenuCaption& entry : kMenuCaptions)
    entry.of(d) = texts.text(entry.label) + (entry.opensDialog ? "..." : "");
}

void applyLabel(int label, const std::string& text, ProjectDocument& d) {
  forEachDerived(d, [&](int from, std::string& entry) {
    if (from == label) entry = text;
  });
}

ProjectDocument emptyDocument(const LanguageTexts& texts, double today) {
  ProjectDocument d;
  applyLabels(texts, d);
  for (std::size_t i = 0; !texts.empty() && i < d.pageCaptions.size(); ++i)
    d.pageCaptions[i] = texts.text(391) + " " + std::to_string(i + 1);
  for (std::size_t i = 0; !texts.empty() && i < d.programs.size(); ++i)
    d.programs[i].caption = texts.text(400) + " " + std::to_string(i + 1);
  d.titles[4].caption = formatDate(today, "dddd dd-mmm-yyyy", Locale{});
  if (!texts.empty()) d.charSet = texts.charSet();
  if (!texts.fontName().empty()) d.options.fonttext = texts.fontName();
  return d;
}

}  // namespace plinth
