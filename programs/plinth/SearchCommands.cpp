// Results are printed row by row: a search may find a million of them.
#include "programs/plinth/SearchCommands.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/Json.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "engine/search/Searches.h"
#include "engine/search/SortRecords.h"

namespace plinth {
namespace {

// The tool prints outcomes itself; a box that tells why nothing was run is kept, all others are messages.
class AnswerBox : public Messages {
 public:
  explicit AnswerBox(Messages& others) : others_(others) {}
  void show(std::string_view text, MessageIcon icon) override {
    if (icon == MessageIcon::information)
      answer_ = text;
    else
      others_.show(text, icon);
  }
  bool ask(std::string_view text, MessageIcon icon) override { return others_.ask(text, icon); }
  const std::string& answer() const { return answer_; }

 private:
  Messages& others_;
  std::string answer_;
};

// The bar of a search, as a window of results would count along.
class SearchBar : public SearchView {
 public:
  explicit SearchBar(Progress& progress) : progress_(progress) {}
  bool resultRunning(SearchResult& result) override { return progress_.step(result.looked, result.toLook); }
  void resultFinished(SearchResult&) override { progress_.title(""); }

 private:
  Progress& progress_;
};

int codePageOf(const SearchTool& tool) { return tool.session.application().codePage; }

int fail(const SearchTool& tool, const std::string& utf8) {
  tool.machine.err << "plinth: " << utf8 << "\n";
  return kFailed;
}

// The person turns to the box: searches, orders and indexes work on it. False for a box that nobody can turn
// to.
bool focus(SearchTool& tool) {
  const int index = tool.box->index;
  switch (tool.box->kind) {
    case BoxKind::field:
      tool.session.fieldGotFocus(index);
      return tool.session.focus() == FocusObject{FocusKind::field, index};
    case BoxKind::combo:
      tool.session.comboGotFocus(index);
      return tool.session.focus() == FocusObject{FocusKind::combo, index};
    case BoxKind::check:
      tool.session.checkGotFocus(index);
      return tool.session.focus() == FocusObject{FocusKind::check, index};
    case BoxKind::memo:
      tool.session.memoGotFocus(index);
      return tool.session.focus() == FocusObject{FocusKind::memo, index};
    case BoxKind::picture:
      break;
  }
  return false;
}

std::string boxName(const SearchTool& tool) {
  return tool.box->label.empty() ? tool.box->reference : toUtf8(tool.box->label, codePageOf(tool));
}

void printRow(const SearchTool& tool, std::int32_t record, const std::vector<std::string>& cells) {
  std::ostream& out = tool.machine.out;
  if (!tool.options.json) {
    out << record;
    for (const std::string& cell : cells) out << "\t" << oneLine(toUtf8(cell, codePageOf(tool)));
    out << "\n";
    return;
  }
  JsonWriter json;
  json.beginObject().key("record").whole(record).key("cells").beginArray();
  for (const std::string& cell : cells) json.text(toUtf8(cell, codePageOf(tool)));
  out << json.endArray().endObject().str();
}

int printRows(const SearchTool& tool, const Searches& searches, const SearchResult& result) {
  std::ostream& out = tool.machine.out;
  const bool json = tool.options.json;
  ResultRows rows = searches.rowsOf(result);
  if (json) out << "{\"hits\": " << result.count << ", \"rows\": [";
  for (std::size_t i = 0; i < result.hits.size() && out; ++i) {
    if (json && i > 0) out << ", ";
    printRow(tool, result.hits[i], rows.cells(result.hits[i]));
  }
  if (json) out << "]}\n";
  return out ? kDone : kFailed;
}

void printTotals(const SearchTool& tool, const SearchResult& result) {
  if (!tool.options.json) {
    tool.machine.out << toUtf8(result.status, codePageOf(tool)) << "\n";
    return;
  }
  JsonWriter json;
  json.beginObject();
  if (result.verb == QueryVerb::sum) {
    json.key("total").real(result.total);
    if (result.total != 0) json.key("average").real(result.average);
  } else {
    json.key("hits").whole(result.count);
  }
  tool.machine.out << json.endObject().str() << "\n";
}

}  // namespace

bool queryWantsBox(std::string_view line) {
  const std::string text = trim(line);
  return queryVerb(text) == QueryVerb::plain && (text.empty() || text[0] != '!');
}

int runQueryLine(SearchTool& tool) {
  const int before = tool.messages.shown();
  if (tool.box && !focus(tool)) return fail(tool, boxName(tool) + " cannot be searched");
  ToolProgress progress(tool.machine.err, tool.machine.progressBar);
  AnswerBox box(tool.messages);
  SearchBar bar(progress);
  Searches searches({tool.session, tool.machine.sharedFiles, box, progress});
  searches.setView(&bar);
  searches.matchCase = tool.options.matchCase;
  searches.upward = searches.upward || tool.options.upward;
  const SearchResult* result = searches.search(fromUtf8(tool.options.line, codePageOf(tool)));
  if (!result) {
    if (tool.messages.shown() > before) return kFailed;
    const std::string why = oneLine(toUtf8(box.answer(), codePageOf(tool)));
    return fail(tool, why.empty() ? "the line cannot be searched for here" : why);
  }
  int code = kDone;
  if (result->lists())
    code = printRows(tool, searches, *result);
  else
    printTotals(tool, *result);
  // A record that could not be read or changed has been told of; what was found or done still counts.
  return tool.messages.shown() > before ? kFailed : code;
}

int printOrder(SearchTool& tool) {
  RecordSession& session = tool.session;
  std::optional<RecordKey> key;
  if (focus(tool)) key = keyOf(session.application(), session.store()->layout(), session.focus());
  if (!key) return fail(tool, "records cannot be sorted by " + boxName(tool));
  ToolProgress progress(tool.machine.err, tool.machine.progressBar);
  bool allRead = true;
  auto sorted = sortRecords(*key, {*session.store(), session.application(), tool.machine.sharedFiles,
                                   session.dataFile(), session.locale(), progress, [&](std::int32_t record) {
                                     allRead = false;
                                     tool.messages.show(
                                         runMessage(session.application(), 9, std::to_string(record)),
                                         MessageIcon::warning);
                                   }});
  progress.title("");
  if (!sorted) return fail(tool, toUtf8(sorted.error().text, codePageOf(tool)));
  std::vector<std::int32_t>& order = sorted->order;
  if (tool.options.descending) std::reverse(order.begin(), order.end());
  std::ostream& out = tool.machine.out;
  const char* between = "";
  if (tool.options.json) out << "[";
  for (const std::int32_t record : order) {
    out << between << record;
    between = tool.options.json ? ", " : "\n";
  }
  out << (tool.options.json ? "]\n" : order.empty() ? "" : "\n");
  return out && allRead ? kDone : kFailed;
}

int indexBox(SearchTool& tool) {
  const int before = tool.messages.shown();
  ToolProgress progress(tool.machine.err, tool.machine.progressBar);
  Searches searches({tool.session, tool.machine.sharedFiles, tool.messages, progress});
  if (!focus(tool) || !searches.mayIndex()) return fail(tool, boxName(tool) + " cannot be indexed");
  const bool built = searches.buildIndexes();
  progress.title("");
  return built && tool.messages.shown() == before ? kDone : kFailed;
}

int printUsers(SearchTool& tool) {
  if (!tool.session.mayEditUsers()) return fail(tool, "the users are shown to the main user only");
  const UserTable& users = tool.session.start().users;
  JsonWriter json;
  json.beginArray();
  for (std::size_t i = 0; i < users.names.size(); ++i) {
    if (users.names[i].empty() && users.passwords[i].empty()) continue;
    const std::string name = toUtf8(users.names[i], codePageOf(tool));
    const bool readOnly = users.readOnly[i] != 0;
    json.beginObject().key("index").whole(static_cast<std::int64_t>(i)).key("name").text(name);
    json.key("readOnly").boolean(readOnly).endObject();
    if (!tool.options.json) {
      tool.machine.out << i << "\t" << oneLine(name) << "\t" << (readOnly ? "read-only" : "") << "\n";
    }
  }
  if (tool.options.json) tool.machine.out << json.endArray().str() << "\n";
  return kDone;
}

int findButton(const Application& application, std::string_view numberOrCaption) {
  const bool number = !numberOrCaption.empty() && numberOrCaption.size() <= 4 &&
                      numberOrCaption.find_first_not_of("0123456789") == std::string_view::npos;
  const std::string wanted = lowerCase(trim(numberOrCaption), application.codePage);
  for (int n = 0; n <= application.buttonCount(); ++n) {
    if (!Application::live(application.button(n).page)) continue;
    std::string caption = application.button(n).caption;
    std::erase(caption, '&');  // marks the access key
    if (lowerCase(trim(caption), application.codePage) == wanted) return n;
  }
  const int n = number ? static_cast<int>(val(numberOrCaption)) : -1;
  return n >= 0 && n <= application.buttonCount() && Application::live(application.button(n).page) ? n : -1;
}

void pressButton(SearchTool& tool, int button) {
  ToolProgress progress(tool.machine.err, tool.machine.progressBar);
  Searches searches({tool.session, tool.machine.sharedFiles, tool.messages, progress});
  SearchBar bar(progress);
  searches.setView(&bar);
  tool.session.setQueries(&searches);
  tool.session.commandClick(button);
  tool.session.setQueries(nullptr);
  progress.title("");
}

}  // namespace plinth
