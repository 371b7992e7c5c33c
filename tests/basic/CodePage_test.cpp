// Code pages: conversion both ways, case by the page's letters, and double-byte texts that are never cut in
// two.
#include "basic/CodePage.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

const int kSinglePages[] = {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

std::string allBytes() {
  std::string out;
  for (int i = 0; i < 256; ++i) out += static_cast<char>(i);
  return out;
}

TEST(CodePage, EveryByteSurvivesTheWayThereAndBack) {
  for (int page : kSinglePages) {
    EXPECT_EQ(fromUtf16(toUtf16(allBytes(), page), page), allBytes()) << page;
    EXPECT_EQ(fromUtf8(toUtf8(allBytes(), page), page), allBytes()) << page;
  }
}

TEST(CodePage, CharactersAreThoseOfThePage) {
  EXPECT_EQ(toUtf8("\x80 \xE4", 1252), "€ ä");
  EXPECT_EQ(toUtf8("\x9A\xEC", 1250), "šě");
  EXPECT_EQ(toUtf8("\xCF\xF0", codePageOfCharSet(204)), "Пр");
  EXPECT_EQ(toUtf8("\xC1", codePageOfCharSet(161)), "Α");
  EXPECT_EQ(toUtf16("\x81", 1252), u"\x81");
  EXPECT_EQ(codePageOfCharSet(77), 1252);
  EXPECT_EQ(fromUtf8("ä€Пр😀x", 1252), "\xE4\x80???x");
  EXPECT_EQ(toUtf8("\xE4", 437), "ä");  // an unknown page is read as the Western one
}

TEST(CodePage, MalformedUnicodeIsReplacedPieceByPiece) {
  const struct {
    std::string_view utf8;
    std::u16string_view utf16;
  } kCases[] = {{"a\xFFz", u"a\xFFFDz"},
                {"\xE2\x82", u"\xFFFD"},
                {"\xE2\x82x", u"\xFFFDx"},
                {"\xC0\xAF", u"\xFFFD\xFFFD"},
                {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
                {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
                {"\xF0\x9F\x98\x80", u"\xD83D\xDE00"}};
  for (const auto& [utf8, utf16] : kCases) EXPECT_EQ(utf8ToUtf16(utf8), utf16);
  EXPECT_EQ(utf16ToUtf8(u"\xD83D\xDE00"), "😀");
  EXPECT_EQ(utf16ToUtf8(std::u16string{0xD83D, 'x', 0xDE00}), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(CodePage, CaseFollowsTheLettersOfThePage) {
  EXPECT_EQ(upperCase("\xE4z\xFF\xDF", 1252), "\xC4Z\x9F\xDF");
  EXPECT_EQ(lowerCase("\xC4Z\xD7", 1252), "\xE4z\xD7");
  EXPECT_EQ(upperCase("\xE4\xB8", 1251), "\xC4\xA8");
  EXPECT_EQ(upperCase("i\xFD", 1254), "I\xFD");
  for (int page : kSinglePages) {
    const std::string upper = upperCase(allBytes(), page), lower = lowerCase(allBytes(), page);
    EXPECT_EQ(upperCase(upper, page), upper) << page;
    EXPECT_EQ(lowerCase(lower, page), lower) << page;
    EXPECT_EQ(compareFolded(upper, lower, page), 0) << page;
    EXPECT_EQ(lowerCase(upperCase(lower, page), page).substr(0, 128), lower.substr(0, 128)) << page;
  }
}

TEST(CodePage, ProperCaseRaisesTheFirstOfEachWord) {
  EXPECT_EQ(properCase("my DATA-base o'neil.DAT", 1252), "My Data-base O'neil.dat");
  EXPECT_EQ(properCase("\xE4rger\t\xF6L\r\nab", 1252), "\xC4rger\t\xD6l\r\nAb");
  EXPECT_EQ(properCase("", 1252), "");
}

TEST(CodePage, ComparesAndFindsWithoutCase) {
  EXPECT_EQ(compareFolded("\xC4"
                          "b",
                          "\xE4"
                          "B",
                          1252),
            0);
  EXPECT_LT(compareFolded("A_", "aa", 1252), 0);
  EXPECT_LT(compareFolded("ab", "ABC", 1252), 0);
  EXPECT_GT(compareFolded("\xE4", "z", 1252), 0);
  EXPECT_EQ(compareFolded("\xF2", "\xF3", 1253), 0);  // both small sigmas
  EXPECT_EQ(findFolded("xxAbc\xC4", "C\xE4", 0, 1252), 4u);
  EXPECT_EQ(findFolded("abab", "AB", 1, 1252), 2u);
  EXPECT_EQ(findFolded("aab", "ab", 0, 1252), 1u);
  EXPECT_EQ(findFolded("ab", "abc", 0, 1252), std::string_view::npos);
  EXPECT_EQ(findFolded("ab", "", 2, 1252), 2u);
  EXPECT_EQ(findFolded("ab", "", 3, 1252), std::string_view::npos);
}

TEST(CodePage, TrailBytesAreNoLetters) {
  // 0x83 0x61 is one character whose trail byte looks like "a".
  const std::string_view text = "\x83\x61 a\x83\x41";
  EXPECT_EQ(upperCase(text, 932), "\x83\x61 A\x83\x41");
  EXPECT_EQ(properCase(text, 932), "\x83\x61 A\x83\x41");
  EXPECT_EQ(lowerCase("\x83", 932), "\x83");
  EXPECT_EQ(findFolded(text, "A", 0, 932), 3u);
  EXPECT_EQ(findFolded(text, "\x83\x41", 0, 932), 4u);
  EXPECT_NE(compareFolded("\x83\x61", "\x83\x41", 932), 0);
}

TEST(CodePage, DoubleBytePagesUseTheInstalledConverter) {
  EXPECT_EQ(toUtf16("a\x83\x41", 932), u"a\xFFFD\x41");
  EXPECT_EQ(fromUtf16(u"aア", 932), "a?");
  installMultiByteCodec(
      {[](std::string_view, int page) { return std::u16string(1, static_cast<char16_t>(page)); },
       [](std::u16string_view, int page) { return std::to_string(page); }});
  EXPECT_EQ(toUtf16("a", 950), std::u16string(1, 950));
  EXPECT_EQ(fromUtf16(u"a", 949), "949");
  EXPECT_EQ(toUtf16("a", 1252), u"a");
  installMultiByteCodec({});
}

}  // namespace
}  // namespace plinth
