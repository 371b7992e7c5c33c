// The console tool: machine and streams of the system, wired to the commands.
#include <iostream>

#include "platform/SystemCodec.h"
#include "platform/SystemLocale.h"
#include "programs/plinth/Arguments.h"
#include "programs/plinth/Stub.h"
#include "programs/plinth/Tool.h"

int main(int argc, char** argv) {
  using namespace plinth;
  std::ios::sync_with_stdio(false);
  prepareConsole();
  installSystemCodec();
  const SystemClock clock;
  ToolMachine machine{std::cout,      std::cerr,     errorIsTerminal(), systemFiles(),   systemSharedFiles(),
                      clock,          systemLocale(), embeddedStub(),   embeddedIcon(),  embeddedEnglish(),
                      programFolder(), systemPath,    pathUtf8};
  const int code = runTool(utf8Arguments(argc, argv), machine);
  std::cout.flush();
  return code != kDone || std::cout ? code : kFailed;
}
