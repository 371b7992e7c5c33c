// The tool's command line as plain values, parsed apart from any effect.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plinth {

enum class Command { none, show, check, convert, create, newProject, records };
enum class RecordAction { list, get, add, set, erase, count, query, index, sort, script, users };

// A box and its new text, both UTF-8: LABEL=VALUE.
struct Assignment {
  std::string label, value;
};

// Everything a person can say to the tool. Texts are UTF-8.
struct ToolOptions {
  Command command = Command::none;
  bool help = false, version = false, json = false;
  std::string file;      // FILE, IN or APP
  std::string outFile;   // OUT of convert
  std::string output, icon, name;      // of create
  std::string example;                 // of new: "" or "contacts"
  RecordAction action = RecordAction::count;
  std::string data;                    // of records
  std::string user, password;          // of records, where the application asks
  std::int32_t record = 0;             // of get, set, erase, script; the first of list; 0 for 1
  std::int32_t count = -1;             // of list: -1 all
  std::vector<Assignment> assignments;
  std::string line;                    // of query
  std::string box;                     // FIELD of index and sort, --field of query
  std::string button;                  // of script
  bool matchCase = false, upward = false;  // of query
  bool descending = false;             // of sort
};

struct ParsedOptions {
  ToolOptions options;
  std::string problem;  // "" or what is wrong with the words, for a person
};

// arguments: without the program's name, UTF-8.
ParsedOptions parseOptions(const std::vector<std::string>& arguments);

// The help page of a command; of the whole tool for Command::none.
std::string helpText(Command command);

}  // namespace plinth
