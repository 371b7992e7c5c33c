// Progress that counts its steps and cancels where a test says so.
#pragma once

#include <string>
#include <vector>

#include "platform/Progress.h"

namespace plinth {

class FakeProgress : public Progress {
 public:
  void title(std::string_view text) override { titles.emplace_back(text); }
  void setCancellable(bool cancellable) override {
    if (!cancellable) uncancellable.push_back(titles.back());
  }
  bool step(std::int64_t done, std::int64_t total) override {
    ++steps;
    lastDone = done;
    lastTotal = total;
    return cancelAtStep == 0 || steps < cancelAtStep;
  }

  std::vector<std::string> titles;
  std::vector<std::string> uncancellable;  // the titles that the person could not cancel any more
  int steps = 0;
  int cancelAtStep = 0;  // the step that returns false, as do all after it; 0 never
  std::int64_t lastDone = 0, lastTotal = 0;
};

}  // namespace plinth
