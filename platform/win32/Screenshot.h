// What a window looks like, for tests and documents.
#pragma once

#include <string>

#include "platform/Pixels.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// The pixels of a window of this process: frame, title, menu and children. Without pixels when it has no
// size.
Pixels windowPixels(HWND window);

// The same as a PNG file. Paints what waits to be painted first. False when it cannot be written.
bool saveScreenshot(HWND window, const std::string& path);

}  // namespace plinth
