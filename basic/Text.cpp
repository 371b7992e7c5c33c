// Byte-text helpers without a code page: plain loops over std::string_view, since they run on every line and
// label of a file.
#include "basic/Text.h"

#include <algorithm>

namespace plinth {
namespace {

char upperByte(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char lowerByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string out;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(what, from)) != std::string_view::npos; from = at + what.size()) {
    out.append(text.substr(from, at - from)).append(with);
  }
  return out.append(text.substr(from));
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  if (!separator.empty()) {
    for (std::size_t at; (at = text.find(separator, from)) != std::string_view::npos;
         from = at + separator.size()) {
      parts.emplace_back(text.substr(from, at - from));
    }
  }
  parts.emplace_back(text.substr(from));
  return parts;
}

std::string trim(std::string_view text) { return trimLeft(trimRight(text)); }

std::string trimRight(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string trimLeft(std::string_view text) {
  return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string upperAscii(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), upperByte);
  return out;
}

std::string lowerAscii(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), lowerByte);
  return out;
}

bool equalAsciiNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowerByte(x) == lowerByte(y); });
}

bool contains(std::string_view text, std::string_view what) {
  return text.find(what) != std::string_view::npos;
}

std::string oneLine(std::string_view text) {
  std::string out;
  bool controls = false;
  for (const char c : text) {
    const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    if (!control)
      out += c;
    else if (!controls)
      out += ' ';
    controls = control;
  }
  return out;
}

}  // namespace plinth
