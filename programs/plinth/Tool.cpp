// Words in, exit code out.
#include "programs/plinth/Tool.h"

#include <new>

namespace plinth {

int runTool(const std::vector<std::string>& arguments, ToolMachine& machine) {
  const ParsedOptions parsed = parseOptions(arguments);
  const ToolOptions& options = parsed.options;
  if (!parsed.problem.empty()) {
    machine.err << "plinth: " << parsed.problem << "\n" << helpText(options.command);
    return kWrongUsage;
  }
  if (options.help) {
    machine.out << helpText(options.command);
    return kDone;
  }
  if (options.version) {
    machine.out << "plinth 2.0\n";
    return kDone;
  }
  try {
    return options.command == Command::records ? runRecordCommand(options, machine)
                                               : runProjectCommand(options, machine);
  } catch (const std::bad_alloc&) {
    machine.err << "plinth: not enough memory\n";
    return kFailed;
  }
}

}  // namespace plinth
