#include "engine/search/TextMatch.h"

#include <gtest/gtest.h>

#include "basic/CodePage.h"
#include "basic/Wildcard.h"

namespace plinth {
namespace {

TEST(TextMatch, FindsTheTermAsItStandsAndElseAsAPattern) {
  struct Case {
    const char* term;
    const char* text;
    bool matchCase, isIn, fits;
  };
  static constexpr Case kCases[] = {
      {"anna", "Hanna Maria", false, true, false},
      {"ANNA", "Hanna Maria", true, false, false},
      {"Anna", "Anna", true, true, true},
      {"", "x", false, true, false},
      {"a*", "see a* there", false, true, false},
      {"a*", "Anton", false, false, true},
      {"*b#", "Ab7", false, false, true},
      {"[a-c]x", "BX", false, false, true},
      {"[!a]x", "AX", false, false, false},
      {"[abc", "a", false, false, false},
      {"a*[abc", "ab", false, false, false},
      {"*z?phyr*", "a West ZEPHYR blows", false, false, true},
      {"\xe9t\xe9", "L'\xc9T\xc9 passe", false, true, false},
      {"\xe9t\xe9", "L'\xc9T\xc9 passe", true, false, false},
  };
  for (const Case& c : kCases) {
    const TextMatch match(c.term, c.matchCase, 1252);
    EXPECT_EQ(match.isIn(c.text), c.isIn) << c.term << " in " << c.text;
    EXPECT_EQ(match.fits(c.text), c.fits) << c.term << " fits " << c.text;
    EXPECT_EQ(match.found(c.text), c.isIn || c.fits) << c.term << " found " << c.text;
  }
}

// Every place in texts of all lengths around the blocks that are looked at together, in both cases.
TEST(TextMatch, FindsATermAtEveryPlaceOfATextOfAnyLength) {
  for (const std::string term : {"q", "ab", "Zephyr", "a long term of many letters"}) {
    const TextMatch match(term, false, 1252);
    const TextMatch pattern("*" + term + "*", false, 1252);
    for (std::size_t length = 0; length < 70; ++length) {
      std::string text(length, 'z');
      EXPECT_FALSE(match.isIn(text));
      for (std::size_t at = 0; at + term.size() <= length; ++at) {
        std::string with = text;
        with.replace(at, term.size(), at % 2 ? upperCase(term, 1252) : term);
        EXPECT_TRUE(match.isIn(with)) << with;
        EXPECT_TRUE(pattern.fits(with)) << with;
        EXPECT_FALSE(match.isIn(std::string_view(with).substr(0, at + term.size() - 1))) << with;
      }
    }
  }
}

// The shortcut over a pattern's plain part must not change what fits.
TEST(TextMatch, FitsWhatThePatternFits) {
  const std::string patterns[] = {"*", "a[]b", "a[bc]d*e", "?[!x]#", "[]]", "*a[", "**", "x*x", "a?", "]a"};
  const std::string texts[] = {"ab", "abdze", "aa1", "", "]", "]a", "a]", std::string(600, 'x')};
  for (const std::string& pattern : patterns)
    for (const std::string& text : texts)
      EXPECT_EQ(TextMatch(pattern, false, 1252).fits(text), wildcardMatch(text, pattern))
          << pattern << " against " << text;
}

TEST(TextMatch, LeavesTheSecondHalfOfDoubleByteCharactersAlone) {
  const TextMatch match("a", false, 932);
  EXPECT_TRUE(match.isIn("xA"));
  EXPECT_FALSE(match.isIn("\x83\x41"));  // one character, whose second byte looks like a letter
  EXPECT_FALSE(TextMatch("*a", false, 932).found("\x83\x41"));
}

}  // namespace
}  // namespace plinth
