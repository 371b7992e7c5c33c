// One radix sort carries both: numbers are ranked by it, texts sorted eight bytes at a time, each round only
// among those that were equal so far.
#include "engine/search/KeySort.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

namespace plinth {
namespace {

constexpr std::size_t kKeyBytes = 8;
constexpr std::size_t kDigitBits = 11, kDigits = 6;
constexpr std::size_t kFewKeys = 2048;  // below, comparing is quicker than counting
constexpr std::size_t kKeysPerQuestion = 1 << 16;

using Counts = std::array<std::array<std::uint32_t, 1 << kDigitBits>, kDigits>;

// Asks whether to go on once enough keys were moved.
class Questions {
 public:
  explicit Questions(const std::function<bool()>& goOn) : goOn_(goOn) {}
  bool afterMoving(std::size_t keys) {
    moved_ += keys;
    if (moved_ < kKeysPerQuestion) return true;
    moved_ = 0;
    return goOn_();
  }

 private:
  const std::function<bool()>& goOn_;
  std::size_t moved_ = 0;
};

std::size_t digitOf(const PlacedKey& key, std::size_t digit) {
  return (key.key >> (kDigitBits * digit)) & ((1 << kDigitBits) - 1);
}

// Ascending by key. REQUIRES equal keys in ascending places; they keep their order. scratch: room for as many
// elements, their values are lost.
bool sortKeys(std::span<PlacedKey> keys, std::span<PlacedKey> scratch, Questions& questions) {
  if (keys.size() < kFewKeys) {
    std::sort(keys.begin(), keys.end(), [](const PlacedKey& a, const PlacedKey& b) {
      return a.key < b.key || (a.key == b.key && a.place < b.place);
    });
    return questions.afterMoving(keys.size());
  }
  Counts counts{};
  for (const PlacedKey& key : keys)
    for (std::size_t digit = 0; digit < kDigits; ++digit) ++counts[digit][digitOf(key, digit)];
  std::span<PlacedKey> from = keys, to = scratch.first(keys.size());
  for (std::size_t digit = 0; digit < kDigits; ++digit) {
    auto& starts = counts[digit];
    if (starts[digitOf(keys[0], digit)] == keys.size()) continue;  // the same in all
    std::uint32_t start = 0;
    for (std::uint32_t& count : starts) start += std::exchange(count, start);
    for (const PlacedKey& key : from) to[starts[digitOf(key, digit)]++] = key;
    std::swap(from, to);
    if (!questions.afterMoving(keys.size())) return false;
  }
  if (from.data() != keys.data()) std::copy(from.begin(), from.end(), keys.begin());
  return true;
}

// Eight bytes as a number, the first the most significant.
std::uint64_t bigBits(const std::uint8_t* bytes) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < kKeyBytes; ++i) bits = bits << 8 | bytes[i];
  return bits;
}

bool sortTextsFrom(std::span<PlacedKey> keys, std::span<PlacedKey> scratch, const std::uint8_t* texts,
                   std::size_t width, std::size_t from, Questions& questions) {
  for (PlacedKey& key : keys) key.key = bigBits(texts + key.place * width + from);
  if (!sortKeys(keys, scratch, questions)) return false;
  if (from + kKeyBytes >= width) return true;
  for (std::size_t first = 0, last = 0; first < keys.size(); first = last) {
    while (last < keys.size() && keys[last].key == keys[first].key) ++last;
    const std::size_t count = last - first;
    if (count > 1 && !sortTextsFrom(keys.subspan(first, count), scratch.first(count), texts, width,
                                    from + kKeyBytes, questions))
      return false;
  }
  return true;
}

// Knuth's gaps, the largest first; false from pass(gap) stops.
template <class Pass>
bool eachGap(std::size_t count, Pass pass) {
  std::size_t gap = 1;
  while (gap * 3 + 1 <= count) gap = gap * 3 + 1;
  for (; gap > 0; gap /= 3)
    if (!pass(gap)) return false;
  return true;
}

// Four neighbours move at once. They lie in different chains of any gap but 1, so nothing changes but the
// speed: which element moves how far cannot be foretold, and one wrong guess then serves four.
using Lanes = std::int32_t __attribute__((vector_size(16)));
constexpr std::size_t kLanes = 4;

Lanes loadLanes(const std::int32_t* from) {
  Lanes lanes;
  std::memcpy(&lanes, from, sizeof lanes);
  return lanes;
}
void storeLanes(std::int32_t* to, Lanes lanes) { std::memcpy(to, &lanes, sizeof lanes); }

bool anyLane(Lanes mask) {
  std::uint64_t halves[2];
  std::memcpy(halves, &mask, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

// The passes of ShellSort over ranks and the places that belong to them.
class RankPasses {
 public:
  RankPasses(std::vector<std::int32_t>& ranks, std::vector<std::int32_t>& places)
      : ranks_(ranks.data()), places_(places.data()), count_(ranks.size()) {}

  // gap: 4 or more.
  void pass(std::size_t gap) {
    std::size_t i = gap;
    for (; i + kLanes <= count_; i += kLanes) insertFour(i, gap);
    for (; i < count_; ++i) insertOne(i, gap);
  }

 private:
  void insertOne(std::size_t at, std::size_t gap) {
    const std::int32_t rank = ranks_[at], place = places_[at];
    for (; at >= gap && ranks_[at - gap] > rank; at -= gap) {
      ranks_[at] = ranks_[at - gap];
      places_[at] = places_[at - gap];
    }
    ranks_[at] = rank;
    places_[at] = place;
  }

  // A lane whose element has found its place stays as it is: what comes before it is sorted.
  void insertFour(std::size_t at, std::size_t gap) {
    Lanes rank = loadLanes(ranks_ + at), place = loadLanes(places_ + at);
    const auto settle = [&] {
      storeLanes(ranks_ + at, rank);
      storeLanes(places_ + at, place);
    };
    for (; at >= gap; at -= gap) {
      const Lanes before = loadLanes(ranks_ + at - gap);
      const Lanes moves = before > rank;
      if (!anyLane(moves)) return settle();
      const Lanes placeBefore = loadLanes(places_ + at - gap);
      const Lanes swapRank = (before ^ rank) & moves, swapPlace = (placeBefore ^ place) & moves;
      storeLanes(ranks_ + at, rank ^ swapRank);
      storeLanes(places_ + at, place ^ swapPlace);
      rank = before ^ swapRank;
      place = placeBefore ^ swapPlace;
    }
    settle();
    // The first lane stands at the beginning of its chain, others may have one element before them.
    for (std::size_t lane = 0; lane < kLanes; ++lane)
      if (at + lane >= gap) insertOne(at + lane, gap);
  }

  std::int32_t* ranks_;
  std::int32_t* places_;
  std::size_t count_;
};

}  // namespace

bool sortTexts(std::span<PlacedKey> keys, const std::uint8_t* texts, std::size_t width,
               const std::function<bool()>& goOn) {
  const auto scratch = std::make_unique_for_overwrite<PlacedKey[]>(keys.size());
  Questions questions(goOn);
  return sortTextsFrom(keys, {scratch.get(), keys.size()}, texts, width, 0, questions);
}

// An element's rank is where its equals begin in the end. Equal keys share it and differing ones do not, so
// the passes treat ranks as they would the keys; and the last pass, which moves what it has to a little, only
// has to put each element behind its equals.
std::vector<std::int32_t> shellOrder(std::vector<PlacedKey> keys, const std::function<bool()>& goOn) {
  const std::size_t count = keys.size();
  {
    const auto scratch = std::make_unique_for_overwrite<PlacedKey[]>(count);
    Questions questions(goOn);
    if (!sortKeys(keys, {scratch.get(), count}, questions)) return {};
  }
  std::vector<std::int32_t> ranks(count), places(count);
  std::size_t rank = 0;
  bool allDiffer = true;
  for (std::size_t i = 0; i < count; ++i) {
    if (keys[i].key != keys[rank].key) rank = i;
    allDiffer = allDiffer && rank == i;
    ranks[keys[i].place] = static_cast<std::int32_t>(rank);
    places[i] = static_cast<std::int32_t>(i);
  }
  RankPasses passes(ranks, places);
  const auto pass = [&](std::size_t gap) {
    if (gap > 1) passes.pass(gap);
    return goOn();
  };
  if (!allDiffer && !eachGap(count, pass)) return {};
  std::vector<std::int32_t> order(count), placed(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto first = static_cast<std::size_t>(ranks[i]);
    order[first + static_cast<std::size_t>(placed[first]++)] = places[i];
  }
  return order;
}

void shellSort(std::vector<double>& keys, std::vector<std::int32_t>& order) {
  struct Pair {
    double key;
    std::int32_t place;
  };
  std::vector<Pair> pairs(std::min(keys.size(), order.size()));
  for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] = {keys[i], order[i]};
  eachGap(pairs.size(), [&](std::size_t gap) {
    for (std::size_t i = gap; i < pairs.size(); ++i) {
      const Pair moving = pairs[i];
      std::size_t at = i;
      for (; at >= gap && pairs[at - gap].key > moving.key; at -= gap) pairs[at] = pairs[at - gap];
      pairs[at] = moving;
    }
    return true;
  });
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    keys[i] = pairs[i].key;
    order[i] = pairs[i].place;
  }
}

}  // namespace plinth
