// Every kind of object in one place: what its stored bytes are.
#include "engine/search/RecordKey.h"

#include "engine/RecordCodec.h"

namespace plinth {
namespace {

KeyType typeOf(int fieldKind) {
  if (fieldKind == 1) return KeyType::number;
  if (fieldKind == 5) return KeyType::whole;
  if (isNumberKind(fieldKind)) return KeyType::currency;
  if (isDateKind(fieldKind)) return KeyType::date;
  if (isTimeKind(fieldKind)) return KeyType::time;
  return KeyType::text;
}

}  // namespace

std::optional<RecordKey> keyOf(const Application& application, const RecordLayout& layout,
                               FocusObject object) {
  RecordKey key;
  key.object = object;
  const Payload& p = application.payload;
  std::int32_t at = 0;  // 1-based
  const auto place = [&](const std::vector<std::int32_t>& offsets) {
    const auto i = static_cast<std::size_t>(object.index);
    at = object.index >= 0 && i < offsets.size() ? offsets[i] : 0;
    return at != 0;
  };
  const auto i = static_cast<std::size_t>(object.index);
  switch (object.kind) {
    case FocusKind::none:
      return std::nullopt;
    case FocusKind::field:
      if (!place(layout.fields)) return std::nullopt;
      key.fieldKind = p.fields[i].fieldType;
      key.type = typeOf(key.fieldKind);
      key.length = storedSize(key.fieldKind, p.fields[i].fieldLength);
      key.label = p.fields[i].tag;
      break;
    case FocusKind::combo:
      if (!place(layout.combos)) return std::nullopt;
      key.length = p.combos[i].fieldLength;
      key.label = p.combos[i].tag;
      break;
    case FocusKind::check:
      if (!place(layout.checks)) return std::nullopt;
      key.type = KeyType::check;
      key.fieldKind = kCheckKind;
      key.length = 1;
      key.label = p.checks[i].tag;
      break;
    case FocusKind::memo:
      if (!place(layout.memos)) return std::nullopt;
      key.length = p.memos[i].fieldLength;
      key.label = p.memos[i].tag;
      break;
    case FocusKind::dateStamp:
      at = layout.dateStamp;
      key.type = KeyType::date;
      key.fieldKind = 6;
      key.length = kDateStampSize;
      break;
    case FocusKind::variableLabels:
      at = layout.variableArea;
      key.type = KeyType::variableLabels;
      key.length = kVariableAreaSize;
      break;
  }
  if (at == 0) return std::nullopt;
  key.position = at - 1;
  return key;
}

std::string_view keyText(std::span<const std::uint8_t> bytes) { return storedText(bytes); }

}  // namespace plinth
