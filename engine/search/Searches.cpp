// A run goes through one guard, so that the events that are handled in its middle cannot begin another one.
#include "engine/search/Searches.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/DisplayFormat.h"
#include "basic/Text.h"
#include "engine/search/IndexFiles.h"
#include "engine/search/PlainSearch.h"
#include "engine/search/QueryRun.h"
#include "engine/search/SortRecords.h"

namespace plinth {
namespace {

std::string counted(std::int64_t number, const Locale& locale) {
  return formatNumber(static_cast<double>(number), {.decimals = 0}, locale);
}

}  // namespace

// The steps of a run whose hits a window shows: the status line counts along.
class Searches::RunProgress : public Progress {
 public:
  RunProgress(Searches& searches, SearchResult& result) : searches_(searches), result_(result) {}
  void title(std::string_view) override {}
  bool step(std::int64_t done, std::int64_t total) override {
    result_.looked = done;
    result_.toLook = total;
    const Locale& locale = searches_.session().locale();
    result_.status = counted(done, locale) + " / " +
                     counted(static_cast<std::int64_t>(result_.hits.size()), locale) + " " +
                     runCaption(searches_.application(), 46, "searched");
    return !searches_.view_ || searches_.view_->resultRunning(result_);
  }

 private:
  Searches& searches_;
  SearchResult& result_;
};

Searches::Searches(const SearchServices& services)
    : upward(services.session.application().payload.application.resultOptions[3] != 0), services_(services) {}

ShowColumns Searches::defaultColumns() const { return application().payload.application.showColumns; }

std::optional<RecordKey> Searches::focusedKey() const {
  RecordStore* store = services_.session.store();
  if (!store) return std::nullopt;
  return keyOf(application(), store->layout(), services_.session.focus());
}

bool Searches::maySearch() const { return focusedKey() && services_.session.tools().find; }
bool Searches::maySort() const { return focusedKey() && services_.session.tools().sort; }
bool Searches::mayIndex() const {
  const std::optional<RecordKey> key = focusedKey();
  return key && services_.session.tools().index && canIndex(*key) && !services_.session.readOnly();
}

SearchResult* Searches::search(std::string_view line, SearchResult* within) {
  return start(line, within, false);
}

void Searches::run(std::string_view line) { start(line, nullptr, true); }

void Searches::say(std::string_view text, MessageIcon icon) {
  if (!quiet_) services_.messages.show(text, icon);
}

void Searches::sayError(const Error& error) {
  say(runMessage(application(), error.kind == ErrorKind::full ? 14 : 21,
                 fromUtf8(error.text, application().codePage)),
      MessageIcon::error);
}

// The records as they are now on disk, those of other users with them.
bool Searches::ready() {
  RecordSession& session = services_.session;
  if (!session.settle()) return false;
  const auto counted = session.store()->refreshCount();
  if (!counted) sayError(counted.error());
  return counted.ok();
}

SearchResult* Searches::start(std::string_view line, SearchResult* within, bool quiet) {
  const std::string text = trim(line);
  if (running_ || text.empty()) return nullptr;
  quiet_ = quiet;
  unreadableShown_ = false;
  // Outcomes that no window shows are kept until the next run.
  std::erase_if(results_, [](const auto& kept) { return !kept->lists(); });
  if (!ready()) return nullptr;
  RecordSession& session = services_.session;
  const Query query = parseQuery(text, {application(), session.store()->layout(), session.locale(), matchCase,
                                        session.now(), defaultColumns()});
  auto made = std::make_unique<SearchResult>();
  made->line = text;
  made->verb = query.verb;
  made->matchCase = matchCase;
  made->columns = query.verb == QueryVerb::select ? query.columns : defaultColumns();
  if (!mayRun(*made)) return nullptr;
  std::vector<std::int32_t> candidates;
  if (within) candidates = within->hits;
  SearchResult* result = within && made->lists() ? within : made.get();
  if (result == within)
    *within = std::move(*made);
  else
    results_.push_back(std::move(made));
  running_ = result->running = true;
  if (result->lists()) {
    session.leaveSortedView();
    if (view_) view_->resultOpened(*result);
  }
  runOver(*result, query, within ? &candidates : nullptr);
  running_ = result->running = false;
  const bool adds = query.verb == QueryVerb::sum || query.verb == QueryVerb::count;
  finish(*result, !(adds && query.conditions.empty()));
  return result;
}

// False after saying that this session only reads.
bool Searches::mayWrite() {
  if (!services_.session.readOnly()) return true;
  say(services_.session.readOnlyText(), MessageIcon::warning);
  return false;
}

// Finds the keys of a plain search; false after saying why the line cannot run.
bool Searches::mayRun(SearchResult& result) {
  const RecordSession& session = services_.session;
  if (result.verb == QueryVerb::replace && !mayWrite()) return false;
  if (result.verb != QueryVerb::plain || result.line[0] == '!') return true;
  const std::optional<RecordKey> key = focusedKey();
  if (!key || !session.tools().find) {
    say(runMessage(application(), session.focus().kind == FocusKind::none ? 41 : 42), MessageIcon::information);
    return false;
  }
  result.keys = keysOfLabel(application(), services_.session.store()->layout(), *key);
  return true;
}

void Searches::unreadable(std::int32_t record) {
  // One box tells it; a box for each of many locked records would keep the person from his search.
  if (!unreadableShown_)
    say(runMessage(application(), 9, std::to_string(record)), MessageIcon::warning);
  unreadableShown_ = true;
}

void Searches::runOver(SearchResult& result, const Query& query, const std::vector<std::int32_t>* within) {
  RecordSession& session = services_.session;
  RunProgress counting(*this, result);
  Progress& progress = result.lists() ? static_cast<Progress&>(counting) : services_.progress;
  const auto hit = [&result](std::int32_t record) { result.hits.push_back(record); };
  const auto lost = [this](std::int32_t record) { unreadable(record); };
  if (query.verb == QueryVerb::plain) {
    const PlainOutcome outcome =
        runPlainSearch(result.line, result.keys.empty() ? RecordKey{} : result.keys.front(),
                       {*session.store(), application(), session.locale(), services_.files,
                        session.dataFile(), matchCase, upward, session.now(), progress, hit, lost, within});
    result.cancelled = outcome.cancelled;
    result.usedIndex = outcome.usedIndex;
    result.count = outcome.hits;
    return;
  }
  progress.title(runCaption(application(), 20, "Search line"));
  const QueryOutcome outcome =
      runQuery(query, {*session.store(), application(), matchCase, upward, progress, hit, lost, within,
                       session.locale()});
  progress.title("");
  if (!result.lists()) result.hits.clear();
  result.cancelled = outcome.cancelled;
  result.count = outcome.hits;
  result.total = outcome.total;
  result.average = outcome.average;
  if (query.verb == QueryVerb::sum) totals_.sum = outcome.total, totals_.average = outcome.average;
  if (query.verb == QueryVerb::count) totals_.count = static_cast<long>(outcome.hits);
  if (query.verb == QueryVerb::replace) session.loadRecord();
  if (!outcome.error.text.empty()) sayError(outcome.error);
}

void Searches::finish(SearchResult& result, bool answers) {
  RecordSession& session = services_.session;
  result.status = statusOf(result);
  if (result.lists()) {
    if (result.hits.empty()) session.loadRecord();
    if (view_) view_->resultFinished(result);
    return;
  }
  // What was counted when somebody stopped the run is no answer.
  if (result.cancelled && result.verb != QueryVerb::replace) answers = false;
  if (answers) say(boxText(result), MessageIcon::information);
}

std::string Searches::boxText(const SearchResult& result) const {
  const Locale& locale = services_.session.locale();
  if (result.verb == QueryVerb::count) return std::to_string(result.count) + " Total";
  if (result.verb == QueryVerb::replace) return std::to_string(result.count) + " Replacements";
  std::string text = "Total: " + formatGeneral(result.total, locale);
  if (result.total != 0) text += "          Average: " + formatGeneral(result.average, locale);
  return text;
}

std::string Searches::statusOf(const SearchResult& result) const {
  const Application& app = application();
  if (!result.lists()) return boxText(result);
  std::string text = runCaption(app, 50, "Nothing found");
  if (!result.hits.empty()) {
    const bool tooMany = result.hits.size() > static_cast<std::size_t>(kMostRows);
    text = runCaption(app, tooMany ? 49 : 48, tooMany ? "More than the list can show" : "Found") + " " +
           counted(static_cast<std::int64_t>(result.hits.size()), services_.session.locale()) + " " +
           runCaption(app, 47, "records");
  }
  if (result.usedIndex) text += "  -  " + runCaption(app, 29, "Index of this field");
  return text;
}

void Searches::close(SearchResult& result) {
  std::erase_if(results_, [&](const auto& kept) { return kept.get() == &result && !result.running; });
}

ResultRows Searches::rowsOf(const SearchResult& result) const {
  ResultRows rows(*services_.session.store(), application(), services_.session.locale(), result.keys,
                  result.columns);
  rows.showLabelsHolding(result.line, result.matchCase);
  return rows;
}

bool Searches::show(std::int32_t record) {
  return !running_ && services_.session.isOpen() && services_.session.goToRecord(record);
}

bool Searches::sortBy(int index) {
  quiet_ = false;
  if (running_ || !services_.session.isOpen()) return false;
  RecordSession& session = services_.session;
  if (index == 1) {
    session.leaveSortedView();
    session.command2Click(0);
    return true;
  }
  const std::optional<RecordKey> key = focusedKey();
  if (!key || !session.tools().sort || !ready()) return false;
  unreadableShown_ = false;
  running_ = true;
  services_.progress.title(runMessage(application(), 27));
  const auto sorted =
      sortRecords(*key, {*session.store(), application(), services_.files, session.dataFile(), session.locale(),
                         services_.progress, [this](std::int32_t record) { unreadable(record); }});
  services_.progress.title("");
  running_ = false;
  if (sorted && sorted->end == SortEnd::done) {
    session.setView(index == 3 ? 2 : 1, sorted->order);
    return true;
  }
  session.leaveSortedView();
  if (!sorted) sayError(sorted.error());
  return false;
}

bool Searches::buildIndexes() {
  quiet_ = false;
  const std::optional<RecordKey> key = focusedKey();
  if (running_ || !key || !canIndex(*key) || !mayWrite() || !ready()) return false;
  RecordSession& session = services_.session;
  unreadableShown_ = false;
  running_ = true;
  services_.progress.title("Indexing " + key->label);
  const auto built =
      buildIndex(*session.store(), *key, session.dataFile(), application(), session.locale(), services_.files,
                 services_.progress, [this](std::int32_t record) { unreadable(record); });
  services_.progress.title("");
  running_ = false;
  if (!built) sayError(built.error());
  return built && *built == IndexEnd::done;
}

}  // namespace plinth
