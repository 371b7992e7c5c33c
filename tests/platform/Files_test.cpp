// The promises of Files, kept by the real disk and by the one in memory alike.
#include "platform/Files.h"

#include <gtest/gtest.h>

#include "tests/fakes/MemoryFiles.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class FilesTest : public testing::TestWithParam<bool> {
 protected:
  Files& files() { return GetParam() ? static_cast<Files&>(memory_) : systemFiles(); }
  Result<void> write(const std::string& path, std::string_view text) {
    return files().write(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  }
  std::string textOf(const std::string& path) {
    const Result<Bytes> bytes = files().read(path);
    return bytes.ok() ? std::string(bytes->begin(), bytes->end()) : "error " + bytes.error().text;
  }
  void setReadOnly(const std::string& path, bool readOnly) {
    memory_.setReadOnly(path, readOnly);
    if (!GetParam())
      fs::permissions(path, fs::perms::owner_write,
                      readOnly ? fs::perm_options::remove : fs::perm_options::add);
  }
  TempFolder folder_;
  MemoryFiles memory_;
};

INSTANTIATE_TEST_SUITE_P(Disk, FilesTest, testing::Values(false, true),
                         [](const auto& info) { return info.param ? "memory" : "system"; });

TEST_P(FilesTest, replacesWholeFiles) {
  const std::string path = folder_ / "a.qvf";
  EXPECT_EQ(files().read(path).error().kind, ErrorKind::notFound);
  ASSERT_TRUE(files().makeFolder(folder_.path()).ok());
  for (const std::string_view text : {std::string_view("a long first text"), std::string_view("short"),
                                      std::string_view("\0\r\n\x1A\xFF", 5), std::string_view("")}) {
    ASSERT_TRUE(write(path, text).ok());
    EXPECT_EQ(textOf(path), text);
  }
  ASSERT_TRUE(write(path, "kept").ok());
  ASSERT_TRUE(files().copy(path, folder_ / "b.qvf").ok());
  EXPECT_EQ(textOf(folder_ / "b.qvf"), "kept");
  EXPECT_EQ(files().list(folder_.path()), (Names{"a.qvf", "b.qvf"})) << "no neighbour is left behind";
  ASSERT_TRUE(files().removeFile(path).ok());
  EXPECT_FALSE(files().exists(path));
  EXPECT_EQ(files().removeFile(path).error().kind, ErrorKind::notFound);
  EXPECT_EQ(files().copy(path, folder_ / "c").error().kind, ErrorKind::notFound);
}

TEST_P(FilesTest, refusesReadOnlyFilesAndFolders) {
  const std::string path = folder_ / "fixed";
  ASSERT_TRUE(files().makeFolder(folder_.path()).ok());
  ASSERT_TRUE(write(path, "old").ok());
  EXPECT_FALSE(files().isReadOnly(path));
  setReadOnly(path, true);
  EXPECT_TRUE(files().isReadOnly(path));
  EXPECT_EQ(write(path, "new").error().kind, ErrorKind::denied);
  EXPECT_EQ(files().removeFile(path).error().kind, ErrorKind::denied);
  EXPECT_EQ(textOf(path), "old");
  EXPECT_EQ(write(folder_.path(), "new").error().kind, ErrorKind::denied);
  EXPECT_EQ(files().list(folder_.path()), Names{"fixed"});
  setReadOnly(path, false);
}

TEST_P(FilesTest, makesAndListsFolders) {
  const std::string deep = folder_ / "one" + "/two\\three";
  ASSERT_TRUE(files().makeFolder(deep).ok());
  ASSERT_TRUE(files().makeFolder(deep).ok()) << "fine when it exists";
  ASSERT_TRUE(write(deep + "/z.txt", "z").ok());
  ASSERT_TRUE(write(folder_ / "one/a.txt", "a").ok());
  EXPECT_TRUE(files().isFolder(folder_ / "one/two"));
  EXPECT_FALSE(files().isFolder(folder_ / "one\\a.txt"));
  EXPECT_TRUE(files().exists(folder_ / "one\\two\\three\\z.txt"));
  EXPECT_EQ(files().listFolders(folder_ / "one"), Names{"two"});
  EXPECT_EQ(files().list(folder_ / "one"), Names{"a.txt"});
  EXPECT_TRUE(files().list(folder_ / "nowhere").empty());
  EXPECT_FALSE(files().makeFolder(folder_ / "one/a.txt").ok());
}

TEST(SystemFiles, failsWhereThereIsNoFolder) {
  const TempFolder folder;
  const Bytes bytes{1, 2, 3};
  EXPECT_EQ(systemFiles().write(folder / "missing/file", bytes).error().kind, ErrorKind::notFound);
  EXPECT_EQ(systemFiles().read(folder.path()).error().kind, ErrorKind::denied);
  EXPECT_TRUE(systemFiles().isFolder(systemFiles().currentFolder()));
  EXPECT_TRUE(systemFiles().isFolder(systemFiles().temporaryFolder()));
}

TEST(MemoryFiles, failsAsATestDemands) {
  MemoryFiles files;
  files.put("/a", "12345");
  files.disk->capacity = 8;
  const Bytes four(4);
  EXPECT_EQ(files.write("/b", four).error().kind, ErrorKind::full);
  EXPECT_TRUE(files.write("/a", four).ok()) << "the old bytes make room for the new";
  files.disk->failWrites = ErrorKind::locked;
  EXPECT_EQ(files.write("/a", four).error().kind, ErrorKind::locked);
  files.disk->failReads = ErrorKind::failed;
  EXPECT_EQ(files.read("/a").error().kind, ErrorKind::failed);
}

}  // namespace
}  // namespace plinth
