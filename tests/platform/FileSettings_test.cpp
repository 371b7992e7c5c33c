// Settings survive the text file they live in, whatever their bytes.
#include "platform/FileSettings.h"

#include <gtest/gtest.h>

#include "tests/fakes/MemoryFiles.h"

namespace plinth {
namespace {

TEST(FileSettings, keepsEveryValueThroughTheFile) {
  MemoryFiles files;
  FileSettings first(files, "/home/me/.config/plinth/Designer.ini"),
      second(files, "/home/me/.config/plinth/Designer.ini");
  const std::string texts[] = {"",         " blanks ", "a=b", "[x]", "100%", "%41", "two\r\nlines",
                               "\xC4\xFF", "[",        "=",   "%"};
  for (const std::string& text : texts) {
    first.set("Settings", "a", text);
    first.set(text, text + "k", "in section");
    second.set("settings", "B", "other program");
    EXPECT_EQ(second.get("SETTINGS", "A", "none"), text);
    EXPECT_EQ(second.get(text, text + "K", "none"), "in section") << text;
  }
  EXPECT_EQ(first.get("Settings", "b", "none"), "other program");
  EXPECT_EQ(first.get("Settings", "c", "none"), "none");
}

TEST(FileSettings, takesWhatPeopleWriteByHand) {
  MemoryFiles files;
  files.put("/s.ini", "lost\r\n[Settings]\r\nLeft=10\r\n=x\n[broken\nTop=%zz%4\n");
  const FileSettings settings(files, "/s.ini");
  EXPECT_EQ(settings.get("Settings", "left", ""), "10");
  EXPECT_EQ(settings.get("Settings", "Top", ""), "%zz%4");
}

TEST(FileSettings, goesOnWithoutADisk) {
  MemoryFiles files;
  files.disk->failWrites = ErrorKind::full;
  FileSettings settings(files, "/s.ini");
  settings.set("a", "b", "c");
  EXPECT_EQ(settings.get("a", "b", "fallback"), "fallback");
}

}  // namespace
}  // namespace plinth
