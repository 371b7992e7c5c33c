// Files of other makers against the dumps beside them: nothing skipped, every value, and the same bytes
// again.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "basic/Text.h"
#include "model/ProjectDescription.h"
#include "model/ProjectFile.h"
#include "tests/model/FlatJson.h"

namespace plinth {
namespace {

std::string fixture(const std::string& name) {
  std::ifstream file(std::string(PLINTH_TEST_DATA) + "/fixtures/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Bytes fixtureBytes(const std::string& name) {
  const std::string text = fixture(name);
  return Bytes(text.begin(), text.end());
}

FlatJson::Values described(const LoadResult& loaded, const PictureStore& pictures) {
  return FlatJson::of(describeProject(loaded.document, pictures, loaded.facts));
}

// Where a value of an old dump stands in the newest version; "" when it was given up.
std::string newPlace(const std::string& key) {
  if (key == "PageColorAll") return "PageColor[4]";
  if (key.starts_with("OldColumns"))
    return key.ends_with("Ignored") ? "" : "Form15.Text1" + key.substr(10, 3);
  if (key == "FormatVersion" || key.ends_with(".Dropped")) return "";
  return key;
}

double inNewUnits(const std::string& key, const std::string& value) {
  const double number = std::strtod(value.c_str(), nullptr);
  if (value.find('.') == std::string::npos) return number;
  return number * (key.ends_with("FontSize") ? 0.75 : 15);
}

class Fixture : public testing::TestWithParam<std::string> {
 protected:
  MemoryPictures pictures;
};

TEST_P(Fixture, LoadsWholeAndDescribesAsItsDump) {
  const LoadResult loaded = readProject(fixtureBytes(GetParam() + ".qvf"), pictures);
  ASSERT_TRUE(loaded.accepted);
  EXPECT_TRUE(loaded.complete) << loaded.skipped;
  EXPECT_TRUE(loaded.messages.empty());
  const FlatJson::Values expected = FlatJson::of(fixture(GetParam() + ".json"));
  const FlatJson::Values actual = described(loaded, pictures);
  const bool old = expected.at("FormatVersion") != "22";
  for (const auto& [key, value] : expected) {
    const std::string place = old ? newPlace(key) : key;
    if (place.empty()) continue;
    const auto found = actual.find(place);
    ASSERT_NE(found, actual.end()) << place;
    if (old && key.ends_with(".Formula")) {
      EXPECT_EQ(found->second, replaceAll(value, ":", "")) << place;
    } else if (!old || value.front() == '"' || value.front() == 't' || value.front() == 'f') {
      EXPECT_EQ(found->second, value) << place;
    } else {
      EXPECT_NEAR(std::strtod(found->second.c_str(), nullptr), inNewUnits(key, value), 1e-3) << place;
    }
  }
  if (!old) {
    EXPECT_EQ(actual.size(), expected.size());
  }
}

TEST_P(Fixture, SavesTheSameEachTimeAndReadsBackEqual) {
  LoadResult loaded = readProject(fixtureBytes(GetParam() + ".qvf"), pictures);
  const WriteOptions options{"C:\\Projects\\Saved.qvf", 45982};
  const Bytes first = writeProject(loaded.document, pictures, options).bytes;
  EXPECT_EQ(writeProject(loaded.document, pictures, options).bytes, first);
  const LoadResult again = readProject(first, pictures);
  EXPECT_TRUE(again.complete);
  FlatJson::Values before = described(loaded, pictures), after = described(again, pictures);
  for (const char* key : {"Caption", "SaveDate", "_file.end", "_file.size"}) {
    before.erase(key);
    after.erase(key);
  }
  EXPECT_EQ(after, before);
}

INSTANTIATE_TEST_SUITE_P(All, Fixture, testing::Values("contacts", "invoice", "empty", "old-v15"));

TEST(ProjectFixtures, NewestVersionIsWrittenByteForByte) {
  for (const std::string name : {"contacts", "invoice", "empty"}) {
    MemoryPictures pictures;
    const Bytes bytes = fixtureBytes(name + ".qvf");
    LoadResult loaded = readProject(bytes, pictures);
    const std::string path = loaded.facts.caption.substr(loaded.facts.caption.find("C:"));
    EXPECT_EQ(writeProject(loaded.document, pictures, {path, loaded.facts.saveDate}).bytes, bytes) << name;
  }
}

}  // namespace
}  // namespace plinth
