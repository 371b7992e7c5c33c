// Searches as the windows and scripts of an application ask for them, over a whole session.
#include "engine/search/Searches.h"

#include <gtest/gtest.h>

#include "engine/search/SearchLines.h"
#include "tests/engine/EngineFixture.h"
#include "tests/fakes/FakeProgress.h"
#include "tests/fakes/MemorySettings.h"

namespace plinth {
namespace {

using Records = std::vector<std::int32_t>;

// Five goods with price and count: apple 2.50 x 4, Pear 1.00 x 10, plum 3.00 x 2, Apple pie 8.00 x 1, fig 3 x 0.
struct Shop : testing::Test {
  Shop() { open(shopPayload()); }
  void open(Payload payload) {
    PayloadButton button;
    button.page = 0;
    payload.buttons = {button};
    payload.header.runMessages[9] = "Record * cannot be read.";
    payload.header.runMessages[23] = "Reading only.";
    payload.header.runMessages[41] = "Choose a field first.";
    payload.header.runMessages[42] = "Not searched.";
    payload.application.resultOptions[3] = 1;
    user = std::make_unique<User>(payload, disk);
    user->session->openData(false);
    if (user->session->recCount() < 2) fill();
    user->messages.shown.clear();
    attach(*user);
  }
  void attach(User& of) {
    searches = std::make_unique<Searches>(SearchServices{*of.session, of.shared, of.messages, progress});
    of.session->setQueries(searches.get());
  }
  void fill() {
    const char* rows[][3] = {
        {"apple", "2.50", "4"}, {"Pear", "1", "10"}, {"plum", "3", "2"}, {"Apple pie", "8", "1"}, {"fig", "3", ""}};
    for (int i = 0; i < 5; ++i) {
      if (i > 0) user->session->newbutClick();
      for (int n = 0; n < 3; ++n) user->type(n + 1, rows[i][n]);
    }
    user->session->command2Click(0);
  }
  Records hits(const char* line, int field = 1) {
    user->session->fieldGotFocus(field);
    const SearchResult* result = searches->search(line);
    return result ? result->hits : Records{-1};
  }
  Records walk() {
    Records seen{user->session->curRec()};
    for (int i = 1; i < user->session->recCount(); ++i) {
      user->session->command2Click(3);
      seen.push_back(user->session->curRec());
    }
    return seen;
  }
  void script(const std::string& text) {
    Payload payload = shopPayload();
    PayloadButton button;
    button.page = 0;
    button.script = text;
    payload.buttons = {button};
    user.reset();
    user = std::make_unique<User>(payload, disk);
    user->session->openData(false);
    attach(*user);
    user->session->commandClick(0);
  }

  std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
  FakeProgress progress;
  std::unique_ptr<User> user;
  std::unique_ptr<Searches> searches;
};

TEST_F(Shop, FindsByTextNumberCommandAndWholeRecord) {
  struct {
    const char* line;
    int field;
    Records hits;
  } rows[] = {{"apple", 1, {1, 4}},         {"a*", 1, {1, 4}},
              {">2.5", 2, {3, 4, 5}},       {"1><3", 2, {1}},
              {"!apple", 1, {1, 4}},        {"select Name where Price=3", 1, {3, 5}},
              {"plum or fig", 1, {3, 5}},   {"select Name where Price>=3 Count>0", 1, {3, 4}},
              {"nothing such", 1, {}},      {"select Name where Nobody=1", 1, {}}};
  for (const auto& row : rows) EXPECT_EQ(hits(row.line, row.field), row.hits) << row.line;
  searches->upward = false;
  EXPECT_EQ(hits("apple"), (Records{4, 1}));
  searches->matchCase = true;
  EXPECT_EQ(hits("apple"), (Records{1}));
}

TEST_F(Shop, CommandsTellTheirOutcomeAndScriptsUseItSilently) {
  hits("sum Count");
  hits("count Price=3");
  hits("sum Price>100");
  hits("count Nobody=3");  // names nothing that could be counted
  EXPECT_EQ(searches->totals().count, 0);
  hits("sum Nobody");
  EXPECT_EQ(user->messages.texts(),
            (std::vector<std::string>{"Total: 17          Average: 3.4", "2 Total", "Total: 0"}));
  script("sum Count\r\ncount Price=3\r\nf2=SumTotal$\r\nf3=CountTotal$");
  EXPECT_TRUE(user->messages.texts().empty());
  EXPECT_EQ(user->text(2), "17");
  EXPECT_EQ(user->text(3), "2");
}

// A query reads the disk: what the script changed before must be there, and what it replaces must show.
TEST_F(Shop, LinesOfAScriptSeeEachOther) {
  script("f3=50\r\nsum Count\r\nf2=SumTotal$\r\nreplace Name=done where Name=apple");
  EXPECT_EQ(user->text(2), "63.00");
  EXPECT_EQ(user->text(1), "done");
}

TEST_F(Shop, SortedViewIsWalkedAndTakesNewRecordsAtItsEnd) {
  user->session->fieldGotFocus(1);
  ASSERT_TRUE(searches->sortBy(2));
  EXPECT_EQ(walk(), (Records{1, 4, 5, 2, 3}));
  ASSERT_TRUE(searches->sortBy(3));
  EXPECT_EQ(walk(), (Records{3, 2, 5, 4, 1}));
  ASSERT_TRUE(searches->sortBy(2));
  user->session->newbutClick();
  user->type(1, "aardvark");
  user->session->command2Click(5);
  EXPECT_EQ(user->session->curRec(), 6);
  ASSERT_TRUE(searches->sortBy(1));
  EXPECT_EQ(walk(), (Records{1, 2, 3, 4, 5, 6}));
}

TEST_F(Shop, AnIndexGivesOldAnswersAndSaysSo) {
  user->session->fieldGotFocus(1);
  ASSERT_TRUE(searches->buildIndexes());
  user->session->goToRecord(3);
  user->type(1, "apple tree");
  user->session->newbutClick();
  user->type(1, "apple cake");
  const SearchResult* result = searches->search("apple");
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->hits, (Records{1, 4, 6}));  // record 3 as it was, the new one from the data
  EXPECT_TRUE(result->usedIndex);
  EXPECT_NE(result->status.find("Index"), std::string::npos);
}

TEST_F(Shop, SearchesWithinTheHitsOfAnother) {
  user->session->fieldGotFocus(2);
  SearchResult* result = searches->search("3");
  ASSERT_EQ(result->hits, (Records{3, 5}));
  user->session->fieldGotFocus(1);
  EXPECT_EQ(searches->search("p", result), result);
  EXPECT_EQ(result->hits, (Records{3}));
  EXPECT_EQ(searches->search("select Name where Price>0", result)->hits, (Records{3}));
  EXPECT_EQ(searches->results().size(), 1u);
  searches->close(*result);
  EXPECT_TRUE(searches->results().empty());
}

TEST_F(Shop, RefusesWhatCannotRun) {
  EXPECT_EQ(hits(""), Records{-1});
  Payload payload = shopPayload();
  payload.fields[1].noSearch = 1;
  open(payload);
  EXPECT_EQ(hits("apple"), Records{-1});
  EXPECT_EQ(user->messages.texts().back(), "Not searched.");
  EXPECT_EQ(hits("!apple"), (Records{1, 4}));
  EXPECT_FALSE(searches->maySearch());
  progress.cancelAtStep = 1;
  user->session->fieldGotFocus(2);
  EXPECT_FALSE(searches->sortBy(2));
  EXPECT_EQ(walk(), (Records{1, 2, 3, 4, 5}));
}

TEST_F(Shop, ReadersReplaceNothing) {
  user->session->close();
  user->files.setReadOnly("/app/Shop.dbd", true);
  open(shopPayload());
  EXPECT_EQ(hits("replace Name=x where Name=fig"), Records{-1});
  EXPECT_EQ(user->messages.texts().size(), 1u);
  EXPECT_EQ(hits("fig"), (Records{5}));
}

TEST(SearchLines, OffersModelsAndKeepsLines) {
  User user(shopPayload());
  user.session->openData(false);
  user.type(1, "John Doe");
  const auto models = [&](FocusObject object) {
    return modelLines(user.session->application(), user.session->form(), object);
  };
  EXPECT_EQ(models({FocusKind::field, 1}),
            (std::vector<std::string>{"SELECT Name WHERE Name='John Doe'", "SUM Name", "COUNT Name='John Doe'"}));
  EXPECT_EQ(models({FocusKind::combo, 1})[2], "COUNT Terms=''");
  EXPECT_EQ(models({FocusKind::check, 0}), (std::vector<std::string>{"COUNT Paid=1", "SUM Paid"}));
  EXPECT_TRUE(models({FocusKind::dateStamp, 0}).empty());

  MemorySettings settings;
  KeptLines kept(settings);
  EXPECT_TRUE(kept.toggle("sum Count"));
  EXPECT_TRUE(kept.toggle("apple"));
  EXPECT_FALSE(kept.toggle("a}b"));
  EXPECT_EQ(settings.get("Settings", "SQLcommands", ""), "{sum Count}{apple}");
  EXPECT_FALSE(KeptLines(settings).toggle("sum Count"));
  settings.set("Settings", "SQLcommands", "x{a}{}{b");
  EXPECT_EQ(KeptLines(settings).lines(), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace plinth
