// Progress and cancel of long work: the window pumps events in it, the tool draws a bar, tests
// count the steps.
#pragma once

#include <cstdint>
#include <string_view>

namespace plinth {

class Progress {
 public:
  virtual ~Progress() = default;
  // Begins work with a text above the bar ("" ends it and hides the bar).
  virtual void title(std::string_view text) = 0;
  // Whether the person may cancel from here on; work begins with yes.
  virtual void setCancellable(bool) {}
  // `done` of `total` steps; false when the person cancelled.
  virtual bool step(std::int64_t done, std::int64_t total) = 0;
};

class NoProgress : public Progress {
 public:
  void title(std::string_view) override {}
  bool step(std::int64_t, std::int64_t) override { return true; }
};

}  // namespace plinth
