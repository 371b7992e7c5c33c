// Opening and running on a desktop that follows freedesktop.org; command lines go to the shell of the system.
#include <spawn.h>
#include <sys/wait.h>

#include <vector>

#include "platform/Shell.h"
#include "platform/posix/Posix.h"

extern char** environ;

namespace plinth {
namespace {

// Runs a program found along PATH and waits; its exit code, -1 when it could not be started or a signal ended
// it.
int spawnAndWait(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  pid_t child = 0;
  if (::posix_spawnp(&child, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0) return -1;
  int status = 0;
  if (retried([&] { return ::waitpid(child, &status, 0); }) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class PosixShell : public Shell {
 public:
  bool open(const std::string& target, const std::string& arguments = "") override {
    // xdg-open hands over and returns; it takes no arguments for the document's program.
    if (arguments.empty()) return spawnAndWait({"xdg-open", target}) == 0;
    return spawnAndWait({"/bin/sh", "-c", "exec \"$0\" " + arguments + " &", target}) == 0;
  }
  int runAndWait(const std::string& commandLine) override {
    const int code = spawnAndWait({"/bin/sh", "-c", commandLine});
    return code == 127 ? -1 : code;  // the shell's word for "not found"
  }
};

}  // namespace

Shell& systemShell() {
  static PosixShell shell;
  return shell;
}

}  // namespace plinth
