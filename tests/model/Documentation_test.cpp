// What the pages in docs/ say of format and texts is what the program does.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "basic/Text.h"
#include "model/DerivedTexts.h"
#include "model/LanguageTexts.h"
#include "tests/model/LayoutTable.h"

namespace plinth {
namespace {

std::string fileText(const std::string& fromRoot) {
  std::ifstream file(std::string(PLINTH_TEST_DATA) + "/../../" + fromRoot, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Documentation, ProjectPageHoldsTheTableOfTheWalk) {
  const std::string begin = "<!-- layout -->\n", end = "<!-- end of layout -->";
  const std::string page = fileText("docs/formats/project.md");
  const std::size_t from = page.find(begin), to = page.find(end);
  const std::string table = LayoutTable::ofProject();
  const bool same = from != std::string::npos && to != std::string::npos &&
                    page.substr(from + begin.size(), to - from - begin.size()) == table;
  const std::string generated = testing::TempDir() + "project-layout.md";
  if (!same) std::ofstream(generated, std::ios::binary) << table;
  EXPECT_TRUE(same) << "the table as it should be: " << generated;
}

TEST(Documentation, EnglishHasEveryTextAndItsPageAgrees) {
  const std::string file = fileText("Languages/English.txt");
  EXPECT_EQ(split(file, "\n").size(), 303u);  // 302 lines
  LanguageTexts texts;
  texts.load(file);
  EXPECT_EQ(texts.charSet(), 0);
  EXPECT_EQ(texts.fontName(), "Arial");
  const std::string page = fileText("docs/labels.md");
  for (int number = kFirstLabel; number <= kLastLabel; ++number) {
    EXPECT_FALSE(trim(texts.text(number)).empty()) << number;
    EXPECT_TRUE(contains(page, "| " + std::to_string(number) + " | " + texts.text(number) + " |")) << number;
  }
}

TEST(Documentation, LabelsPageNamesThePlacesOfTheDerivedTables) {
  const std::string page = fileText("docs/labels.md");
  const auto expectPlace = [&](int label, const std::string& place) {
    const std::size_t row = page.find("\n| " + std::to_string(label) + " |");
    ASSERT_NE(row, std::string::npos) << label;
    EXPECT_TRUE(contains(page.substr(row + 1, page.find('\n', row + 1) - row), "`" + place + "`")) << place;
  };
  for (int i = 0; i < 151; ++i) expectPlace(engineTextLabel(i), "EngineText(" + std::to_string(i) + ")");
  for (int i = 0; i < 60; ++i) expectPlace(menuTextLabel(i), "MenuText(" + std::to_string(i) + ")");
  for (int i = 0; i < 7; ++i) expectPlace(statLabel(i), "StatLabels(" + std::to_string(i) + ")");
}

TEST(Documentation, RunTimeTextsFitTheirUse) {
  LanguageTexts texts;
  texts.load(fileText("Languages/English.txt"));
  const ProjectDocument d = emptyDocument(texts, 45982);
  const struct {
    int index;
    const char* text;
  } messages[] = {{4, "The file * does not exist. Create it?"},
                  {9, "Record * cannot be read."},
                  {12, "There is no record."},
                  {17, "The value * is not valid."},
                  {19, "The record is damaged."},
                  {27, "Sorting"},
                  {45, "Record * is in use by another user."}};
  for (const auto& [index, text] : messages) EXPECT_EQ(d.menuText[index], text);
  const struct {
    int index;
    const char* text;
  } captions[] = {{19, "Search this field"},           {46, "searched"},     {47, "records"}, {48, "Found"},
                  {49, "More than the list can show"}, {50, "Nothing found"}};
  for (const auto& [index, text] : captions) EXPECT_EQ(d.engineText[index], text);
  EXPECT_EQ(d.statLabels[0], "Sum");
  EXPECT_EQ(d.menus.expot, "&Export...");
  EXPECT_EQ(d.titles[4].caption, "Friday 21-Nov-2025");
}

}  // namespace
}  // namespace plinth
