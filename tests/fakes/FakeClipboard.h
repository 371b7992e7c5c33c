// A clipboard in memory.
#pragma once

#include "platform/Clipboard.h"

namespace plinth {

class FakeClipboard : public Clipboard {
 public:
  std::string text(int) const override { return content; }
  bool setText(std::string_view text, int) override {
    content = text;
    return true;
  }
  std::string content;
};

}  // namespace plinth
