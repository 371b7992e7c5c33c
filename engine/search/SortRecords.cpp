// Only the keys come into memory: as 64-bit numbers, or as 64 weights a record. Where an index is there its
// lines give the keys, the data what is missing.
#include "engine/search/SortRecords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "basic/NumberReader.h"
#include "basic/Substitution.h"
#include "engine/search/BlockReader.h"
#include "engine/search/KeySort.h"
#include "engine/search/RecordSteps.h"
#include "engine/search/TextOrder.h"

namespace plinth {
namespace {

using ByteView = std::span<const std::uint8_t>;

bool isNumeric(KeyType type) {
  return type == KeyType::number || type == KeyType::currency || type == KeyType::whole ||
         type == KeyType::date;
}

class SortRun {
 public:
  SortRun(const RecordKey& key, const SortServices& services)
      : key_(key),
        services_(services),
        count_(std::max(0, services.store.count())),
        steps_(services.progress, runMessage(services.application, 27), count_) {
    // Records hold times as text, an index as serials: the two would not stand in one order.
    if (canIndex(key) && key.type != KeyType::time)
      index_ = IndexReader::open(
          services.files,
          indexFilePath(services.data, key.label, IndexDirection::up, services.application.codePage),
          IndexDirection::up);
  }

  Result<SortedRecords> run() {
    auto places = isNumeric(key_.type) ? numberOrder() : textOrder();
    if (!places) return places.error();
    if (cancelled_) return SortedRecords{SortEnd::cancelled, {}, usedIndex_};
    SortedRecords sorted{SortEnd::done, {}, usedIndex_};
    sorted.order = std::move(*places);
    for (std::int32_t& record : sorted.order) ++record;  // from places to record numbers
    return sorted;
  }

 private:
  using Places = std::vector<std::int32_t>;

  // Hands out each record's key in record order, by its place 0, 1, 2 ...: as a line of the index or as
  // stored bytes, at most `bytes` of them.
  template <class FromLine, class FromBytes>
  Result<void> readKeys(std::int32_t bytes, FromLine fromLine, FromBytes fromBytes) {
    std::int32_t done = 0;
    while (index_ && done < count_ && !cancelled_) {
      const auto line = index_->value();
      if (!line) break;
      fromLine(static_cast<std::size_t>(done++), *line);
      cancelled_ = !steps_.next();
    }
    usedIndex_ = done > 0;
    const std::int32_t length = std::min(bytes, services_.store.layout().recLen - key_.position);
    BlockReader blocks(services_.store, {done + 1, count_}, {key_.position, length});
    std::int32_t lost = 0;
    while (!cancelled_ && done < count_) {
      const auto block = blocks.next();
      if (!block) break;
      const auto wide = static_cast<std::size_t>(services_.store.layout().recLen);
      const auto first = static_cast<std::size_t>(done);
      for (std::size_t i = 0; i < static_cast<std::size_t>(block->count) && !cancelled_; ++i) {
        fromBytes(first + i, ByteView(block->slots.subspan(i * wide + static_cast<std::size_t>(key_.position),
                                                           static_cast<std::size_t>(length))));
        cancelled_ = !steps_.next();
      }
      for (const std::int32_t record : blocks.unreadable()) {
        fromBytes(static_cast<std::size_t>(record - 1), ByteView());
        if (services_.unreadable) services_.unreadable(record);
        ++lost;
      }
      done += block->count;
    }
    if (!cancelled_ && lost > 0 && lost == count_)
      return Error{ErrorKind::failed, "The data file cannot be read."};
    return {};
  }

  std::uint64_t numberOfLine(std::string_view line) const {
    if (key_.type == KeyType::number) return keyOfNumber(val(line));
    if (key_.type != KeyType::whole) return keyOfNumber(indexScaled(line));
    return keyOfNumber(std::nearbyint(std::clamp(val(line), -2147483648.0, 2147483647.0)));
  }
  std::uint64_t numberOfBytes(ByteView bytes) const {
    std::array<std::uint8_t, 8> plain{};
    std::copy_n(bytes.begin(), std::min(bytes.size(), plain.size()), plain.begin());
    if (services_.application.scrambleData && !bytes.empty()) unscrambleInPlace(plain);
    if (key_.type == KeyType::number) return keyOfNumber(keyNumber(plain));
    if (key_.type != KeyType::whole) return keyOfNumber(keyScaled(plain));
    return keyOfNumber(static_cast<double>(keyWhole(plain)));
  }

  bool goesOn() {
    cancelled_ = !steps_.here();
    return !cancelled_;
  }

  Result<Places> numberOrder() {
    std::vector<PlacedKey> keys(static_cast<std::size_t>(count_));
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i].place = static_cast<std::uint32_t>(i);
    const auto read = readKeys(
        key_.length, [&](std::size_t place, std::string_view line) { keys[place].key = numberOfLine(line); },
        [&](std::size_t place, ByteView bytes) { keys[place].key = numberOfBytes(bytes); });
    if (!read) return read.error();
    if (cancelled_) return Places{};
    return shellOrder(std::move(keys), [this] { return goesOn(); });
  }

  Result<Places> textOrder() {
    constexpr auto kWide = static_cast<std::size_t>(kSortKeyBytes);
    const auto count = static_cast<std::size_t>(count_);
    const int codePage = services_.application.codePage;
    const TextOrder ofData(codePage, services_.application.scrambleData), ofLines(codePage, false);
    steps_.title("Buffering...");
    const auto texts = std::make_unique_for_overwrite<std::uint8_t[]>(count * kWide);
    const auto room = [&](std::size_t place) { return std::span(texts.get() + place * kWide, kWide); };
    steps_.title("Retrieving...");
    const auto read = readKeys(
        kSortKeyBytes,
        [&](std::size_t place, std::string_view line) {
          ofLines.weigh({reinterpret_cast<const std::uint8_t*>(line.data()), line.size()}, room(place));
        },
        [&](std::size_t place, ByteView bytes) { ofData.weigh(bytes, room(place)); });
    if (!read) return read.error();
    if (cancelled_) return Places{};
    steps_.title("Sorting...");
    steps_.setCancellable(false);
    std::vector<PlacedKey> keys(count);
    for (std::size_t i = 0; i < count; ++i) keys[i].place = static_cast<std::uint32_t>(i);
    if (!sortTexts(keys, texts.get(), kWide, [this] { return goesOn(); })) return Places{};
    Places places(count);
    std::transform(keys.begin(), keys.end(), places.begin(),
                   [](const PlacedKey& key) { return static_cast<std::int32_t>(key.place); });
    return places;
  }

  const RecordKey& key_;
  const SortServices& services_;
  std::int32_t count_;
  RecordSteps steps_;
  std::optional<IndexReader> index_;
  bool cancelled_ = false, usedIndex_ = false;
};

}  // namespace

Result<SortedRecords> sortRecords(const RecordKey& key, const SortServices& services) {
  if (key.type == KeyType::variableLabels)
    return Error{ErrorKind::wrongUsage, "Records cannot be sorted by their own labels."};
  return SortRun(key, services).run();
}

}  // namespace plinth
