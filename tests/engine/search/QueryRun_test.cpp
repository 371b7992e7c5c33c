// Commands run over stored records: what each kind of object compares, what sums and counts add up, what is
// written, and records that cannot be had.
#include "engine/search/QueryRun.h"

#include <gtest/gtest.h>

#include "basic/Substitution.h"
#include "basic/Text.h"
#include "engine/FlatRecordStore.h"
#include "engine/search/BlockReader.h"
#include "tests/engine/EngineFixture.h"
#include "tests/fakes/FakeProgress.h"

namespace plinth {
namespace {

constexpr const char* kPath = "/data/Shop.dbd";

struct Item {
  const char *name, *price, *count;
  double due;
  const char* terms;
  int paid;
  const char *notes, *weight, *start;
};
constexpr Item kItems[] = {
    {"Berlin", "10.50", "5", 45000, "Net", 1, "first, Urgent", "0.5", "08:00"},
    {"Berlin 2", "0.10", "-3", 45010, "Cash", 0, "", "1.25", "14:30"},
    {"berlin", "0.20", "7", 0, "Net 30", 1, "12 apples", "-2", ""},
    {"\xC4nne", "1,000.00", "0", 44000, "", 0, "7", "", "2:30 pm"},
};

struct QueryRunTest : ::testing::Test {
  explicit QueryRunTest(bool scrambled = false) {
    Payload p = shopPayload();
    p.fields.push_back(fieldRow("Weight", 1, 10));
    p.fields.push_back(fieldRow("Start", 10, 8));
    p.header.scrambleData = scrambled;
    app = makeApplication(std::move(p));
    store = open(true);
    RecordForm form = makeRecordForm(app);
    for (const Item& item : kItems) {
      form.fields[1].text = item.name;
      form.fields[2].text = item.price;
      form.fields[3].text = item.count;
      form.fields[4].date = item.due;
      form.fields[6].text = item.weight;
      form.fields[7].text = item.start;
      form.combos[1].text = item.terms;
      form.checks[0].value = item.paid;
      form.memos[1].text = item.notes;
      append(form);
    }
  }
  std::unique_ptr<FlatRecordStore> open(bool create, bool readOnly = false) {
    return std::move(*FlatRecordStore::open(shared, files, app, englishLocale(),
                                            {kPath, create, readOnly, kTestNow, "Shop"}));
  }
  void append(const RecordForm& form) {
    const std::int32_t record = *store->append();
    ASSERT_TRUE(store->save(record, form).ok());
    store->unlock(record);
  }
  QueryOutcome run(std::string_view line) {
    found.clear();
    lost.clear();
    const Query query = parseQuery(line, {app, store->layout(), englishLocale(), matchCase, kTestNow, {}});
    return runQuery(query, {*store, app, matchCase, upward, progress,
                            [&](std::int32_t record) { found += std::to_string(record) + " "; },
                            [&](std::int32_t record) { lost += std::to_string(record) + " "; },
                            within.empty() ? nullptr : &within, englishLocale()});
  }
  std::string select(std::string_view conditions) {
    run("select * where " + std::string(conditions));
    return found;
  }
  std::string text(std::int32_t record, std::size_t field) {
    RecordForm form = makeRecordForm(app);
    return store->load(record, form).ok() ? form.fields[field].text : "(none)";
  }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  MemoryFiles files{disk};
  MemorySharedFiles shared{disk};
  Application app;
  std::unique_ptr<FlatRecordStore> store;
  FakeProgress progress;
  bool matchCase = false, upward = true;
  std::vector<std::int32_t> within;
  std::string found, lost;
};

struct ScrambledQueryRunTest : QueryRunTest {
  ScrambledQueryRunTest() : QueryRunTest(true) {}
};

struct Expectation {
  const char *conditions, *records;
};
constexpr Expectation kAllKinds[] = {
    // texts: the whole text, without case
    {"name=berlin", "1 3 "},
    {"name=berl*", "1 2 3 "},
    {"name=*lin*2", "2 "},
    {"name=b?rli[a-n]", "1 3 "},
    {"name=*#", "2 "},
    {"name=[", ""},
    {"name=\xE4*", "4 "},
    {"name<>BERLIN", "2 4 "},
    {"terms='net 30'", "3 "},
    {"terms=", "4 "},
    {"notes=*urgent", "1 "},
    {"notes>7", "3 "},
    {"notes<=7", "1 2 4 "},
    // currency, whole numbers, doubles
    {"price=0.1", "2 "},
    {"price<>0.1", "1 3 4 "},
    {"price>=10.5", "1 4 "},
    {"count<=0", "2 4 "},
    {"count=5.5", ""},
    {"weight>-2 weight<1", "1 4 "},
    // dates and times: nothing entered counts as 0
    {"due=2023-03-15", "1 "},
    {"due<2023-03-15", "3 4 "},
    {"due=", "3 "},
    {"due<>soon", ""},
    {"start=14:30", "2 4 "},
    {"start<800", "3 "},
    // check boxes
    {"paid=1", "1 3 "},
    {"paid<1", "2 4 "},
    // several, unknown ones, and terms that say nothing
    {"paid=1 nobody=3 name=berlin count>5", "3 "},
    {"nobody=3", ""},
    {"paid=1 name", ""},
};

TEST_F(QueryRunTest, EachKindOfObjectComparesInItsOwnWay) {
  for (const Expectation& row : kAllKinds) EXPECT_EQ(select(row.conditions), row.records) << row.conditions;
  matchCase = true;
  EXPECT_EQ(select("NAME=Berlin"), "1 ");
  EXPECT_EQ(select("name<>berlin"), "1 2 4 ");
  EXPECT_EQ(select("name=\xC4*"), "4 ");
}

TEST_F(ScrambledQueryRunTest, SubstitutedRecordsCompareTheSame) {
  for (const Expectation& row : kAllKinds) EXPECT_EQ(select(row.conditions), row.records) << row.conditions;
}

TEST_F(ScrambledQueryRunTest, ReplacedBytesAreNotSubstituted) {
  EXPECT_EQ(run("replace name=new where count=5").hits, 1);
  EXPECT_EQ(text(1, 1), trimRight(unscrambleText("new       ")));
}

TEST_F(QueryRunTest, SumsTakeEachTermByItself) {
  const std::tuple<const char*, std::int64_t, double> rows[] = {
      {"sum price", 4, 1010.8},  // exact, though tenths are none as doubles
      {"sum price where count>4", 6, 1022.8},
      {"sum where count>4", 2, 12},
      {"sum weight notes", 8, -0.25 + 19},
      {"sum paid", 4, 2},
      {"sum due<44500", 2, 44000},
      {"sum start>8:00", 2, 29.0 / 24},
      {"sum nobody", 0, 0},
      {"count paid=1", 2, 0},
      {"count paid=1 where count=5 count=5 paid", 4, 0},
      {"count nobody=1", 0, 0},
  };
  upward = false;
  for (const auto& [line, hits, total] : rows) {
    const QueryOutcome outcome = run(line);
    EXPECT_EQ(outcome.hits, hits) << line;
    EXPECT_DOUBLE_EQ(outcome.total, total) << line;
    EXPECT_DOUBLE_EQ(outcome.average, hits ? total / static_cast<double>(hits) : 0) << line;
  }
  EXPECT_EQ(found, "") << "only select lists records";
}

TEST_F(QueryRunTest, RecordsComeInTheDirectionOrTheOrderGiven) {
  upward = false;
  EXPECT_EQ(select("name=berl*"), "3 2 1 ");
  within = {3, 99, 1};
  EXPECT_EQ(select("name=berl*"), "3 1 ");
  EXPECT_EQ(lost, "99 ");
  EXPECT_EQ(run("count paid=1").hits, 2);
}

TEST_F(QueryRunTest, ReplacesBytesOfTheRecordsThatHoldOnly) {
  const Bytes before = disk->find(kPath)->bytes;
  EXPECT_EQ(run("replace nobody=1 where paid=1").hits, 0);
  EXPECT_EQ(run("replace name=x where nobody=1").hits, 0) << "without a condition nothing is replaced";
  EXPECT_EQ(disk->find(kPath)->bytes, before);
  EXPECT_EQ(run("replace name='New One' count=12 paid=1 where paid=1 count>5").hits, 1);
  EXPECT_EQ(text(3, 1), "new one");
  EXPECT_EQ(text(3, 3), "12");
  EXPECT_EQ(text(3, 2), "0.20");
  EXPECT_EQ(text(1, 1), "Berlin");
  EXPECT_EQ(select("paid=49"), "3 ") << "the code of the character, not the number";
}

TEST_F(QueryRunTest, RecordsInUseAreToldAndLeftOut) {
  const auto other = open(false);
  ASSERT_TRUE(other->lock(2).ok());
  EXPECT_EQ(run("replace count=1 where paid<2").hits, 3);
  EXPECT_EQ(lost, "2 ");
  EXPECT_EQ(select("count=1"), "1 3 4 ");
  EXPECT_EQ(lost, "") << "what is asked stands behind the locked byte";
  EXPECT_EQ(select("name=berl*"), "1 3 ");
  EXPECT_EQ(lost, "2 ");
}

TEST_F(QueryRunTest, AFailingDiskStopsAReplacement) {
  disk->failWrites = ErrorKind::full;
  const QueryOutcome outcome = run("replace count=1 where paid=1");
  EXPECT_EQ(outcome.error.kind, ErrorKind::full);
  EXPECT_EQ(outcome.hits, 0);
  disk->failWrites.reset();
  store = open(false, true);
  EXPECT_EQ(run("replace count=1 where paid=1").error.kind, ErrorKind::denied);
}

TEST_F(QueryRunTest, ARecordCutOffIsSearchedAsFarAsItGoesAndNeverWritten) {
  Bytes& bytes = disk->find(kPath)->bytes;
  bytes.resize(bytes.size() - 60);
  const Bytes cut = bytes;
  EXPECT_EQ(select("count=0"), "4 ");
  EXPECT_EQ(run("replace notes=x where count=0").hits, 0);
  EXPECT_EQ(lost, "4 ");
  EXPECT_EQ(bytes, cut);
}

TEST_F(QueryRunTest, CancellingKeepsWhatWasReplaced) {
  RecordForm form = makeRecordForm(app);
  form.checks[0].value = 1;
  for (int n = 0; n < 3 * kRecordsPerStep; ++n) append(form);
  progress.cancelAtStep = 2;
  const QueryOutcome outcome = run("replace count=8 where paid=1");
  EXPECT_TRUE(outcome.cancelled);
  EXPECT_EQ(progress.lastTotal, store->count());
  EXPECT_EQ(progress.lastDone, 2 * kRecordsPerStep);
  EXPECT_EQ(outcome.hits, 2 * kRecordsPerStep - 2);
  progress.cancelAtStep = 0;
  EXPECT_EQ(run("count count=8").hits, outcome.hits);
}

}  // namespace
}  // namespace plinth
