// Programs that keep transparency offer PNG bytes; all others a bitmap, which the system brings into the form
// asked for here.
#include "platform/win32/ClipboardPicture.h"

#include <span>

#include "platform/DibFile.h"

namespace plinth {
namespace {

UINT pngFormat() {
  static const UINT format = ::RegisterClipboardFormatW(L"PNG");
  return format;
}

Bytes dataOf(UINT format) {
  const HANDLE data = ::GetClipboardData(format);
  const auto* first = data ? static_cast<const std::uint8_t*>(::GlobalLock(data)) : nullptr;
  if (!first) return {};
  const Bytes bytes(first, first + ::GlobalSize(data));
  ::GlobalUnlock(data);
  return bytes;
}

}  // namespace

bool clipboardHasPicture() {
  return ::IsClipboardFormatAvailable(CF_DIB) || ::IsClipboardFormatAvailable(CF_BITMAP) ||
         ::IsClipboardFormatAvailable(pngFormat());
}

Bytes clipboardPicture(HWND owner) {
  if (!::OpenClipboard(owner)) return {};
  Bytes bytes = dataOf(pngFormat());
  if (bytes.empty()) bytes = bitmapFileOf(dataOf(CF_DIB));
  ::CloseClipboard();
  return bytes;
}

}  // namespace plinth
