// Here everything is UTF-8 already.
#include "programs/plinth/Arguments.h"

#include <unistd.h>

#include <climits>
#include <csignal>

namespace plinth {

std::vector<std::string> utf8Arguments(int argc, char** argv) { return {argv + (argc > 0), argv + argc}; }
std::string systemPath(std::string_view utf8) { return std::string(utf8); }
std::string pathUtf8(std::string_view path) { return std::string(path); }

std::string programFolder() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  const std::string text(path, length > 0 ? static_cast<std::size_t>(length) : 0);
  return text.substr(0, text.rfind('/') + 1);
}

// A reader of our output that goes away ("| head") ends the listing, not the write of a record.
void prepareConsole() { std::signal(SIGPIPE, SIG_IGN); }
bool errorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace plinth
