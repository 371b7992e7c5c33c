// References are replaced in one scan when that provably gives what the long way gives: no value holds a
// letter of a kind, and no reference stands right behind such a letter or a digit. Else the long way is gone.
#include "formula/FormulaText.h"

#include <algorithm>
#include <optional>

#include "basic/Text.h"

namespace plinth {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

const ReferenceKind* kindOf(char letter, const std::vector<ReferenceKind>& kinds) {
  const auto found = std::find_if(kinds.begin(), kinds.end(),
                                  [&](const ReferenceKind& kind) { return kind.letter == letter; });
  return found == kinds.end() ? nullptr : &*found;
}

struct FoundIndex {
  int index;
  std::size_t digits;
};

// The highest index from `low` to `high` whose digits start at `at`: what replacing from high to low takes
// first.
std::optional<FoundIndex> longestIndex(std::string_view text, std::size_t at, int low, int high) {
  std::optional<FoundIndex> found;
  int index = 0;
  for (std::size_t i = at; i < text.size() && isDigit(text[i]) && i - at < 8; ++i) {
    index = index * 10 + (text[i] - '0');
    if (index > high) break;
    if (index >= low) found = FoundIndex{index, i - at + 1};
    if (text[at] == '0') break;
  }
  return found;
}

// nullopt where only the long way is sure.
std::optional<std::string> replaceInOneScan(std::string_view text, const std::vector<ReferenceKind>& kinds) {
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    const ReferenceKind* kind = kindOf(text[i], kinds);
    const auto found = kind ? longestIndex(text, i + 1, kind->low, kind->high) : std::nullopt;
    if (!found) {
      out += text[i++];
      continue;
    }
    if (i > 0 && (isDigit(text[i - 1]) || kindOf(text[i - 1], kinds))) return std::nullopt;
    const std::string value = kind->valueOf(found->index);
    if (std::any_of(value.begin(), value.end(), [&](char c) { return kindOf(c, kinds); }))
      return std::nullopt;
    out += value;
    if (out.size() > kMaxFormulaText) return std::nullopt;
    i += 1 + found->digits;
  }
  return out.size() + 1 > kMaxFormulaText ? std::nullopt : std::make_optional(std::move(out));
}

// The highest index in the text that is not above `high`; below kind.low for none.
int highestIndex(std::string_view text, const ReferenceKind& kind, int high) {
  int highest = kind.low - 1;
  for (std::size_t i = text.find(kind.letter); i != text.npos; i = text.find(kind.letter, i + 1)) {
    const auto found = longestIndex(text, i + 1, kind.low, high);
    if (found) highest = std::max(highest, found->index);
  }
  return highest;
}

std::string replaceOneByOne(std::string_view text, const ReferenceKind& kind) {
  std::string out(text);
  for (int n = highestIndex(out, kind, kind.high); n >= kind.low; n = highestIndex(out, kind, n - 1)) {
    out = replaceBounded(out, kind.letter + std::to_string(n), kind.valueOf(n));
  }
  return out;
}

}  // namespace

std::string replaceBounded(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  if (with.size() > what.size()) {
    std::size_t size = text.size();
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + what.size())) {
      size += with.size() - what.size();
      if (size > kMaxFormulaText) return std::string(text);
    }
  }
  return replaceAll(text, what, with);
}

std::string replaceReferences(std::string_view text, const std::vector<ReferenceKind>& kinds) {
  if (auto quick = replaceInOneScan(text, kinds)) return *std::move(quick);
  std::string out(text);
  for (const ReferenceKind& kind : kinds) out = replaceOneByOne(out, kind);
  return out;
}

std::string joinQuoted(std::string_view text) {
  std::string out(text);
  bool quoted = false;
  for (char& c : out) {
    if (c == '"') quoted = !quoted;
    if (quoted && c == ' ') c = '_';
  }
  return out;
}

}  // namespace plinth
