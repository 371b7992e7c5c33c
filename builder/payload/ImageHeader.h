// The few numbers in the header of a Windows program that a later signature changes. Applications take the
// bias of their texts from the image's bytes, so a reader of a signed one has to see them as they were.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "basic/Slots.h"

namespace plinth {

// 0-based offsets into the image; each place lies within it.
struct ImageHeader {
  std::size_t checkSum = 0;      // 4 bytes
  std::size_t certificates = 0;  // 8 bytes: offset and size of the certificate table; 0: the header has none
};

// nullopt for what is no Windows program, or a damaged one.
std::optional<ImageHeader> findImageHeader(std::span<const std::uint8_t> image);

// Offset of the certificate table that a signature put behind the file's content; nullopt when there is none
// or it does not lie within the file.
std::optional<std::size_t> certificateTable(std::span<const std::uint8_t> image, const ImageHeader& header);

// Sets what a signature changes to zero, which is what writeApplication leaves there.
void clearSignedFields(std::span<std::uint8_t> image, const ImageHeader& header);

}  // namespace plinth
