// The order of texts in sorted views: case aside, accents behind their letter. A byte's place becomes a
// number, so that whole texts compare as bytes do.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace plinth {

// Weight of each byte of a single-byte code page: blanks and NULs (0), control characters, punctuation,
// digits, letters; capitals weigh what their small letters do, and a letter with an accent comes directly
// behind the plain one.
std::array<std::uint8_t, 256> textWeights(int codePage);

class TextOrder {
 public:
  // scrambled: the texts' bytes are still substituted.
  TextOrder(int codePage, bool scrambled);

  // Fills `weights` with those of the text, cut to that room; 0 behind its end. Two texts stand in the order
  // of their weights, compared byte by byte. In double-byte pages the order is that of the bytes, with the
  // capitals of ASCII folded.
  void weigh(std::span<const std::uint8_t> text, std::span<std::uint8_t> weights) const;

 private:
  int codePage_;
  bool doubleByte_;
  std::array<std::uint8_t, 256> table_;  // of double-byte pages: the bytes no longer substituted
};

}  // namespace plinth
