// Order over all records by one object: an array of record numbers in memory. Records never move in the file.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "engine/search/IndexFiles.h"

namespace plinth {

struct SortServices {
  RecordStore& store;
  const Application& application;
  SharedFiles& files;  // for an index that is there
  const DataFile& data;
  const Locale& locale;
  Progress& progress;
  std::function<void(std::int32_t)> unreadable;  // may be empty
};

enum class SortEnd { done, cancelled };
struct SortedRecords {
  SortEnd end = SortEnd::done;
  std::vector<std::int32_t> order;  // ViewOrder: ascending by the key; empty when cancelled
  bool usedIndex = false;
};

// SortRecords: fields of kind 1 to 9 and the date stamp by value in the order that ShellSort leaves, all
// other objects by the 64 bytes from the key's position, case aside. An index "-1.inx" that is there gives
// the values of the records that it reaches, however old it is. A record that cannot be read counts as empty.
// Errors: wrongUsage for variable labels, failed when no record can be read.
Result<SortedRecords> sortRecords(const RecordKey& key, const SortServices& services);

// Bytes from the key's position that a text sort looks at, whatever field they run into.
inline constexpr std::int32_t kSortKeyBytes = 64;

}  // namespace plinth
