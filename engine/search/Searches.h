// All searches of a running application: what the search window, the menus and button scripts ask for, run
// over the session's open data, and the results that windows show.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/QueryRunner.h"
#include "engine/RecordSession.h"
#include "engine/search/QueryLine.h"
#include "engine/search/ResultRows.h"
#include "engine/search/RecordKey.h"
#include "platform/Progress.h"
#include "platform/SharedFile.h"

namespace plinth {

// Most rows that a result window shows; more hits are kept and counted.
inline constexpr std::int32_t kMostRows = 32000;
// Rows that a window shows while the run goes on; the others come at its end.
inline constexpr std::int32_t kRowsDuringRun = 60;

// What a search found.
struct SearchResult {
  std::string line;  // as typed
  QueryVerb verb = QueryVerb::plain;
  std::vector<std::int32_t> hits;  // record numbers in the order of the run
  ShowColumns columns{};
  std::vector<RecordKey> keys;  // of a plain search: the objects searched
  bool matchCase = false;  // as the run took the line
  bool running = false, cancelled = false, usedIndex = false;
  std::int64_t count = 0;  // of hits, rows, replacements
  std::int64_t looked = 0, toLook = 0;  // while a run goes on: records looked at, and all to be looked at
  double total = 0, average = 0;
  std::string status;  // the line below the list
  bool lists() const { return verb == QueryVerb::plain || verb == QueryVerb::select; }
  // Rows that a window shows.
  std::int32_t rows() const {
    return static_cast<std::int32_t>(std::min<std::size_t>(hits.size(), kMostRows));
  }
};

// Windows of results; all calls come on the program's one thread.
class SearchView {
 public:
  virtual ~SearchView() = default;
  // A run whose hits are shown begins: a window for it opens (or, for a search within a result, is reused).
  virtual void resultOpened(SearchResult&) {}
  // During the run: rows or status changed; events run here. False stops the run.
  virtual bool resultRunning(SearchResult&) { return true; }
  virtual void resultFinished(SearchResult&) {}
};

struct SearchServices {
  RecordSession& session;
  SharedFiles& files;
  Messages& messages;
  Progress& progress;  // of sorts, indexes and commands without a list
};

class Searches : public QueryRunner {
 public:
  // Everything in `services` must outlive this.
  explicit Searches(const SearchServices& services);
  // Who shows results; nullptr: nobody. It must outlive this.
  void setView(SearchView* view) { view_ = view; }

  // How the search window stands: case counts; SearchDir 1, from the first record up.
  bool matchCase = false;
  bool upward = false;

  // Runs a line of the search window: a command, or a plain search of the object in focus. within: the result
  // whose records alone are looked at; it is replaced by what is found. Shows the boxes that go with the
  // command. The result belongs to this: until close(), or the next run when it has no list; nullptr when
  // nothing was run (a message was shown).
  SearchResult* search(std::string_view line, SearchResult* within = nullptr);
  // A result that nobody shows any more.
  void close(SearchResult& result);
  const std::vector<std::unique_ptr<SearchResult>>& results() const { return results_; }
  // Reads the rows of a result from the open data.
  ResultRows rowsOf(const SearchResult& result) const;
  // A row of a result was chosen: saves a changed record and shows the row's. False when it cannot be shown.
  bool show(std::int32_t record);

  // QueryRunner: a line of a script. No boxes are shown.
  void run(std::string_view line) override;
  SearchTotals totals() const override { return totals_; }

  // finden_Click: 1 record order again, 2 ascending, 3 descending by the object in focus. False: refused,
  // stopped, or failed with a message.
  bool sortBy(int index);
  // IndexFLD_Click for the object in focus.
  bool buildIndexes();
  // What the object in focus allows now.
  bool maySearch() const;
  bool maySort() const;
  bool mayIndex() const;
  // The object in focus is searched under this key; nullopt where it stores nothing.
  std::optional<RecordKey> focusedKey() const;
  RecordSession& session() const { return services_.session; }
  ShowColumns defaultColumns() const;

 private:
  SearchResult* start(std::string_view line, SearchResult* within, bool quiet);
  bool ready();
  bool mayRun(SearchResult& result);
  bool mayWrite();
  void runOver(SearchResult& result, const Query& query, const std::vector<std::int32_t>* within);
  // answers: a command tells its outcome in a box; sums and counts of nothing do not.
  void finish(SearchResult& result, bool answers);
  void unreadable(std::int32_t record);
  void say(std::string_view text, MessageIcon icon);
  void sayError(const Error& error);
  std::string statusOf(const SearchResult& result) const;
  std::string boxText(const SearchResult& result) const;
  const Application& application() const { return services_.session.application(); }

  class RunProgress;
  SearchServices services_;
  SearchView* view_ = nullptr;
  std::vector<std::unique_ptr<SearchResult>> results_;
  SearchTotals totals_;
  bool running_ = false;  // one at a time, also through the event pump
  bool quiet_ = false;    // QuietSearch: a script runs the line
  bool unreadableShown_ = false;
};

}  // namespace plinth
