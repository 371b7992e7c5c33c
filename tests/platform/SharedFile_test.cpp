// The promises of SharedFile, kept by the real disk and by the one in memory alike, and between two programs:
// this one starts itself a second time.
#include "platform/SharedFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/Shell.h"
#include "tests/fakes/MemorySharedFiles.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

std::string textAt(SharedFile& file, std::int64_t offset, std::size_t count) {
  Bytes bytes(count);
  const Result<std::size_t> read = file.read(offset, bytes);
  return read.ok() ? std::string(bytes.begin(), bytes.begin() + *read) : "error " + read.error().text;
}

class SharedFileTest : public testing::TestWithParam<bool> {
 protected:
  std::unique_ptr<SharedFile> open(OpenMode mode = OpenMode::readWrite) {
    Result<std::unique_ptr<SharedFile>> opened = files().open(path(), mode);
    EXPECT_TRUE(opened.ok()) << opened.error().text;
    return opened.ok() ? std::move(*opened) : nullptr;
  }
  SharedFiles& files() { return GetParam() ? static_cast<SharedFiles&>(memory_) : systemSharedFiles(); }
  std::string path() const { return folder_ / "data.qdf"; }
  TempFolder folder_;
  MemorySharedFiles memory_;
};

INSTANTIATE_TEST_SUITE_P(Disk, SharedFileTest, testing::Values(false, true),
                         [](const auto& info) { return info.param ? "memory" : "system"; });

TEST_P(SharedFileTest, readsAndWritesAtPositions) {
  const auto file = open();
  ASSERT_TRUE(file->write(3, bytesOf("abc")).ok());
  EXPECT_EQ(*file->size(), 6);
  EXPECT_EQ(textAt(*file, 0, 100), std::string("\0\0\0abc", 6)) << "the gap is zeros, the end cuts the count";
  EXPECT_EQ(textAt(*file, 6, 4), "");
  EXPECT_EQ(textAt(*file, 1000, 4), "");
  ASSERT_TRUE(file->write(4, bytesOf("X")).ok());
  const auto reader = open(OpenMode::readOnly);
  EXPECT_EQ(textAt(*reader, 3, 3), "aXc") << "another handle sees it at once";
  EXPECT_EQ(reader->write(0, bytesOf("x")).error().kind, ErrorKind::denied);
  EXPECT_FALSE(file->read(-1, std::span<std::uint8_t>()).ok() && file->write(-1, bytesOf("x")).ok());
}

TEST_P(SharedFileTest, emptiesAFileThatIsToBeMadeAnew) {
  const auto before = open();
  ASSERT_TRUE(before->write(0, bytesOf("a long text")).ok());
  const auto file = open(OpenMode::emptied);
  EXPECT_EQ(*before->size(), 0);
  ASSERT_TRUE(file->write(0, bytesOf("new")).ok());
  EXPECT_EQ(textAt(*before, 0, 20), "new");
}

TEST_P(SharedFileTest, opensOnlyWhatItMay) {
  EXPECT_EQ(files().open(path(), OpenMode::readOnly).error().kind, ErrorKind::notFound);
  if (GetParam()) memory_.disk->folders.insert(MemoryDisk::clean(folder_.path()));
  EXPECT_EQ(files().open(folder_.path(), OpenMode::readWrite).error().kind, ErrorKind::denied);
}

TEST_P(SharedFileTest, locksExcludeOtherHandlesOnly) {
  const auto mine = open(), other = open();
  ASSERT_TRUE(mine->lock(100, 10).ok());
  const struct {
    std::int64_t offset, count;
    bool free;
  } cases[] = {{90, 10, true},  {110, 1, true},   {99, 2, false},
               {105, 1, false}, {109, 50, false}, {0, 4000, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.offset) + "+" + std::to_string(c.count));
    EXPECT_EQ(*other->lockedByOther(c.offset, c.count), !c.free);
    EXPECT_FALSE(*mine->lockedByOther(100, 10)) << "one's own lock is no other's";
    const Result<void> locked = other->lock(c.offset, c.count);
    EXPECT_EQ(locked.error().kind, c.free ? ErrorKind::none : ErrorKind::locked);
    EXPECT_TRUE(other->unlock(c.offset, c.count).ok());
  }
  EXPECT_TRUE(mine->lock(100, 10).ok()) << "locking again what one holds";
  EXPECT_TRUE(mine->unlock(100, 10).ok());
  EXPECT_TRUE(other->lock(100, 10).ok());
  for (const std::int64_t count : {std::int64_t{0}, std::int64_t{-1}})
    EXPECT_EQ(mine->lock(5, count).error().kind, ErrorKind::wrongUsage);
}

TEST_P(SharedFileTest, closingReleasesItsOwnLocksOnly) {
  const auto mine = open();
  auto other = open();
  ASSERT_TRUE(mine->lock(1, 1).ok());
  ASSERT_TRUE(other->lock(2, 1).ok());
  other.reset();
  EXPECT_TRUE(mine->lock(2, 1).ok());
  EXPECT_TRUE(*open()->lockedByOther(1, 1)) << "another handle's end must not drop this lock";
}

TEST(SystemSharedFile, reachesBeyondFourGigabytes) {
  constexpr std::int64_t kFar = 5'000'000'000;
  const TempFolder folder;
  const auto file = std::move(*systemSharedFiles().open(folder / "far", OpenMode::readWrite));
  const auto other = std::move(*systemSharedFiles().open(folder / "far", OpenMode::readWrite));
  ASSERT_TRUE(file->write(kFar, bytesOf("end")).ok());
  EXPECT_EQ(*file->size(), kFar + 3);
  EXPECT_EQ(textAt(*other, kFar + 1, 9), "nd");
  ASSERT_TRUE(file->lock(kFar, 1).ok());
  EXPECT_TRUE(*other->lockedByOther(kFar, 1));
  EXPECT_FALSE(*other->lockedByOther(kFar & 0xFFFFFFFF, 1)) << "no offset cut to 32 bits";
}

// ---- Two programs. The second is this one again: the variable makes it do as told before any test begins.

constexpr char kPeerVariable[] = "PLINTH_TEST_LOCK_PEER";
enum PeerAnswer { kGotLock = 10, kRefused = 11, kBroken = 12 };

// Tries to lock byte 7 of the file and ends without unlocking it.
int actAsPeer(const std::string& path) {
  const auto file = systemSharedFiles().open(path, OpenMode::readWrite);
  if (!file.ok()) return kBroken;
  const bool seen = *(*file)->lockedByOther(7, 1);
  const Result<void> locked = (*file)->lock(7, 1);
  if (seen == locked.ok()) return kBroken;
  if (!locked.ok()) return locked.error().kind == ErrorKind::locked ? kRefused : kBroken;
  return (*file)->write(7, bytesOf("P")).ok() ? kGotLock : kBroken;
}

[[maybe_unused]] const bool kActedAsPeer = [] {
  if (const char* path = std::getenv(kPeerVariable)) std::_Exit(actAsPeer(path));
  return false;
}();

int runPeer(const std::string& path) {
#ifdef _WIN32
  _putenv((std::string(kPeerVariable) + "=" + path).c_str());
  const int answer = systemShell().runAndWait("\"" + std::string(_pgmptr) + "\"");
  _putenv((std::string(kPeerVariable) + "=").c_str());
#else
  setenv(kPeerVariable, path.c_str(), 1);
  const int answer =
      systemShell().runAndWait("'" + std::filesystem::read_symlink("/proc/self/exe").string() + "'");
  unsetenv(kPeerVariable);
#endif
  return answer;
}

TEST(SystemSharedFile, locksExcludeOtherPrograms) {
  const TempFolder folder;
  const std::string path = folder / "shared";
  const auto mine = std::move(*systemSharedFiles().open(path, OpenMode::readWrite));
  ASSERT_TRUE(mine->lock(7, 1).ok());
  EXPECT_EQ(runPeer(path), kRefused);
  ASSERT_TRUE(mine->unlock(7, 1).ok());
  EXPECT_EQ(runPeer(path), kGotLock);
  EXPECT_EQ(textAt(*mine, 7, 1), "P");
  EXPECT_TRUE(mine->lock(7, 1).ok()) << "a program that has ended holds nothing";
}

}  // namespace
}  // namespace plinth
