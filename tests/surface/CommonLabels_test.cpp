// The editor of the numbered texts.
#include "surface/CommonLabels.h"

#include <gtest/gtest.h>

#include "model/DerivedTexts.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

class CommonLabelsTest : public testing::Test, public DesignFixture {
 protected:
  CommonLabelsTest() {
    std::string file;
    for (int i = kFirstLabel; i <= kLastLabel; ++i) file += "text " + std::to_string(500 - i) + "\n";
    texts.load(file);
  }
  LanguageTexts texts;
  CommonLabels labels{texts};
};

TEST_F(CommonLabelsTest, ScrollsFrom101To399) {
  const struct {
    int to, first, firstNumber, lastNumber;
  } cases[] = {
      {0, 0, 101, 108}, {5, 5, 106, 113}, {291, 291, 392, 399}, {999, 291, 392, 399}, {-1, 0, 101, 108}};
  EXPECT_EQ(labels.most(), 291);
  for (const auto& c : cases) {
    labels.scrollTo(c.to);
    EXPECT_EQ(labels.first(), c.first);
    EXPECT_EQ(labels.number(0), c.firstNumber);
    EXPECT_EQ(labels.number(CommonLabels::kRows - 1), c.lastNumber);
  }
}

TEST_F(CommonLabelsTest, OrdersByTheBytesOfTheTexts) {
  const std::pair<int, const char*> words[] = {{300, "a"}, {301, ""},   {302, "\xC4"}, {303, "Z"},
                                               {304, "a"}, {305, "10"}, {306, "9"},    {400, "0"}};
  for (const auto& [number, text] : words) texts.setText(number, text);
  labels.orderByText();
  const int expected[] = {301, 305, 306, 303, 300, 304, 399};
  for (int row = 0; row < 7; ++row) EXPECT_EQ(labels.number(row), expected[row]) << row;
  labels.scrollTo(labels.most());
  EXPECT_EQ(labels.number(7), 302);
  labels.scrollTo(0);
  labels.change(0, "zzz");  // stays in its row until the order is asked for again
  EXPECT_EQ(labels.number(0), 301);
  EXPECT_EQ(texts.text(301), "zzz");
  labels.orderByText();
  EXPECT_EQ(labels.number(0), 305);
  labels.orderByNumber();
  EXPECT_EQ(labels.number(0), 101);
}

TEST_F(CommonLabelsTest, FindsFromTheNextRowOnAndRoundAbout) {
  texts.setText(103, "Clear &Record");
  texts.setText(203, "C&LEAR all");
  texts.setText(400, "only here");
  const struct {
    int first;
    const char* part;
    int found;
  } cases[] = {{0, "clear", 2}, {2, "clear", 102}, {102, "clear", 2},    {200, "c&lear", 102},
               {0, "", -1},     {2, "record", 2},  {0, "only here", -1}, {0, "nowhere", -1}};
  for (const auto& c : cases) {
    labels.scrollTo(c.first);
    EXPECT_EQ(labels.find(c.part), c.found) << c.part << " from " << c.first;
  }
}

TEST_F(CommonLabelsTest, TheProjectFollowsButKeepsTheWordsOfItsMenus) {
  applyLabels(texts, document);
  document.menus.pasting = "Insert";
  settle();
  const auto change = [&](int number, const std::string& text) {
    labels.scrollTo(number - kFirstLabel);
    labels.change(number - kFirstLabel - labels.first(), text);
    return takeCommonLabel(context, texts, number);
  };
  EXPECT_TRUE(change(383, "P"));
  EXPECT_TRUE(change(383, "Paste it"));
  EXPECT_EQ(document.engineText[133], "Paste it");
  EXPECT_EQ(document.menus.pasting, "Insert");
  EXPECT_EQ(history.steps(), 1u);
  EXPECT_TRUE(document.dirty);
  EXPECT_TRUE(change(184, "Make *?"));
  EXPECT_TRUE(change(319, "Mean"));
  EXPECT_EQ(document.menuText[4] + document.statLabels[1], "Make *?Mean");
  EXPECT_FALSE(change(101, "no copy of it"));
  EXPECT_EQ(history.steps(), 3u);
  EXPECT_EQ(history.undoWords(), "common label 319");
}

}  // namespace
}  // namespace plinth
