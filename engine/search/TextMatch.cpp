// Two rare bytes of the term at their distance, in either case, sort out nearly every place in a text,
// sixteen places at once where the processor can. Only what is left is compared through the fold table.
#include "engine/search/TextMatch.h"

#include <algorithm>
#include <vector>

#include "basic/CodePage.h"
#include "basic/Wildcard.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace plinth {
namespace {

constexpr std::size_t kLane = 16;  // places looked at together

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

bool isDoubleByte(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

// How often stored texts hold a folded byte, from rare to often: padding is everywhere, letters as in common
// languages.
int commonness(unsigned char c) {
  static constexpr std::string_view kFromRare = "qjxzwkyvfbghmpducl1230strnoiae";
  if (c == ' ' || c == 0) return 100;
  const std::size_t place = kFromRare.find(static_cast<char>(c));
  return place == std::string_view::npos ? 0 : static_cast<int>(place) + 1;
}

// The longest run of a pattern that every text which fits must hold as it stands.
std::string longestPlainPart(std::string_view pattern) {
  std::string_view longest;
  std::size_t begin = 0;
  const auto close = [&](std::size_t end) {
    if (end - begin > longest.size()) longest = pattern.substr(begin, end - begin);
  };
  std::size_t i = 0;
  while (i < pattern.size()) {
    const std::size_t special = pattern.find_first_of("*?#[", i);
    if (special == std::string_view::npos) break;
    close(special);
    i = special + 1;
    if (pattern[special] == '[') i = std::min(pattern.find(']', i), pattern.size() - 1) + 1;
    begin = i;
  }
  close(pattern.size());
  return std::string(longest);
}

#if defined(__SSE2__)
// One bit for each of the sixteen bytes from `text` that is either of the two.
int eitherAt(const char* text, const std::array<unsigned char, 2>& forms) {
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
  const __m128i one = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(forms[0])));
  const __m128i other = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(forms[1])));
  return _mm_movemask_epi8(_mm_or_si128(one, other));
}
#endif

}  // namespace

std::array<unsigned char, 256> searchFold(int codePage, bool matchCase) {
  std::array<unsigned char, 256> fold{};
  for (std::size_t i = 0; i < fold.size(); ++i) {
    const auto byte = static_cast<unsigned char>(i);
    const bool letter = !matchCase && (i < 128 || !isDoubleByte(codePage));
    fold[i] = letter ? byteOf(lowerCase(std::string(1, static_cast<char>(byte)), codePage)[0]) : byte;
  }
  return fold;
}

TextMatch::TextMatch(std::string_view term, bool matchCase, int codePage)
    : fold_(searchFold(codePage, matchCase)),
      folds_(!matchCase),
      wild_(term.find_first_of("*?#[") != std::string_view::npos),
      doubleBytePage_(!matchCase && isDoubleByte(codePage) ? codePage : 0) {
  term_ = needleOf(matchCase ? std::string(term) : lowerCase(term, codePage));
  if (wild_) anchor_ = needleOf(longestPlainPart(term_.text));
}

TextMatch::Needle TextMatch::needleOf(std::string text) const {
  Needle needle;
  needle.text = std::move(text);
  std::vector<std::size_t> places;
  std::array<int, 256> formCount{};
  for (const unsigned char folded : fold_) ++formCount[folded];
  for (std::size_t i = 0; i < needle.text.size(); ++i)
    if (formCount[byteOf(needle.text[i])] <= 2) places.push_back(i);
  if (places.empty()) return needle;
  std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
    return commonness(byteOf(needle.text[a])) < commonness(byteOf(needle.text[b]));
  });
  needle.at = {places[0], places[places.size() > 1 ? 1 : 0]};
  for (std::size_t k = 0; k < 2; ++k) {
    const unsigned char folded = byteOf(needle.text[needle.at[k]]);
    needle.forms[k] = {folded, folded};
    for (std::size_t i = 0; i < fold_.size(); ++i)
      if (fold_[i] == folded && i != folded) needle.forms[k][1] = static_cast<unsigned char>(i);
  }
  needle.hasForms = true;
  return needle;
}

bool TextMatch::standsAt(const Needle& needle, const char* text) const {
  for (std::size_t i = 0; i < needle.text.size(); ++i)
    if (fold_[byteOf(text[i])] != byteOf(needle.text[i])) return false;
  return true;
}

bool TextMatch::holds(const Needle& needle, std::string_view text) const {
  if (needle.text.size() > text.size()) return false;
  const std::size_t places = text.size() - needle.text.size() + 1;
  const char* const from = text.data();
  std::size_t place = 0;
#if defined(__SSE2__)
  // The last sixteen places may have been looked at before: that is cheaper than going through them singly.
  for (; needle.hasForms && places >= kLane && place < places; place += kLane) {
    place = std::min(place, places - kLane);
    int candidates = eitherAt(from + place + needle.at[0], needle.forms[0]);
    if (candidates != 0) candidates &= eitherAt(from + place + needle.at[1], needle.forms[1]);
    for (; candidates != 0; candidates &= candidates - 1) {
      const auto bit = static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(candidates)));
      if (standsAt(needle, from + place + bit)) return true;
    }
  }
#endif
  for (; place < places; ++place) {
    const unsigned char c = byteOf(from[place + needle.at[0]]);
    if (needle.hasForms && c != needle.forms[0][0] && c != needle.forms[0][1]) continue;
    if (standsAt(needle, from + place)) return true;
  }
  return false;
}

bool TextMatch::isIn(std::string_view text) const {
  if (term_.text.empty()) return true;
  // A letter may be the second half of another character there.
  if (doubleBytePage_ != 0)
    return findFolded(text, term_.text, 0, doubleBytePage_) != std::string_view::npos;
  return holds(term_, text);
}

bool TextMatch::fits(std::string_view text) const {
  if (doubleBytePage_ != 0) {
    const std::string folded = lowerCase(text, doubleBytePage_);
    return wild_ ? wildcardMatch(folded, term_.text) : folded == term_.text;
  }
  if (!wild_) return text.size() == term_.text.size() && standsAt(term_, text.data());
  if (!anchor_.text.empty() && !holds(anchor_, text)) return false;
  return folds_ ? fitsFolded(text) : wildcardMatch(text, term_.text);
}

bool TextMatch::fitsFolded(std::string_view text) const {
  const auto fold = [this](char c) { return static_cast<char>(fold_[byteOf(c)]); };
  std::array<char, 512> room;
  if (text.size() <= room.size()) {
    std::transform(text.begin(), text.end(), room.begin(), fold);
    return wildcardMatch({room.data(), text.size()}, term_.text);
  }
  std::string folded(text.size(), '\0');
  std::transform(text.begin(), text.end(), folded.begin(), fold);
  return wildcardMatch(folded, term_.text);
}

}  // namespace plinth
