// Values are read as boxes read them, so that a date means the same day in a query and on a page.
#include "engine/search/QueryValue.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "engine/FieldEntry.h"
#include "engine/RecordCodec.h"

namespace plinth {
namespace {

constexpr int kSecondsKind = 12;  // its boxes take digits from the right: seconds, minutes, hours

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

std::optional<double> dateValue(const std::string& text, const QueryValueContext& context) {
  if (text.empty()) return 0.0;
  if (const auto date = readDate(text, context.locale, context.today)) return date;
  return readNumber(text, context.locale);
}

// "930" and "0930" as "09:30", "93015" as "09:30:15".
std::string withColons(const std::string& digits) {
  const std::size_t size = digits.size() > 4 ? 6 : 4;
  std::string text(size - std::min(size, digits.size()), '0');
  text += digits;
  for (std::size_t at = size - 2; at > 0; at -= 2) text.insert(at, 1, ':');
  return text;
}

std::optional<double> timeValue(int kind, const std::string& text, const Locale& locale) {
  if (text.empty()) return 0.0;
  // A fraction of a day is how formulas hand times on.
  if (const auto fraction = readNumber(text, locale); fraction && *fraction >= 0 && *fraction < 1)
    return fraction;
  const bool digitsOnly = std::all_of(text.begin(), text.end(), isDigit);
  if (kind == kSecondsKind && std::none_of(text.begin(), text.end(), isLetter))
    return std::any_of(text.begin(), text.end(), isDigit) ? std::optional(heldTime(kind, text, locale))
                                                          : std::nullopt;
  const auto time = readDate(digitsOnly ? withColons(text) : text, locale, 0);
  if (!time) return std::nullopt;
  return *time - std::floor(*time);
}

template <class T>
Bytes littleBytes(T value) {
  std::uint64_t bits = 0;
  if constexpr (sizeof(T) == 8)
    std::memcpy(&bits, &value, 8);
  else
    bits = static_cast<std::uint32_t>(value);
  Bytes bytes(sizeof(T));
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
  return bytes;
}

std::int32_t wholeValue(double value) {
  constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::nearbyint(value), kLeast, kMost));
}

Bytes paddedText(const std::string& text, std::int32_t length) {
  Bytes bytes(static_cast<std::size_t>(length), std::uint8_t{' '});
  std::copy_n(text.begin(), std::min(text.size(), bytes.size()), bytes.begin());
  return bytes;
}

}  // namespace

QueryNumber queryNumber(const RecordKey& key, const std::string& text, const QueryValueContext& context) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  if (key.type == KeyType::date || key.type == KeyType::time) {
    const double value = (key.type == KeyType::date ? dateValue(text, context)
                                                    : timeValue(key.fieldKind, text, context.locale))
                             .value_or(kNone);
    return {value, scaledValue(value)};
  }
  return {val(normalizeNumber(text, context.locale)), scaledFromText(text, context.locale)};
}

Bytes replacementBytes(const RecordKey& key, const std::string& text, const QueryValueContext& context) {
  switch (key.type) {
    case KeyType::number:
      return littleBytes(val(normalizeNumber(text, context.locale)));
    case KeyType::whole:
      return littleBytes(wholeValue(val(normalizeNumber(text, context.locale))));
    case KeyType::currency:
      return littleBytes(scaledFromText(text, context.locale));
    case KeyType::date: {
      const auto date = dateValue(text, context);
      return date ? littleBytes(scaledValue(*date)) : Bytes{};
    }
    case KeyType::check:
      return text.empty() ? Bytes{} : Bytes{static_cast<std::uint8_t>(text[0])};
    case KeyType::text:
    case KeyType::time:
      return paddedText(text, key.length);
    case KeyType::variableLabels:
      break;
  }
  return {};
}

}  // namespace plinth
