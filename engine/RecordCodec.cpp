// Encoding and decoding go through the objects in layout order. Currency stays a whole number of
// ten-thousandths all the way, since a double loses cents from sixteen digits up.
#include "engine/RecordCodec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "basic/Decimal28.h"
#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Substitution.h"
#include "engine/FieldEntry.h"
#include "engine/VariableArea.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

constexpr double kScale = 10000.0;
// Up to here a scaled value divided by the scale shows all its digits as a double.
constexpr std::int64_t kExactScaled = 1'000'000'000'000'000;

template <class T>
T readLittle(std::span<const std::uint8_t> bytes, std::int32_t position) {
  std::array<std::uint8_t, sizeof(T)> raw;
  std::memcpy(raw.data(), bytes.data() + position - 1, raw.size());
  if constexpr (std::endian::native == std::endian::big) std::reverse(raw.begin(), raw.end());
  return std::bit_cast<T>(raw);
}

template <class T>
void writeLittle(std::span<std::uint8_t> bytes, std::int32_t position, T value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof(T));
  if constexpr (sizeof(T) == 4) {
    std::uint32_t half;
    std::memcpy(&half, &value, 4);
    bits = half;
  }
  std::uint8_t* to = bytes.data() + position - 1;
  for (std::size_t i = 0; i < sizeof(T); ++i) to[i] = static_cast<std::uint8_t>(bits >> (8 * i));
}

void readText(std::span<const std::uint8_t> bytes, std::int32_t position, std::int32_t length,
              std::string& text) {
  text = storedText(bytes.subspan(static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length)));
}

void writeText(std::span<std::uint8_t> bytes, std::int32_t position, std::int32_t length,
               const std::string& text) {
  const std::size_t count = std::min(text.size(), static_cast<std::size_t>(length));
  std::memcpy(bytes.data() + position - 1, text.data(), count);
}

bool isShownZero(const std::string& text, const Locale& locale) {
  if (text.empty() || text.size() > 6 || text[0] != '0') return false;
  return std::all_of(text.begin(), text.end(),
                     [&](char c) { return c == '0' || c == locale.decimalSeparator; });
}

std::int32_t wholeValue(double value) {
  if (!(value > std::numeric_limits<std::int32_t>::min())) return std::isnan(value) ? 0 : INT32_MIN;
  if (value >= std::numeric_limits<std::int32_t>::max()) return INT32_MAX;
  return static_cast<std::int32_t>(std::nearbyint(value));
}

double numberOf(std::string_view text, const Locale& locale) { return val(normalizeNumber(text, locale)); }

}  // namespace

// Trailing blanks are the padding; NULs are the bytes of a slot that was never written. Both have no bit but
// that of the blank, so that eight bytes are looked at together.
std::string_view storedText(std::span<const std::uint8_t> bytes) {
  constexpr std::uint64_t kTextBits = ~0x2020202020202020ull;
  const char* text = reinterpret_cast<const char*>(bytes.data());
  std::size_t end = bytes.size();
  for (; end >= 8; end -= 8) {
    const auto bits = readLittle<std::uint64_t>(bytes, static_cast<std::int32_t>(end) - 7) & kTextBits;
    if (bits != 0) return {text, end - static_cast<std::size_t>(std::countl_zero(bits)) / 8};
  }
  while (end > 0 && (bytes[end - 1] == ' ' || bytes[end - 1] == 0)) --end;
  return {text, end};
}

std::string shownNumber(int kind, double value, bool showZero, const Locale& locale) {
  if (!std::isfinite(value)) return {};
  std::string text = formatFieldNumber(kind, value, locale);
  if (!showZero && isShownZero(text, locale)) text.clear();
  return text;
}

std::string shownCurrency(int kind, std::int64_t scaled, bool showZero, const Locale& locale) {
  if (std::abs(static_cast<double>(scaled)) < static_cast<double>(kExactScaled))
    return shownNumber(kind, static_cast<double>(scaled) / kScale, showZero, locale);
  const auto value = Decimal28::divide(Decimal28(scaled), Decimal28(10000));
  return formatNumber(*value, {.decimals = kind}, locale);
}

std::int64_t scaledValue(double value) {
  const double scaled = std::nearbyint(value * kScale);
  if (std::isnan(scaled)) return 0;
  if (scaled >= 9223372036854775807.0) return std::numeric_limits<std::int64_t>::max();
  if (scaled <= -9223372036854775808.0) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(scaled);
}

std::int64_t scaledFromText(std::string_view text, const Locale& locale) {
  const std::string plain = normalizeNumber(text, locale);
  // The leading number's plain digits are read as they stand; whatever else val() knows goes the way of
  // doubles.
  std::size_t i = 0;
  while (i < plain.size() && plain[i] == ' ') ++i;
  const std::size_t begin = i;
  if (i < plain.size() && (plain[i] == '-' || plain[i] == '+')) ++i;
  while (i < plain.size() && ((plain[i] >= '0' && plain[i] <= '9') || plain[i] == '.')) ++i;
  if (i == plain.size() && i > begin) {
    const auto value = Decimal28::fromText(std::string_view(plain).substr(begin));
    const auto scaled = value ? Decimal28::multiply(*value, Decimal28(10000)) : std::nullopt;
    if (scaled) {
      const Decimal28 whole = scaled->rounded(0);
      if (Decimal28::compare(whole.absolute(), Decimal28(std::numeric_limits<std::int64_t>::max())) <= 0)
        return std::strtoll(whole.toText().c_str(), nullptr, 10);
    }
  }
  return scaledValue(val(plain));
}

RecordCodec::RecordCodec(const Application& application, const RecordLayout& layout, const Locale& locale)
    : application_(application), layout_(layout), locale_(locale) {}

std::uint8_t RecordCodec::unwrittenByte() const {
  return application_.scrambleData ? substitutionTable()[0] : std::uint8_t{0};
}

void RecordCodec::decodeFields(std::span<const std::uint8_t> bytes, RecordForm& form) const {
  const bool showZero = application_.showZero;
  for (std::size_t n = 1; n < layout_.fields.size(); ++n) {
    const std::int32_t at = layout_.fields[n];
    if (at == 0) continue;
    const PayloadField& row = application_.payload.fields[n];
    FormField& field = form.fields[n];
    const int kind = row.fieldType;
    field.date = 0;
    if (isDateKind(kind)) {
      const auto scaled = readLittle<std::int64_t>(bytes, at);
      field.date = static_cast<double>(scaled) / kScale;
      field.text = scaled == 0 ? "" : formatFieldDate(kind, field.date, application_.dateFormat, locale_);
    } else if (kind == 1) {
      field.text = shownNumber(kind, readLittle<double>(bytes, at), showZero, locale_);
    } else if (kind == 5) {
      field.text = shownNumber(kind, readLittle<std::int32_t>(bytes, at), showZero, locale_);
    } else if (isNumberKind(kind)) {
      field.text = shownCurrency(kind, readLittle<std::int64_t>(bytes, at), showZero, locale_);
    } else {
      readText(bytes, at, row.fieldLength, field.text);
      if (isTimeKind(kind)) field.date = heldTime(kind, field.text, locale_);
    }
  }
}

void RecordCodec::decode(std::span<std::uint8_t> bytes, RecordForm& form) const {
  if (application_.scrambleData) unscrambleInPlace(bytes);
  decodeFields(bytes, form);
  const Payload& p = application_.payload;
  for (std::size_t i = 0; i < layout_.combos.size(); ++i)
    if (layout_.combos[i]) readText(bytes, layout_.combos[i], p.combos[i].fieldLength, form.combos[i].text);
  for (std::size_t i = 0; i < layout_.checks.size(); ++i)
    if (layout_.checks[i]) form.checks[i].value = bytes[static_cast<std::size_t>(layout_.checks[i] - 1)];
  for (std::size_t i = 0; i < layout_.pictures.size(); ++i) {
    if (!layout_.pictures[i]) continue;
    std::string& stem = form.pictures[i].stem;
    readText(bytes, layout_.pictures[i], kPictureStemSize, stem);
    stem.erase(0, std::min(stem.find_first_not_of(' '), stem.size()));
  }
  for (std::size_t i = 0; i < layout_.memos.size(); ++i)
    if (layout_.memos[i]) readText(bytes, layout_.memos[i], p.memos[i].fieldLength, form.memos[i].text);
  if (layout_.dateStamp)
    form.dateStamp = static_cast<double>(readLittle<std::int64_t>(bytes, layout_.dateStamp)) / kScale;
  if (layout_.variableArea)
    readVariableArea(bytes.subspan(static_cast<std::size_t>(layout_.variableArea - 1)), form);
}

void RecordCodec::encodeFields(const RecordForm& form, std::span<std::uint8_t> bytes) const {
  for (std::size_t n = 1; n < layout_.fields.size(); ++n) {
    const std::int32_t at = layout_.fields[n];
    if (at == 0) continue;
    const PayloadField& row = application_.payload.fields[n];
    const FormField& field = form.fields[n];
    const int kind = row.fieldType;
    if (isDateKind(kind))
      writeLittle(bytes, at, scaledValue(field.date));
    else if (kind == 1)
      writeLittle(bytes, at, numberOf(field.text, locale_));
    else if (kind == 5)
      writeLittle(bytes, at, wholeValue(numberOf(field.text, locale_)));
    else if (isNumberKind(kind))
      writeLittle(bytes, at, scaledFromText(field.text, locale_));
    else
      writeText(bytes, at, row.fieldLength, field.text);
  }
}

void RecordCodec::encode(const RecordForm& form, std::span<std::uint8_t> bytes) const {
  std::memset(bytes.data(), ' ', bytes.size());
  encodeFields(form, bytes);
  const Payload& p = application_.payload;
  for (std::size_t i = 0; i < layout_.combos.size(); ++i)
    if (layout_.combos[i]) writeText(bytes, layout_.combos[i], p.combos[i].fieldLength, form.combos[i].text);
  for (std::size_t i = 0; i < layout_.checks.size(); ++i)
    if (layout_.checks[i])
      bytes[static_cast<std::size_t>(layout_.checks[i] - 1)] =
          static_cast<std::uint8_t>(form.checks[i].value & 255);
  for (std::size_t i = 0; i < layout_.pictures.size(); ++i)
    if (layout_.pictures[i]) writeText(bytes, layout_.pictures[i], kPictureStemSize, form.pictures[i].stem);
  for (std::size_t i = 0; i < layout_.memos.size(); ++i)
    if (layout_.memos[i]) writeText(bytes, layout_.memos[i], p.memos[i].fieldLength, form.memos[i].text);
  if (layout_.dateStamp) writeLittle(bytes, layout_.dateStamp, scaledValue(form.dateStamp));
  if (layout_.variableArea)
    writeVariableArea(form, bytes.subspan(static_cast<std::size_t>(layout_.variableArea - 1)));
  if (application_.scrambleData) scrambleInPlace(bytes);
}

}  // namespace plinth
