// One search term against many stored texts: found as it stands, else as a wildcard pattern, with or without
// regard to case. Made once, then asked a million times, so nothing is copied and case is folded only where a
// candidate stands.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace plinth {

// Lower case of each byte of a code page; the identity for `matchCase`. In double-byte pages only the letters
// A to Z change.
std::array<unsigned char, 256> searchFold(int codePage, bool matchCase);

class TextMatch {
 public:
  // term: 8-bit text; without matchCase it is lower-cased here.
  TextMatch(std::string_view term, bool matchCase, int codePage);

  // The term stands somewhere in the text. An empty term stands in every text.
  bool isIn(std::string_view text) const;
  // The whole text fits the term read as a wildcard pattern ("*", "?", "#", "[...]").
  bool fits(std::string_view text) const;
  // isIn(), else fits(): what a search for text asks.
  bool found(std::string_view text) const { return isIn(text) || (wild_ && fits(text)); }
  // Whether the term holds a character of patterns.
  bool hasWildcards() const { return wild_; }

 private:
  // A text that is looked for by two of its bytes, those that texts hold least often.
  struct Needle {
    std::string text;  // folded
    std::array<std::size_t, 2> at{};
    std::array<std::array<unsigned char, 2>, 2> forms{};  // the byte at each place in both cases
    bool hasForms = false;  // false: a code page writes these letters in more than two ways
  };
  Needle needleOf(std::string text) const;
  bool standsAt(const Needle& needle, const char* text) const;
  bool holds(const Needle& needle, std::string_view text) const;
  bool fitsFolded(std::string_view text) const;

  std::array<unsigned char, 256> fold_;
  bool folds_ = false, wild_ = false;
  int doubleBytePage_ = 0;  // the page where bytes of case-folded text are no longer characters, else 0
  Needle term_;
  Needle anchor_;  // the longest plain part of a pattern: what does not hold it does not fit
};

}  // namespace plinth
