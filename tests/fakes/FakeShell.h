// A shell that starts nothing: it writes down what it was asked to open and run.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Shell.h"

namespace plinth {

class FakeShell : public Shell {
 public:
  struct Opened {
    std::string target, arguments;
    bool operator==(const Opened&) const = default;
  };

  bool open(const std::string& target, const std::string& arguments = "") override {
    opened.push_back({target, arguments});
    return canOpen;
  }
  int runAndWait(const std::string& commandLine) override {
    commands.push_back(commandLine);
    return onRun ? onRun(commandLine) : exitCode;
  }

  std::vector<Opened> opened;
  std::vector<std::string> commands;
  bool canOpen = true;
  int exitCode = 0;
  std::function<int(const std::string&)> onRun;  // stands for the program that runs
};

}  // namespace plinth
