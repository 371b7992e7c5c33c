// The object whose stored values a search, a sort or an index looks at: where they stand in a slot and what
// they are.
#pragma once

#include <cstdint>
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

// Values from a slot's bytes, which must no longer be substituted. bytes: from the key's position, at least
// its length.
double keyNumber(std::span<const std::uint8_t> bytes);        // kind 1
std::int64_t keyScaled(std::span<const std::uint8_t> bytes);  // kinds 2 to 4 and 6 to 9: value x 10,000
std::int32_t keyWhole(std::span<const std::uint8_t> bytes);   // kind 5
// A text without its padding (blanks and NULs at the end); a view into `bytes`.
std::string_view keyText(std::span<const std::uint8_t> bytes);

}  // namespace plinth
