// A file chooser that writes down its requests and answers by script; without a script the person cancels.
#pragma once

#include <deque>
#include <vector>

#include "platform/Chooser.h"

namespace plinth {

class FakeChooser : public Chooser {
 public:
  std::optional<std::string> choose(const ChooserRequest& request) override {
    requests.push_back(request);
    if (answers.empty()) return std::nullopt;
    std::optional<std::string> answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::vector<ChooserRequest> requests;
  std::deque<std::optional<std::string>> answers;
};

}  // namespace plinth
