// Walks over the stored records in large blocks, up or down: one read for thousands of records, and only the
// bytes that somebody looks at are ever touched again.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/RecordStore.h"

namespace plinth {

struct SlotBlock {
  std::int32_t first = 0, count = 0;  // the records first ... first + count - 1, in ascending order
  std::span<std::uint8_t> slots;      // count x recLen bytes as stored; the caller may change them
};

class BlockReader {
 public:
  // Records first to last (1 upward). `down`: the block with `last` comes first; within a block records still
  // ascend. `key`: position and length that are read by themselves where a block cannot be read whole, since
  // another user locks a record in it. `store` must outlive the reader.
  struct Range {
    std::int32_t first = 1, last = 0;
    bool down = false;
  };
  struct Part {
    std::int32_t position = 0, length = 0;  // 0-based in a slot; length 0: the whole slot
  };
  BlockReader(RecordStore& store, Range range, Part part, std::int32_t blockBytes = 512 * 1024);

  // The next block; nullopt behind the last. Its bytes are valid until the next call.
  std::optional<SlotBlock> next();
  // Records of the block just returned that could not be read; their bytes are those of an empty record of
  // zeros. Ascending.
  std::span<const std::int32_t> unreadable() const { return unreadable_; }

 private:
  void readSingly(std::int32_t blockFirst, std::int32_t from, std::int32_t to);
  RecordStore& store_;
  Range range_;
  Part part_;
  std::int32_t recLen_, perBlock_;
  std::vector<std::uint8_t> buffer_;
  std::vector<std::int32_t> unreadable_;
};

// How often long passes report their progress and ask whether to stop.
inline constexpr std::int32_t kRecordsPerStep = 600;

}  // namespace plinth
