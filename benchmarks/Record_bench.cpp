// Single records in and out of the flat file, beside SQLite on rows of the same values in the same run.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "engine/FlatRecordStore.h"
#include "platform/Files.h"
#include "platform/SharedFile.h"

namespace plinth {
namespace {

constexpr int kRecords = 20000;
constexpr int kTexts = 10, kNumbers = 4;

// Ten texts of 30, four numbers, a date, and a memo that brings a record to `recLen` bytes.
Application application(int recLen) {
  Payload p;
  const auto field = [&p](int type, int length) {
    PayloadField f;
    f.page = 0, f.fieldType = static_cast<std::uint8_t>(type), f.fieldLength = length;
    p.fields.push_back(f);
  };
  p.fields.emplace_back();
  for (int i = 0; i < kTexts; ++i) field(0, 30);
  for (int i = 0; i < kNumbers; ++i) field(i % 2 ? 2 : 1, 12);
  field(7, 10);
  p.combos.emplace_back();
  p.memos.resize(2);
  p.memos[1].page = 0;
  p.memos[1].fieldLength = recLen - 1 - kTexts * 30 - kNumbers * 8 - 8;
  return makeApplication(std::move(p));
}

// Values of record n, as boxes show them.
void fill(RecordForm& form, int n) {
  for (int i = 1; i <= kTexts; ++i)
    form.fields[static_cast<std::size_t>(i)].text = "Some text " + std::to_string(n * 31 + i);
  for (int i = 1; i <= kNumbers; ++i) {
    form.fields[static_cast<std::size_t>(kTexts + i)].text = std::to_string(n % 1000) + ".25";
  }
  FormField& date = form.fields[kTexts + kNumbers + 1];
  date.date = 40000 + n % 5000;
  form.memos[1].text = "A memo of record " + std::to_string(n) + std::string(60, 'x');
}

std::string scratch(const char* name) {
  const std::string folder = systemFiles().temporaryFolder() + "plinth-bench-records/";
  std::filesystem::create_directories(folder);
  return folder + name;
}

std::unique_ptr<FlatRecordStore> freshStore(const Application& app, const std::string& path) {
  std::filesystem::remove(path);
  auto store = FlatRecordStore::open(systemSharedFiles(), systemFiles(), app, englishLocale(),
                                     {path, true, false, 45000, "Bench"});
  return store ? std::move(*store) : nullptr;
}

void addAll(FlatRecordStore& store, RecordForm& form) {
  for (int n = 1; n <= kRecords; ++n) {
    fill(form, n);
    const Result<std::int32_t> number = store.append();
    if (!number || !store.save(*number, form)) return;
    store.unlock(*number);
  }
}

void BM_PlinthSave(benchmark::State& state) {
  const Application app = application(static_cast<int>(state.range(0)));
  auto store = freshStore(app, scratch("save.dbd"));
  RecordForm form = makeRecordForm(app);
  addAll(*store, form);
  std::int32_t n = 0;
  for (auto _ : state) {
    n = n % kRecords + 1;
    fill(form, n + 1);
    if (!store->save(n, form)) state.SkipWithError("not saved");
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PlinthSave)->Arg(500)->Arg(5000);

void BM_PlinthLoad(benchmark::State& state) {
  const Application app = application(static_cast<int>(state.range(0)));
  auto store = freshStore(app, scratch("load.dbd"));
  RecordForm form = makeRecordForm(app);
  addAll(*store, form);
  std::uint32_t seed = 1;
  for (auto _ : state) {
    seed = seed * 1664525 + 1013904223;
    if (!store->load(static_cast<std::int32_t>(seed >> 8) % kRecords + 1, form))
      state.SkipWithError("not loaded");
    benchmark::DoNotOptimize(form.fields[1].text.data());
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_PlinthLoad)->Arg(500)->Arg(5000);

// The rival's table: one column a box.
class Rival {
 public:
  explicit Rival(const std::string& path) {
    for (const char* end : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path + end);
    sqlite3_open(path.c_str(), &db_);
    std::string columns, marks;
    for (int i = 1; i <= kTexts; ++i) columns += ",t" + std::to_string(i) + " TEXT", marks += ",?";
    for (int i = 1; i <= kNumbers + 1; ++i) columns += ",n" + std::to_string(i) + " REAL", marks += ",?";
    run("PRAGMA synchronous=OFF");
    run("CREATE TABLE r(id INTEGER PRIMARY KEY" + columns + ",memo TEXT)");
    insert_ = prepare("INSERT OR REPLACE INTO r VALUES(?" + marks + ",?)");
    select_ = prepare("SELECT * FROM r WHERE id=?");
  }
  ~Rival() {
    sqlite3_finalize(insert_);
    sqlite3_finalize(select_);
    sqlite3_close(db_);
  }
  Rival(const Rival&) = delete;
  Rival& operator=(const Rival&) = delete;

  void run(const std::string& sql) { sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr); }

  bool insert(int id, const RecordForm& form, std::size_t memoLength) {
    sqlite3_reset(insert_);
    sqlite3_bind_int(insert_, 1, id);
    int at = 2;
    for (int i = 1; i <= kTexts; ++i) bindText(at++, form.fields[static_cast<std::size_t>(i)].text);
    for (int i = 1; i <= kNumbers; ++i) {
      sqlite3_bind_double(insert_, at++, std::stod(form.fields[static_cast<std::size_t>(kTexts + i)].text));
    }
    sqlite3_bind_double(insert_, at++, form.fields[kTexts + kNumbers + 1].date);
    memo_ = form.memos[1].text;
    memo_.resize(memoLength, ' ');  // as many bytes as a slot holds
    bindText(at, memo_);
    return sqlite3_step(insert_) == SQLITE_DONE;
  }

  // Every column taken over into texts, as a program that shows them must.
  bool select(int id, RecordForm& form) {
    sqlite3_reset(select_);
    sqlite3_bind_int(select_, 1, id);
    if (sqlite3_step(select_) != SQLITE_ROW) return false;
    for (int i = 1; i <= kTexts; ++i) form.fields[static_cast<std::size_t>(i)].text = column(i);
    for (int i = 1; i <= kNumbers; ++i) {
      char text[32];
      std::snprintf(text, sizeof text, "%.2f", sqlite3_column_double(select_, kTexts + i));
      form.fields[static_cast<std::size_t>(kTexts + i)].text = text;
    }
    form.fields[kTexts + kNumbers + 1].date = sqlite3_column_double(select_, kTexts + kNumbers + 1);
    form.memos[1].text = column(kTexts + kNumbers + 2);
    return true;
  }

 private:
  sqlite3_stmt* prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr);
    return statement;
  }
  void bindText(int at, const std::string& text) {
    sqlite3_bind_text(insert_, at, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  std::string column(int i) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select_, i));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(select_, i))};
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt *insert_ = nullptr, *select_ = nullptr;
  std::string memo_;
};

std::size_t memoLength(std::int64_t recLen) {
  return static_cast<std::size_t>(recLen - 1 - kTexts * 30 - kNumbers * 8 - 8);
}

void BM_SqliteSave(benchmark::State& state) {
  const bool oneTransaction = state.range(1) != 0;
  const Application app = application(static_cast<int>(state.range(0)));
  RecordForm form = makeRecordForm(app);
  Rival rival(scratch("save.sqlite"));
  if (oneTransaction) rival.run("BEGIN");
  int n = 0;
  for (auto _ : state) {
    n = n % kRecords + 1;
    fill(form, n + 1);
    if (!rival.insert(n, form, memoLength(state.range(0)))) state.SkipWithError("not inserted");
  }
  if (oneTransaction) rival.run("COMMIT");
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SqliteSave)
    ->ArgNames({"", "transaction"})
    ->Args({500, 0})
    ->Args({500, 1})
    ->Args({5000, 0})
    ->Args({5000, 1});

void BM_SqliteLoad(benchmark::State& state) {
  const Application app = application(static_cast<int>(state.range(0)));
  RecordForm form = makeRecordForm(app);
  Rival rival(scratch("load.sqlite"));
  rival.run("BEGIN");
  for (int n = 1; n <= kRecords; ++n) {
    fill(form, n);
    rival.insert(n, form, memoLength(state.range(0)));
  }
  rival.run("COMMIT");
  std::uint32_t seed = 1;
  for (auto _ : state) {
    seed = seed * 1664525 + 1013904223;
    if (!rival.select(static_cast<int>(seed >> 8) % kRecords + 1, form)) state.SkipWithError("not selected");
    benchmark::DoNotOptimize(form.fields[1].text.data());
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SqliteLoad)->Arg(500)->Arg(5000);

}  // namespace
}  // namespace plinth
