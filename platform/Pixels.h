// A picture as plain pixels, and reducing it without losing thin lines: pure arithmetic, the same on every
// system.
#pragma once

#include <cstdint>
#include <vector>

#include "basic/Geometry.h"

namespace plinth {

// Rows from the top; each pixel is alpha, red, green, blue from the high byte down, the colours already
// multiplied by alpha. REQUIRES argb.size() == width * height.
struct Pixels {
  SizePx size;
  std::vector<std::uint32_t> argb;
};

// Multiplies colours by alpha, for decoders that tell them apart. True when any pixel is not opaque.
bool premultiply(Pixels& pixels);

// The picture in fewer pixels: each is the mean of the area it covers. Neither side of `size` may be above
// the picture's own or below 1; one that is gets the nearest allowed length. Cost: two passes over the
// source.
Pixels reduced(const Pixels& source, SizePx size);

}  // namespace plinth
