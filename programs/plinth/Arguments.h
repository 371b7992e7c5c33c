// The command line and paths of the system, as UTF-8 and back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plinth {

// Arguments without the program's name.
std::vector<std::string> utf8Arguments(int argc, char** argv);
// UTF-8 to the form of path that the system's file functions take here, and back.
std::string systemPath(std::string_view utf8);
std::string pathUtf8(std::string_view path);
// Folder of the running program with its trailing separator; "" when the system does not tell.
std::string programFolder();
// Makes standard output UTF-8 where that is not so by itself; whether standard error is a terminal.
void prepareConsole();
bool errorIsTerminal();

}  // namespace plinth
