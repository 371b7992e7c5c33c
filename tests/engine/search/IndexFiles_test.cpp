// What stands in index files, byte by byte, and how whole, cut and damaged ones are read.
#include "engine/search/IndexFiles.h"

#include <gtest/gtest.h>

#include "basic/DisplayFormat.h"
#include "tests/engine/search/SortFixture.h"

namespace plinth {
namespace {

TEST(IndexFiles, HoldTheValuesDownAndUp) {
  for (const bool scramble : {false, true}) {
    SortFixture shop(scramble);
    const RecordKey name = shop.field(1);
    for (const char* text : {"Smith, J", "", " a\r\nb"}) shop.addText(name, text);
    ASSERT_EQ(*shop.build(name), IndexEnd::done);
    EXPECT_EQ(shop.index("Name", "0"), "3\r\n a  b\r\n\r\nSmith, J\r\n") << scramble;
    EXPECT_EQ(shop.index("Name", "1"), "Smith, J\r\n\r\n a  b\r\n") << "a line end inside is a blank";
    shop.addNumber(shop.field(2), std::int64_t{-15000});
    ASSERT_TRUE(shop.build(shop.field(2)).ok());
    EXPECT_TRUE(shop.index("Price", "1").ends_with("\r\n-1.5\r\n")) << scramble;
  }
}

TEST(IndexFiles, WriteEachKindInItsOwnForm) {
  SortFixture shop;
  const auto scaled = [&](int field, std::int64_t value) {
    Bytes bytes(8);
    std::memcpy(bytes.data(), &value, 8);
    return indexValue(shop.field(field), bytes, englishLocale());
  };
  EXPECT_EQ(scaled(2, 12345678), "1234.5678");
  EXPECT_EQ(scaled(2, 100), "0.01");
  EXPECT_EQ(scaled(2, INT64_MIN), "-922337203685477.5808");
  EXPECT_EQ(scaled(4, 450005000), "45000.5") << "a date by its serial";
  EXPECT_EQ(indexValue(shop.field(3), Bytes{0xFE, 0xFF, 0xFF, 0xFF}, englishLocale()), "-2");
  EXPECT_EQ(indexValue(shop.key(FocusKind::check, 0), Bytes{2}, englishLocale()), "2");
  EXPECT_EQ(indexValue(shop.field(7), Bytes{'1', '8', ':', '0', '0', ' ', ' ', 0}, englishLocale()), "0.75");
  for (const double value :
       {0.0, -0.0, 12.5, -0.0001, 1e-5, 123456789.1234, 1e15, 0.1 + 0.2, 1.0 / 3, -1e300}) {
    Bytes bytes(8);
    std::memcpy(bytes.data(), &value, 8);
    EXPECT_EQ(indexValue(shop.field(6), bytes, englishLocale()), plainNumber(value));
  }
}

TEST(IndexFiles, AreMadeForFieldsCombosAndChecksInTheDataFolder) {
  SortFixture shop;
  EXPECT_TRUE(canIndex(shop.field(1)) && canIndex(shop.key(FocusKind::combo, 1)) &&
              canIndex(shop.key(FocusKind::check, 0)));
  EXPECT_FALSE(canIndex(shop.key(FocusKind::memo, 1)) || canIndex(shop.key(FocusKind::dateStamp, 0)));
  EXPECT_EQ(shop.build(shop.key(FocusKind::memo, 1)).error().kind, ErrorKind::wrongUsage);
  EXPECT_EQ(indexFilePath(shop.data, "../a\\b:c", IndexDirection::up, 1252), "/data/Shop.._a_b_c-1.inx");
}

TEST(IndexFiles, LeaveWhatACancelledOrFailedBuildWrote) {
  SortFixture shop;
  for (int n = 0; n < 1000; ++n) shop.addText(shop.field(1), std::to_string(n));
  ASSERT_EQ(*shop.build(shop.field(1)), IndexEnd::done);
  EXPECT_EQ(shop.progress.titles.front(), "Indexing Name");
  EXPECT_EQ(shop.progress.lastTotal, 2000);
  shop.progress.cancelAtStep = shop.progress.steps + 1;
  ASSERT_EQ(*shop.build(shop.field(1)), IndexEnd::cancelled);
  auto reader = IndexReader::open(shop.shared, "/data/ShopName-0.inx", IndexDirection::down);
  ASSERT_TRUE(reader);
  EXPECT_EQ(reader->count(), 1000);
  std::string last;
  int lines = 0;
  while (const auto line = reader->line()) {
    last = *line;
    ++lines;
  }
  EXPECT_EQ(lines, 600);
  EXPECT_EQ(last, "400");
  EXPECT_EQ(shop.progress.titles.back(), "");

  shop.progress.cancelAtStep = 0;
  shop.disk->failWrites = ErrorKind::full;
  EXPECT_EQ(shop.build(shop.field(1)).error().kind, ErrorKind::full);
  EXPECT_EQ(shop.index("Name", "0"), "") << "no half a value";
  shop.shared.failOpen = ErrorKind::denied;
  EXPECT_EQ(shop.build(shop.field(1)).error().kind, ErrorKind::denied);
}

// More records than one block has: with room for no line, for those of the first block and for all.
TEST(IndexFiles, AreTheSameWhetherTheirLinesFitInMemory) {
  SortFixture shop;
  constexpr int kRecords = 6000;
  std::string up;
  for (int n = 0; n < kRecords; ++n) {
    shop.addText(shop.field(1), std::to_string(n));
    up += std::to_string(n) + "\r\n";
  }
  ASSERT_GT(kRecords * shop.store->layout().recLen, 512 * 1024);
  for (const std::size_t kept : {std::size_t{0}, std::size_t{30000}, kIndexKeptBytes}) {
    shop.progress.cancelAtStep = 0;
    const auto build = [&] {
      return *buildIndex(*shop.store, shop.field(1), shop.data, shop.app, englishLocale(), shop.shared, shop.progress, {},
                         kept);
    };
    ASSERT_EQ(build(), IndexEnd::done);
    EXPECT_TRUE(shop.index("Name", "1") == up) << kept;
    EXPECT_TRUE(shop.index("Name", "0").starts_with("6000\r\n5999\r\n5998\r\n"));
    EXPECT_TRUE(shop.index("Name", "0").ends_with("\r\n1\r\n0\r\n"));
    EXPECT_EQ(shop.index("Name", "0").size(), up.size() + 6);
    shop.progress.cancelAtStep = shop.progress.steps + 11;
    ASSERT_EQ(build(), IndexEnd::cancelled);
    const std::string cut = shop.index("Name", "1");
    EXPECT_TRUE(!cut.empty() && cut.size() < up.size() && cut.ends_with("\r\n") && up.starts_with(cut));
  }
}

// A lock on a record's first byte hides no key but one that begins there.
TEST(IndexFiles, HaveAnEmptyLineForARecordThatCannotBeRead) {
  SortFixture shop;
  for (const char* text : {"a", "b", "c"}) shop.addText(shop.field(1), text);
  const auto other = std::move(*shop.shared.open(shop.data.path(), OpenMode::readWrite));
  ASSERT_TRUE(other->lock(3 * shop.store->layout().recLen - 1, 1).ok());
  std::vector<std::int32_t> unreadable;
  ASSERT_TRUE(buildIndex(*shop.store, shop.field(1), shop.data, shop.app, englishLocale(), shop.shared, shop.progress,
                         [&](std::int32_t record) { unreadable.push_back(record); })
                  .ok());
  EXPECT_EQ(unreadable, std::vector<std::int32_t>{3}) << "told once for both files";
  EXPECT_EQ(shop.index("Name", "1"), "a\r\nb\r\n\r\n");
  EXPECT_EQ(shop.index("Name", "0"), "3\r\n\r\nb\r\na\r\n");
}

TEST(IndexReader, TakesWholeLinesOrValues) {
  struct Case {
    std::string file;
    std::vector<std::string> lines, values;
  };
  const std::string longText(300000, 'x');
  for (const Case& one : {Case{"", {}, {}}, Case{"a, b\r\n\r\nc\n", {"a, b", "", "c"}, {"a", " b", "", "c"}},
                          Case{"1.5\r\ncut", {"1.5", "cut"}, {"1.5", "cut"}},
                          Case{longText + ",b\r\nc\r\n", {longText + ",b", "c"}, {longText, "b", "c"}}}) {
    MemoryFiles files;
    MemorySharedFiles shared(files.disk);
    files.put("/x-1.inx", one.file);
    auto byLine = *IndexReader::open(shared, "/x-1.inx", IndexDirection::up);
    auto byValue = *IndexReader::open(shared, "/x-1.inx", IndexDirection::up);
    std::vector<std::string> lines, values;
    while (const auto line = byLine.line()) lines.emplace_back(*line);
    while (const auto value = byValue.value()) values.emplace_back(*value);
    EXPECT_EQ(lines, one.lines);
    EXPECT_EQ(values, one.values);
  }
}

TEST(IndexReader, CountsNothingInADamagedFile) {
  for (const auto& [file, count] : std::vector<std::pair<std::string, std::int32_t>>{
           {"12\r\na\r\n", 12}, {"", 0}, {"-5\r\n", 0}, {"abc\r\n", 0}, {"1e300\r\n", INT32_MAX}}) {
    MemoryFiles files;
    MemorySharedFiles shared(files.disk);
    files.put("/x-0.inx", file);
    EXPECT_EQ(IndexReader::open(shared, "/x-0.inx", IndexDirection::down)->count(), count) << file;
    EXPECT_FALSE(IndexReader::open(shared, "/none-0.inx", IndexDirection::down));
  }
}

TEST(IndexReader, ReadsMoneyAndDatesExactly) {
  for (const auto& [line, scaled] :
       std::vector<std::pair<std::string, std::int64_t>>{{"1234.5678", 12345678},
                                                         {"-0.01", -100},
                                                         {"7", 70000},
                                                         {"", 0},
                                                         {"x", 0},
                                                         {"1.23456", 12346},
                                                         {"99999999999999", 999999999999990000},
                                                         {"-922337203685477.5808", INT64_MIN},
                                                         {"1e3", 10000000}})
    EXPECT_EQ(indexScaled(line), scaled) << line;
}

}  // namespace
}  // namespace plinth
