// Images of records made smaller, so that photographs do not fill the disk.
#pragma once

#include "basic/Geometry.h"
#include "basic/Slots.h"
#include "platform/Canvas.h"

namespace plinth {

// The bytes of `image`, decoded from `bytes`, in the size of a box (as reducedSize): JPEG stays JPEG, all
// else becomes PNG. The bytes as they were when the image fits or cannot be encoded.
Bytes reducedPicture(const Bytes& bytes, const Image& image, SizePx box, bool keepRatio);

// The bytes as they are kept with a record: bitmaps, which the clipboard brings, become PNG.
Bytes compactPicture(Bytes bytes, ImageDecoder& decoder);

}  // namespace plinth
