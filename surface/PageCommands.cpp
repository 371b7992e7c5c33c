// Commands that place objects and that set up pages.
#include <array>

#include "basic/CodePage.h"
#include "surface/CommandTable.h"
#include "surface/DesignerController.h"
#include "surface/Units.h"

namespace plinth {

namespace {

using D = DesignerController;
using enum MenuPlace;

constexpr auto kTableColumns = std::to_array<int>({1, 2, 3, 4, 6, 7, 8});
constexpr auto kUnits = std::to_array<ScaleUnit>(
    {ScaleUnit::pixels, ScaleUnit::inches, ScaleUnit::millimeters, ScaleUnit::centimeters});
constexpr auto kUnitNames =
    std::to_array<const char*>({"&Pixels", "&Inches", "&Millimeters", "&Centimeters"});
constexpr auto kTiles = std::to_array<const char*>({"&Whole Page", "&Left Edge", "&Top Edge", "&None"});
constexpr int kPaperEntries = 18, kPortrait = 19, kLandscape = 20, kCustom = 22;

std::string toolText(const D& d, int i) {
  const ToolInfo& tool = toolInfos()[static_cast<std::size_t>(i)];
  return menuText(toUtf8(d.text(tool.label, tool.english), d.languageCodePage()));
}

bool canPlace(const D& d, int) { return !d.surface().state().locked; }

std::string dateText(const D& d, int i) {
  return menuText(d.surface().placement().dateCaptions()[static_cast<std::size_t>(i)]);
}

std::string tableText(const D&, int i) {
  const int columns = kTableColumns[static_cast<std::size_t>(i)];
  return "&" + std::to_string(columns) + (columns == 1 ? " Column" : " Columns");
}

bool areaDrawn(const D& d, int) {
  return canPlace(d, 0) && d.surface().state().selKind == kSelArea && d.surface().state().userSelVisible;
}

std::string pageText(const D& d, int i) { return "&" + std::to_string(i + 1) + " " + d.pageName(i); }

std::string paperText(const D&, int i) {
  for (const PaperEntry& entry : paperEntries())
    if (entry.index == i) return menuText(entry.text);
  return "";
}

bool isPaper(const D& d, int i) { return d.surface().setup().paperChecked(i); }

std::string gridText(const D& d, int i) {
  return gridCaption(kGridChoices[static_cast<std::size_t>(i)], d.surface().state().scaleUnit);
}

}  // namespace

// clang-format off
std::span<const CommandRow> addCommands() {
  static constexpr CommandRow rows[] = {
      {Command::tool, add, 0, "", "", {}, [](D& d, int i) { d.place(static_cast<Tool>(i)); }, false, kTools, toolText,
       canPlace},
      {Command::documentBox, add, 0, "&Document Box", "", {}, [](D& d, int) { d.placement([](Placement& p) { p.documentBox(); }); },
       true, 1, nullptr, canPlace},
      {Command::recordId, add, 0, "&Record-ID", "", {}, [](D& d, int) { d.placement([](Placement& p) { p.recordId(); }); },
       false, 1, nullptr, canPlace},
      {Command::none, add, 0, "D&ate", "", {}, nullptr, false, 1, nullptr, canPlace, nullptr, date},
      {Command::none, add, 0, "Date &Stamp", "", {}, nullptr, false, 1, nullptr, canPlace, nullptr, dateStamp},
      {Command::clock, add, 0, "&Clock", "", {}, [](D& d, int) { d.placement([](Placement& p) { p.clock(); }); }, false, 1,
       nullptr, canPlace},
      {Command::helpBar, add, 0, "&Help Bar", "", {}, [](D& d, int) { d.placement([](Placement& p) { p.toggleHelpBar(); }); },
       false, 1, nullptr, canPlace, [](const D& d, int) { return d.surface().placement().helpBarShown(); }},
      {Command::none, add, 0, "&Table", "", {}, nullptr, true, 1, nullptr, areaDrawn, nullptr, table},
      {Command::date, date, 0, "", "", {}, [](D& d, int i) { d.placement([i](Placement& p) { p.date(i); }); }, false, 6,
       dateText, canPlace},
      {Command::dateStamp, dateStamp, 0, "", "", {}, [](D& d, int i) { d.placement([i](Placement& p) { p.dateStamp(i); }); },
       false, 6, dateText, canPlace},
      {Command::table, table, 0, "", "", {},
       [](D& d, int i) { d.placement([i](Placement& p) { p.table(kTableColumns[static_cast<std::size_t>(i)]); }); }, false,
       static_cast<int>(kTableColumns.size()), tableText, areaDrawn},
  };
  return rows;
}

std::span<const CommandRow> pageCommands() {
  static constexpr CommandRow rows[] = {
      {Command::page, page, 0, "", "", {}, [](D& d, int i) { d.showPage(i); }, false, kPages, pageText, nullptr,
       [](const D& d, int i) { return d.surface().state().currentPage == i; }},
      {Command::nextPage, page, 0, "&Next Page", "Ctrl+PageDown", {kPageDownKey, kCtrl}, [](D& d, int) { d.showNextPage(1); },
       true},
      {Command::previousPage, page, 0, "&Previous Page", "Ctrl+PageUp", {kPageUpKey, kCtrl},
       [](D& d, int) { d.showNextPage(-1); }},
      {Command::namePage, page, 0, "Na&me of Page...", "", {}, [](D& d, int) { d.namePage(); }},
      {Command::none, page, 132, "Page &Size...", "", {}, nullptr, true, 1, nullptr, nullptr, nullptr, paper},
      {Command::none, page, 0, "&Units", "", {}, nullptr, false, 1, nullptr, nullptr, nullptr, unit},
      {Command::none, page, 392, "&Grid", "", {}, nullptr, false, 1, nullptr, nullptr, nullptr, grid},
      {Command::pageColor, page, 0, "Page &Color...", "", {}, [](D& d, int) { d.choosePageColor(); }, true},
      {Command::none, page, 0, "&Background", "", {}, nullptr, false, 1, nullptr, nullptr, nullptr, background},
      {Command::paper, paper, 0, "", "", {}, [](D& d, int i) { d.choosePaper(i); }, false, kPaperEntries, paperText, nullptr,
       isPaper},
      {Command::portrait, paper, 0, "Portrait...", "", {}, [](D& d, int) { d.choosePaper(kPortrait); }, true, 1, nullptr,
       nullptr, [](const D& d, int) { return isPaper(d, kPortrait); }},
      {Command::landscape, paper, 0, "Landscape...", "", {}, [](D& d, int) { d.choosePaper(kLandscape); }, false, 1, nullptr,
       nullptr, [](const D& d, int) { return isPaper(d, kLandscape); }},
      {Command::customPaper, paper, 0, "Custom...", "", {}, [](D& d, int) { d.customPaper(); }, true, 1, nullptr, nullptr,
       [](const D& d, int) { return isPaper(d, kCustom); }},
      {Command::unit, unit, 0, "", "", {}, [](D& d, int i) { d.chooseUnit(kUnits[static_cast<std::size_t>(i)]); }, false,
       static_cast<int>(kUnits.size()),
       [](const D&, int i) { return std::string(kUnitNames[static_cast<std::size_t>(i)]); }, nullptr,
       [](const D& d, int i) { return d.surface().state().scaleUnit == kUnits[static_cast<std::size_t>(i)]; }},
      {Command::grid, grid, 0, "", "", {}, [](D& d, int i) { d.chooseGrid(kGridChoices[static_cast<std::size_t>(i)]); }, false,
       static_cast<int>(kGridChoices.size()), gridText, nullptr,
       [](const D& d, int i) { return d.surface().state().gridChoice == kGridChoices[static_cast<std::size_t>(i)]; }},
      {Command::backgroundPicture, background, 0, "&Picture...", "", {}, [](D& d, int) { d.chooseBackground(); }},
      {Command::tile, background, 0, "", "", {}, [](D& d, int i) { d.tileBackground(i); }, true,
       static_cast<int>(kTiles.size()), [](const D&, int i) { return std::string(kTiles[static_cast<std::size_t>(i)]); },
       nullptr, [](const D& d, int i) { return d.shell().document().tileMode == i; }},
  };
  return rows;
}

std::span<const CommandRow> optionCommands() {
  static constexpr CommandRow rows[] = {
      {Command::colorTable, options, 105, "&Color Table", "", {}, [](D& d, int) { d.showColorTable(); }},
      {Command::toolPanel, options, 0, "Tool &Panel", "", {}, [](D& d, int) { d.surface().toggleToolPanel(); }, false, 1,
       nullptr, nullptr, [](const D& d, int) { return d.surface().toolFrame().shown(); }},
  };
  return rows;
}
// clang-format on

}  // namespace plinth
