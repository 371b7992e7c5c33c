// Each single-byte page becomes 256-entry tables at its first use, so that case and search cost one look-up a
// byte. In double-byte pages only ASCII characters have case, and a trail byte is never looked at by itself.
#include "basic/CodePage.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "basic/CodePageTables.h"

namespace plinth {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr int kWestern = 1252;

using ByteTable = std::array<unsigned char, 256>;

struct Page {
  std::array<char16_t, 256> characters;
  ByteTable upper, lower, fold;
  std::array<std::pair<char16_t, unsigned char>, 128> bytes;  // of the characters above ASCII, in their order

  explicit Page(const CodePageTable& table) {
    for (int i = 0; i < 256; ++i) {
      const auto byte = static_cast<unsigned char>(i);
      const bool high = i >= 128;
      characters[i] = high ? table.characters[i - 128] : static_cast<char16_t>(i);
      upper[i] = high ? table.upper[i - 128] : byte >= 'a' && byte <= 'z' ? byte - 'a' + 'A' : byte;
      lower[i] = high ? table.lower[i - 128] : byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte;
      if (high) bytes[i - 128] = {characters[i], byte};
    }
    // By way of the capital, since two small letters may share one.
    for (int i = 0; i < 256; ++i) fold[i] = lower[upper[i]];
    std::sort(bytes.begin(), bytes.end());
  }
};

const Page& pageOf(int codePage) {
  static const auto pages = [] {
    std::vector<std::pair<int, Page>> out;
    for (const CodePageTable& table : kCodePageTables) out.emplace_back(table.codePage, Page(table));
    return out;
  }();
  const Page* western = nullptr;
  for (const auto& [number, page] : pages) {
    if (number == codePage) return page;
    if (number == kWestern) western = &page;
  }
  return *western;
}

bool isDoubleByte(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

bool isLeadByte(unsigned char byte, int codePage) {
  if (codePage == 932) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return byte >= 0x81 && byte <= 0xFE;
}

// Bytes of the character at `at`: 1 or 2.
std::size_t characterSize(std::string_view text, std::size_t at, int codePage) {
  return at + 1 < text.size() && isLeadByte(static_cast<unsigned char>(text[at]), codePage) ? 2 : 1;
}

unsigned char asciiLower(unsigned char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; }
unsigned char asciiUpper(unsigned char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; }

// change(byte) for each byte that is a character by itself.
template <class Change>
std::string changed(std::string_view text, int codePage, Change change) {
  std::string out(text);
  const bool doubleByte = isDoubleByte(codePage);
  for (std::size_t i = 0; i < out.size(); ++i) {
    if (doubleByte && characterSize(out, i, codePage) == 2) {
      change('\x80');  // some letter: what counts is that it is no blank
      ++i;
    } else {
      out[i] = static_cast<char>(change(static_cast<unsigned char>(out[i])));
    }
  }
  return out;
}

std::string mapped(std::string_view text, int codePage, ByteTable Page::*table,
                   unsigned char (*ascii)(unsigned char)) {
  if (isDoubleByte(codePage)) return changed(text, codePage, ascii);
  const ByteTable& map = pageOf(codePage).*table;
  std::string out(text);
  for (char& c : out) c = static_cast<char>(map[static_cast<unsigned char>(c)]);
  return out;
}

bool isWordGap(unsigned char c) { return c == ' ' || c == '\0' || (c >= '\t' && c <= '\r'); }

std::size_t findSingleByte(std::string_view text, std::string_view what, std::size_t from,
                           const ByteTable& fold) {
  const auto at = [&](std::string_view s, std::size_t i) { return fold[static_cast<unsigned char>(s[i])]; };
  const unsigned char first = at(what, 0);
  for (std::size_t i = from; i + what.size() <= text.size(); ++i) {
    if (at(text, i) != first) continue;
    std::size_t k = 1;
    while (k < what.size() && at(text, i + k) == at(what, k)) ++k;
    if (k == what.size()) return i;
  }
  return std::string_view::npos;
}

std::size_t findDoubleByte(std::string_view text, std::string_view what, std::size_t from, int codePage) {
  const std::string in = lowerCase(text, codePage);
  const std::string sought = lowerCase(what, codePage);
  for (std::size_t i = from; i + sought.size() <= in.size(); i += characterSize(in, i, codePage)) {
    if (in.compare(i, sought.size(), sought) == 0) return i;
  }
  return std::string_view::npos;
}

MultiByteCodec installedCodec;

}  // namespace

int codePageOfCharSet(int charSet) {
  static constexpr std::pair<int, int> kPages[] = {
      {238, 1250}, {204, 1251}, {161, 1253}, {162, 1254}, {177, 1255}, {178, 1256}, {186, 1257},
      {163, 1258}, {222, 874},  {128, 932},  {134, 936},  {129, 949},  {136, 950}};
  for (const auto& [number, page] : kPages) {
    if (number == charSet) return page;
  }
  return kWestern;
}

std::u16string toUtf16(std::string_view text, int codePage) {
  std::u16string out;
  if (isDoubleByte(codePage)) {
    if (installedCodec.decode) return installedCodec.decode(text, codePage);
    for (char c : text) out += static_cast<unsigned char>(c) < 128 ? static_cast<char16_t>(c) : kReplacement;
    return out;
  }
  const Page& page = pageOf(codePage);
  out.reserve(text.size());
  for (char c : text) out += page.characters[static_cast<unsigned char>(c)];
  return out;
}

std::string fromUtf16(std::u16string_view text, int codePage) {
  const bool doubleByte = isDoubleByte(codePage);
  if (doubleByte && installedCodec.encode) return installedCodec.encode(text, codePage);
  const Page& page = pageOf(codePage);
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    // A pair of surrogates is one character, and so one "?".
    if (c >= 0xDC00 && c <= 0xDFFF && i > 0 && text[i - 1] >= 0xD800 && text[i - 1] <= 0xDBFF) continue;
    if (c < 128) {
      out += static_cast<char>(c);
      continue;
    }
    const auto found =
        std::lower_bound(page.bytes.begin(), page.bytes.end(), std::pair(c, static_cast<unsigned char>(0)));
    const bool known = !doubleByte && found != page.bytes.end() && found->first == c;
    out += known ? static_cast<char>(found->second) : '?';
  }
  return out;
}

std::string toUtf8(std::string_view text, int codePage) { return utf16ToUtf8(toUtf16(text, codePage)); }

std::string fromUtf8(std::string_view utf8, int codePage) { return fromUtf16(utf8ToUtf16(utf8), codePage); }

std::string upperCase(std::string_view text, int codePage) {
  return mapped(text, codePage, &Page::upper, asciiUpper);
}

std::string lowerCase(std::string_view text, int codePage) {
  return mapped(text, codePage, &Page::lower, asciiLower);
}

std::string properCase(std::string_view text, int codePage) {
  const Page* page = isDoubleByte(codePage) ? nullptr : &pageOf(codePage);
  bool atStart = true;
  return changed(text, codePage, [&](unsigned char c) {
    const bool first = std::exchange(atStart, isWordGap(c));
    if (page) return first ? page->upper[c] : page->lower[c];
    return first ? asciiUpper(c) : asciiLower(c);
  });
}

int compareFolded(std::string_view a, std::string_view b, int codePage) {
  if (isDoubleByte(codePage)) return lowerCase(a, codePage).compare(lowerCase(b, codePage));
  const ByteTable& fold = pageOf(codePage).fold;
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int x = fold[static_cast<unsigned char>(a[i])];
    const int y = fold[static_cast<unsigned char>(b[i])];
    if (x != y) return x - y;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::size_t findFolded(std::string_view text, std::string_view what, std::size_t from, int codePage) {
  if (from > text.size()) return std::string_view::npos;
  if (what.empty()) return from;
  if (isDoubleByte(codePage)) return findDoubleByte(text, what, from, codePage);
  return findSingleByte(text, what, from, pageOf(codePage).fold);
}

void installMultiByteCodec(MultiByteCodec codec) { installedCodec = codec; }

}  // namespace plinth
