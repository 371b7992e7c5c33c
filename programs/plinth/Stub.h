// The run-time engine that this tool carries inside itself. On Windows it is a resource, elsewhere a stretch
// of read-only data: creating an application needs no second file beside the tool.
#pragma once

#include <cstdint>
#include <span>

namespace plinth {

// The bytes of engine.exe as built, valid for the life of the program. Empty when the tool was built before
// any engine was: then no application can be created, and the caller has to say so.
std::span<const std::uint8_t> embeddedStub();

}  // namespace plinth
