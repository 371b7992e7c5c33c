// The binary resources of the running program.
#pragma once

#include <cstdint>
#include <span>

namespace plinth {

// The bytes of a resource by type, such as "CUSTOM", and number; empty when there is none. They live as long
// as the program.
std::span<const std::uint8_t> resource(const char* type, int id);

}  // namespace plinth
