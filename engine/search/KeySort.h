// Sorting of many small keys: 64-bit numbers, each with the place that it came from.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace plinth {

struct PlacedKey {
  std::uint64_t key;
  std::uint32_t place;
};

// Numbers as keys of the same order. Not-a-number counts as 0, and so does -0.
inline std::uint64_t keyOfNumber(std::int64_t value) {
  return static_cast<std::uint64_t>(value) ^ (std::uint64_t{1} << 63);
}
inline std::uint64_t keyOfNumber(double value) {
  if (value != value || value == 0) value = 0;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  return bits >> 63 ? ~bits : bits | (std::uint64_t{1} << 63);
}

// Brings places into the order of texts of `width` bytes (a multiple of 8), compared byte by byte; equal ones
// by place. The text of place n stands at texts + n x width. keys: each place once, ascending; their numbers
// are lost. goOn: asked now and then; when it says no, the order is none and the result false.
bool sortTexts(std::span<PlacedKey> keys, const std::uint8_t* texts, std::size_t width,
               const std::function<bool()>& goOn);

// The places in the order that shellSort() would leave the keys in. keys: the places 0, 1, 2 ... in this
// order. goOn: asked now and then; when it says no, the result is empty.
std::vector<std::int32_t> shellOrder(std::vector<PlacedKey> keys, const std::function<bool()>& goOn);

// Sorts `keys` ascending and moves `order`, which is as long, along with them: Knuth's gaps, insertion by
// greater-than only, so that equal keys come out in the one order that this algorithm leaves. Not-a-number is
// greater than nothing.
void shellSort(std::vector<double>& keys, std::vector<std::int32_t>& order);

}  // namespace plinth
