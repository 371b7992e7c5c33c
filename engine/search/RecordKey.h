// The object whose stored values a search, a sort or an index looks at: where they stand in a slot and what
// they are.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/FocusObject.h"
#include "engine/RecordLayout.h"

namespace plinth {

// What a key's bytes are. text: also combos, memos and fields of kind 13 upward. time: kinds 10 to 12, stored
// as characters.
enum class KeyType { text, number, currency, whole, date, time, check, variableLabels };

inline constexpr int kCheckKind = 100;  // RecordKey::fieldKind of check boxes

struct RecordKey {
  FocusObject object;
  KeyType type = KeyType::text;
  int fieldKind = 0;  // FieldKind; 0 for combos and memos, kCheckKind for check boxes, 6 for the date stamp
  std::int32_t position = 0;  // KeyOffset: 0-based in a slot
  std::int32_t length = 0;    // stored bytes
  std::string label;          // search label (Tag); "" for date stamp and variable labels
  bool operator==(const RecordKey&) const = default;
};

// The key of an object; nullopt where it stores nothing in records (a global field, a deleted object, an
// object that this application does not have).
std::optional<RecordKey> keyOf(const Application& application, const RecordLayout& layout,
                               FocusObject object);

// A value as it is stored, little endian. REQUIRES sizeof(T) bytes.
template <class T>
T storedValue(const std::uint8_t* bytes) {
  std::array<std::uint8_t, sizeof(T)> raw;
  std::memcpy(raw.data(), bytes, raw.size());
  if constexpr (std::endian::native == std::endian::big)
    for (std::size_t i = 0; i < raw.size(); ++i) raw[i] = bytes[raw.size() - 1 - i];
  return std::bit_cast<T>(raw);
}

// Values from a slot's bytes, which must no longer be substituted. bytes: from the key's position, at least
// its length. Inline, since passes ask them of every record.
inline double keyNumber(std::span<const std::uint8_t> bytes) {  // kind 1
  return storedValue<double>(bytes.data());
}
inline std::int64_t keyScaled(std::span<const std::uint8_t> bytes) {  // kinds 2 to 4 and 6 to 9: x 10,000
  return storedValue<std::int64_t>(bytes.data());
}
inline std::int32_t keyWhole(std::span<const std::uint8_t> bytes) {  // kind 5
  return storedValue<std::int32_t>(bytes.data());
}
// A text without its padding (blanks and NULs at the end); a view into `bytes`.
std::string_view keyText(std::span<const std::uint8_t> bytes);

}  // namespace plinth
