// The tables behind LocaleForms.h: strftime letters, money layouts and the code page of each language.
#include "platform/LocaleForms.h"

namespace plinth {
namespace {

struct Conversion {
  char letter;
  const char* pattern;
  const char* unpadded;  // after "%-" or "%_"
};

constexpr Conversion kConversions[] = {{'d', "dd", "d"},
                                       {'e', "d", "d"},
                                       {'m', "MM", "M"},
                                       {'y', "yy", "yy"},
                                       {'Y', "yyyy", "yyyy"},
                                       {'G', "yyyy", "yyyy"},
                                       {'a', "ddd", "ddd"},
                                       {'A', "dddd", "dddd"},
                                       {'b', "MMM", "MMM"},
                                       {'h', "MMM", "MMM"},
                                       {'B', "MMMM", "MMMM"},
                                       {'H', "HH", "H"},
                                       {'k', "H", "H"},
                                       {'I', "hh", "h"},
                                       {'l', "h", "h"},
                                       {'M', "mm", "mm"},
                                       {'S', "ss", "ss"},
                                       {'p', "tt", "tt"},
                                       {'P', "tt", "tt"},
                                       {'T', "HH:mm:ss", "HH:mm:ss"},
                                       {'R', "HH:mm", "HH:mm"},
                                       {'r', "hh:mm:ss tt", "hh:mm:ss tt"},
                                       {'D', "MM/dd/yy", "MM/dd/yy"},
                                       {'F', "yyyy-MM-dd", "yyyy-MM-dd"},
                                       {'n', " ", " "},
                                       {'t', " ", " "},
                                       {'%', "%", "%"}};

// The pattern of one strftime conversion; nullptr for those that a pattern cannot say.
const char* patternOfLetter(char letter, bool unpadded) {
  for (const Conversion& row : kConversions)
    if (row.letter == letter) return unpadded ? row.unpadded : row.pattern;
  return nullptr;
}

bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Collects a pattern and keeps literal letters between quotes.
class PatternBuilder {
 public:
  void pattern(std::string_view letters) {
    closeQuote();
    out_ += letters;
  }
  void literal(char c) {
    const bool needsQuote = isAlpha(c) || static_cast<unsigned char>(c) > 127;
    if (needsQuote && !quoted_) out_ += '\'';
    if (!needsQuote) closeQuote();
    if (needsQuote) quoted_ = true;
    out_ += c;
  }
  void dropBlanks() {
    closeQuote();
    while (!out_.empty() && out_.back() == ' ') out_.pop_back();
  }
  std::string take() {
    closeQuote();
    return std::move(out_);
  }

 private:
  void closeQuote() {
    if (quoted_) out_ += '\'';
    quoted_ = false;
  }
  std::string out_;
  bool quoted_ = false;
};

struct LanguagePage {
  int page;
  const char* languages;  // two-letter codes between blanks
};

constexpr LanguagePage kLanguagePages[] = {{1250, " cs pl hu sk sl hr ro sq bs "},
                                           {1251, " ru uk be bg mk sr kk ky mn tt uz "},
                                           {1253, " el "},
                                           {1254, " tr az "},
                                           {1255, " he iw yi "},
                                           {1256, " ar fa ur ug ps "},
                                           {1257, " lt lv et "},
                                           {1258, " vi "},
                                           {874, " th "},
                                           {932, " ja "},
                                           {949, " ko "}};

}  // namespace

std::string patternOfStrftime(std::string_view format) {
  PatternBuilder out;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      out.literal(format[i]);
      continue;
    }
    bool unpadded = false;
    for (++i; i < format.size() && std::string_view("-_0^#EO").find(format[i]) != std::string_view::npos; ++i)
      unpadded = unpadded || format[i] == '-' || format[i] == '_';
    if (i >= format.size()) break;
    if (const char* letters = patternOfLetter(format[i], unpadded))
      out.pattern(letters);
    else
      out.dropBlanks();
  }
  return out.take();
}

char separatorOfPattern(std::string_view pattern, char fallback) {
  bool quoted = false;
  for (const char c : pattern) {
    if (c == '\'')
      quoted = !quoted;
    else if (!quoted && !isAlpha(c) && c != ' ' && static_cast<unsigned char>(c) < 128)
      return c;
  }
  return fallback;
}

std::string longDatePatternLike(std::string_view shortPattern) {
  const std::size_t first = shortPattern.find_first_of("dMy");
  const char order = first == std::string_view::npos ? 'M' : shortPattern[first];
  if (order == 'd') return "dddd, d MMMM yyyy";
  if (order == 'y') return "dddd, yyyy MMMM d";
  return "dddd, MMMM d, yyyy";
}

int positiveCurrencyFormat(bool symbolFirst, bool blankBetween) {
  return (symbolFirst ? 0 : 1) + (blankBetween ? 2 : 0);
}

int negativeCurrencyFormat(bool symbolFirst, bool blankBetween, int signPosition) {
  static constexpr int kForms[2][2][5] = {
      {{4, 5, 7, 6, 7}, {15, 8, 10, 13, 10}},  // the symbol behind the number
      {{0, 1, 3, 1, 2}, {14, 9, 11, 9, 12}}};
  const int sign = signPosition < 0 || signPosition > 4 ? 1 : signPosition;
  return kForms[symbolFirst][blankBetween][sign];
}

int codePageOfLocaleName(std::string_view name) {
  const std::string_view language = name.substr(0, name.find_first_of("_.@"));
  if (language == "zh") {
    const bool traditional =
        name.find("TW") != name.npos || name.find("HK") != name.npos || name.find("MO") != name.npos;
    return traditional ? 950 : 936;
  }
  if (language.size() != 2) return 1252;
  if (name.find("@latin") != name.npos && language == "sr") return 1250;
  const std::string wanted = " " + std::string(language) + " ";
  for (const LanguagePage& row : kLanguagePages)
    if (std::string_view(row.languages).find(wanted) != std::string_view::npos) return row.page;
  return 1252;
}

}  // namespace plinth
