// Message boxes that write down their texts and answer by script, so that a test sees what a person would
// have read.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/Messages.h"

namespace plinth {

class FakeMessages : public Messages {
 public:
  struct Shown {
    std::string text;
    MessageIcon icon;
    bool question;
  };

  void show(std::string_view text, MessageIcon icon = MessageIcon::information) override {
    shown.push_back({std::string(text), icon, false});
  }
  // The next scripted answer, or `otherwise` when the script has run out.
  bool ask(std::string_view text, MessageIcon icon = MessageIcon::question) override {
    shown.push_back({std::string(text), icon, true});
    if (answers.empty()) return otherwise;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }

  // The texts alone, in order.
  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const Shown& one : shown) all.push_back(one.text);
    return all;
  }

  std::vector<Shown> shown;
  std::deque<bool> answers;
  bool otherwise = false;
};

}  // namespace plinth
