// The data of the single-byte code pages; use CodePage.h to work with texts.
#pragma once

#include <array>
#include <cstdint>

namespace plinth {

// What a page says of the bytes 128 to 255; those below are ASCII in every page.
struct CodePageTable {
  int codePage;
  std::array<char16_t, 128> characters;
  std::array<std::uint8_t, 128> upper;
  std::array<std::uint8_t, 128> lower;
};

extern const std::array<CodePageTable, 10> kCodePageTables;

}  // namespace plinth
