// The tool's commands over injected machine and streams, so that tests run them in one process.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "basic/Locale.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/SharedFile.h"
#include "programs/plinth/Options.h"

namespace plinth {

struct ToolMachine {
  std::ostream& out;  // UTF-8
  std::ostream& err;
  bool progressBar = false;  // err is a terminal
  Files& files;
  SharedFiles& sharedFiles;
  const Clock& clock;
  Locale locale;
  std::span<const std::uint8_t> stub, defaultIcon, englishTexts;
  std::string programFolder;  // of the tool, with trailing separator: Languages, Images
  // UTF-8 to the form of path that `files` takes, and back.
  std::function<std::string(std::string_view)> systemPath, pathUtf8;
};

// Exit codes.
inline constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

int runTool(const std::vector<std::string>& arguments, ToolMachine& machine);

int runProjectCommand(const ToolOptions& options, ToolMachine& machine);
int runRecordCommand(const ToolOptions& options, ToolMachine& machine);

}  // namespace plinth
