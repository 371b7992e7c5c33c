// The words of the application's menus as a person changes them.
#include "surface/MenuWords.h"

#include <gtest/gtest.h>

#include <set>

#include "basic/Text.h"
#include "builder/PayloadFromProject.h"
#include "model/DerivedTexts.h"
#include "model/PictureStore.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

class MenuWordsTest : public testing::Test, public DesignFixture {
 protected:
  MenuWordsTest() {
    std::string file;
    for (int i = kFirstLabel; i <= kLastLabel; ++i) file += "label " + std::to_string(i) + "\n";
    texts.load(file);
    applyLabels(texts, document);
    document.documents[2] = {"txt", "body", "Letter"};
    document.documents[3] = {"txt", "", "No body"};
    document.programs[1] = {true, "Notes", "notes.exe"};
    document.reports.resize(1);
    document.reports[0].title = "Monthly";
    settle();
  }
  void type(int id, const std::string& text) {
    words.begin(id);
    for (std::size_t i = 1; i <= text.size(); ++i) words.change(text.substr(0, i));
    words.end();
  }

  LanguageTexts texts;
  MenuWords words{context};
};

TEST_F(MenuWordsTest, MirrorsTheMenusInTheirOrder) {
  document.menus.erasefile.clear();  // still there to be clicked at
  std::string bar;
  std::set<int> ids;
  for (const MirroredMenu& menu : words.menus()) {
    bar += menu.title.caption + ":";
    EXPECT_TRUE(ids.insert(menu.title.id).second);
    for (const MenuWord& entry : menu.entries) {
      bar += (entry.separatorBefore ? "|" : ",") + entry.caption;
      EXPECT_TRUE(ids.insert(entry.id).second) << entry.caption;
    }
    bar += "\n";
  }
  EXPECT_EQ(replaceAll(bar, "label ", ""),
            "367:,394...,159...|118...,380...|395|178...,Monthly|157\n"
            "371:,382,381,384,383|396...|(Clear Record),387,386|375|Notes\n"
            "369:,388...|389,390,393|397,399\n"
            "372:,Letter\n"
            "370:,373|374...\n");
}

TEST_F(MenuWordsTest, GivenNumbersOpenTheirEntries) {
  const struct {
    int id, label;
  } cases[] = {{5, 384}, {8, 388}, {9, 389}, {17, 390}, {24, 393}, {14, 381}, {15, 383}, {16, 382}};
  for (const auto& [id, label] : cases) {
    words.begin(id);
    EXPECT_EQ(state.menuLabelEdit, id);
    EXPECT_EQ(words.words(), texts.text(label) + (label == 388 ? "..." : "")) << id;
  }
  words.begin(9999);
  EXPECT_EQ(state.menuLabelEdit, 16);
  words.end();
  EXPECT_EQ(state.menuLabelEdit, -1);
  EXPECT_EQ(words.words(), "");
  words.change("nothing is open");
  EXPECT_FALSE(history.canUndo());
}

TEST_F(MenuWordsTest, TypingIsOneStepAndReachesTheApplication) {
  type(15, "Insert");
  type(29, "Exchange...");
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(document.engineText[133], "Insert");
  EXPECT_EQ(document.engineText[146], "Exchange");
  MemoryPictures pictures;
  std::vector<std::string> notes;
  const Payload payload = payloadFromProject(document, "shop", pictures, notes);
  EXPECT_EQ(payload.application.menus.pasting, "Insert");
  EXPECT_EQ(payload.application.replaceCaption, "Exchange...");
  EXPECT_EQ(history.steps(), 2u);
  ASSERT_TRUE(history.undo(document));
  EXPECT_EQ(history.undoWords(), "words of menu entry Paste");
  ASSERT_TRUE(history.undo(document));
  EXPECT_EQ(document.menus.pasting + document.engineText[133], "label 383label 383");
  type(19, "F");
  EXPECT_EQ(history.undoWords(), "words of menu File");
}

TEST_F(MenuWordsTest, EntriesThatAnApplicationHasSeveralOf) {
  const std::vector<MirroredMenu> menus = words.menus();
  const int report = menus[0].entries[6].id, program = menus[1].entries.back().id,
            letter = menus[3].entries[0].id;
  type(report, "Yearly");
  type(program, "Editor");
  type(letter, "Card");
  words.begin(report);
  words.change("");  // would drop the report from the file
  EXPECT_EQ(document.reports[0].title + document.programs[1].caption + document.documents[2].viewDocName,
            "YearlyEditorCard");
  document.reports.clear();  // another project came
  words.change("Gone");
  EXPECT_EQ(words.words(), "");
}

}  // namespace
}  // namespace plinth
