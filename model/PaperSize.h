// Page sizes by the number of their menu entry.
#pragma once

#include <optional>

namespace plinth {

struct PaperSize {
  float width = 0, height = 0;
};  // twips, whole pixels

// Codes 0 to 17; nullopt for any other (22 is the user's own size). landscape exchanges width and height.
std::optional<PaperSize> paperSize(int code, bool landscape);

}  // namespace plinth
