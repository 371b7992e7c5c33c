// One search term against many stored texts: found as it stands, else as a wildcard pattern, with or without
// regard to case. Made once, then asked a million times, so nothing is copied and case is folded only where a
// candidate stands.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace plinth {

// Lower case of each byte of a code page; the identity for `matchCase`. Trail bytes of double-byte pages are
// left as they are.
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
  bool found(std::string_view text) const;

 private:
  std::string term_;
  std::array<unsigned char, 256> fold_;
  bool folds_ = false, wild_ = false;
};

}  // namespace plinth
