// One pass with a single point of return: after a mismatch only the latest "*" can take one more character,
// since all before it is settled. This bounds the work by text x pattern.
#include "basic/Wildcard.h"

namespace plinth {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// Whether `c` is in a list such as "a-z_" (what stands between the brackets). `valid` turns false for a range
// that falls.
bool isListed(std::string_view list, unsigned char c, bool& valid) {
  bool found = false;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto low = static_cast<unsigned char>(list[i]);
    auto high = low;
    if (i + 2 < list.size() && list[i + 1] == '-') {
      high = static_cast<unsigned char>(list[i + 2]);
      i += 2;
    }
    if (low > high) valid = false;
    found |= c >= low && c <= high;
  }
  return found;
}

bool isLiteral(char c) { return c != '?' && c != '#' && c != '[' && c != '*'; }

enum class Fit { yes, no, malformed };

// Whether `c` fits the element at `at`, which moves behind it. REQUIRES an element other than "*" and "[]".
Fit fitsElement(std::string_view pattern, std::size_t& at, char c) {
  const char kind = pattern[at++];
  if (kind == '?') return Fit::yes;
  if (kind == '#') return c >= '0' && c <= '9' ? Fit::yes : Fit::no;
  if (kind != '[') return c == kind ? Fit::yes : Fit::no;
  const std::size_t end = pattern.find(']', at);
  if (end == kNone) return Fit::malformed;
  std::string_view list = pattern.substr(at, end - at);
  at = end + 1;
  const bool none = list.size() > 1 && list[0] == '!';  // "[!]" lists the mark itself
  if (none) list.remove_prefix(1);
  bool valid = true;
  const bool found = isListed(list, static_cast<unsigned char>(c), valid);
  if (!valid) return Fit::malformed;
  return found != none ? Fit::yes : Fit::no;
}

}  // namespace

bool wildcardMatch(std::string_view text, std::string_view pattern) {
  std::size_t t = 0, p = 0;
  std::size_t starPattern = kNone, starText = 0;  // behind the latest "*", and where its run ends
  for (;;) {
    while (pattern.substr(p, 2) == "[]") p += 2;  // an empty list stands for no character
    if (p < pattern.size() && pattern[p] == '*') {
      starPattern = ++p;
      starText = t;
      if (p == pattern.size()) return true;
      continue;
    }
    if (p == pattern.size() && t == text.size()) return true;
    if (p < pattern.size() && t < text.size()) {
      const Fit fit = fitsElement(pattern, p, text[t]);
      if (fit == Fit::malformed) return false;
      if (fit == Fit::yes) {
        ++t;
        continue;
      }
    }
    if (starPattern == kNone || starText == text.size()) return false;
    p = starPattern;
    ++starText;
    if (isLiteral(pattern[p])) starText = text.find(pattern[p], starText);
    if (starText == kNone) return false;
    t = starText;
  }
}

}  // namespace plinth
