// Counts the records of a long pass and asks now and then whether to go on.
#pragma once

#include <cstdint>

#include "engine/search/BlockReader.h"
#include "platform/Progress.h"

namespace plinth {

// Shows the work's title for as long as it lives.
class RecordSteps {
 public:
  // total: records of the whole work. progress must outlive this.
  RecordSteps(Progress& progress, std::string_view title, std::int64_t total)
      : progress_(progress), total_(total) {
    progress_.title(title);
  }
  ~RecordSteps() { progress_.title(""); }
  RecordSteps(const RecordSteps&) = delete;
  RecordSteps& operator=(const RecordSteps&) = delete;

  void title(std::string_view text) { progress_.title(text); }
  void setCancellable(bool cancellable) { progress_.setCancellable(cancellable); }
  // One record more; false when the person cancelled.
  bool next() { return ++done_ % kRecordsPerStep != 0 || here(); }
  // Asks again without a record more.
  bool here() { return progress_.step(done_, total_); }

 private:
  Progress& progress_;
  std::int64_t total_, done_ = 0;
};

}  // namespace plinth
