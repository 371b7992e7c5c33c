// Searches, sorts, indexes and single records over a million contacts, beside SQLite on the same rows.
// Each row measures one question some times; `x` is the median of its time divided by that of one warm pass
// over the data file, read right before; `x_cpu` is the same of the processor's time. The time to the first
// rows of a list, the longest one between two questions whether to stop, and the peak of memory stand beside
// it. PLINTH_BENCH_ROWS makes the table smaller.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "benchmarks/Contacts.h"
#include "engine/search/IndexFiles.h"
#include "engine/search/PlainSearch.h"
#include "engine/search/QueryRun.h"
#include "engine/search/ResultRows.h"
#include "engine/search/SortRecords.h"

namespace plinth::bench {
namespace {

constexpr int kRuns = 5;
constexpr std::size_t kFirstRows = 60;
constexpr int kLoads = 100'000, kSaves = 20'000;

double now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Of this program: what it costs also where others keep the machine busy.
double cpuTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.empty() ? 0 : values[values.size() / 2];
}

// The highest use of memory since resetPeak(), in millions of bytes.
double peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) * 1024 / 1e6;
  return 0;
}
void resetPeak() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
}

// Measures how long work goes on without asking whether to stop; asks it to stop after some questions.
class Probe : public Progress {
 public:
  explicit Probe(int stopAfter = -1) : stopAfter_(stopAfter), last_(now()) {}
  void title(std::string_view) override {}
  bool step(std::int64_t, std::int64_t) override {
    note();
    if (stopAfter_ >= 0 && steps_++ == stopAfter_) wished_ = last_;  // right after the question
    return !(stopAfter_ >= 0 && steps_ > stopAfter_ + 1);
  }
  void note() {
    const double time = now();
    longest_ = std::max(longest_, time - last_);
    last_ = time;
  }
  double longest() const { return longest_; }
  double wished() const { return wished_; }

 private:
  int stopAfter_, steps_ = 0;
  double last_, longest_ = 0, wished_ = 0;
};

// The rows of a list as they come: the first ones are read into cells at once, as a window shows them.
class FirstRows {
 public:
  FirstRows(std::vector<RecordKey> keys, const ShowColumns& columns)
      : rows_(*contacts().store, contacts().application, englishLocale(), std::move(keys), columns),
        began_(now()) {}
  void add(std::int32_t record) {
    if (hits_.size() < kFirstRows) benchmark::DoNotOptimize(rows_.cells(record));
    hits_.push_back(record);
    if (hits_.size() == kFirstRows) shown_ = now() - began_;
  }
  double shown() const { return shown_; }

 private:
  ResultRows rows_;
  std::vector<std::int32_t> hits_;
  double began_, shown_ = 0;
};

struct Outcome {
  double answer = 0;  // to compare with the rival's: hits or a total
  double firstRows = 0;
};

RecordKey keyOfField(int field) {
  Contacts& c = contacts();
  return *keyOf(c.application, c.store->layout(), {FocusKind::field, field});
}
constexpr int kName = 1, kAmount = 6;
constexpr ShowColumns kColumns{1, 2, 4, 6};

Outcome plainSearch(const std::string& line, Probe& probe) {
  Contacts& c = contacts();
  const RecordKey key = keyOfField(kName);
  FirstRows rows({key}, kColumns);
  PlainSearchRequest request{*c.store, c.application, englishLocale(), systemSharedFiles(), c.data,
                             false,    true,          45000,           probe,               {},    {}};
  request.hit = [&rows](std::int32_t record) { rows.add(record); };
  const PlainOutcome outcome = runPlainSearch(line, key, request);
  return {static_cast<double>(outcome.hits), rows.shown()};
}

Outcome command(const std::string& line, Probe& probe) {
  Contacts& c = contacts();
  const Query query =
      parseQuery(line, {c.application, c.store->layout(), englishLocale(), false, 45000, kColumns});
  FirstRows rows({}, query.columns);
  QueryRunRequest request{*c.store, c.application, false, true, probe, {}, {}};
  request.hit = [&rows](std::int32_t record) { rows.add(record); };
  const QueryOutcome outcome = runQuery(query, request);
  return {query.verb == QueryVerb::sum ? outcome.total : static_cast<double>(outcome.hits), rows.shown()};
}

Outcome sortBy(int field, Probe& probe) {
  Contacts& c = contacts();
  const auto sorted = sortRecords(
      keyOfField(field), {*c.store, c.application, systemSharedFiles(), c.data, englishLocale(), probe, {}});
  return {sorted ? static_cast<double>(sorted->order.size()) : -1};
}

Outcome indexField(int field, Probe& probe) {
  Contacts& c = contacts();
  const auto built =
      buildIndex(*c.store, keyOfField(field), c.data, c.application, englishLocale(), systemSharedFiles(), probe, {});
  return {built ? 0.0 : -1.0};
}

void removeIndexes() {
  for (const auto& entry : std::filesystem::directory_iterator(contacts().folder))
    if (entry.path().extension() == ".inx") std::filesystem::remove(entry.path());
}

Outcome loadRandom() {
  Contacts& c = contacts();
  RecordForm form = makeRecordForm(c.application);
  std::uint64_t state = 42;
  double loaded = 0;
  for (int i = 0; i < kLoads; ++i) {
    const auto record = 1 + static_cast<std::int32_t>(randomBelow(state, static_cast<std::uint32_t>(c.rows)));
    loaded += c.store->load(record, form).ok();
    benchmark::DoNotOptimize(form.fields[1].text.data());
  }
  return {loaded};
}

// Contacts of other numbers, so that each save changes the record; as our form and as a row.
struct Fresh {
  Contact row;
  RecordForm form;
};
const std::vector<Fresh>& freshContacts() {
  static const std::vector<Fresh> all = [] {
    std::vector<Fresh> made;
    for (std::uint64_t id = 1; id <= 1000; ++id) {
      made.push_back({contact(id + 2'000'000'000), makeRecordForm(contacts().application)});
      fillForm(made.back().form, made.back().row);
    }
    return made;
  }();
  return all;
}

// Calls save(record, fresh contact) for records here and there.
template <class Save> Outcome saveRandom(Save save) {
  static std::uint64_t state = 7;
  for (std::size_t i = 0; i < kSaves; ++i)
    save(1 + static_cast<int>(randomBelow(state, static_cast<std::uint32_t>(contacts().rows))),
         freshContacts()[i % freshContacts().size()]);
  return {kSaves};
}

Outcome saveOurs() {
  return saveRandom([](int record, const Fresh& fresh) {
    if (!contacts().store->save(record, fresh.form)) std::abort();
  });
}

double likeAll(ContactsTable& table) {
  std::string sql = "SELECT id FROM contacts WHERE name LIKE '%zephyr%'";
  for (const char* column : {"company", "street", "city", "email", "memo"})
    sql += std::string(" OR ") + column + " LIKE '%zephyr%'";
  return static_cast<double>(table.rowsOf(sql));
}

using Ours = std::function<Outcome(Probe&)>;
using Theirs = std::function<double(ContactsTable&)>;
struct Question {
  const char* name;
  double bar;  // of x; of single records microseconds
  Ours ours;
  Theirs theirs;
  const char* index = nullptr;  // that stands already: of the rival, and the same field's of ours
  int times = 0;                // single records of one run; their time counts then, not x
};

Theirs rowsOf(const char* sql) {
  return [sql](ContactsTable& table) { return static_cast<double>(table.rowsOf(sql)); };
}
Theirs valueOf(const char* sql) {
  return [sql](ContactsTable& table) { return table.valueOf(sql); };
}
Theirs indexed(const char* sql) {
  return [sql](ContactsTable& table) { return table.run(sql), 0.0; };
}
Ours plain(const char* line) {
  return [line](Probe& probe) { return plainSearch(line, probe); };
}
Ours run(const char* line) {
  return [line](Probe& probe) { return command(line, probe); };
}
// A value that differs from run to run, since a rival may see that nothing changes.
std::string toggled(int& value) { return std::to_string(value = 3 - value); }

std::vector<Question> questions() {
  static int ourFlag = 1, theirFlag = 1;
  return {
      {"text field", 2, plain("zephyr"), rowsOf("SELECT id FROM contacts WHERE name LIKE '%zephyr%'")},
      {"whole record", 4, plain("!zephyr"), likeAll},
      {"select, two conditions", 2, run("select name city qty where city=harbourt* qty>500"),
       rowsOf("SELECT id FROM contacts WHERE city LIKE 'harbourt%' AND qty>500")},
      // Each term adds by itself: the amount always, the quantity where it is above 500.
      {"sum", 1.5, run("sum amount where qty>500"),
       valueOf("SELECT total(amount)+total(CASE WHEN qty>500 THEN qty END) FROM contacts")},
      {"count", 2, run("count city=harbourt*"),
       valueOf("SELECT count(*) FROM contacts WHERE city LIKE 'harbourt%'")},
      {"replace on 1 %", 3,
       [](Probe& probe) {
         return command("replace flag=" + toggled(ourFlag) + " where city=harbourt*", probe);
       },
       [](ContactsTable& table) {
         table.run("UPDATE contacts SET flag=" + toggled(theirFlag) + " WHERE city LIKE 'harbourt%'");
         return table.valueOf("SELECT changes()");
       }},
      {"sort by text", 8, [](Probe& probe) { return sortBy(kName, probe); },
       rowsOf("SELECT id FROM contacts ORDER BY name COLLATE NOCASE")},
      {"sort by number", 4, [](Probe& probe) { return sortBy(kAmount, probe); },
       rowsOf("SELECT id FROM contacts ORDER BY amount")},
      {"index a text", 6, [](Probe& probe) { return indexField(kName, probe); },
       indexed("CREATE INDEX i ON contacts(name COLLATE NOCASE)")},
      {"index a number", 4, [](Probe& probe) { return indexField(kAmount, probe); },
       indexed("CREATE INDEX i ON contacts(amount)")},
      {"text field, indexed", 1, plain("zephyr"),
       rowsOf("SELECT id FROM contacts INDEXED BY i WHERE name LIKE '%zephyr%'"), "name COLLATE NOCASE"},
      {"100,000 loads", 3, [](Probe&) { return loadRandom(); },
       [](ContactsTable& table) {
         table.loadRandom(kLoads, static_cast<std::uint32_t>(contacts().rows));
         return static_cast<double>(kLoads);
       }},
      {"save", 10, [](Probe&) { return saveOurs(); },
       [](ContactsTable& table) {
         return saveRandom([&table](int id, const Fresh& fresh) { table.replace(id, fresh.row); }).answer;
       },
       nullptr, kSaves},
  };
}

std::map<std::string, double> answers;  // ours, until the rival has given his

// The runs of one question.
class Runs {
 public:
  explicit Runs(const Question& question) : question_(question) {}
  template <class Work> void add(benchmark::State& state, Work work) {
    const double limitCpu = cpuTime(), limit = readDataFile(), beganCpu = cpuTime(), began = now();
    work();
    const double time = now() - began;
    times_.push_back(time);
    ratios_.push_back(time / limit);
    cpuRatios_.push_back((cpuTime() - beganCpu) / (beganCpu - limitCpu));
    state.SetIterationTime(time);
  }
  void report(benchmark::State& state) const {
    state.counters["bar"] = question_.bar;
    if (question_.times > 0) {
      state.counters["us"] = median(times_) / question_.times * 1e6;
    } else {
      state.counters["x"] = median(ratios_);
      state.counters["x_cpu"] = median(cpuRatios_);
    }
  }

 private:
  const Question& question_;
  std::vector<double> times_, ratios_, cpuRatios_;
};

void measureOurs(benchmark::State& state, const Question& question) {
  contacts();
  if (question.times > 0) freshContacts();
  Runs runs(question);
  double peak = 0, gap = 0, first = 0;
  removeIndexes();
  if (question.index) {
    Probe probe;
    indexField(kName, probe);
  }
  for (auto _ : state) {
    resetPeak();
    runs.add(state, [&] {
      Probe probe;
      const Outcome outcome = question.ours(probe);
      probe.note();
      gap = std::max(gap, probe.longest());
      first = std::max(first, outcome.firstRows);
      answers[question.name] = outcome.answer;
    });
    peak = std::max(peak, peakMemory());
  }
  removeIndexes();
  runs.report(state);
  state.counters["MB"] = peak;
  if (question.times == 0) state.counters["gap_ms"] = gap * 1e3;
  if (first > 0) state.counters["first_ms"] = first * 1e3;
}

void measureTheirs(benchmark::State& state, const Question& question) {
  ContactsTable& table = *contacts().table;
  Runs runs(question);
  double answer = 0;
  if (question.index) table.run(std::string("CREATE INDEX i ON contacts(") + question.index + ")");
  for (auto _ : state) {
    if (!question.index) table.run("DROP INDEX IF EXISTS i");
    runs.add(state, [&] { answer = question.theirs(table); });
  }
  table.run("DROP INDEX IF EXISTS i");
  runs.report(state);
  const auto ours = answers.find(question.name);
  if (ours != answers.end() && std::abs(ours->second - answer) > 1e-9 * std::abs(answer) + 0.001)
    state.SkipWithError(("the answers differ: " + std::to_string(ours->second) + " and " +
                         std::to_string(answer)).c_str());
}

// From the wish to stop, at the worst moment, to the end of the work.
void measureCancel(benchmark::State& state, const Ours& work) {
  contacts();
  removeIndexes();
  for (auto _ : state) {
    Probe probe(40);
    work(probe);
    state.SetIterationTime(now() - probe.wished());
  }
  removeIndexes();
  state.counters["bar_ms"] = 100;
}

const bool registered = [] {
  const auto add = [](const std::string& name, auto&& function) {
    benchmark::RegisterBenchmark(name.c_str(), function)
        ->UseManualTime()
        ->Iterations(kRuns)
        ->Unit(benchmark::kMillisecond);
  };
  for (const Question& question : questions()) {
    add(std::string("Search/") + question.name + "/plinth",
        [question](benchmark::State& state) { measureOurs(state, question); });
    add(std::string("Search/") + question.name + "/sqlite",
        [question](benchmark::State& state) { measureTheirs(state, question); });
  }
  for (const auto& [name, work] : std::map<std::string, Ours>{
           {"text field", plain("zephyr")},
           {"whole record", plain("!zephyr")},
           {"select", run("select name where city=harbourt*")},
           {"index", [](Probe& probe) { return indexField(kName, probe); }},
           {"sort", [](Probe& probe) { return sortBy(kName, probe); }}}) {
    add("Search/cancel/" + name,
        [work = work](benchmark::State& state) { measureCancel(state, work); });
  }
  return true;
}();

}  // namespace
}  // namespace plinth::bench
