// The system's converter for double-byte code pages (Japanese, Chinese, Korean), for programs to install at
// start.
#pragma once

namespace plinth {

// Gives basic/CodePage.h the converter of this system: Windows' own, the C library's elsewhere. Call it once,
// before any text of pages 932, 936, 949 or 950 is converted; calling it again is harmless.
void installSystemCodec();

}  // namespace plinth
