// Colours of the designer's own windows, light or dark as the system says. The user's page never follows
// them.
#pragma once

#include <cstdint>

#include "platform/win32/WindowsApi.h"

namespace plinth {

// RGB with red in the low byte.
struct ChromeColors {
  bool dark = false;
  std::int32_t ground = 0xF7F7F7;     // of panels and tool windows
  std::int32_t ink = 0x202020;        // letters and pictures on it
  std::int32_t quiet = 0x606060;      // captions and headings
  std::int32_t edge = 0xC0C0C0;       // outlines and lines between groups
  std::int32_t box = 0xFFFFFF;        // ground of boxes that are typed into
  std::int32_t boxInk = 0x101010;     // letters in them
  std::int32_t hover = 0xF6EBE0;      // ground of a button under the pointer
  std::int32_t accent = 0xC06700;     // focus, and what is chosen
  std::int32_t accentInk = 0xFFFFFF;  // letters and pictures on the accent
  std::int32_t disabled = 0xA0A0A0;   // what cannot be used
};

ChromeColors chromeColors(bool dark);
// As the system is set now: light, dark, or its own colours where a person asked for high contrast.
ChromeColors systemChrome();
// True for the messages of a main window after which systemChrome() may answer something else.
bool isChromeChange(UINT message, LPARAM lParam);
// Gives a window's title bar the light or dark look; nothing on systems that know no dark one.
void setTitleDark(HWND window, bool dark);

}  // namespace plinth
