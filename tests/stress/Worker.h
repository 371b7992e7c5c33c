// One program of the stress test: it appends, edits, replaces, searches and sorts on the common data file
// until it is told to end, or is killed. What it did stands in memory that all programs and their parent
// share.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/FlatRecordStore.h"

namespace plinth::stress {

inline constexpr int kMostRecords = 20000, kMostPrograms = 2000;
inline constexpr std::int64_t kSegment = 100'000;  // several hundred records, so that there are many segments

// What is known of one record beside the file.
struct RecordLog {
  std::atomic<int> owner;        // the program that got its number; 0 for none
  std::atomic<int> saving;       // the program that is writing it now; 0 for none
  std::atomic<int> begun, done;  // saves of its content that were begun, and that have come to their end
};

struct Shared {
  std::atomic<bool> stop;
  std::atomic<bool> killed[kMostPrograms];       // by program number
  std::atomic<std::int64_t> steps[kMostPrograms];
  std::atomic<int> longestStepMs;
  std::atomic<int> faults;
  std::atomic<std::int64_t> edits, appends, refused, reread, replaced, found, sorted;
  RecordLog records[kMostRecords];
};
// Anonymous memory that forked programs have in common.
Shared& sharedMemory();

// Writes a fault to the error stream and counts it.
void fault(Shared& shared, const std::string& text);

Application stressApplication();
std::unique_ptr<FlatRecordStore> openStore(const Application& application, const std::string& path);

enum class Soundness {
  whole,  // the checksum over all its texts is right
  empty,  // got a number, but no content yet
  torn,
};
Soundness soundness(const RecordForm& form);
int version(const RecordForm& form);  // how often the content was saved

// Whether a record that is not whole is explained by a program that was killed while it made or wrote it.
bool excused(const Shared& shared, std::int32_t record, Soundness state);

// Runs program `number` (1 upward) until `shared.stop`. seed: of all that it does.
void work(Shared& shared, const std::string& folder, int number, std::uint64_t seed);

}  // namespace plinth::stress
