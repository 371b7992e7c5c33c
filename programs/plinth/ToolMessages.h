// What a window would show in boxes and bars, on the tool's error stream.
#pragma once

#include <ostream>
#include <string_view>

#include "platform/Messages.h"
#include "platform/Progress.h"

namespace plinth {

// Prints each message as a line of UTF-8; questions are answered with a fixed answer and not printed.
class ToolMessages : public Messages {
 public:
  ToolMessages(std::ostream& err, int codePage, bool answer)
      : err_(err), codePage_(codePage), answer_(answer) {}
  void show(std::string_view text, MessageIcon icon) override;
  bool ask(std::string_view text, MessageIcon icon) override;
  // Messages shown so far.
  int shown() const { return shown_; }

 private:
  std::ostream& err_;
  int codePage_;
  bool answer_;
  int shown_ = 0;
};

// A bar of 40 marks; prints nothing where nobody looks.
class ToolProgress : public Progress {
 public:
  ToolProgress(std::ostream& err, bool visible) : err_(err), visible_(visible) {}
  void title(std::string_view text) override;
  bool step(std::int64_t done, std::int64_t total) override;

 private:
  std::ostream& err_;
  bool visible_;
  int marks_ = -1;
};

}  // namespace plinth
