// Small byte-text helpers that every folder needs; nothing here depends on a code page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plinth {

// Every occurrence of `what` replaced, left to right, not rescanned. An empty `what` changes nothing.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);
// The parts between separators; one part more than there are separators, also for empty text.
std::vector<std::string> split(std::string_view text, std::string_view separator);
// Blanks (code 32 only) cut at both ends / at the right / at the left.
std::string trim(std::string_view text);
std::string trimRight(std::string_view text);
std::string trimLeft(std::string_view text);
// ASCII letters only.
std::string upperAscii(std::string_view text);
std::string lowerAscii(std::string_view text);
bool equalAsciiNoCase(std::string_view a, std::string_view b);
bool contains(std::string_view text, std::string_view what);
// For one line of a terminal: each run of control characters is a blank, so that text from a file can neither
// break the line nor command the terminal.
std::string oneLine(std::string_view text);

}  // namespace plinth
