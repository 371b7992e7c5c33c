// The fixed 256-entry byte substitution that conceals texts in finished applications and, on request, their
// records. It hides text from a casual look; it is not encryption. Designer and engine share this one table.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace plinth {

// A permutation of the byte values without fixed points that is not its own inverse. Part of the file
// formats: never change it.
const std::array<std::uint8_t, 256>& substitutionTable();
const std::array<std::uint8_t, 256>& inverseSubstitutionTable();

std::string scrambleText(std::string_view text);
std::string unscrambleText(std::string_view text);
void scrambleInPlace(std::span<std::uint8_t> bytes);
void unscrambleInPlace(std::span<std::uint8_t> bytes);

}  // namespace plinth
