// Pictures to bytes through the system's imaging component.
#pragma once

#include "basic/Slots.h"
#include "platform/Pixels.h"

namespace plinth {

enum class PictureFormat { png, jpeg };

// The bytes of a picture file for pixels with premultiplied alpha. PNG keeps their transparency, JPEG has
// them on white. Empty when the system cannot encode them.
Bytes encodePicture(const Pixels& pixels, PictureFormat format);

}  // namespace plinth
