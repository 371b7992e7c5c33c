// The tool from words to files and exit codes, on a machine in memory with a stub of noise in the engine's
// place.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "programs/plinth/Tool.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/MemorySharedFiles.h"

namespace plinth {

class ToolTest : public ::testing::Test {
 protected:
  ToolTest() : shared(disk), files(disk) {
    for (std::size_t i = 0; i < 3000; ++i) stub.push_back(static_cast<std::uint8_t>(i * 7 + i / 256));
    icon.assign(766, 0x22);
  }

  // Runs the tool; its standard output. `code` gets the exit code.
  std::string run(std::vector<std::string> words) {
    std::ostringstream out, err;
    const auto same = [](std::string_view text) { return std::string(text); };
    ToolMachine machine{out,  err,  false, files,      shared, clock, englishLocale(),
                        stub, icon, {},    "/plinth/", same,   same};
    code = runTool(words, machine);
    errors = err.str();
    return out.str();
  }

  // The address book, created; its executable.
  std::string contacts() {
    run({"new", "/desk/Contacts.qvf", "--example", "contacts"});
    EXPECT_EQ(code, 0) << errors;
    std::string path = run({"create", "/desk/Contacts.qvf", "--output", "/out"});
    EXPECT_EQ(code, 0) << errors;
    if (!path.empty()) path.pop_back();
    return path;
  }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  MemorySharedFiles shared;
  MemoryFiles files;
  FakeClock clock;
  Bytes stub, icon;
  int code = -1;
  std::string errors;
};

}  // namespace plinth
