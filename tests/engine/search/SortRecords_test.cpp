// Orders of all kinds of keys, with and without an index, and the one order that equal numbers come out in.
#include "engine/search/SortRecords.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

#include "basic/CodePage.h"
#include "engine/search/KeySort.h"
#include "engine/search/TextOrder.h"
#include "tests/engine/search/SortFixture.h"

namespace plinth {
namespace {

using Order = std::vector<std::int32_t>;

Result<SortedRecords> sorted(SortFixture& shop, const RecordKey& key, Order* unreadable = nullptr) {
  return sortRecords(key, {*shop.store, shop.app, shop.shared, shop.data, englishLocale(), shop.progress,
                           [=](std::int32_t record) {
                             if (unreadable) unreadable->push_back(record);
                           }});
}

TEST(KeySort, LeavesEqualNumbersAsShellSortDoes) {
  std::mt19937 random(7);
  for (const std::size_t count : {0, 1, 2, 3, 4, 5, 13, 14, 41, 200, 2500, 10000}) {
    // The last are two heaps of numbers that differ in their lowest bits only.
    for (const unsigned values : {1u, 3u, 50u, 4000000000u, 0u}) {
      std::vector<double> keys(count);
      for (double& key : keys)
        key = values ? static_cast<double>(random() % values) - 20
                     : (random() % 2 ? -1e200 : 1) * (1 + random() % 9000 * 0x1p-52);
      std::vector<PlacedKey> placed(count);
      for (std::size_t i = 0; i < count; ++i)
        placed[i] = {keyOfNumber(keys[i]), static_cast<std::uint32_t>(i)};
      Order order(count);
      std::iota(order.begin(), order.end(), 0);
      shellSort(keys, order);
      EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
      EXPECT_EQ(shellOrder(placed, [] { return true; }), order) << count << " of " << values;
    }
  }
  // Worked by hand: gaps 4 and 1. The last 1 moves before the second of the 2s by gap 4.
  std::vector<double> keys{2, 2, 3, 3, 1, 1};
  Order order{0, 1, 2, 3, 4, 5};
  shellSort(keys, order);
  EXPECT_EQ(order, (Order{4, 5, 0, 1, 2, 3}));
  std::vector<double> odd{3, std::nan(""), 1, 2, std::nan(""), 0};
  shellSort(odd, order);
}

TEST(KeySort, SortsTextsThatDifferLate) {
  constexpr std::size_t kCount = 5000, kWidth = 64;
  std::mt19937 random(3);
  std::vector<std::uint8_t> texts(kCount * kWidth, 'a');
  std::vector<PlacedKey> keys(kCount);
  Order expected(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    keys[i].place = static_cast<std::uint32_t>(i);
    expected[i] = static_cast<std::int32_t>(i);
    for (const std::size_t at : {7, 8, 30, 63})
      texts[i * kWidth + at] = static_cast<std::uint8_t>(random() % 4 + 254);
  }
  std::stable_sort(expected.begin(), expected.end(), [&](std::int32_t a, std::int32_t b) {
    const auto text = [&](std::int32_t n) { return texts.data() + static_cast<std::size_t>(n) * kWidth; };
    return std::memcmp(text(a), text(b), kWidth) < 0;
  });
  ASSERT_TRUE(sortTexts(keys, texts.data(), kWidth, [] { return true; }));
  for (std::size_t i = 0; i < kCount; ++i) ASSERT_EQ(static_cast<std::int32_t>(keys[i].place), expected[i]);
}

TEST(KeySort, StopsWithinAnyOfItsPasses) {
  constexpr std::size_t kCount = 100000, kWidth = 8;
  std::mt19937_64 random(5);
  std::vector<std::uint8_t> texts(kCount * kWidth);
  for (std::uint8_t& byte : texts) byte = static_cast<std::uint8_t>(random() % 3);
  std::vector<PlacedKey> numbers(kCount), places(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    numbers[i] = {random() % 50000, static_cast<std::uint32_t>(i)};
    places[i].place = static_cast<std::uint32_t>(i);
  }
  const auto questionsOf = [](auto sort) {
    int asked = 0, answered = 0;
    sort([&] { return ++asked, true; });
    for (int last = 1; last <= asked; ++last) {
      int left = last;
      answered += sort([&] { return --left > 0; });
      EXPECT_EQ(left, 0) << "goes on after question " << last;
    }
    EXPECT_EQ(answered, 0);
    return asked;
  };
  EXPECT_GE(questionsOf([&](const std::function<bool()>& goOn) {
              std::vector<PlacedKey> keys = places;
              return sortTexts(keys, texts.data(), kWidth, goOn);
            }),
            2);
  EXPECT_GE(
      questionsOf([&](const std::function<bool()>& goOn) { return !shellOrder(numbers, goOn).empty(); }), 5);
}

TEST(TextOrder, PutsAccentsBehindTheirLetterAndCaseAside) {
  struct Page {
    int codePage;
    std::u16string ascending;
  };
  for (const Page& page : {Page{1252, u" \t\u00A0!_09aäbcçnñoœzаж"}, Page{1250, u" .1aącčdsśšzźž"},
                           Page{1251, u" -5azгґеёжзиійкя"}, Page{1253, u"zαάβιίκω"}}) {
    const auto weights = textWeights(page.codePage);
    int before = -1;
    for (const char c : fromUtf16(page.ascending, page.codePage)) {
      if (c == '?') continue;  // a letter of another page
      const int weight = weights[static_cast<unsigned char>(c)];
      EXPECT_GT(weight, before) << page.codePage << " " << toUtf8(std::string(1, c), page.codePage);
      before = weight;
      const char capital = upperCase(std::string(1, c), page.codePage)[0];
      EXPECT_EQ(weights[static_cast<unsigned char>(capital)], weight);
    }
    EXPECT_EQ(weights[0], weights[' ']);
  }
  // The trail byte of the second looks like the small letter of the first.
  std::uint8_t one[4], other[4];
  const Bytes kana{0x83, 0x41, 'B'}, kanaToo{0x83, 0x61, 'b'};
  const TextOrder japanese(932, false);
  japanese.weigh(kana, one);
  japanese.weigh(kanaToo, other);
  EXPECT_EQ(one[2], other[2]);
  EXPECT_LT(std::memcmp(one, other, 4), 0);
}

TEST(SortRecords, OrdersTextsWithWhatStandsBehindThem) {
  for (const bool scramble : {false, true}) {
    SortFixture shop(scramble);
    const RecordKey name = shop.field(1);
    for (const char* text : {"berta", "Anna     Xz", "", "anna     Xa", "\xC4nne", "Zoe", "_x", "1"})
      shop.addText(name, text);
    const auto result = sorted(shop, name);
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result->order, (Order{3, 7, 8, 4, 2, 5, 1, 6})) << scramble;
    EXPECT_FALSE(result->usedIndex);
    EXPECT_EQ(shop.progress.titles.front(), runMessage(shop.app, 27));
  }
}

TEST(SortRecords, OrdersEachKindByItsValue) {
  for (const bool scramble : {false, true}) {
    for (const int n : {2, 3, 4, 6}) {
      SortFixture shop(scramble);
      for (const int value : {30, -200, 0, 5, 30}) {
        if (n == 6)
          shop.addNumber(shop.field(n), value / 8.0);
        else if (n == 3)
          shop.addNumber(shop.field(n), std::int32_t{value});
        else
          shop.addNumber(shop.field(n), std::int64_t{value});
      }
      EXPECT_EQ(sorted(shop, shop.field(n))->order, (Order{2, 3, 4, 1, 5})) << n;
      ASSERT_TRUE(shop.build(shop.field(n)).ok());
      const auto again = sorted(shop, shop.field(n));
      EXPECT_EQ(again->order, (Order{2, 3, 4, 1, 5})) << n;
      EXPECT_TRUE(again->usedIndex);
    }
    SortFixture shop(scramble);
    const RecordKey stamp = shop.key(FocusKind::dateStamp, 0);
    for (const double value : {2.0, 1.0}) shop.addNumber(stamp, static_cast<std::int64_t>(value));
    EXPECT_EQ(sorted(shop, stamp)->order, (Order{2, 1}));
    for (const double value : {std::nan(""), -1.0, HUGE_VAL}) shop.addNumber(shop.field(6), value);
    EXPECT_EQ(sorted(shop, shop.field(6))->order.back(), 5);
  }
}

TEST(SortRecords, TakesTheIndexHoweverOldAndTheDataForTheRest) {
  SortFixture shop;
  for (const char* text : {"b", "a", "c", "d", "0"}) shop.addText(shop.field(1), text);
  for (const auto& [file, order] : std::vector<std::pair<std::string, Order>>{
           {"9\r\n8\r\n7\r\n", {5, 3, 2, 1, 4}},                    // three lines, two records from the data
           {"", {5, 2, 1, 3, 4}},                                   // nothing in it
           {"y, z\r\nx\r\n", {2, 5, 4, 3, 1}},                      // shifted by the comma: y, " z", x
           {"5\r\n4\r\n3\r\n2\r\n1\r\n0\r\n", {5, 4, 3, 2, 1}}}) {  // more lines than records
    shop.files.put("/data/ShopName-1.inx", file);
    const auto result = sorted(shop, shop.field(1));
    EXPECT_EQ(result->order, order) << file;
    EXPECT_EQ(result->usedIndex, !file.empty());
  }
}

TEST(SortRecords, EndsWellWhenCancelledEmptyOrUnreadable) {
  SortFixture shop;
  EXPECT_TRUE(sorted(shop, shop.field(1))->order.empty());
  EXPECT_TRUE(sorted(shop, shop.field(2))->order.empty());
  EXPECT_EQ(shop.progress.uncancellable, (std::vector<std::string>{"Sorting..."})) << "texts only";
  for (int n = 0; n < 1300; ++n) shop.addText(shop.field(1), std::to_string(n % 10));
  for (const int n : {1, 2}) {
    shop.progress.cancelAtStep = shop.progress.steps + 2;
    const auto result = sorted(shop, shop.field(n));
    EXPECT_EQ(result->end, SortEnd::cancelled);
    EXPECT_TRUE(result->order.empty());
    EXPECT_EQ(shop.progress.titles.back(), "");
  }
  shop.progress.cancelAtStep = 0;
  const auto other = std::move(*shop.shared.open(shop.data.path(), OpenMode::readWrite));
  const std::int64_t recLen = shop.store->layout().recLen;
  ASSERT_TRUE(other->lock(6 * recLen - 1, 1).ok());
  Order unreadable;
  EXPECT_EQ(sorted(shop, shop.field(1), &unreadable)->order.front(), 6) << "as an empty one";
  EXPECT_EQ(unreadable, Order{6});
  shop.disk->failReads = ErrorKind::failed;
  EXPECT_EQ(sorted(shop, shop.field(1)).error().kind, ErrorKind::failed);
  EXPECT_EQ(sorted(shop, RecordKey{{}, KeyType::variableLabels, 0, 0, 0, ""}).error().kind,
            ErrorKind::wrongUsage);
}

}  // namespace
}  // namespace plinth
