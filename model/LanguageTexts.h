// The numbered texts of the designer in one language, as a language file lists them: one text a line, then
// the character set and the font. Everything that people read is looked up here by number.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace plinth {

inline constexpr int kFirstLabel = 101, kLastLabel = 400;

class LanguageTexts {
 public:
  // Takes the bytes of a language file, CR LF or LF: lines 1 to 300 are the texts 101 to 400, line 301 the
  // character set number, line 302 the font. Missing lines leave empty texts, character set 0 and no font.
  void load(std::string_view bytes);
  // "" for numbers outside 101 to 400.
  const std::string& text(int number) const;
  // The text with each "*" replaced by the value.
  std::string text(int number, std::string_view value) const;
  // For the editor of common labels: lasts until the next load. Numbers outside are ignored.
  void setText(int number, std::string text);
  // No language is loaded: label 180 is empty.
  bool empty() const { return text(180).empty(); }
  std::int16_t charSet() const { return charSet_; }
  const std::string& fontName() const { return fontName_; }

 private:
  std::array<std::string, kLastLabel - kFirstLabel + 1> texts_;
  std::int16_t charSet_ = 0;
  std::string fontName_;
};

// The code a project gets for a language: "Russian" 6, "Swedish" 5, "Dutch" 2, "Spanish (Standard)" 7 (only
// when chosen from the menu, not at start); any other name leaves `current`.
std::uint8_t languageCodeOf(std::string_view name, std::uint8_t current, bool chosenFromMenu);

}  // namespace plinth
