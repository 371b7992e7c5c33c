// Two programs on one data file: the system's own locks between processes.
#ifndef _WIN32
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

// One program's session on the machine's files.
struct Program {
  explicit Program(const std::string& folder) {
    StartUp start;
    start.proceed = true;
    start.application = makeApplication(shopPayload());
    start.form = makeRecordForm(start.application);
    start.data = {folder + "/", "Shop.dbd", true};
    session = std::make_unique<RecordSession>(
        std::move(start),
        SessionServices{systemFiles(), messages, clock, englishLocale(), shell,
                        flatStoreOpener(systemSharedFiles(), systemFiles()), nullptr, nullptr});
    messages.otherwise = true;
    session->openData(false);
  }
  void type(const std::string& text) {
    session->fieldGotFocus(1);
    session->fieldEdited(1, text);
    session->fieldLostFocus(1);
  }
  std::string name() const { return session->form().fields[1].text; }
  FakeMessages messages;
  FakeClock clock{kTestNow};
  FakeShell shell;
  std::unique_ptr<RecordSession> session;
};

struct Pipe {
  Pipe() { EXPECT_EQ(pipe(ends), 0); }
  ~Pipe() { close(ends[0]), close(ends[1]); }
  void signal() { EXPECT_EQ(write(ends[1], "x", 1), 1); }
  void wait() {
    char c;
    EXPECT_EQ(read(ends[0], &c, 1), 1);
  }
  int ends[2];
};

// The child edits record 2, adds a record and waits; the parent meets the lock, then sees everything.
TEST(TwoPrograms, SeeEachOthersLocksAndRecords) {
  char pattern[] = "/tmp/plinth-engine-XXXXXX";
  const std::string folder = mkdtemp(pattern);
  {
    Program first(folder);
    first.type("one");
    first.session->newbutClick();
    first.type("two");
    first.session->newbutClick();
    first.type("three");
    first.session->command2Click(0);
  }
  Pipe editing, proceed, saved;
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    alarm(30);
    Program other(folder);
    const bool there = other.session->goToRecord(2);
    other.type("changed");
    editing.signal();
    proceed.wait();
    other.session->newbutClick();
    other.type("four");
    const bool saveOk = other.session->saveRecord();
    saved.signal();
    _exit(there && saveOk ? 0 : 1);
  }
  alarm(60);
  Program me(folder);
  editing.wait();
  me.session->command2Click(3);
  EXPECT_EQ(me.messages.texts().back(), "Record 2 is in use by another user.");
  EXPECT_EQ(me.name(), "three");
  proceed.signal();
  saved.wait();
  me.session->command2Click(5);
  EXPECT_EQ(me.name(), "four");
  EXPECT_TRUE(me.session->goToRecord(2));
  EXPECT_EQ(me.name(), "changed");
  int status = 1;
  waitpid(child, &status, 0);
  alarm(0);
  EXPECT_EQ(status, 0);
  me.session.reset();
  EXPECT_TRUE(systemFiles().removeFile(folder + "/Shop.dbd").ok());
  rmdir(folder.c_str());
}

// Many appends from several programs at once: every record is there, none twice.
TEST(TwoPrograms, AppendingAtOnceLosesNothing) {
  char pattern[] = "/tmp/plinth-engine-XXXXXX";
  const std::string folder = mkdtemp(pattern);
  { Program first(folder); }
  constexpr int kPrograms = 3, kEach = 20;
  for (int p = 0; p < kPrograms; ++p) {
    if (fork() != 0) continue;
    alarm(30);
    Program other(folder);
    bool ok = true;
    for (int i = 0; i < kEach; ++i) {
      ok = ok && other.session->newRecord();
      other.type("p" + std::to_string(p) + "-" + std::to_string(i));
      ok = ok && other.session->saveRecord();
    }
    _exit(ok ? 0 : 1);
  }
  int failures = 0;
  for (int p = 0; p < kPrograms; ++p) {
    int status = 1;
    ::wait(&status);
    failures += status != 0;
  }
  EXPECT_EQ(failures, 0);
  Program me(folder);
  EXPECT_EQ(me.session->recCount(), 1 + kPrograms * kEach);
  std::vector<std::string> names;
  for (int n = 2; n <= me.session->recCount(); ++n) {
    ASSERT_TRUE(me.session->goToRecord(n));
    names.push_back(me.name());
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
  EXPECT_EQ(names.size(), static_cast<std::size_t>(kPrograms * kEach));
  me.session.reset();
  EXPECT_TRUE(systemFiles().removeFile(folder + "/Shop.dbd").ok());
  rmdir(folder.c_str());
}

}  // namespace
}  // namespace plinth
#endif
