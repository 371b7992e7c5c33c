// The editor of the numbered texts.
#include "surface/CommonLabels.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

class CommonLabelsTest : public testing::Test {
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

}  // namespace
}  // namespace plinth
