// What this tool carries inside itself: the run-time engine, the default icon and the English texts. On
// Windows they are resources, elsewhere stretches of read-only data: creating an application needs no second
// file beside the tool.
#pragma once

#include <cstdint>
#include <span>

namespace plinth {

// The bytes of engine.exe as built, valid for the life of the program. Empty when the tool was built before
// any engine was: then no application can be created, and the caller has to say so.
std::span<const std::uint8_t> embeddedStub();
// Icons/Default.ico.
std::span<const std::uint8_t> embeddedIcon();
// Languages/English.txt.
std::span<const std::uint8_t> embeddedEnglish();

}  // namespace plinth
