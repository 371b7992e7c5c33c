// Messages and progress as lines of a terminal.
#include "programs/plinth/ToolMessages.h"

#include <algorithm>
#include <string>

#include "basic/CodePage.h"
#include "basic/Text.h"

namespace plinth {

void ToolMessages::show(std::string_view text, MessageIcon) {
  ++shown_;
  err_ << "plinth: " << oneLine(toUtf8(text, codePage_)) << "\n";
}

bool ToolMessages::ask(std::string_view, MessageIcon) { return answer_; }

void ToolProgress::title(std::string_view text) {
  if (visible_ && text.empty() && marks_ >= 0) err_ << "\r" << std::string(44, ' ') << "\r" << std::flush;
  marks_ = -1;
}

bool ToolProgress::step(std::int64_t done, std::int64_t total) {
  const int marks = total > 0 ? static_cast<int>(std::clamp<std::int64_t>(done * 40 / total, 0, 40)) : 0;
  if (visible_ && marks != marks_) {
    marks_ = marks;
    err_ << "\r[" << std::string(static_cast<std::size_t>(marks), '#')
         << std::string(static_cast<std::size_t>(40 - marks), ' ') << "]" << std::flush;
  }
  return true;
}

}  // namespace plinth
