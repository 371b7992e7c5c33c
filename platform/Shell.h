// Opening documents, addresses and programs with what the person's system associates with them.
#pragma once

#include <string>

namespace plinth {

class Shell {
 public:
  virtual ~Shell() = default;
  // The "open" verb on a document, address or program, with an argument line. False when nothing
  // could be started.
  virtual bool open(const std::string& target, const std::string& arguments = "") = 0;
  // Runs a command line without a window and waits for its end; its exit code, -1 when it could
  // not be started.
  virtual int runAndWait(const std::string& commandLine) = 0;
};

// The person's system.
Shell& systemShell();

}  // namespace plinth
