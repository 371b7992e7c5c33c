// Where each object's bytes stand in a record slot. The order of objects is the file format: it is walked
// once, here, and reader, writer, index and search all take offsets from the result.
#pragma once

#include <cstdint>
#include <vector>

#include "basic/Result.h"
#include "engine/Application.h"

namespace plinth {

inline constexpr std::int32_t kVariableAreaSize = 10000;
inline constexpr std::int32_t kPictureStemSize = 8;
inline constexpr std::int32_t kDateStampSize = 8;
// Longest record that is opened; a longer one is a damaged payload.
inline constexpr std::int32_t kMaxRecLen = 64 << 20;

struct RecordLayout {
  std::int32_t recLen = 1;  // bytes of a slot: one more than the sum of the parts
  // 1-based positions in the slot by object index, 0 for an object that stores nothing.
  std::vector<std::int32_t> fields, combos, checks, pictures, memos;
  std::int32_t dateStamp = 0, variableArea = 0;
  int columns = 0;  // searchable columns: stored fields, combos, check boxes and memos
};

// Bytes that a field of this kind (0 to 23) and maximum length takes in a record.
std::int32_t storedSize(int kind, std::int32_t maxLength);

// Lays the record out. Error damaged when it would be longer than kMaxRecLen.
Result<RecordLayout> computeLayout(const Application& application);

}  // namespace plinth
