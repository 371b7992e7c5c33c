// Four programs on one data file for some seconds (PLINTH_STRESS_SECONDS, 20): again and again one of them is
// killed, wherever it stands, and a new one takes its place. Afterwards every record is whole, but for those
// that a killed program was just making or writing: one for each kill at most.
// Exit 0: no fault was seen. The numbers of the run go to standard output.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

#include "tests/stress/Worker.h"

namespace plinth::stress {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPrograms = 4;
constexpr int kHangSeconds = 15;

struct Running {
  pid_t pid = 0;
  int number = 0;
  std::int64_t steps = 0;
  Clock::time_point moved;
};

class Supervisor {
 public:
  Supervisor(Shared& shared, std::string folder, unsigned seed)
      : shared_(shared), folder_(std::move(folder)), random_(seed) {}

  int kills() const { return kills_; }

  void run(std::chrono::seconds time) {
    const auto end = Clock::now() + time;
    for (Running& program : programs_) start(program);
    while (Clock::now() < end && shared_.faults == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(pick(20, 250)));
      watch();
      if (next_ < kMostPrograms) kill(programs_[static_cast<std::size_t>(pick(0, kPrograms - 1))]);
    }
    shared_.stop = true;
    for (Running& program : programs_) finish(program);
  }

 private:
  int pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

  void start(Running& program) {
    program = {0, next_++, 0, Clock::now()};
    const unsigned seed = static_cast<unsigned>(random_());
    program.pid = fork();
    if (program.pid < 0) std::perror("fork"), std::exit(1);
    if (program.pid != 0) return;
    work(shared_, folder_, program.number, seed);
    _exit(0);
  }

  void kill(Running& program) {
    shared_.killed[program.number] = true;  // before: from here on it may be stopped anywhere
    ::kill(program.pid, SIGKILL);
    int status = 0;
    waitpid(program.pid, &status, 0);
    if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
      fault(shared_, "a program ended by itself with status " + std::to_string(status));
    ++kills_;
    start(program);
  }

  void watch() {
    for (Running& program : programs_) {
      const std::int64_t steps = shared_.steps[program.number];
      if (steps != program.steps) program.steps = steps, program.moved = Clock::now();
      if (Clock::now() - program.moved > std::chrono::seconds(kHangSeconds))
        fault(shared_, "a program hangs");
    }
  }

  void finish(Running& program) {
    const auto limit = Clock::now() + std::chrono::seconds(kHangSeconds);
    int status = 0;
    while (waitpid(program.pid, &status, WNOHANG) == 0) {
      if (Clock::now() > limit) {
        fault(shared_, "a program does not end");
        ::kill(program.pid, SIGKILL);
        waitpid(program.pid, &status, 0);
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    if (status != 0) fault(shared_, "a program ended with status " + std::to_string(status));
  }

  Shared& shared_;
  std::string folder_;
  std::mt19937 random_;
  Running programs_[kPrograms];
  int next_ = 1, kills_ = 0;
};

struct Harm {
  int empty = 0, torn = 0;
};

// Reads all records once more, with nobody else at them.
Harm inspect(Shared& shared, const std::string& path, std::int32_t& count) {
  Harm harm;
  const Application application = stressApplication();
  const auto store = openStore(application, path);
  if (!store) return fault(shared, "the data cannot be opened afterwards"), harm;
  RecordForm form = makeRecordForm(application);
  count = store->count();
  for (std::int32_t record = 2; record <= count; ++record) {
    const RecordLog& log = shared.records[record];
    if (!store->load(record, form)) {
      fault(shared, "record " + std::to_string(record) + " cannot be read");
      continue;
    }
    const Soundness state = soundness(form);
    harm.empty += state == Soundness::empty;
    harm.torn += state == Soundness::torn;
    if (state != Soundness::whole && !excused(shared, record, state))
      fault(shared, "record " + std::to_string(record) + " is harmed");
    if (state == Soundness::whole && version(form) != log.done && version(form) != log.begun)
      fault(shared, "record " + std::to_string(record) + " has lost a save");
  }
  return harm;
}

// Record 1 stands before the programs come: it is the one that nobody locks.
void makeFirstRecord(Shared& shared, const std::string& path) {
  const Application application = stressApplication();
  const auto store = openStore(application, path);
  if (!store || !store->append() || !store->save(1, makeRecordForm(application)))
    fault(shared, "no data file can be made in " + path);
}

int runAll() {
  const char* wish = std::getenv("PLINTH_STRESS_SECONDS");
  const int seconds = wish ? std::max(1, std::atoi(wish)) : 20;
  std::string folder = (std::filesystem::temp_directory_path() / "plinth-stress-XXXXXX").string();
  if (!mkdtemp(folder.data())) return std::perror("mkdtemp"), 1;
  Shared& shared = sharedMemory();
  makeFirstRecord(shared, folder + "/Stress.dbd");
  Supervisor supervisor(shared, folder, std::random_device()());
  supervisor.run(std::chrono::seconds(seconds));
  std::int32_t count = 0;
  const Harm harm = inspect(shared, folder + "/Stress.dbd", count);
  if (harm.empty + harm.torn > supervisor.kills())
    fault(shared, "more records are harmed than programs were killed");
  std::printf(
      "%d s, %d programs killed: %d records, %lld added, %lld edited, %lld times refused by a lock, "
      "%lld replaced, %lld found, %lld sorts; left empty by a kill %d, torn by a kill %d; read again %lld; "
      "longest step %d ms; faults %d\n",
      seconds, supervisor.kills(), count, static_cast<long long>(shared.appends),
      static_cast<long long>(shared.edits), static_cast<long long>(shared.refused),
      static_cast<long long>(shared.replaced), static_cast<long long>(shared.found),
      static_cast<long long>(shared.sorted), harm.empty, harm.torn, static_cast<long long>(shared.reread),
      shared.longestStepMs.load(), shared.faults.load());
  std::filesystem::remove_all(folder);
  return shared.faults == 0 ? 0 : 1;
}

}  // namespace
}  // namespace plinth::stress

int main() { return plinth::stress::runAll(); }
