// Text goes as UTF-16; the system makes the 8-bit form for programs that ask for it.
#include "platform/win32/Win32Clipboard.h"

#include <cstring>

#include "platform/win32/Win32Text.h"

namespace plinth {

namespace {

// Another program may hold the clipboard for a moment.
class Opened {
 public:
  explicit Opened(HWND owner) {
    constexpr int kTries = 10, kPauseMs = 10;
    for (int i = 0; i < kTries && !open_; ++i) {
      open_ = ::OpenClipboard(owner) != 0;
      if (!open_) ::Sleep(kPauseMs);
    }
  }
  ~Opened() {
    if (open_) ::CloseClipboard();
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  explicit operator bool() const { return open_; }

 private:
  bool open_ = false;
};

}  // namespace

std::string SystemClipboard::text(int codePage) const {
  const Opened clipboard(owner_());
  const HANDLE data = clipboard ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
  const auto* chars = data ? static_cast<const wchar_t*>(::GlobalLock(data)) : nullptr;
  if (!chars) return "";
  const std::wstring wide(chars, ::wcsnlen(chars, ::GlobalSize(data) / sizeof(wchar_t)));
  ::GlobalUnlock(data);
  return fromWide(wide, codePage);
}

bool SystemClipboard::setText(std::string_view text, int codePage) {
  const std::wstring wide = toWide(text, codePage);
  const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
  const Opened clipboard(owner_());
  if (!clipboard || !::EmptyClipboard()) return false;
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (!memory) return false;
  std::memcpy(::GlobalLock(memory), wide.c_str(), bytes);
  ::GlobalUnlock(memory);
  if (::SetClipboardData(CF_UNICODETEXT, memory)) return true;
  ::GlobalFree(memory);
  return false;
}

}  // namespace plinth
