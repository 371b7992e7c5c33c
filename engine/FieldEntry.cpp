// Kinds decide by tables where the rules are lists and by small functions where they are arithmetic.
#include "engine/FieldEntry.h"

#include <cmath>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "engine/RecordCodec.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

struct ControlCharacter {
  unsigned char control, character;
};
constexpr ControlCharacter kControlCharacters[] = {{17, 162}, {23, 163}, {5, 169},  {18, 174},
                                                   {20, 185}, {25, 178}, {21, 179}, {9, 188},
                                                   {15, 189}, {16, 190}, {27, 247}};

// Hours, minutes and seconds from the right of a run of digits, added up with date arithmetic, so that 90
// seconds are a minute and a half. nullopt without digits.
std::optional<double> timeOfDigits(std::string_view text) {
  std::string digits;
  for (const char c : text)
    if (c >= '0' && c <= '9') digits += c;
  if (digits.empty()) return std::nullopt;
  if (digits.size() > 9) digits.erase(0, digits.size() - 9);
  const long all = std::stol(digits);
  const long seconds = all % 100 + all / 100 % 100 * 60 + all / 10000 * 3600;
  return static_cast<double>(seconds) / 86400.0;
}

bool underAnHour(double time) { return std::llround(time * 86400.0) < 3600; }

bool hasLetter(std::string_view text) {
  for (const char c : text)
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) return true;
  return false;
}

EnteredField refused(const EnteredField& before) { return {before.text, before.date, false}; }

EnteredField enterTime(int kind, std::string_view text, const EnteredField& before, double now,
                       const Locale& locale) {
  std::optional<double> time;
  // "2:30 pm" means the afternoon, which digits alone cannot say.
  if (hasLetter(text)) time = readDate(text, locale, std::floor(now));
  if (!time) time = timeOfDigits(text);
  if (!time) return refused(before);
  const double part = *time - std::floor(*time);
  EnteredField entered{formatDate(part, *time < 1 && underAnHour(part) ? "nn:ss" : "hh:nn:ss", locale), 0};
  if (kind == 10 && hasLetter(text)) entered.text = formatDate(part, "hh:nn", locale);
  entered.date = heldTime(kind, entered.text, locale);
  return entered;
}

EnteredField enterNumber(const Application& application, int kind, std::string_view text,
                         const EnteredField& before, const Locale& locale) {
  const double value = val(normalizeNumber(text, locale));
  if (kind == 5 && !(std::abs(value) < 2147483647.5)) return refused(before);
  if (kind == 1 || kind == 5) return {shownNumber(kind, value, application.showZero, locale), 0};
  if (!(std::abs(value) < 9.2e14)) return refused(before);
  return {shownCurrency(kind, scaledFromText(text, locale), application.showZero, locale), 0};
}

}  // namespace

unsigned char keyPressFilter(int kind, unsigned char ch) {
  if (ch == 13) return 0;
  for (const ControlCharacter& row : kControlCharacters)
    if (row.control == ch) ch = row.character;
  if (!isNumberKind(kind)) return ch;
  if (kind == 5 && ch == 46) return 0;
  if (ch == 8 || ch == 58) return ch;
  return ch < 40 || ch > 57 ? 0 : ch;
}

unsigned char casedKey(int textCase, unsigned char ch, std::string_view before, int codePage) {
  if (ch < 32) return ch;
  const std::string one(1, static_cast<char>(ch));
  const bool wordBegins =
      before.empty() || before.back() == ' ' || before.back() == '\t' || before.back() == '\n';
  std::string result = one;
  if (textCase == 1 || (textCase == 2 && wordBegins)) result = upperCase(one, codePage);
  if (textCase == 3) result = lowerCase(one, codePage);
  return static_cast<unsigned char>(result[0]);
}

std::string casedText(int textCase, std::string_view text, int codePage) {
  if (textCase == 1) return upperCase(text, codePage);
  if (textCase == 3) return lowerCase(text, codePage);
  std::string result(text);
  if (textCase == 2)
    for (std::size_t i = 0; i < result.size(); ++i)
      result[i] = static_cast<char>(casedKey(2, static_cast<unsigned char>(result[i]),
                                             std::string_view(result).substr(0, i), codePage));
  return result;
}

double heldTime(int kind, std::string_view text, const Locale& locale) {
  if (text.empty()) return 0;
  // "14:30" is minutes and seconds in a box of seconds and a time of day in the others.
  if (kind == 12) return timeOfDigits(text).value_or(0);
  const auto time = readDate(text, locale, 0);
  return time ? *time - std::floor(*time) : 0;
}

EnteredField enterField(const Application& application, int n, std::string_view text,
                        const EnteredField& before, double now, const Locale& locale) {
  const int kind = application.field(n).fieldType;
  const std::string typed = trim(text);
  if (isNumberKind(kind)) return enterNumber(application, kind, typed, before, locale);
  if (isDateKind(kind) || isTimeKind(kind)) {
    if (typed.empty()) return {};
    if (kind == 10 || kind == 12) return enterTime(kind, typed, before, now, locale);
    auto date = readDate(typed, locale, std::floor(now));
    // A time alone is no date.
    if (!date || (isDateKind(kind) && std::floor(*date) == 0)) return refused(before);
    if (kind == 11) *date -= std::floor(*date);
    return {formatFieldDate(kind, *date, application.dateFormat, locale), *date};
  }
  return {casedText(application.field(n).textCase, text, application.codePage), 0};
}

EnteredField fieldDefault(const Application& application, int n, double now, const Locale& locale) {
  const PayloadField& row = application.field(n);
  const int kind = row.fieldType;
  const double today = std::floor(now) + row.dayOffset;
  if (isNumberKind(kind)) return {application.showZero ? formatFieldNumber(kind, 0, locale) : "", 0};
  if (isDateKind(kind)) {
    if (row.noDefaultDate != 0) return {};
    return {formatFieldDate(kind, today, application.dateFormat, locale), today};
  }
  if (kind == 10 || kind == 12) {
    EnteredField time{formatFieldDate(kind, now, application.dateFormat, locale), 0};
    time.date = heldTime(kind, time.text, locale);
    return time;
  }
  if (isDatePartKind(kind)) return {formatFieldDate(kind, today, application.dateFormat, locale), 0};
  return {};
}

FieldActionRow fieldAction(std::string_view text) {
  struct Test {
    std::string_view part;
    FieldActionRow row;
  };
  // The order decides: an address of a page may hold "@" and a page's name ".DOC".
  static constexpr FieldActionRow kWeb{FieldAction::web, "Internet", "http://"};
  static constexpr FieldActionRow kDocument{FieldAction::document, "View Doc...", ""};
  static constexpr FieldActionRow kSound{FieldAction::sound, "Play Wave", ""};
  static constexpr FieldActionRow kPicture{FieldAction::picture, "Show Picture", ""};
  static constexpr Test kTests[] = {
      {".HTM", kWeb},
      {"WWW.", kWeb},
      {"@", {FieldAction::mail, "E-mail", "mailto:"}},
      {".TXT", kDocument},
      {".RTF", kDocument},
      {".DOC", kDocument},
      {".PDF", {FieldAction::pdf, "View PDF", ""}},
      {".MP3", kSound},
      {".MID", kSound},
      {".WAV", kSound},
      {".BMP", kPicture},
      {".GIF", kPicture},
      {".JPG", kPicture},
      {".ZIP", {FieldAction::archive, "View Zip", ""}},
  };
  const std::string upper = upperAscii(text);
  for (const Test& test : kTests)
    if (contains(upper, test.part)) return test.row;
  return {};
}

}  // namespace plinth
