// Which language text goes where in a project. The run-time tables follow the numbers of the texts but where
// the designer's own windows have the number.
#include "model/DerivedTexts.h"

#include "basic/DateSerial.h"

namespace plinth {
namespace {

struct CaptionLabel {
  std::string RunMenus::*caption;
  int label;
  bool opensDialog;
};

constexpr CaptionLabel kMenuLabels[] = {
    {&RunMenus::mlist, 394, true},          {&RunMenus::newin, 159, true},
    {&RunMenus::printingit, 178, true},     {&RunMenus::exitit, 157, false},
    {&RunMenus::copyadress, 384, false},    {&RunMenus::erasefile, 385, false},
    {&RunMenus::deletemarkrec, 386, false}, {&RunMenus::finden0, 388, true},
    {&RunMenus::finden3, 389, false},       {&RunMenus::cal, 375, false},
    {&RunMenus::infoo, 373, false},         {&RunMenus::aboutit, 374, true},
    {&RunMenus::newview, 395, false},       {&RunMenus::fmenu, 367, false},
    {&RunMenus::ops, 371, false},           {&RunMenus::finding, 369, false},
    {&RunMenus::helpit, 370, false},        {&RunMenus::viewDoc, 372, false},
    {&RunMenus::expot, 118, true},          {&RunMenus::copying, 381, false},
    {&RunMenus::pasting, 383, false},       {&RunMenus::cuting, 382, false},
    {&RunMenus::finden4, 390, false},       {&RunMenus::finden5, 393, false},
    {&RunMenus::importmenu, 380, true}};

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

void applyLabels(const LanguageTexts& texts, ProjectDocument& d) {
  if (texts.empty()) return;
  for (std::size_t i = 0; i < d.engineText.size(); ++i)
    d.engineText[i] = texts.text(engineTextLabel(static_cast<int>(i)));
  for (std::size_t i = 0; i < d.menuText.size(); ++i)
    d.menuText[i] = texts.text(menuTextLabel(static_cast<int>(i)));
  for (std::size_t i = 0; i < d.statLabels.size(); ++i)
    d.statLabels[i] = texts.text(statLabel(static_cast<int>(i)));
  for (const CaptionLabel& entry : kMenuLabels)
    d.menus.*entry.caption = texts.text(entry.label) + (entry.opensDialog ? "..." : "");
  d.indexFeldCaption = texts.text(399);
  d.statisticsCaption = texts.text(397);
  d.deleteRecordCaption = texts.text(387);
  d.replaceMenuCaption = texts.text(396) + "...";
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
