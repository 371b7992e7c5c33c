// What only this system has: modes, links, limits, environment locales and the C library's converter.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "basic/CodePage.h"
#include "platform/Settings.h"
#include "platform/SharedFile.h"
#include "platform/SystemCodec.h"
#include "platform/SystemLocale.h"
#include "tests/platform/TempFolder.h"

// glibc's newlocale() never frees its copy of $LOCPATH, which only these tests set.
extern "C" const char* __lsan_default_suppressions() { return "leak:argz_add_sep"; }
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }

namespace plinth {
namespace {

namespace fs = std::filesystem;
const Bytes kText{'n', 'e', 'w'};

TEST(PosixFiles, keepsModeAndLink) {
  const TempFolder folder;
  const std::string file = folder / "file", link = folder / "link";
  ASSERT_TRUE(systemFiles().write(file, kText).ok());
  ::chmod(file.c_str(), 0640);
  fs::create_symlink("file", link);
  ASSERT_TRUE(systemFiles().write(link, Bytes{'x'}).ok());
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(systemFiles().read(file)->size(), 1u);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
  EXPECT_TRUE(systemFiles().write("/dev/null", kText).ok()) << "devices are written, not replaced";
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// Runs `work` in a child that may write no file beyond 1000 bytes; its result.
template <class Work>
bool onFullDisk(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit limit{1000, 1000};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ::_exit(work() ? 0 : 1);
  }
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(PosixFiles, aFullDiskLeavesTheOldFile) {
  const TempFolder folder;
  const std::string file = folder / "file", shared = folder / "shared";
  ASSERT_TRUE(systemFiles().write(file, kText).ok());
  const Bytes large(5000, 'x');
  EXPECT_TRUE(onFullDisk([&] { return systemFiles().write(file, large).error().kind == ErrorKind::full; }));
  EXPECT_EQ(*systemFiles().read(file), kText);
  EXPECT_EQ(systemFiles().list(folder.path()), std::vector<std::string>{"file"});
  EXPECT_TRUE(onFullDisk([&] {
    const auto opened = systemSharedFiles().open(shared, OpenMode::readWrite);
    return (*opened)->write(0, large).error().kind == ErrorKind::full;
  }));
}

TEST(PosixFiles, sharedFilesAreFilesOnly) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(systemSharedFiles().open(folder / "pipe", OpenMode::readOnly).ok()) << "and it must not wait";
  ASSERT_TRUE(systemFiles().write(folder / "fixed", kText).ok());
  ::chmod((folder / "fixed").c_str(), 0444);
  EXPECT_EQ(systemSharedFiles().open(folder / "fixed", OpenMode::readWrite).error().kind, ErrorKind::denied);
  EXPECT_TRUE(systemSharedFiles().open(folder / "fixed", OpenMode::readOnly).ok());
}

TEST(PosixSettings, liesWhereTheDesktopSays) {
  const TempFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  systemSettings("My/App")->set("Settings", "Left", "12");
  EXPECT_EQ(systemSettings("My/App")->get("Settings", "Left", ""), "12");
  EXPECT_TRUE(systemFiles().exists(folder / "plinth/My_App.ini"));
  ::unsetenv("XDG_CONFIG_HOME");
}

// One environment for the length of a test.
class PosixLocale : public testing::Test {
 protected:
  void use(const std::string& name) {
    const std::string compile =
        "localedef -i " + name + " -f UTF-8 '" + (folder_ / (name + ".UTF-8")) + "' 2>/dev/null";
    if (std::system(compile.c_str()) < 0 || !fs::exists(folder_ / (name + ".UTF-8")))
      GTEST_SKIP() << "no localedef here";
    ::setenv("LOCPATH", folder_.path().c_str(), 1);
    ::setenv("LC_ALL", (name + ".UTF-8").c_str(), 1);
  }
  void TearDown() override {
    ::unsetenv("LOCPATH");
    ::unsetenv("LC_ALL");
  }
  TempFolder folder_;
};

TEST_F(PosixLocale, tellsGermanForms) {
  use("de_DE");
  if (IsSkipped()) return;
  const Locale locale = systemLocale();
  EXPECT_EQ(locale.codePage, 1252);
  EXPECT_EQ(locale.decimalSeparator, ',');
  EXPECT_EQ(locale.groupSeparator, ".");
  EXPECT_EQ(locale.currencySymbol, "\x80");
  EXPECT_EQ(locale.positiveCurrencyFormat, 3);
  EXPECT_EQ(locale.negativeCurrencyFormat, 8);
  EXPECT_EQ(locale.shortDatePattern, "dd.MM.yyyy");
  EXPECT_EQ(locale.dateSeparator, '.');
  EXPECT_EQ(locale.timePattern, "HH:mm:ss");
  EXPECT_EQ(locale.monthNames[2], "M\xE4rz");
  EXPECT_EQ(locale.dayNames[0], "Sonntag");
  EXPECT_EQ(std::string(::setlocale(LC_ALL, nullptr)), "C") << "the program's own locale stays";
}

TEST_F(PosixLocale, writesTextsInThePageOfTheLanguage) {
  use("ru_RU");
  if (IsSkipped()) return;
  const Locale locale = systemLocale();
  EXPECT_EQ(locale.codePage, 1251);
  EXPECT_EQ(locale.groupSeparator, "\xA0") << "a thin blank becomes one that the page has";
  EXPECT_EQ(locale.dayNames[1], "\xCF\xEE\xED\xE5\xE4\xE5\xEB\xFC\xED\xE8\xEA");
}

TEST_F(PosixLocale, isEnglishWhereTheSystemKnowsNoPerson) {
  for (const char* name : {"C", "POSIX", "C.UTF-8", "no_SUCH.UTF-8"}) {
    ::setenv("LC_ALL", name, 1);
    const Locale locale = systemLocale();
    EXPECT_EQ(locale.groupSeparator, ",") << name;
    EXPECT_EQ(locale.shortDatePattern, "M/d/yyyy") << name;
    EXPECT_EQ(locale.currencySymbol, "$") << name;
  }
}

TEST(PosixCodec, convertsDoubleBytePages) {
  installSystemCodec();
  const struct {
    int page;
    const char *bytes, *utf8;
  } cases[] = {{932, "\x93\xFA\x96{\x5C", "日本\\"},
               {936, "\xD6\xD0\xCE\xC4", "中文"},
               {949, "\xC7\xD1", "한"},
               {950, "\xA4\xA4", "中"}};
  for (const auto& c : cases) {
    EXPECT_EQ(toUtf8(c.bytes, c.page), c.utf8);
    EXPECT_EQ(fromUtf8(c.utf8, c.page), c.bytes);
  }
  EXPECT_EQ(fromUtf8("a\xF0\x9F\x98\x80z", 932), "a?z") << "one stand-in for a pair of surrogates";
  EXPECT_EQ(toUtf8("a\x93", 932), "a\xEF\xBF\xBD") << "half a character at the end";
}

}  // namespace
}  // namespace plinth
