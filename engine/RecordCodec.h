// Between a record's bytes and the form: every field kind's stored form in one place. No input or output and
// no allocation beyond the texts themselves, so that a load costs little more than its one read.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "basic/Locale.h"
#include "basic/Slots.h"
#include "engine/RecordForm.h"
#include "engine/RecordLayout.h"

namespace plinth {

class RecordCodec {
 public:
  // The application and the locale must outlive the codec.
  RecordCodec(const Application& application, const RecordLayout& layout, const Locale& locale);

  const RecordLayout& layout() const { return layout_; }
  // The byte of a slot that decode() takes for 0.
  std::uint8_t unwrittenByte() const;

  // Shows a slot of layout().recLen bytes, still substituted where the application says so, in the form:
  // texts without trailing blanks, numbers and dates in their kind's display. `bytes` is working space and is
  // changed. Neither locks nor titles nor calculated fields are touched.
  void decode(std::span<std::uint8_t> bytes, RecordForm& form) const;

  // Builds the slot's bytes from the form: blanks first, texts cut to their room, numbers outside a stored
  // type's range brought to its nearest end. Substituted where the application says so.
  void encode(const RecordForm& form, std::span<std::uint8_t> bytes) const;

 private:
  void decodeFields(std::span<const std::uint8_t> bytes, RecordForm& form) const;
  void encodeFields(const RecordForm& form, std::span<std::uint8_t> bytes) const;
  const Application& application_;
  RecordLayout layout_;
  const Locale& locale_;
};

// A stored text without its padding (blanks and NULs at the end); a view into `bytes`.
std::string_view storedText(std::span<const std::uint8_t> bytes);
// Text of a stored number as its box shows it: kinds 1 to 5. A zero shows as "" unless showZero.
std::string shownNumber(int kind, double value, bool showZero, const Locale& locale);
// The same for a currency value held as value x 10,000; exact over the whole 64-bit range.
std::string shownCurrency(int kind, std::int64_t scaled, bool showZero, const Locale& locale);
// Dates and currency in their stored form: value x 10,000, brought into range; not-a-number counts as 0.
std::int64_t scaledValue(double value);
// What a box's text of kind 2 to 4 stores: exact where the text has up to four decimals.
std::int64_t scaledFromText(std::string_view text, const Locale& locale);

}  // namespace plinth
