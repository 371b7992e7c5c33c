// The file Plinth.ini: five recent projects, newest first, and the language's name, in records of 128 bytes.
#pragma once

#include <array>
#include <span>
#include <string>

#include "basic/Slots.h"

namespace plinth {

inline constexpr int kRecentFiles = 5;

struct RecentFiles {
  std::array<std::string, kRecentFiles> paths;  // "" for none
  std::string language;                         // "" when none was chosen yet

  // The path becomes the first and the others move down, unless it is in the list already (without regard to
  // case). True when the list changed.
  bool add(const std::string& path);
};

// Records: a signed 16-bit length, then the text; at most 126 bytes. Missing or damaged records read as
// empty.
RecentFiles readRecentFiles(std::span<const std::uint8_t> bytes);
// Six records; a path that does not fit is left out, since a cut path would open nothing.
Bytes writeRecentFiles(const RecentFiles& recent);

}  // namespace plinth
