// A block that cannot be read whole, since another user locks a byte of it, is read record by record: then only
// what the caller looks at, so that a lock on a record's first byte hides nothing behind it.
#include "engine/search/BlockReader.h"

#include <algorithm>

namespace plinth {

BlockReader::BlockReader(RecordStore& store, Range range, Part part, std::int32_t blockBytes)
    : store_(store),
      range_(range),
      part_(part),
      recLen_(store.layout().recLen),
      perBlock_(std::max(1, blockBytes / recLen_)),
      buffer_(static_cast<std::size_t>(perBlock_) * static_cast<std::size_t>(recLen_)) {
  range_.first = std::max(1, range_.first);
  if (part_.length <= 0) part_ = {0, recLen_};
}

std::optional<SlotBlock> BlockReader::next() {
  unreadable_.clear();
  if (range_.first > range_.last) return std::nullopt;
  const std::int32_t count = std::min(perBlock_, range_.last - range_.first + 1);
  const std::int32_t first = range_.down ? range_.last - count + 1 : range_.first;
  const auto wide = static_cast<std::size_t>(recLen_);
  const std::span<std::uint8_t> slots(buffer_.data(), static_cast<std::size_t>(count) * wide);
  // Segments end where they end: what is missing lies in the next one.
  for (std::int32_t done = 0; done < count;) {
    const auto rest = slots.subspan(static_cast<std::size_t>(done) * wide);
    const Result<std::int32_t> read = store_.readSlots(first + done, rest);
    if (!read || *read == 0) {
      readSingly(first, first + done, first + count - 1);
      break;
    }
    done += *read;
  }
  if (range_.down)
    range_.last = first - 1;
  else
    range_.first = first + count;
  return SlotBlock{first, count, slots};
}

void BlockReader::readSingly(std::int32_t blockFirst, std::int32_t from, std::int32_t to) {
  const auto wide = static_cast<std::size_t>(recLen_);
  for (std::int32_t record = from; record <= to; ++record) {
    const std::span<std::uint8_t> slot(
        buffer_.data() + static_cast<std::size_t>(record - blockFirst) * wide, wide);
    std::fill(slot.begin(), slot.end(), std::uint8_t{0});
    const auto part = slot.subspan(static_cast<std::size_t>(part_.position),
                                   static_cast<std::size_t>(part_.length));
    if (!store_.readPart(record, part_.position, part)) unreadable_.push_back(record);
  }
}

}  // namespace plinth
