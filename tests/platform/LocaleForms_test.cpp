// The C library's forms in our words.
#include "platform/LocaleForms.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

TEST(LocaleForms, saysDatesAndTimesAsPatterns) {
  const struct {
    const char *format, *pattern;
    char separator;
  } cases[] = {
      {"%d.%m.%Y", "dd.MM.yyyy", '.'},
      {"%-d/%-m/%y", "d/M/yy", '/'},
      {"%e. %b %Y", "d. MMM yyyy", '.'},
      {"%r", "hh:mm:ss tt", ':'},
      {"%I:%M:%S %p %Z", "hh:mm:ss tt", ':'},
      {"%T", "HH:mm:ss", ':'},
      {"%d de %B", "dd 'de' MMMM", '?'},
      {"%Y年%m月%d日", "yyyy'年'MM'月'dd'日'", '?'},
      {"%Ey.%Om%", "yy.MM", '.'},
      {"100%%", "100%", '1'},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(patternOfStrftime(c.format), c.pattern);
    EXPECT_EQ(separatorOfPattern(c.pattern, '?'), c.separator) << c.pattern;
  }
  EXPECT_EQ(longDatePatternLike("dd.MM.yyyy"), "dddd, d MMMM yyyy");
  EXPECT_EQ(longDatePatternLike("yyyy-MM-dd"), "dddd, yyyy MMMM d");
  EXPECT_EQ(longDatePatternLike("M/d/yyyy"), "dddd, MMMM d, yyyy");
}

TEST(LocaleForms, numbersTheMoneyLayouts) {
  EXPECT_EQ(positiveCurrencyFormat(true, false), 0);      // $1
  EXPECT_EQ(positiveCurrencyFormat(false, true), 3);      // 1 $
  EXPECT_EQ(negativeCurrencyFormat(true, false, 0), 0);   // ($1)
  EXPECT_EQ(negativeCurrencyFormat(true, false, 4), 2);   // $-1
  EXPECT_EQ(negativeCurrencyFormat(true, true, 1), 9);    // -$ 1
  EXPECT_EQ(negativeCurrencyFormat(false, false, 3), 6);  // 1-$
  EXPECT_EQ(negativeCurrencyFormat(false, true, 1), 8);   // -1 $
  EXPECT_EQ(negativeCurrencyFormat(false, true, 127), 8) << "an untold place of the sign is before all";
}

TEST(LocaleForms, knowsThePageOfALanguage) {
  const struct {
    const char* name;
    int page;
  } cases[] = {{"de_DE.UTF-8@euro", 1252},
               {"pl_PL", 1250},
               {"sr_RS@latin", 1250},
               {"sr_RS", 1251},
               {"ja_JP.UTF-8", 932},
               {"zh_TW", 950},
               {"zh_CN.GB18030", 936},
               {"zh", 936},
               {"C", 1252},
               {"", 1252},
               {"xx_YY", 1252}};
  for (const auto& c : cases) EXPECT_EQ(codePageOfLocaleName(c.name), c.page) << c.name;
}

}  // namespace
}  // namespace plinth
