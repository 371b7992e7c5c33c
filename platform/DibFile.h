// Pictures of the clipboard come without the header that makes a file of them.
#pragma once

#include <cstdint>
#include <span>

#include "basic/Slots.h"

namespace plinth {

// The bytes of a BMP file for a packed device-independent bitmap (header, masks, palette, pixels); empty when
// the header does not add up.
Bytes bitmapFileOf(std::span<const std::uint8_t> bitmap);

}  // namespace plinth
