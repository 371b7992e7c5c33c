// Marks a copy of the engine as the user's own program: its version texts and its icon are written over
// placeholders that the engine's resources hold for that purpose. Bytes in, bytes out.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "basic/Slots.h"
#include "model/ProjectDocument.h"

namespace plinth {

// Writes `value` as UTF-16LE over every place of `image` where the first 15 characters of `searchText` stand
// at every second byte, whatever is between them: cut to the length of searchText, filled with zeros. Texts
// are in `codePage`. Returns the 0-based offset of the last match, -1 for none.
std::int64_t ReplaceBin(Bytes& image, std::string_view searchText, std::string_view value,
                        int codePage = 1252);

// Copies the pixels of an ".ico" file (its bytes from offset 126 on) over every run of filler in the image,
// at most as many bytes as the run is long. Returns the number of runs written.
int stampIcon(Bytes& image, std::span<const std::uint8_t> iconBytes);

// Both, in order: icon, the five version texts (ProductName before LegalTrademarks, whose placeholder also
// occurs inside the former's), and the original file name when it fits. Places are looked for within the
// program's resources, or everywhere in an image that has none.
void stampStub(Bytes& stub, std::span<const std::uint8_t> iconBytes, const FileProperties& properties,
               std::string_view appName, int codePage = 1252);

// Offset of the pixels in a file with one 32x32 image of 16 colours.
inline constexpr std::size_t kIconPixels = 126;
inline constexpr std::uint8_t kIconFiller = 0x99;
// So many bytes of filler in a row are a place for pixels.
inline constexpr std::size_t kIconFillerRun = 11;

}  // namespace plinth
