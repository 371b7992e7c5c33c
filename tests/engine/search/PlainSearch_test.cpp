#include "engine/search/PlainSearch.h"

#include <gtest/gtest.h>

#include "tests/engine/search/ShopRecords.h"
#include "tests/fakes/FakeProgress.h"

namespace plinth {
namespace {

using Records = std::vector<std::int32_t>;

// The shop with fields of time: F6 Seen (kind 11), F7 Watch (kind 12), F8 Weight (kind 1), F9 When (kind 10).
Payload timedShop() {
  Payload p = shopPayload();
  p.fields.push_back(fieldRow("Seen", 11, 10));
  p.fields.push_back(fieldRow("Watch", 12, 10));
  p.fields.push_back(fieldRow("Weight", 1, 10));
  p.fields.push_back(fieldRow("When", 10, 10));
  return p;
}

struct Search {
  explicit Search(const Payload& payload = timedShop()) : shop(payload) {}
  Records operator()(const std::string& line, FocusKind kind, int index) {
    hits.clear();
    lost.clear();
    const auto hit = [this](std::int32_t record) { hits.push_back(record); };
    const auto unreadable = [this](std::int32_t record) { lost.push_back(record); };
    const PlainSearchRequest request{*shop.store, shop.application, englishLocale(), shop.shared, shop.data,
                                     matchCase, upward, kTestNow, progress, hit, unreadable, within};
    outcome = runPlainSearch(line, kind == FocusKind::none ? RecordKey{} : shop.key(kind, index), request);
    EXPECT_EQ(outcome.hits, static_cast<std::int64_t>(hits.size()));
    return hits;
  }
  Records field(int n, const std::string& line) { return (*this)(line, FocusKind::field, n); }

  ShopRecords shop;
  bool matchCase = false, upward = true;
  const Records* within = nullptr;
  FakeProgress progress;
  PlainOutcome outcome;
  Records hits, lost;
};

void addGoods(ShopRecords& shop) {
  shop.add({"Anna Berg", "9.50", "10", "2026-03-01", "", "2:30 PM", "14:30:05", "0.1", "14:30"});
  shop.add({"a* Hotel", "10.00", "11", "", "", "2:30 AM", "02:30", "1e+20", "2:30"});
  shop.add({"Bertha", "-3.25", "19", "2026-12-24", "", "12:00 PM", "00:10", "-7", "12:05"});
  RecordForm last = shop.form();
  last.fields[1].text = "\xc9mile";
  last.fields[2].text = "1,000.50";
  last.fields[3].text = "20";
  last.combos[1].text = "Net 30";
  last.checks[0].value = 1;
  last.memos[1].text = "red\r\nwine";
  shop.add(last);
}

TEST(PlainSearch, ReadsTheLineByTheKindOfTheObject) {
  struct Case {
    FocusKind kind;
    int index;
    const char* line;
    Records records;
    bool matchCase = false;
  };
  constexpr auto kField = FocusKind::field;
  const std::vector<Case> cases{
      {kField, 1, " AN ", {1}},
      {kField, 1, "AN", {}, true},
      {kField, 1, "nna", {1}, true},
      {kField, 1, "\xe9mile", {4}},
      {kField, 1, "a*", {1, 2}},  // as it stands in the second, as a pattern in the first
      {kField, 1, "*[gl]", {1, 2}},
      {kField, 1, "b?rtha", {3}},
      {kField, 1, "berg + ann", {1}},
      {kField, 1, "berg+hotel", {}},
      {kField, 1, "hotel OR bert", {2, 3}},
      {kField, 1, " ! ", {}},
      {kField, 1, "+", {}},
      {kField, 2, "9.5><1,000.5", {2}},
      {kField, 2, "<>10", {1, 3, 4}},
      {kField, 2, ">= 10", {2, 4}},
      {kField, 2, ">5 + <10", {1}},
      {kField, 2, "-3.25 or =1000.50", {3, 4}},
      {kField, 2, "Anna", {}},
      {kField, 2, "<>Anna", {1, 2, 3, 4}},
      {kField, 3, "10><20", {2, 3}},
      {kField, 3, "10.5", {}},
      {kField, 8, "0.1", {1}},
      {kField, 8, "<0", {3}},
      {kField, 8, "=", {4}},  // an empty box stores 0
      {kField, 4, "3/1/2026", {1}},
      {kField, 4, "1 March 2026", {1}},
      {kField, 4, ">2026-03-01", {3}},
      {kField, 4, "<>2026-03-01", {2, 3, 4}},
      {kField, 4, "12-24", {3}},  // too short for a date
      {kField, 4, "*-0?-*", {1}},
      {kField, 4, "<>*-24", {1, 2, 4}},
      {kField, 6, "230", {2}},
      {kField, 6, "2.30 p", {1}},
      {kField, 6, "1430", {1}},
      {kField, 6, "1:00><3:00", {2}},
      {kField, 6, "a or p", {1, 2, 3}},  // no digits: as text
      {kField, 7, "143005", {1}},
      {kField, 7, "230", {2}},
      {kField, 7, ">2:30", {1}},
      {kField, 9, "12:05", {3}},
      {FocusKind::check, 0, "<1", {1, 2, 3}},
      {FocusKind::combo, 1, "net", {4}},
      {FocusKind::memo, 1, "*wine", {4}},
  };
  for (const bool scrambled : {false, true}) {
    Payload payload = timedShop();
    payload.header.scrambleData = scrambled;
    Search search(payload);
    addGoods(search.shop);
    for (const Case& c : cases) {
      search.matchCase = c.matchCase;
      search.upward = true;
      EXPECT_EQ(search(c.line, c.kind, c.index), c.records) << c.line << " in " << c.index;
      search.upward = false;
      EXPECT_EQ(search(c.line, c.kind, c.index), Records(c.records.rbegin(), c.records.rend())) << c.line;
    }
  }
}

TEST(PlainSearch, ComparesWholeRecordsAsTheyAreStored) {
  Search search;
  addGoods(search.shop);
  const auto whole = [&](const char* line) { return search(line, FocusKind::none, 0); };
  EXPECT_EQ(whole("!BERG"), (Records{1}));
  EXPECT_EQ(whole("! 2:30 am   02:30 "), (Records{2}));  // across the fields' border
  EXPECT_EQ(whole("!anna or net"), (Records{1, 4}));
  EXPECT_EQ(whole("!bert*00:10*"), (Records{3}));
  search.matchCase = true;
  EXPECT_EQ(whole("!BERG"), Records{});

  Payload payload = timedShop();
  payload.header.scrambleData = 1;
  Search hidden(payload);
  addGoods(hidden.shop);
  EXPECT_EQ(hidden("!berg", FocusKind::none, 0), Records{});
}

TEST(PlainSearch, SearchesAllObjectsOfOneLabelTogether) {
  Payload payload = timedShop();
  payload.fields[7].tag = payload.combos[1].tag = payload.memos[1].tag = "NAME";
  payload.fields[8].tag = "";
  Search search(payload);
  addGoods(search.shop);
  const auto keys = keysOfLabel(search.shop.application, search.shop.store->layout(),
                                search.shop.key(FocusKind::combo, 1));
  std::vector<FocusObject> objects;
  for (const RecordKey& key : keys) objects.push_back(key.object);
  EXPECT_EQ(objects, (std::vector<FocusObject>{{FocusKind::combo, 1},
                                               {FocusKind::field, 1},
                                               {FocusKind::field, 7},
                                               {FocusKind::memo, 1}}));
  EXPECT_EQ(search.field(1, "hotel or wine"), (Records{2, 4}));
  EXPECT_EQ(search.field(1, "143005"), (Records{1}));  // each object by its own kind
  EXPECT_EQ(keysOfLabel(search.shop.application, search.shop.store->layout(),
                        search.shop.key(FocusKind::field, 8)).size(), 1u);
}

TEST(PlainSearch, FindsDateStampsAndFreeLabels) {
  Payload payload = timedShop();
  payload.header.varObjects = 1;
  Search search(payload);
  RecordForm form = search.shop.form();
  form.dateStamp = 46082;  // 2026-03-01
  const auto label = [](const char* text) {
    VariableLabel made;
    made.visible = true;
    made.text = text;
    return made;
  };
  form.labels = {label("Fragile"), label("This side up")};
  search.shop.add(form);
  search.shop.add(search.shop.form());
  EXPECT_EQ(search("2026-03-01", FocusKind::dateStamp, 0), (Records{1}));
  EXPECT_EQ(search("0?-01", FocusKind::dateStamp, 0), Records{});
  EXPECT_EQ(search("*-03-*", FocusKind::dateStamp, 0), (Records{1}));
  EXPECT_EQ(search("side + fragile", FocusKind::variableLabels, 0), (Records{1}));
  EXPECT_EQ(search("fragile*up", FocusKind::variableLabels, 0), Records{});
}

TEST(PlainSearch, GoesOnAfterLockedRecordsAndStopsWhereAsked) {
  Search search;
  for (int i = 0; i < 1500; ++i) search.shop.add({"Anna", "5.00"});
  auto other = search.shop.open();
  ASSERT_TRUE(other->lock(3).ok());
  EXPECT_EQ(search.field(1, "anna").size(), 1499u);
  EXPECT_EQ(search.lost, (Records{3}));
  EXPECT_EQ(search.progress.steps, 2);
  EXPECT_EQ(search.progress.lastTotal, 1500);
  search.field(2, "5");  // the lock is on the record's first byte
  EXPECT_EQ(search.outcome.hits, 1500);
  const Records some{700, 3, 2, 0, -1, 1501, 5};
  search.within = &some;
  EXPECT_EQ(search.field(1, "anna"), (Records{700, 2, 5}));
  EXPECT_EQ(search.lost, (Records{3}));
  search.within = nullptr;
  search.upward = false;
  search.progress = {};
  search.progress.cancelAtStep = 2;
  EXPECT_EQ(search.field(1, "anna").size(), 1200u);
  EXPECT_TRUE(search.outcome.cancelled);
  EXPECT_EQ(search.hits.front(), 1500);
}

TEST(PlainSearch, TakesTheValuesOfAnIndexAsFarAsItReaches) {
  struct Case {
    const char* lines;
    bool upward;
    Records records;  // named Anna by the index or, behind its end, by the data, where 1 and 4 are
    bool used = true;
  };
  const Case cases[] = {
      {"Zoe\r\nAnna\r\nBert\r\nBert\r\n", true, {2}},
      {"Zoe\r\nAnna\r\n", true, {2, 4}},
      {"Zoe\nanna", true, {2, 4}},
      {"", true, {1, 4}, false},
      {"Anna\r\nAnna\r\nAnna\r\nAnna\r\nAnna\r\nAnna\r\n", true, {1, 2, 3, 4}},
      {"3\r\nAnna\r\nBert\r\nBert\r\n", false, {4, 3}},
      {"3\r\nAnna\r\nBert\r\n", false, {4, 3, 1}},
      {"6\r\nAnna\r\nAnna\r\nBert\r\nAnna\r\nBert\r\nBert\r\n", false, {3}},
      {"2147483647\r\nAnna\r\nAnna\r\n", false, {4, 1}, false},
      {"-3\r\nAnna\r\n", false, {4, 1}, false},
      {"Anna\r\nAnna\r\nAnna\r\n", false, {4, 1}, false},
      {"", false, {4, 1}, false},
  };
  Search search;
  for (const char* name : {"Anna", "Bert", "Bert", "Anna"}) search.shop.add({name});
  for (const Case& c : cases) {
    search.shop.write(c.upward ? "/app/ShopName-1.inx" : "/app/ShopName-0.inx", c.lines);
    search.upward = c.upward;
    EXPECT_EQ(search.field(1, "anna"), c.records) << c.lines;
    EXPECT_EQ(search.outcome.usedIndex, c.used) << c.lines;
  }
  const Records all{4, 3, 2, 1};
  search.within = &all;
  EXPECT_EQ(search.field(1, "anna"), (Records{4, 1}));
  EXPECT_FALSE(search.outcome.usedIndex);
}

TEST(PlainSearch, FindsTheSameThroughAFreshIndex) {
  Search search;
  addGoods(search.shop);
  const std::pair<int, const char*> lines[] = {{1, "a*"},          {2, "-3.25><1,000.5"}, {3, "10><20"},
                                               {4, ">2026-03-01"}, {6, "2:30 pm"},        {7, ">2:30"},
                                               {8, "0.1"}};
  for (const auto& [n, line] : lines) {
    const Records plain = search.field(n, line);
    EXPECT_FALSE(plain.empty());
    ASSERT_TRUE(buildIndex(*search.shop.store, search.shop.key(FocusKind::field, n), search.shop.data,
                           search.shop.application, englishLocale(), search.shop.shared, search.progress, nullptr).ok());
    EXPECT_EQ(search.field(n, line), plain) << line;
    EXPECT_TRUE(search.outcome.usedIndex);
  }
}

}  // namespace
}  // namespace plinth
