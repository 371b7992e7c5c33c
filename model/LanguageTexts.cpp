// A language file has no keys: the line number is the text's number, so lines are counted and nothing is
// parsed.
#include "model/LanguageTexts.h"

#include "basic/NumberReader.h"
#include "basic/Text.h"

namespace plinth {
namespace {

// The line up to its end, which is taken off `rest`.
std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

void LanguageTexts::load(std::string_view bytes) {
  for (std::string& text : texts_) text = takeLine(bytes);
  const double charSet = val(takeLine(bytes));
  charSet_ = charSet >= 0 && charSet <= 255 ? static_cast<std::int16_t>(charSet) : 0;
  fontName_ = trim(takeLine(bytes));
}

const std::string& LanguageTexts::text(int number) const {
  static const std::string none;
  return number < kFirstLabel || number > kLastLabel ? none : texts_[number - kFirstLabel];
}

std::string LanguageTexts::text(int number, std::string_view value) const {
  return replaceAll(text(number), "*", value);
}

void LanguageTexts::setText(int number, std::string text) {
  if (number >= kFirstLabel && number <= kLastLabel) texts_[number - kFirstLabel] = std::move(text);
}

std::uint8_t languageCodeOf(std::string_view name, std::uint8_t current, bool chosenFromMenu) {
  if (name == "Russian") return 6;
  if (name == "Swedish") return 5;
  if (name == "Dutch") return 2;
  if (name == "Spanish (Standard)" && chosenFromMenu) return 7;
  return current;
}

}  // namespace plinth
