// UTF-16 is wchar_t on Windows and char16_t in the portable folders: here the two meet.
#include "platform/win32/Win32Text.h"

#include "basic/CodePage.h"
#include "platform/SystemCodec.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));
constexpr int kUtf8Page = 65001;

std::u16string decode(std::string_view text, int codePage) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // never more units than bytes
  const int count = ::MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), length);
  return {wide.begin(), wide.begin() + count};
}

std::string encode(std::u16string_view text, int codePage) {
  const std::wstring wide(text.begin(), text.end());
  const int length = static_cast<int>(wide.size());
  std::string bytes(wide.size() * 2, '\0');
  const int count = ::WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(),
                                          static_cast<int>(bytes.size()), "?", nullptr);
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

}  // namespace

std::wstring toWide(std::string_view text, int codePage) {
  const std::u16string wide = codePage == kUtf8Page ? utf8ToUtf16(text) : toUtf16(text, codePage);
  return {wide.begin(), wide.end()};
}

std::string fromWide(std::wstring_view text, int codePage) {
  const std::u16string wide(text.begin(), text.end());
  return codePage == kUtf8Page ? utf16ToUtf8(wide) : fromUtf16(wide, codePage);
}

int systemCodePage() { return static_cast<int>(::GetACP()); }

void installSystemCodec() { installMultiByteCodec({decode, encode}); }

}  // namespace plinth
