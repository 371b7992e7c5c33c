// Runs a command of the search line over all records, from their stored bytes.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "engine/RecordStore.h"
#include "engine/search/QueryLine.h"
#include "platform/Progress.h"

namespace plinth {

struct QueryRunRequest {
  RecordStore& store;
  const Application& application;
  bool matchCase = false;
  bool upward = true;                            // SearchDir 1; sum and count always go up
  Progress& progress;                            // step(done, total) at least each 600 records
  std::function<void(std::int32_t)> hit;         // of select, in the order of the run; may be empty
  std::function<void(std::int32_t)> unreadable;  // record that could not be read or written; may be empty
  // The records to look at in their order, instead of all: a search within the hits of another. May be null.
  const std::vector<std::int32_t>* within = nullptr;
  const Locale& locale = englishLocale();  // of the times that records hold as text
};

struct QueryOutcome {
  bool cancelled = false;
  std::int64_t hits =
      0;  // of select records, of count rows that hold, of replace records, of sum values added
  double total = 0, average = 0;  // of sum; the average is total / hits, 0 where nothing was added
  Error error;                    // of replace: what stopped it; else its text is empty
};

// select and replace take records for which all conditions hold, none where there are no conditions; sum and
// count look at each condition of each record by itself.
QueryOutcome runQuery(const Query& query, const QueryRunRequest& request);

}  // namespace plinth
