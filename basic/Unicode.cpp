// UTF-8 and UTF-16 into each other. Malformed input never stops a text: each bad piece becomes U+FFFD.
#include "basic/CodePage.h"

namespace plinth {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The character at `at`, which moves behind it, or behind the part that could have begun a character.
char32_t nextCharacter(std::string_view utf8, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) return lead;
  const int length = lead >= 0xC2 && lead <= 0xDF   ? 2
                     : lead >= 0xE0 && lead <= 0xEF ? 3
                     : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                    : 0;
  if (length == 0) return kReplacement;
  char32_t value = lead & (0x7F >> length);
  for (int i = 1; i < length; ++i) {
    const auto next = at < utf8.size() ? static_cast<unsigned char>(utf8[at]) : 0;
    if ((next & 0xC0) != 0x80) return kReplacement;
    // Overlong forms, surrogates and what lies beyond Unicode show in the second byte.
    if (i == 1 && ((lead == 0xE0 && next < 0xA0) || (lead == 0xED && next > 0x9F) ||
                   (lead == 0xF0 && next < 0x90) || (lead == 0xF4 && next > 0x8F))) {
      return kReplacement;
    }
    value = value << 6 | (next & 0x3F);
    ++at;
  }
  return value;
}

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
    return;
  }
  const int trail = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
  static constexpr unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(kLead[trail] | c >> 6 * trail);
  for (int i = trail - 1; i >= 0; --i) out += static_cast<char>(0x80 | (c >> 6 * i & 0x3F));
}

}  // namespace

std::u16string utf8ToUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t c = nextCharacter(utf8, at);
    if (c < 0x10000) {
      out += static_cast<char16_t>(c);
    } else {
      out += static_cast<char16_t>(0xD7C0 + (c >> 10));
      out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
  }
  return out;
}

std::string utf16ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c < 0xD800 || c > 0xDFFF) {
      appendUtf8(out, c);
    } else if (c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
      appendUtf8(out, ((c - 0xD7C0u) << 10) + (text[++i] - 0xDC00u));
    } else {
      appendUtf8(out, kReplacement);
    }
  }
  return out;
}

}  // namespace plinth
