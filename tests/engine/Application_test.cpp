// What a payload's rows make of an application: tabs, menus, buttons, and that damaged values do no harm.
#include "engine/Application.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

TEST(Application, PageTabsFollowTheHighestPageInUse) {
  const struct {
    int page;
    std::array<bool, 5> tabs;
  } cases[] = {
      {0, {false, false, false, false, false}},  {-1, {false, false, false, false, false}},
      {1, {true, true, false, false, false}},    {3, {true, true, true, true, false}},
      {4, {true, true, true, true, true}},       {5, {false, false, false, false, false}},
      {95, {false, false, false, false, false}},
  };
  for (const auto& c : cases) {
    Payload p = shopPayload();
    p.buttons.resize(1);
    p.buttons[0].page = static_cast<std::int16_t>(c.page);
    EXPECT_EQ(makeApplication(p).pageTabVisible, c.tabs) << c.page;
  }
}

TEST(Application, EmptyCaptionsHideEntriesLinesAndTitles) {
  Payload p;
  PayloadMenus& menus = p.application.menus;
  menus.fmenu = "&File";
  menus.mlist = "&Open";
  menus.exitit = "E&xit";
  menus.expot = "&Export";
  menus.ops = "&Edit";
  menus.cal = "Calculator";
  menus.finding = "&Search";
  p.application.exportOn = 0;
  Application app = makeApplication(p);
  EXPECT_TRUE(app.shows(MenuId::fmenu));
  EXPECT_EQ(findMenu(app.menus, MenuId::mlist)->toolTip, "Open");
  EXPECT_FALSE(findMenu(app.menus, MenuId::mlist)->separatorBefore);
  EXPECT_TRUE(findMenu(app.menus, MenuId::exitit)->separatorBefore);
  EXPECT_FALSE(app.shows(MenuId::newin));
  EXPECT_FALSE(app.shows(MenuId::expot)) << "exporting is switched off";
  EXPECT_FALSE(app.shows(MenuId::ops)) << "its only entry, the calculator, is switched off";
  EXPECT_FALSE(app.shows(MenuId::finding)) << "no entry at all";
  p.application.calVisible = true;
  p.reports = {ReportRow{}, ReportRow{}};
  p.reports[1].title = "List";
  app = makeApplication(p);
  EXPECT_TRUE(app.shows(MenuId::ops));
  EXPECT_FALSE(findMenu(app.menus, MenuId::printReport, 0)->visible);
  EXPECT_TRUE(findMenu(app.menus, MenuId::printReport, 1)->visible);
}

TEST(Application, DamagedValuesComeIntoTheirRangesAndAreNamedOnce) {
  Payload p = shopPayload();
  p.fields[1].fieldLength = -7;
  p.fields[2].fieldType = 200;
  p.fields[3].alignment = 900;
  p.fields[3].left = std::numeric_limits<float>::quiet_NaN();
  p.fields[4].alignment = -1;
  p.combos[1].fieldLength = -1;
  p.memos[1].fieldLength = std::numeric_limits<std::int32_t>::max();
  p.application.dateVal = 77;
  p.titles.clear();
  const Application app = makeApplication(p);
  EXPECT_EQ(app.field(1).fieldLength, 0);
  EXPECT_EQ(app.field(3).left, 0);
  EXPECT_EQ(app.memo(1).fieldLength, kMaxFieldLength);
  EXPECT_EQ(app.dateFormat, 5);
  EXPECT_EQ(app.titleCount(), 5);
  EXPECT_EQ(std::count(app.problems.begin(), app.problems.end(), "Alignment"), 1);
  EXPECT_EQ(std::count(app.problems.begin(), app.problems.end(), "MaxLength"), 1);
}

TEST(Application, MessagesReadSensiblyEvenWhenThePayloadHasNone) {
  Payload p;
  p.header.runMessages[45] = "Satz * belegt";
  const Application app = makeApplication(p);
  EXPECT_EQ(runMessage(app, 45, "7"), "Satz 7 belegt");
  EXPECT_EQ(runMessage(app, 4, "x.dbd"), "The file x.dbd does not exist. Create it?");
  EXPECT_EQ(runMessage(app, 99), "");
}

}  // namespace
}  // namespace plinth
