// The copy's own rules; when it is offered and dropped is told by DesignerShell_test.
#include "model/SafetyCopy.h"

#include <gtest/gtest.h>

#include "model/ProjectFile.h"
#include "tests/fakes/MemoryFiles.h"

namespace plinth {
namespace {

class SafetyCopyTest : public testing::Test {
 protected:
  bool tick(SafetyCopy& copy, std::int64_t seconds) {
    return copy.tick(document, pictures, "/d/shop.qvf", seconds);
  }
  std::string title(const std::string& path) {
    const Result<Bytes> bytes = files.read(path);
    if (!bytes.ok()) return "none";
    MemoryPictures none;
    return readProject(*bytes, none).document.appTitle;
  }

  MemoryFiles files;
  MemoryPictures pictures;
  ProjectDocument document;
  SafetyCopy one{files, "/tmp/copies/"}, two{files, "/tmp/copies/"};
};

TEST_F(SafetyCopyTest, IsWrittenEachMinuteOfUnsavedChangesOnly) {
  const struct {
    int seconds;
    bool dirty;
    const char *title, *copied;
  } steps[] = {{1000, false, "a", "none"}, {1100, true, "b", "none"}, {1159, true, "b", "none"},
               {1160, true, "c", "c"},     {1219, true, "d", "c"},    {1225, true, "e", "e"},
               {1226, false, "e", "e"},    {1300, true, "f", "e"},    {1361, true, "f", "f"},
               {5, true, "g", "f"},        {64, true, "g", "f"},      {65, true, "g", "g"}};
  for (const auto& step : steps) {
    document.dirty = step.dirty;
    document.appTitle = step.title;
    ASSERT_TRUE(tick(one, step.seconds));
    EXPECT_EQ(title("/tmp/copies/Safety1.qvf"), step.copied) << step.seconds;
    EXPECT_EQ(document.dirty, step.dirty);
  }
  const int writes = files.disk->writes;
  ASSERT_TRUE(tick(one, 200));
  EXPECT_EQ(files.disk->writes, writes);  // the same bytes
  one.discard();
  EXPECT_TRUE(files.list("/tmp/copies").empty());
}

TEST_F(SafetyCopyTest, KeepsApartFromCopiesOfOthers) {
  document.appTitle = "one";
  ASSERT_TRUE(one.write(document, pictures, "/d/one.qvf"));
  document.appTitle = "two";
  ASSERT_TRUE(two.write(document, pictures, ""));
  EXPECT_EQ(title("/tmp/copies/Safety1.qvf") + title("/tmp/copies/Safety2.qvf"), "onetwo");
  EXPECT_EQ(one.find()->originalPath, "");
  EXPECT_EQ(two.find()->originalPath, "/d/one.qvf");
  // The next run goes on from the first: the copy stays until the project is safe elsewhere.
  SafetyCopy next{files, "/tmp/copies/"};
  next.take(*two.find());
  EXPECT_EQ(title("/tmp/copies/Safety1.qvf"), "one");
  EXPECT_EQ(next.find()->copyPath, "/tmp/copies/Safety2.qvf");
  EXPECT_TRUE(next.remove(*next.find()));
  EXPECT_FALSE(next.find());
  document.appTitle = "three";
  ASSERT_TRUE(next.write(document, pictures, "/d/one.qvf"));
  EXPECT_EQ(title("/tmp/copies/Safety1.qvf"), "three");
  next.discard();
  EXPECT_TRUE(files.list("/tmp/copies").empty());
}

TEST_F(SafetyCopyTest, LeavesTheOpenProjectAsItIs) {
  document.pictures.resize(1);
  document.pictures[0].picturePath = "vanished.bmp";
  document.helpFile = "own.chm";
  ASSERT_TRUE(one.write(document, pictures, "/d/shop.qvf"));
  EXPECT_EQ(document.pictures[0].picturePath + document.helpFile, "vanished.bmpown.chm");
}

TEST_F(SafetyCopyTest, AFailureIsToldOnceAndTriedAgain) {
  document.dirty = true;
  files.put("/tmp/copies/other.txt", "not ours");
  files.disk->failWrites = ErrorKind::full;
  EXPECT_TRUE(tick(one, 0));
  EXPECT_FALSE(tick(one, 60));
  EXPECT_TRUE(tick(one, 120));
  EXPECT_FALSE(one.find());
  files.disk->failWrites.reset();
  EXPECT_TRUE(tick(one, 180));
  EXPECT_TRUE(two.find());
  document.appTitle = "later";
  files.disk->failWrites = ErrorKind::full;
  EXPECT_FALSE(tick(one, 240));  // another failure, another word
}

}  // namespace
}  // namespace plinth
