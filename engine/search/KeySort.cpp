// One radix sort carries both: numbers are ranked by it, texts sorted eight bytes at a time, each round only
// among those that were equal so far.
#include "engine/search/KeySort.h"

#include <algorithm>
#include <array>
#include <utility>

namespace plinth {
namespace {

constexpr std::size_t kDigits = 8;     // bytes of a key
constexpr std::size_t kFewKeys = 512;  // below, comparing is quicker than counting

using Counts = std::array<std::array<std::uint32_t, 256>, kDigits>;

std::size_t digitOf(const PlacedKey& key, std::size_t digit) { return (key.key >> (8 * digit)) & 255; }

// Eight bytes as a number, the first the most significant.
std::uint64_t bigBits(const std::uint8_t* bytes) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < kDigits; ++i) bits = bits << 8 | bytes[i];
  return bits;
}

void sortTextsFrom(std::span<PlacedKey> keys, std::span<PlacedKey> scratch, const std::uint8_t* texts,
                   std::size_t width, std::size_t from) {
  for (PlacedKey& key : keys) key.key = bigBits(texts + key.place * width + from);
  sortPlaced(keys, scratch);
  if (from + kDigits >= width) return;
  for (std::size_t first = 0, last = 0; first < keys.size(); first = last) {
    while (last < keys.size() && keys[last].key == keys[first].key) ++last;
    const std::size_t count = last - first;
    if (count > 1)
      sortTextsFrom(keys.subspan(first, count), scratch.first(count), texts, width, from + kDigits);
  }
}

template <class Element, class Greater, class GoOn>
bool shellPasses(std::span<Element> elements, Greater greater, GoOn goOn) {
  const std::size_t count = elements.size();
  std::size_t gap = 1;
  while (gap * 3 + 1 <= count) gap = gap * 3 + 1;
  for (; gap > 0; gap /= 3) {
    for (std::size_t i = gap; i < count; ++i) {
      const Element moving = elements[i];
      std::size_t at = i;
      for (; at >= gap && greater(elements[at - gap], moving); at -= gap) elements[at] = elements[at - gap];
      elements[at] = moving;
    }
    if (!goOn()) return false;
  }
  return true;
}

}  // namespace

void sortPlaced(std::span<PlacedKey> keys, std::span<PlacedKey> scratch) {
  if (keys.size() < kFewKeys) {
    std::stable_sort(keys.begin(), keys.end(),
                     [](const PlacedKey& a, const PlacedKey& b) { return a.key < b.key; });
    return;
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
  }
  if (from.data() != keys.data()) std::copy(from.begin(), from.end(), keys.begin());
}

void sortTexts(std::span<PlacedKey> keys, const std::uint8_t* texts, std::size_t width) {
  std::vector<PlacedKey> scratch(keys.size());
  sortTextsFrom(keys, scratch, texts, width, 0);
}

// Equal keys share a rank and differing ones do not, so the passes treat ranks as they would the keys; rank
// and place in one word need no second array to move along.
std::vector<std::uint32_t> shellOrder(std::vector<PlacedKey> keys, const std::function<bool()>& goOn) {
  {
    std::vector<PlacedKey> scratch(keys.size());
    sortPlaced(keys, scratch);
  }
  std::vector<std::uint64_t> ranked(keys.size());
  std::uint64_t rank = 0;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i > 0 && keys[i].key != keys[i - 1].key) ++rank;
    ranked[keys[i].place] = rank << 32 | keys[i].place;
  }
  const bool allDiffer = rank + 1 >= keys.size();
  const auto greater = [](std::uint64_t a, std::uint64_t b) { return (a >> 32) > (b >> 32); };
  if (!allDiffer && !shellPasses(std::span(ranked), greater, goOn)) return {};
  std::vector<std::uint32_t> order(keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i)
    order[i] = allDiffer ? keys[i].place : static_cast<std::uint32_t>(ranked[i]);
  return order;
}

void shellSort(std::vector<double>& keys, std::vector<std::int32_t>& order) {
  struct Pair {
    double key;
    std::int32_t place;
  };
  std::vector<Pair> pairs(std::min(keys.size(), order.size()));
  for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] = {keys[i], order[i]};
  shellPasses(
      std::span(pairs), [](const Pair& a, const Pair& b) { return a.key > b.key; }, [] { return true; });
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    keys[i] = pairs[i].key;
    order[i] = pairs[i].place;
  }
}

}  // namespace plinth
