// A clipboard in memory.
#pragma once

#include "platform/Clipboard.h"

namespace plinth {

class FakeClipboard : public Clipboard {
 public:
  std::string text(int) const override { return content; }
  bool setText(std::string_view text, int) override {
    if (!held) content = text;
    return !held;
  }
  std::string content;
  bool held = false;  // by another program
};

}  // namespace plinth
