// What a program does and how it knows that a record was harmed: each record carries a checksum over its
// texts and a version that every save of its content raises by one, so that a save that was lost shows as
// well.
#include "tests/stress/Worker.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "basic/NumberReader.h"
#include "engine/search/PlainSearch.h"
#include "engine/search/QueryRun.h"
#include "engine/search/SortRecords.h"
#include "tests/engine/EngineFixture.h"

namespace plinth::stress {
namespace {

enum { kWriter = 1, kVersion, kName, kAmount, kMark, kSum };
constexpr int kHotRecords = 30;  // that all programs want at once

std::uint64_t scrambled(std::uint64_t& state) {
  std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

std::string& text(RecordForm& form, int n) { return form.fields[static_cast<std::size_t>(n)].text; }
const std::string& text(const RecordForm& form, int n) {
  return form.fields[static_cast<std::size_t>(n)].text;
}

// Of everything but the mark, which replaces change behind the back of whoever edits.
std::string checksum(const RecordForm& form) {
  std::uint64_t hash = 14695981039346656037ull;
  for (const std::string& part :
       {text(form, kWriter), text(form, kVersion), text(form, kName), text(form, kAmount),
        form.memos[1].text})
    for (const char c : part + "|") hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

}  // namespace

Shared& sharedMemory() {
  void* memory =
      mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) std::perror("mmap"), std::exit(1);
  return *new (memory) Shared{};
}

void fault(Shared& shared, const std::string& text) {
  if (++shared.faults <= 20) std::fprintf(stderr, "fault: %s\n", text.c_str());
}

Application stressApplication() {
  Payload p;
  p.header.title = "Stress";
  p.fields = {PayloadField{},
              fieldRow("Writer", 1, 10),
              fieldRow("Version", 1, 10),
              fieldRow("Name", 0, 30),
              fieldRow("Amount", 1, 12),
              fieldRow("Mark", 5, 10),
              fieldRow("Sum", 0, 16)};
  p.combos.resize(1);
  p.memos.resize(2);
  p.memos[1].page = 0;
  p.memos[1].tag = "Notes";
  p.memos[1].fieldLength = 200;
  p.titles.resize(6);
  return makeApplication(std::move(p));
}

std::unique_ptr<FlatRecordStore> openStore(const Application& application, const std::string& path) {
  auto store = FlatRecordStore::open(systemSharedFiles(), systemFiles(), application, englishLocale(),
                                     {path, true, false, kTestNow, "Stress"}, kSegment);
  return store ? std::move(*store) : nullptr;
}

Soundness soundness(const RecordForm& form) {
  if (text(form, kSum) == checksum(form)) return Soundness::whole;
  const bool empty = std::all_of(form.fields.begin(), form.fields.end(),
                                 [](const FormField& field) { return field.text.empty(); });
  return empty && form.memos[1].text.empty() ? Soundness::empty : Soundness::torn;
}

int version(const RecordForm& form) { return static_cast<int>(val(text(form, kVersion))); }

bool excused(const Shared& shared, std::int32_t record, Soundness state) {
  const RecordLog& log = shared.records[record];
  // Killed between taking the number and telling so: how many there are is limited by the number of kills.
  if (state == Soundness::empty && log.owner == 0) return true;
  return shared.killed[state == Soundness::empty ? log.owner : log.saving];
}

namespace {

class Program {
 public:
  Program(Shared& shared, const std::string& folder, int number, std::uint64_t seed)
      : shared_(shared), number_(number), random_(seed), application_(stressApplication()) {
    data_ = {folder + "/", "Stress.dbd", true};
    store_ = openStore(application_, data_.path());
    StartUp start;
    start.proceed = true;
    start.application = application_;
    start.form = makeRecordForm(application_);
    start.data = data_;
    session_ = std::make_unique<RecordSession>(
        std::move(start),
        SessionServices{systemFiles(), messages_, clock_, englishLocale(), shell_,
                        flatStoreOpener(systemSharedFiles(), systemFiles(), kSegment)});
    form_ = makeRecordForm(application_);
    if (!store_ || !session_->openData(false)) fault(shared_, "the data cannot be opened");
  }

  void run() {
    while (!shared_.stop && session_->isOpen()) {
      const auto began = std::chrono::steady_clock::now();
      step();
      const auto took = std::chrono::steady_clock::now() - began;
      const int ms =
          static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(took).count());
      if (ms > shared_.longestStepMs) shared_.longestStepMs = ms;
      ++shared_.steps[number_];
    }
  }

 private:
  std::int32_t below(std::int32_t end) {
    return static_cast<std::int32_t>(scrambled(random_) % static_cast<std::uint64_t>(end));
  }
  std::string named(std::int32_t record) const { return "record " + std::to_string(record); }

  void step() {
    if (!store_->refreshCount() || store_->count() < 2) return append();
    switch (const int what = below(1000); what / 50) {
      case 0:
        return append();
      case 1:
      case 2:
        return look();
      default:
        if (what >= 994) return sort();
        if (what >= 988) return search();
        if (what >= 982) return replace();
        edit();
    }
  }

  // Two thirds of the choices meet in few records.
  std::int32_t anyRecord() {
    const std::int32_t last = store_->count();
    return below(3) == 0 ? 1 + below(last) : 1 + below(std::min(last, kHotRecords));
  }

  void fill(RecordForm& form, int nextVersion) {
    text(form, kWriter) = std::to_string(number_);
    text(form, kVersion) = std::to_string(nextVersion);
    text(form, kName) = "w" + std::to_string(number_ % 10) + std::string(1 + below(28), 'a' + below(26));
    text(form, kAmount) = std::to_string(1 + below(100000)) + ".25";
    form.memos[1].text = std::string(1 + below(200), 'a' + below(26));
    text(form, kSum) = checksum(form);
  }

  // REQUIRES the record's lock.
  template <class Save> void saveContent(std::int32_t record, Save save) {
    RecordLog& log = shared_.records[record];
    ++log.begun;
    log.saving = number_;
    if (!save()) fault(shared_, named(record) + " cannot be saved");
    log.saving = 0;
    ++log.done;
  }

  void append() {
    if (store_->count() + 100 >= kMostRecords) return;
    if (!session_->newRecord()) return fault(shared_, "no record can be added: " + messages_.texts().back());
    const std::int32_t record = session_->curRec();
    const int before = shared_.records[record].owner.exchange(number_);
    if (before != 0 && !shared_.killed[before]) fault(shared_, named(record) + " was given twice");
    session_->changeForm([&](RecordForm& form) { fill(form, shared_.records[record].done + 1); });
    saveContent(record, [&] { return session_->saveRecord(); });
    ++shared_.appends;
  }

  // As a person at another program edits: the lock first, then the record as it is now.
  void edit() {
    const std::int32_t record = anyRecord();
    if (record == 1) return;  // never locked, so everybody may overwrite it
    const Result<void> locked = store_->lock(record);
    if (!locked) {
      if (locked.error().kind != ErrorKind::locked) fault(shared_, locked.error().text);
      ++shared_.refused;
      return;
    }
    RecordLog& log = shared_.records[record];
    if (const auto loaded = store_->load(record, form_); !loaded) {
      fault(shared_, loaded.error().text);
    } else if (const Soundness state = soundness(form_); state != Soundness::whole) {
      if (!excused(shared_, record, state)) fault(shared_, named(record) + " is harmed, seen under its lock");
    } else if (version(form_) != log.done && version(form_) != log.begun) {
      fault(shared_, named(record) + " has lost a save");
    } else {
      log.begun = log.done = version(form_);  // of a killed writer the save counts if it reached the file
      fill(form_, version(form_) + 1);
      saveContent(record, [&] { return store_->save(record, form_).ok(); });
      ++shared_.edits;
    }
    store_->unlock(record);
  }

  // Reading takes no lock. A save under way may show half in one reading, never in all.
  void look() {
    const std::int32_t record = anyRecord();
    if (record == 1) return;
    for (int attempt = 0; attempt < 50; ++attempt) {
      const auto loaded = store_->load(record, form_);
      if (!loaded) {
        if (loaded.error().kind != ErrorKind::locked) fault(shared_, loaded.error().text);
        return;
      }
      const Soundness state = soundness(form_);
      if (state == Soundness::whole || excused(shared_, record, state)) return;
      ++shared_.reread;
      usleep(200);
    }
    fault(shared_, named(record) + " stays harmed");
  }

  void replace() {
    const QueryContext context{application_, store_->layout(), englishLocale(), false, kTestNow, {}};
    const Query query = parseQuery("replace mark=" + std::to_string(below(1000)) + " where name=w" +
                                       std::to_string(below(10)) + "*",
                                   context);
    NoProgress progress;
    // Records that others edit are left out.
    const QueryOutcome outcome = runQuery(query, {*store_, application_, false, true, progress, {}, {}});
    if (!outcome.error.text.empty() && outcome.error.kind != ErrorKind::locked)
      fault(shared_, "replace: " + outcome.error.text);
    shared_.replaced += outcome.hits;
  }

  void search() {
    const RecordKey key = *keyOf(application_, store_->layout(), {FocusKind::field, kName});
    NoProgress progress;
    PlainSearchRequest request{*store_, application_, englishLocale(), systemSharedFiles(), data_,
                               false,   below(2) == 0, kTestNow,       progress,            {},    {}};
    std::int32_t lowest = 1, highest = 1;
    request.hit = [&](std::int32_t record) {
      lowest = std::min(lowest, record);
      highest = std::max(highest, record);
    };
    shared_.found += runPlainSearch("w" + std::to_string(below(10)), key, request).hits;
    if (lowest < 1 || highest > store_->count())
      fault(shared_, "a search found a record that does not exist");
  }

  void sort() {
    const FocusObject object{FocusKind::field, below(2) == 0 ? kName : kAmount};
    NoProgress progress;
    auto sorted = sortRecords(*keyOf(application_, store_->layout(), object),
                              {*store_, application_, systemSharedFiles(), data_, englishLocale(), progress,
                               {}});
    if (!sorted) return fault(shared_, "sort: " + sorted.error().text);
    std::sort(sorted->order.begin(), sorted->order.end());
    const std::int32_t last = store_->count();
    bool permutation = static_cast<std::int32_t>(sorted->order.size()) == last;
    for (std::int32_t i = 0; permutation && i < last; ++i)
      permutation = sorted->order[static_cast<std::size_t>(i)] == i + 1;
    if (!permutation) fault(shared_, "a sorted view has records twice or not at all");
    ++shared_.sorted;
  }

  Shared& shared_;
  int number_;
  std::uint64_t random_;
  Application application_;
  DataFile data_;
  FakeMessages messages_;
  FakeClock clock_{kTestNow};
  FakeShell shell_;
  std::unique_ptr<FlatRecordStore> store_;
  std::unique_ptr<RecordSession> session_;
  RecordForm form_;
};

}  // namespace

void work(Shared& shared, const std::string& folder, int number, std::uint64_t seed) {
  Program(shared, folder, number, seed).run();
}

}  // namespace plinth::stress
