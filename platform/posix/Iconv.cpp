// The converter's loop, and the codec for double-byte pages that stands on it.
#include "platform/posix/Iconv.h"

#include <cerrno>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "basic/CodePage.h"
#include "platform/SystemCodec.h"

namespace plinth {
namespace {

// How many bytes a character that cannot be converted takes at `at`.
std::size_t skipLength(const char* at, std::size_t left, std::size_t unit) {
  if (unit == 2 && left >= 4 && (static_cast<unsigned char>(at[1]) & 0xFC) == 0xD8) return 4;
  return std::min(left, unit);
}

// Converters are costly to open and keep a state, so each thread has its own of each direction.
Iconv& converter(int codePage, bool decode) {
  thread_local std::map<std::pair<int, bool>, std::unique_ptr<Iconv>> all;
  std::unique_ptr<Iconv>& one = all[{codePage, decode}];
  if (!one) {
    const std::string page = "CP" + std::to_string(codePage);
    one = decode ? std::make_unique<Iconv>("UTF-16LE", page.c_str())
                 : std::make_unique<Iconv>(page.c_str(), "UTF-16LE");
  }
  return *one;
}

std::u16string decode(std::string_view text, int codePage) {
  Iconv& to16 = converter(codePage, true);
  if (!to16.ok()) return std::u16string(text.size(), u'\xFFFD');
  const std::string bytes = to16.convert(text, "\xFD\xFF");
  std::u16string out(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < out.size(); ++i)
    out[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                   static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
  return out;
}

std::string encode(std::u16string_view text, int codePage) {
  Iconv& to8 = converter(codePage, false);
  if (!to8.ok()) return std::string(text.size(), '?');
  std::string bytes;
  for (const char16_t c : text) bytes += {static_cast<char>(c & 255), static_cast<char>(c >> 8)};
  return to8.convert(bytes, "?", 2);
}

}  // namespace

std::string Iconv::convert(std::string_view bytes, std::string_view standIn, std::size_t unit) {
  std::string out;
  char* in = const_cast<char*>(bytes.data());  // iconv only reads
  std::size_t left = bytes.size();
  ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
  while (left > 0) {
    char buffer[512];
    char* to = buffer;
    std::size_t room = sizeof buffer;
    const std::size_t result = ::iconv(handle_, &in, &left, &to, &room);
    const int error = errno;
    out.append(buffer, sizeof buffer - room);
    if (result != static_cast<std::size_t>(-1) || error == E2BIG) continue;
    out += standIn;
    const std::size_t skipped = skipLength(in, left, unit);
    in += skipped;
    left -= skipped;
  }
  return out;
}

void installSystemCodec() { installMultiByteCodec({decode, encode}); }

}  // namespace plinth
