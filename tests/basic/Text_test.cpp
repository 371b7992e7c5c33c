// Byte texts, file names, the substitution and wildcards.
#include "basic/Text.h"

#include <gtest/gtest.h>

#include "basic/FileName.h"
#include "basic/Substitution.h"
#include "basic/Wildcard.h"

namespace plinth {
namespace {

TEST(Text, ReplacesAndSplits) {
  EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(replaceAll("a*b*", "*", "**"), "a**b**");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(split("a,,b,", ","), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(split("", ","), std::vector<std::string>{""});
  EXPECT_EQ(split("ab", ""), std::vector<std::string>{"ab"});
}

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(trim("  a b\t "), "a b\t");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trimRight(" a "), " a");
  EXPECT_EQ(trimLeft(" a "), "a ");
  EXPECT_EQ(oneLine("a\r\n\x1B[2Jb \x7F\xFC"), "a [2Jb  \xFC");
  EXPECT_TRUE(equalAsciiNoCase("aZ\xE4", "Az\xE4"));
  EXPECT_FALSE(equalAsciiNoCase("\xE4", "\xC4"));
  EXPECT_FALSE(equalAsciiNoCase("a", "ab"));
}

TEST(Substitution, HidesEveryByteAndComesBack) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  const std::string hidden = scrambleText(all);
  for (int i = 0; i < 256; ++i) EXPECT_NE(hidden[i], all[i]);
  EXPECT_EQ(unscrambleText(hidden), all);
  EXPECT_NE(scrambleText(hidden), all);
  // Frozen: finished applications and their data files depend on each value.
  std::uint32_t sum = 0;
  for (std::uint8_t value : substitutionTable()) sum = sum * 31 + value;
  EXPECT_EQ(sum, 0xE9C98CACu);
}

TEST(FileName, EmbeddedNamesStayInTheirFolder) {
  const struct {
    const char *name, *safe;
  } kCases[] = {{"a.jpg", "a.jpg"},
                {"C:\\Temp\\a.jpg", "a.jpg"},
                {"../../etc/passwd", "passwd"},
                {"C:evil.exe", "evil.exe"},
                {"a.txt:stream", "stream"},
                {"..", ""},
                {"a/..", ""},
                {"a/", ""},
                {". . .", ""},
                {"a.jpg. .", "a.jpg"},
                {"a<b>|?*\"\x01.gif", "ab.gif"},
                {"nul", "_nul"},
                {"NUL.txt", "_NUL.txt"},
                {"con .jpg", "_con .jpg"},
                {"AUX.", "_AUX"},
                {"C?ON", "_CON"},
                {"com1.jpg", "_com1.jpg"},
                {"COM\xB9", "_COM\xB9"},
                {"LPT0", "LPT0"},
                {"COM10", "COM10"},
                {"conin$", "_conin$"},
                {"Console.jpg", "Console.jpg"},
                {"B\xFC\x63her.bmp", "B\xFC\x63her.bmp"}};
  for (const auto& [name, safe] : kCases) EXPECT_EQ(safeFileName(name), safe) << name;
}

TEST(FileName, TakesPathsApart) {
  EXPECT_EQ(fileNameOf("C:\\a/b.c\\d.tar.gz"), "d.tar.gz");
  EXPECT_EQ(folderOf("C:\\a/b.c\\d.tar.gz"), "C:\\a/b.c\\");
  EXPECT_EQ(extensionOf("C:\\a/b.c\\d.tar.gz"), "gz");
  EXPECT_EQ(withoutExtension("C:\\b.c\\d.tar.gz"), "C:\\b.c\\d.tar");
  EXPECT_EQ(extensionOf("b.c\\d"), "");
  EXPECT_EQ(withoutExtension("b.c\\d"), "b.c\\d");
  EXPECT_EQ(folderOf("plain"), "");
}

TEST(Wildcard, MatchesAsSearchesExpect) {
  const struct {
    const char *text, *pattern;
    bool matches;
  } kCases[] = {{"", "", true},
                {"", "*", true},
                {"", "?", false},
                {"abc", "a*c", true},
                {"abc", "a*b", false},
                {"abc", "A*", false},
                {"a1", "a#", true},
                {"aa", "a#", false},
                {"abcabd", "*ab?", true},
                {"b", "[a-c]", true},
                {"d", "[!a-c]", true},
                {"b", "[!a-c]", false},
                {"-", "[a-]", true},
                {"*", "[*]", true},
                {"x*", "x[*]", true},
                {"!", "[!]", true},
                {"ab", "a[]b", true},
                {"", "[]", true},
                {"a", "[a", false},
                {"[", "[", false},
                {"aX", "*[", false},
                {"b", "[c-a]", false},
                {"]", "]", true},
                {"\xE4", "[\xE0-\xEF]", true},
                {"mississippi", "*iss*ip*", true},
                {"mississippi", "*iss*ix*", false}};
  for (const auto& [text, pattern, matches] : kCases) {
    EXPECT_EQ(wildcardMatch(text, pattern), matches) << text << ' ' << pattern;
  }
  std::string pattern;
  for (int i = 0; i < 200; ++i) pattern += "a*";
  EXPECT_FALSE(
      wildcardMatch(std::string(5000, 'a'), pattern + "b"));  // ends at all only when not exponential
}

}  // namespace
}  // namespace plinth
