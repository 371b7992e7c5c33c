// Pages, paper sizes and background, as the menus choose them.
#include "surface/PageSetup.h"

#include <gtest/gtest.h>

#include "surface/Units.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

class PageSetupTest : public testing::Test, protected DesignFixture {
 protected:
  std::string size() const {
    const SizePx page = pageSizePx(document);
    return std::to_string(page.width) + "x" + std::to_string(page.height);
  }
  std::string checked() const {
    std::string all;
    for (const PaperEntry& entry : paperEntries())
      if (setup.paperChecked(entry.index)) all += (all.empty() ? "" : " ") + std::to_string(entry.index);
    return all;
  }

  PageSetup setup{context};
};

TEST_F(PageSetupTest, ShowsAPageWithNothingSelected) {
  const ObjectRef line = add(ObjectKind::Line, {10, 10, 50, 0}), label = add(ObjectKind::Title, {9, 9, 0, 0});
  document.squares.resize(1);
  document.squares[0].page = 0;
  document.squares[0].visible = false;  // as an older file may have it
  document.titles[1].visible = document.titles[0].visible = false;
  document.titles[1].page = document.titles[0].page = 0;
  settle();
  select(state, line);
  state.lineEndsShown = true;
  state.editedTitle = label.index;
  hideObject(context, label);
  for (const int page : {-1, 5}) setup.showPage(page);
  EXPECT_EQ(view.pages, 0);
  EXPECT_TRUE(state.lineEndsShown);

  setup.showPage(2);
  EXPECT_EQ(state.currentPage, 2);
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_FALSE(state.lineEndsShown);
  EXPECT_EQ(state.editedTitle, -1);
  EXPECT_EQ(view.labelEdits, 1);
  EXPECT_EQ(view.pages, 1);
  EXPECT_FALSE(isHidden(state, label));
  EXPECT_TRUE(document.titles[6].visible);
  EXPECT_FALSE(document.squares[0].visible);

  state.selKind = kSelArea;
  state.userSelVisible = true;
  state.multiSel = {line};
  moveBy(document, line, 5, 5);  // in a drag
  setup.showPage(0);
  EXPECT_EQ(history.undoWords(), "move of Line 1");
  document.dirty = false;
  EXPECT_FALSE(state.userSelVisible);
  EXPECT_TRUE(state.multiSel.empty());
  EXPECT_TRUE(document.squares[0].visible);
  EXPECT_FALSE(document.titles[1].visible) << "the help bar has its own switch";
  setup.chooseUnit(ScaleUnit::inches);
  for (const int choice : {10, 7}) setup.chooseGrid(choice);
  EXPECT_DOUBLE_EQ(state.gridStep, 24);
  EXPECT_FALSE(finish(context, "nothing")) << "page, unit and grid on view are no part of the project";
  EXPECT_FALSE(document.dirty);
}

TEST_F(PageSetupTest, PaperAndOrientation) {
  // One after the other.
  const struct {
    int index;
    const char *size, *checked;
  } cases[] = {{0, "816x1056", "0 19"},   {12, "794x1123", "12 19"}, {20, "1123x794", "12 20"},
               {20, "1123x794", "12 20"}, {13, "794x559", "13 20"},  {18, "794x559", "13 20"},
               {22, "794x559", "13 20"},  {-1, "794x559", "13 20"},  {19, "559x794", "13 19"},
               {19, "559x794", "13 19"},  {8, "1428x1056", "8 19"},  {2, "1632x1056", "2 19"},
               {20, "1056x1632", "2 20"}, {23, "1056x1632", "2 20"}};
  EXPECT_EQ(checked(), "19 22");
  EXPECT_STREQ(paperEntries()[4].text, "Statement, 5½ x 8½ in. ");
  const float frame = document.formWidth - document.pageWidth;
  for (const auto& c : cases) {
    setup.choosePaper(c.index);
    EXPECT_EQ(size(), c.size) << c.index;
    EXPECT_EQ(checked(), c.checked) << c.index;
    // What the application and the guides take must be the same page.
    EXPECT_EQ(std::to_string(twipsToPixels(document.pageWidth)) + "x" +
                  std::to_string(twipsToPixels(document.pageHeight)),
              c.size);
    EXPECT_EQ(document.guideWidth, document.pageWidth);
    EXPECT_EQ(document.scrollHeight, document.pageHeight);
    EXPECT_EQ(document.formWidth - document.pageWidth, frame);
  }
  EXPECT_EQ(history.steps(), 8u);  // those that changed nothing are none
  EXPECT_EQ(history.undoWords(), "paper size");
  history.undo(document);
  EXPECT_EQ(size(), "1632x1056");
}

TEST_F(PageSetupTest, PagesOfAnySize) {
  const struct {
    ScaleUnit unit;
    const char *width, *height;
    bool landscape;
    const char* size;
  } cases[] = {{ScaleUnit::pixels, "500", "300", false, "500x300"},
               {ScaleUnit::inches, "5", "2.5", false, "480x240"},
               {ScaleUnit::centimeters, "12.7", "2.54", false, "480x96"},
               {ScaleUnit::millimeters, "254", "127", true, "480x960"},
               {ScaleUnit::pixels, "0", "300", false, "32x300"},
               {ScaleUnit::pixels, "", "99999999", false, "32x20000"},
               {ScaleUnit::pixels, "-4", "wide", false, "32x32"}};
  for (const auto& c : cases) {
    setup.choosePaper(12);
    setup.choosePaper(c.landscape ? 20 : 19);
    setup.chooseUnit(c.unit);
    setup.customPaper(c.width, c.height);
    EXPECT_EQ(size(), c.size) << c.width;
    EXPECT_TRUE(setup.paperChecked(22));
    EXPECT_FALSE(setup.paperChecked(12));
  }
  setup.choosePaper(19);
  setup.customPaper("500", "300");
  EXPECT_EQ(setup.customTexts()[0] + " " + setup.customTexts()[1], "500 300");
  for (const auto& [index, expected] : {std::pair{20, "300x500"}, {20, "300x500"}, {19, "500x300"}}) {
    setup.choosePaper(index);
    EXPECT_EQ(size(), expected);
    EXPECT_TRUE(setup.paperChecked(22));
  }
}

TEST_F(PageSetupTest, LooksOfPagesAreStepsOfTheProject) {
  setup.showPage(3);
  setup.pageColor(0xC0FFFF);
  EXPECT_EQ(pageColorOf(document, 3), 0xC0FFFF);
  EXPECT_EQ(pageColorOf(document, 0), 0xFFFFFF);
  EXPECT_EQ(history.undoWords(), "page colour");
  setup.background("paper.jpg", 0);
  setup.background("", 2);
  setup.background("other.jpg", 4);
  EXPECT_EQ(document.tileImage, "paper.jpg");
  EXPECT_EQ(document.tileMode, 2);
  EXPECT_EQ(history.undoWords(), "background");
  for (const char* typed : {"O", "Or", "Orders"}) setup.pageCaption(1, typed);
  setup.pageCaption(2, "Bills");
  setup.pageCaption(5, "none");
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(history.steps(), 5u);
  EXPECT_EQ(history.undoWords(), "name of page 3");
  history.undo(document);
  history.undo(document);
  EXPECT_EQ(document.pageCaptions[1], "Page 2");
}

}  // namespace
}  // namespace plinth
