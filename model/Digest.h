// SHA-256 of bytes, so that a description can tell embedded files apart without holding them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace plinth {

// 64 hexadecimal digits in small letters.
std::string sha256(std::span<const std::uint8_t> bytes);

}  // namespace plinth
