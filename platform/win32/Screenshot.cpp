// Copies from the window's own context: that works on no screen at all, where copies from the screen do not.
#include "platform/win32/Screenshot.h"

#include "platform/win32/WicPictures.h"

namespace plinth {

Pixels windowPixels(HWND window) {
  RECT rect;
  if (!::GetWindowRect(window, &rect)) return {};
  const SizePx size{static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
  const GdiBitmap copy(size);
  const WindowDc source(window, WindowDc::Part::whole);
  if (!copy.ok() || !::BitBlt(copy.dc(), 0, 0, size.width, size.height, source.get(), 0, 0, SRCCOPY))
    return {};
  return copy.pixels();
}

bool saveScreenshot(HWND window, const std::string& path) {
  ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  return savePng(windowPixels(window), path);
}

}  // namespace plinth
