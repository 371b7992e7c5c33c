// The bytes as resources of type "CUSTOM", with the numbers that the designer uses too.
#include "programs/plinth/Stub.h"

#include "platform/win32/Resources.h"

namespace plinth {

std::span<const std::uint8_t> embeddedStub() { return resource("CUSTOM", 101); }
std::span<const std::uint8_t> embeddedIcon() { return resource("CUSTOM", 103); }
std::span<const std::uint8_t> embeddedEnglish() { return resource("CUSTOM", 104); }

}  // namespace plinth
