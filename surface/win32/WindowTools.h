// What every window of the designer needs of Windows: its scale, its message font, text in and out of
// controls.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/Handles.h"

namespace plinth {

// Device pixels per pixel of 96 dpi where a window stands.
double windowScale(HWND window);
// The system's message font at a scale; bold on request.
FontHandle messageFont(double scale, bool bold = false);
// Whole text of a window in a code page.
std::string windowText(HWND window, int codePage);
std::wstring wideUtf8(std::string_view utf8);

}  // namespace plinth
