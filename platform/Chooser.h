// File choosers behind an interface.
#pragma once

#include <optional>
#include <string>

namespace plinth {

struct ChooserRequest {
  bool save = false;
  std::string title, button;  // 8-bit text
  std::string pattern;        // "*.qvf;*.mrf"
  std::string initialName, initialFolder;
};

class Chooser {
 public:
  virtual ~Chooser() = default;
  // The full path that the person chose; nullopt when cancelled. A save chooser does not ask
  // about overwriting.
  virtual std::optional<std::string> choose(const ChooserRequest& request) = 0;
};

}  // namespace plinth
