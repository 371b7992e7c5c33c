// The search for what was typed, in the object that has the focus or, with "!" in front, in whole records.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/search/IndexFiles.h"
#include "engine/search/RecordKey.h"

namespace plinth {

struct PlainSearchRequest {
  RecordStore& store;
  const Application& application;
  const Locale& locale;
  SharedFiles& files;  // for an index that is there
  const DataFile& data;
  bool matchCase = false;
  bool upward = true;  // SearchDir 1
  double today = 0;
  Progress& progress;  // step(done, total) at least each 600 records; false stops the run
  // Each hit in the order of the run; ResultRows makes its cells when somebody looks. May be empty.
  std::function<void(std::int32_t record)> hit;
  std::function<void(std::int32_t)> unreadable;  // may be empty
  // The records to look at in their order, instead of all: a search within the hits of another. May be null.
  const std::vector<std::int32_t>* within = nullptr;
};

struct PlainOutcome {
  bool cancelled = false;
  bool usedIndex = false;
  std::int64_t hits = 0;
};

// line: as typed. key: the object in focus; keysOfLabel() are searched together with it. A line with "!" in
// front needs no key. No hits for a line that is empty after its marks.
PlainOutcome runPlainSearch(std::string_view line, const RecordKey& key, const PlainSearchRequest& request);

// The objects that are searched together: all that carry the key's label, the key itself first.
std::vector<RecordKey> keysOfLabel(const Application& application, const RecordLayout& layout,
                                   const RecordKey& key);

}  // namespace plinth
