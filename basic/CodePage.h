// 8-bit text of the project's code page, and its way to UTF-8 and UTF-16 at the edges of the program.
// Single-byte pages are tables of ours; double-byte pages (Japanese, Chinese, Korean) go to a converter of
// the system that a program installs at start.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

// The code page of a character set number (0 -> 1252, 238 -> 1250, 204 -> 1251, 161 -> 1253, 162 -> 1254, 177
// -> 1255, 178 -> 1256, 186 -> 1257, 163 -> 1258, 222 -> 874, 128 -> 932, 134 -> 936, 129 -> 949, 136 -> 950;
// others 1252).
int codePageOfCharSet(int charSet);

// Converts text to UTF-16. A byte without a meaning in its page has the character that Windows gives it, so
// that it survives the way there and back.
std::u16string toUtf16(std::string_view text, int codePage);
// Converts UTF-16 to text. Characters the page cannot say become '?'.
std::string fromUtf16(std::u16string_view text, int codePage);
std::string toUtf8(std::string_view text, int codePage);
// As fromUtf16; malformed UTF-8 sequences become '?'.
std::string fromUtf8(std::string_view utf8, int codePage);
std::u16string utf8ToUtf16(std::string_view utf8);
std::string utf16ToUtf8(std::u16string_view text);

// Case by the code page's letters, byte for byte (same length).
std::string upperCase(std::string_view text, int codePage);
std::string lowerCase(std::string_view text, int codePage);
// First letter of each word in upper case, all others in lower case; a word begins after a blank, a tab, a
// line end, a form feed or NUL.
std::string properCase(std::string_view text, int codePage);
// Three-way comparison of bytes without regard to case: <0, 0, >0.
int compareFolded(std::string_view a, std::string_view b, int codePage);
// 0-based position of the first occurrence without regard to case, std::string_view::npos for none.
std::size_t findFolded(std::string_view text, std::string_view what, std::size_t from, int codePage);

// The system's converter for the double-byte pages; without one their bytes above 127 become U+FFFD and '?'.
struct MultiByteCodec {
  std::u16string (*decode)(std::string_view text, int codePage) = nullptr;
  std::string (*encode)(std::u16string_view text, int codePage) = nullptr;
};
void installMultiByteCodec(MultiByteCodec codec);

}  // namespace plinth
