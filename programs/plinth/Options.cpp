// Commands and their switches are rows, so that parser and help cannot tell different stories.
#include "programs/plinth/Options.h"

#include <charconv>
#include <optional>

namespace plinth {
namespace {

struct CommandRow {
  const char* word;
  Command command;
  const char* help;  // its second line, a sentence, also stands in the list of commands
};

constexpr CommandRow kCommands[] = {
    {"show", Command::show,
     "usage: plinth show FILE [--json]\n"
     "Lists the pages, objects and reports of a project. --json prints every element of the file.\n"},
    {"check", Command::check,
     "usage: plinth check FILE [--json]\n"
     "Loads a project and lists what is damaged, missing or refers to nothing. Exit 1: damaged.\n"},
    {"convert", Command::convert,
     "usage: plinth convert IN OUT\n"
     "Reads a project of any version and writes it in the current one.\n"},
    {"new", Command::newProject,
     "usage: plinth new FILE [--example contacts]\n"
     "Writes an empty project, or an address book with orders to look at.\n"
     "An existing file stays untouched.\n"},
    {"create", Command::create,
     "usage: plinth create FILE [--output DIR] [--icon ICO] [--name NAME]\n"
     "Creates the application of a project in a folder of its own below DIR or the current folder.\n"
     "Prints the path of the finished .exe.\n"},
    {"records", Command::records,
     "usage: plinth records APP.exe ACTION [--data FILE] [--json] [--user NAME] [--password WORD]\n"
     "Works on the records of a finished application.\n"
     "Actions:\n"
     "  list [FIRST [COUNT]]      prints records, one a line with --json\n"
     "  get N                     prints record N\n"
     "  add [LABEL=VALUE ...]     adds a record with defaults and these values, prints its number\n"
     "  set N [LABEL=VALUE ...]   types values into record N\n"
     "  erase N                   empties record N; its number stays\n"
     "  count                     prints the number of records\n"
     "  query LINE [--field FIELD] [--case] [--up]\n"
     "                            runs a line of the search window: select, sum, count, replace, or a text\n"
     "                            to search for in FIELD, or with \"!\" in front in whole records\n"
     "  index FIELD               builds the index files of a box\n"
     "  sort FIELD [--descending] prints the record numbers in the order of a box\n"
     "  script BUTTON [N]         presses a button, by number or caption, on record N\n"
     "  users list                prints the users of an application, for its main user\n"
     "Values are taken as if typed: with the boxes' formats, lengths and calculated fields. A label may\n"
     "also be F12, C3, K0, M2 (field, combo, check box, memo). --data names the data file; else the one\n"
     "that the application itself would open.\n"},
};

struct ActionRow {
  const char* word;
  RecordAction action;
};
constexpr ActionRow kActions[] = {{"list", RecordAction::list},   {"get", RecordAction::get},
                                  {"add", RecordAction::add},     {"set", RecordAction::set},
                                  {"erase", RecordAction::erase}, {"count", RecordAction::count},
                                  {"query", RecordAction::query}, {"index", RecordAction::index},
                                  {"sort", RecordAction::sort},   {"script", RecordAction::script},
                                  {"users", RecordAction::users}};

struct SwitchRow {
  const char* word;
  Command command;
  std::string ToolOptions::*value;
  std::optional<RecordAction> action = {};  // none: goes with all of them
};
struct FlagRow {
  const char* word;
  RecordAction action;
  bool ToolOptions::*value;
};
constexpr FlagRow kFlags[] = {{"--case", RecordAction::query, &ToolOptions::matchCase},
                              {"--up", RecordAction::query, &ToolOptions::upward},
                              {"--descending", RecordAction::sort, &ToolOptions::descending}};
constexpr SwitchRow kSwitches[] = {{"--output", Command::create, &ToolOptions::output},
                                   {"--icon", Command::create, &ToolOptions::icon},
                                   {"--name", Command::create, &ToolOptions::name},
                                   {"--example", Command::newProject, &ToolOptions::example},
                                   {"--data", Command::records, &ToolOptions::data},
                                   {"--user", Command::records, &ToolOptions::user},
                                   {"--password", Command::records, &ToolOptions::password},
                                   {"--field", Command::records, &ToolOptions::box, RecordAction::query}};

bool takesJson(Command command) {
  return command == Command::show || command == Command::check || command == Command::records;
}

std::optional<std::int32_t> wholeNumber(const std::string& text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < 1) return std::nullopt;
  return value;
}

class Parser {
 public:
  explicit Parser(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  ParsedOptions run() {
    std::size_t at = 0;
    for (; at < arguments_.size() && out_.problem.empty(); ++at) {
      const std::string& word = arguments_[at];
      if (plain_ || word.size() < 2 || word[0] != '-' || (word[1] >= '0' && word[1] <= '9')) {
        // No option begins with a digit: a search for a number below zero does.
        words_.push_back(word);
      } else if (word == "--") {
        plain_ = true;  // what follows may begin with "-": values, names
      } else {
        readSwitch(word, at);
      }
    }
    if (out_.problem.empty()) readWords();
    return std::move(out_);
  }

 private:
  void readSwitch(const std::string& word, std::size_t& at) {
    ToolOptions& o = out_.options;
    if (word == "--help" || word == "-h") {
      o.help = true;
    } else if (word == "--version") {
      o.version = true;
    } else if (word == "--json") {
      o.json = true;
    } else if (const SwitchRow* row = switchOf(word)) {
      const std::size_t equals = word.find('=');
      if (equals != std::string::npos) {
        o.*row->value = word.substr(equals + 1);
      } else if (at + 1 < arguments_.size()) {
        o.*row->value = arguments_[++at];
      } else {
        out_.problem = word + " needs a value";
        return;
      }
      used_.push_back(row);
    } else if (const FlagRow* flag = flagOf(word)) {
      o.*flag->value = true;
      flags_.push_back(flag);
    } else {
      out_.problem = "unknown option " + word;
    }
  }

  static const SwitchRow* switchOf(const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    for (const SwitchRow& row : kSwitches) {
      if (name == row.word) return &row;
    }
    return nullptr;
  }

  static const FlagRow* flagOf(const std::string& word) {
    for (const FlagRow& row : kFlags) {
      if (word == row.word) return &row;
    }
    return nullptr;
  }

  void readWords() {
    ToolOptions& o = out_.options;
    if (words_.empty()) {
      if (!o.help && !o.version) out_.problem = "no command given";
      return;
    }
    for (const CommandRow& row : kCommands) {
      if (words_[0] == row.word) o.command = row.command;
    }
    if (o.command == Command::none) {
      out_.problem = "unknown command " + words_[0];
      return;
    }
    if (o.help) return;
    for (const SwitchRow* row : used_) {
      if (row->command != o.command) out_.problem = std::string(row->word) + " does not go with " + words_[0];
    }
    if (!flags_.empty() && o.command != Command::records)
      out_.problem = std::string(flags_[0]->word) + " does not go with " + words_[0];
    if (o.json && !takesJson(o.command)) out_.problem = "--json does not go with " + words_[0];
    if (out_.problem.empty()) readOperands();
  }

  void readOperands() {
    ToolOptions& o = out_.options;
    if (words_.size() < 2) {
      out_.problem = words_[0] + " needs a file";
      return;
    }
    o.file = words_[1];
    if (o.command == Command::records) return readRecordAction();
    const std::size_t wanted = o.command == Command::convert ? 3 : 2;
    if (words_.size() != wanted) {
      out_.problem = words_.size() < wanted ? words_[0] + " needs a file to write" : "too many words";
      return;
    }
    if (wanted == 3) o.outFile = words_[2];
    if (!o.example.empty() && o.example != "contacts") out_.problem = "unknown example " + o.example;
  }

  void readRecordAction() {
    ToolOptions& o = out_.options;
    bool known = false;
    for (const ActionRow& row : kActions) {
      if (words_.size() > 2 && words_[2] == row.word) o.action = row.action, known = true;
    }
    if (!known) {
      out_.problem = words_.size() > 2 ? "unknown action " + words_[2] : "records needs an action";
      return;
    }
    for (const SwitchRow* row : used_) {
      if (row->action && *row->action != o.action) return refuse(row->word);
    }
    for (const FlagRow* flag : flags_) {
      if (flag->action != o.action) return refuse(flag->word);
    }
    std::size_t at = 3;
    if (!readSearchWord(at)) return;
    const bool one =
        o.action == RecordAction::get || o.action == RecordAction::set || o.action == RecordAction::erase;
    if (one || (o.action == RecordAction::list && at < words_.size())) {
      if (!readNumber(at++, o.record)) return;
    }
    if (o.action == RecordAction::list && at < words_.size() && !readNumber(at++, o.count)) return;
    const bool assigns = o.action == RecordAction::add || o.action == RecordAction::set;
    for (; at < words_.size(); ++at) {
      const std::size_t equals = words_[at].find('=');
      if (!assigns || equals == std::string::npos || equals == 0) {
        out_.problem = assigns ? "expected LABEL=VALUE, not " + words_[at] : "too many words";
        return;
      }
      o.assignments.push_back({words_[at].substr(0, equals), words_[at].substr(equals + 1)});
    }
  }

  void refuse(const char* word) { out_.problem = std::string(word) + " does not go with " + words_[2]; }

  // The word that query, index, sort, script and users must have; other actions have none. False when it is
  // missing.
  bool readSearchWord(std::size_t& at) {
    struct WordRow {
      RecordAction action;
      std::string ToolOptions::*value;
      const char* missing;
    };
    static constexpr WordRow kWords[] = {
        {RecordAction::query, &ToolOptions::line, "query needs a line"},
        {RecordAction::index, &ToolOptions::box, "index needs a box"},
        {RecordAction::sort, &ToolOptions::box, "sort needs a box"},
        {RecordAction::script, &ToolOptions::button, "script needs a button"},
        {RecordAction::users, nullptr, "users needs the word list"},
    };
    ToolOptions& o = out_.options;
    for (const WordRow& row : kWords) {
      if (row.action != o.action) continue;
      const bool there = at < words_.size() && !words_[at].empty() && (row.value || words_[at] == "list");
      if (!there) return out_.problem = row.missing, false;
      if (row.value) o.*row.value = words_[at];
      ++at;
    }
    return o.action != RecordAction::script || at >= words_.size() || readNumber(at++, o.record);
  }

  bool readNumber(std::size_t at, std::int32_t& value) {
    const std::optional<std::int32_t> number = at < words_.size() ? wholeNumber(words_[at]) : std::nullopt;
    if (number)
      value = *number;
    else
      out_.problem =
          at < words_.size() ? words_[at] + " is not a record number" : "a record number is missing";
    return number.has_value();
  }

  const std::vector<std::string>& arguments_;
  std::vector<std::string> words_;
  std::vector<const SwitchRow*> used_;
  std::vector<const FlagRow*> flags_;
  bool plain_ = false;
  ParsedOptions out_;
};

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) { return Parser(arguments).run(); }

std::string helpText(Command command) {
  for (const CommandRow& row : kCommands) {
    if (row.command == command) return row.help;
  }
  std::string text =
      "plinth: projects and finished applications without windows\n\n"
      "usage: plinth COMMAND ... ; plinth COMMAND --help tells more\n";
  for (const CommandRow& row : kCommands) {
    const std::string help = row.help;
    const std::size_t line = help.find('\n') + 1;
    text += std::string("  ") + row.word + std::string(9 - std::string(row.word).size(), ' ') +
            help.substr(line, help.find('\n', line) - line) + "\n";
  }
  return text + "\nExit codes: 0 done, 1 failed, 2 wrong usage.\n";
}

}  // namespace plinth
