// Tab positions against the literal sweep, Plinth.ini, language texts, pictures on disk, digests.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "model/AssignTab.h"
#include "model/Digest.h"
#include "model/LanguageTexts.h"
#include "model/PictureStore.h"
#include "model/RecentFiles.h"
#include "tests/fakes/MemoryFiles.h"

namespace plinth {
namespace {

// The sweep as it was first told: each wanted number, each index, each kind. `memos`: the highest that
// counts.
std::vector<int> sweptTabs(const ProjectDocument& d, int memos) {
  std::vector<std::vector<int>> tabs(4), ranks(4);
  for (const FieldRow& row : d.fields) tabs[0].push_back(row.tabOrder);
  for (const MemoRow& row : d.memos) tabs[1].push_back(row.tabOrder);
  for (const ComboRow& row : d.combos) tabs[2].push_back(row.tabOrder);
  for (const CheckRow& row : d.checks) tabs[3].push_back(row.tabOrder);
  tabs[1].resize(static_cast<std::size_t>(memos) + 1);
  const int n = d.fieldCount() + memos + d.comboCount() + d.checkCount() + 100;
  int rank = 0;
  for (int kind = 0; kind < 4; ++kind) ranks[kind].resize(tabs[kind].size());
  const auto sweep = [&](const std::function<bool(int tab, int rank)>& takes) {
    for (int j = 1; j <= n; ++j)
      for (int kind = 0; kind < 4; ++kind) {
        const std::size_t i = kind == 3 ? j - 1 : j;
        if (i < tabs[kind].size() && takes(tabs[kind][i], ranks[kind][i])) {
          ranks[kind][i] = ++rank;
          tabs[kind][i] = 30000;
        }
      }
  };
  for (int t = 1; t <= n; ++t) sweep([t](int tab, int) { return tab == t; });
  sweep([](int, int taken) { return taken == 0; });
  std::vector<int> all;
  for (int kind = 0; kind < 4; ++kind)
    all.insert(all.end(), ranks[kind].begin() + (kind < 3), ranks[kind].end());
  return all;
}

TEST(AssignTab, EqualsTheSweep) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    ProjectDocument d;
    const auto fill = [&](auto& rows, std::size_t least) {
      rows.resize(least + random() % 12);
      for (auto& row : rows)
        row.tabOrder = static_cast<std::int16_t>(random() % 20) - 3 + (random() % 9 ? 0 : 5000);
    };
    fill(d.fields, 1);
    fill(d.memos, 2);
    fill(d.combos, 1);
    fill(d.checks, 0);
    d.memos[1].page = random() % 2 ? 0 : kPageVacant;
    const int memos = d.memos.size() == 2 && d.memos[1].page == kPageVacant ? 0 : d.memoCount();
    const std::vector<int> expected = sweptTabs(d, memos);
    assignTab(d);
    std::vector<int> actual;
    for (std::size_t i = 1; i < d.fields.size(); ++i) actual.push_back(d.fields[i].tabOrder);
    for (int i = 1; i <= memos; ++i) actual.push_back(d.memos[static_cast<std::size_t>(i)].tabOrder);
    for (std::size_t i = 1; i < d.combos.size(); ++i) actual.push_back(d.combos[i].tabOrder);
    for (const CheckRow& row : d.checks) actual.push_back(row.tabOrder);
    ASSERT_EQ(actual, expected) << round;
  }
}

TEST(RecentFiles, KeepsFiveNewestFirstAndSurvivesDamage) {
  RecentFiles recent;
  for (const char* path : {"a", "b", "c", "d", "e", "f"}) EXPECT_TRUE(recent.add(path));
  EXPECT_FALSE(recent.add("C"));
  EXPECT_EQ(recent.paths, (std::array<std::string, 5>{"f", "e", "d", "c", "b"}));
  recent.paths[2] = std::string(126, 'x');
  recent.paths[3] = std::string(127, 'y');  // does not fit
  recent.language = "English";
  Bytes bytes = writeRecentFiles(recent);
  ASSERT_EQ(bytes.size(), 768u);
  RecentFiles read = readRecentFiles(bytes);
  EXPECT_EQ(read.paths, (std::array<std::string, 5>{"f", "e", std::string(126, 'x'), "", "b"}));
  EXPECT_EQ(read.language, "English");
  bytes[0] = bytes[1] = 0xFF;
  EXPECT_EQ(readRecentFiles(bytes).paths[0], "");
  EXPECT_EQ(readRecentFiles(bytes).paths[1], "e");
  for (std::size_t size = 0; size < bytes.size(); size += 50) readRecentFiles(std::span(bytes).first(size));
  bytes.resize(640);  // from before a language was chosen
  EXPECT_EQ(readRecentFiles(bytes).language, "");
}

TEST(LanguageTexts, LinesAreNumbersWhateverTheirEnd) {
  std::string file = "one\r\ntwo *\r\n";
  for (int i = 3; i <= 300; ++i) file += "text" + std::to_string(i) + "\n";
  LanguageTexts texts;
  EXPECT_TRUE(texts.empty());
  texts.load(file + "204\r\nArial CYR\r\n");
  EXPECT_EQ(texts.text(101), "one");
  EXPECT_EQ(texts.text(102, "C:\\a"), "two C:\\a");
  EXPECT_EQ(texts.text(400), "text300");
  EXPECT_EQ(texts.text(100) + texts.text(401) + texts.text(-1), "");
  EXPECT_EQ(texts.charSet(), 204);
  EXPECT_EQ(texts.fontName(), "Arial CYR");
  texts.load("short");
  EXPECT_EQ(texts.text(400), "");
  EXPECT_EQ(texts.charSet(), 0);
}

TEST(LanguageCode, DependsOnTheNameAlone) {
  const struct {
    const char* name;
    bool menu;
    int code;
  } cases[] = {{"Russian", false, 6},
               {"Swedish", true, 5},
               {"Dutch", false, 2},
               {"Spanish (Standard)", true, 7},
               {"Spanish (Standard)", false, 1},
               {"English", true, 1}};
  for (const auto& [name, menu, code] : cases) EXPECT_EQ(languageCodeOf(name, 1, menu), code) << name;
}

TEST(DiskPictures, LiveInTheirFolder) {
  MemoryFiles files;
  DiskPictures pictures(files, "/tmp/PicTemp/");
  const Bytes bytes{1, 2};
  EXPECT_EQ(*pictures.put("a.bmp", bytes), "/tmp/PicTemp/a.bmp");
  EXPECT_EQ(pictures.get("/tmp/PicTemp/a.bmp"), bytes);
  EXPECT_FALSE(pictures.exists("/tmp/PicTemp"));
  files.disk->failWrites = ErrorKind::full;
  EXPECT_FALSE(pictures.put("b.bmp", bytes).ok());
}

TEST(Digest, KnownValues) {
  EXPECT_EQ(sha256({}), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  const std::string text = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
  const Bytes bytes(text.begin(), text.end());
  EXPECT_EQ(sha256(bytes), "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

}  // namespace
}  // namespace plinth
