// Undo and Redo, judged by copies of the whole project that the test keeps.
#include "model/History.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace plinth {
namespace {

bool equal(const ProjectDocument& a, const ProjectDocument& b) {
  const ProjectValues &left = a, &right = b;
  return left == right && a.fields == b.fields && a.memos == b.memos && a.combos == b.combos &&
         a.pictures == b.pictures && a.checks == b.checks && a.titles == b.titles && a.lines == b.lines &&
         a.squares == b.squares && a.scripts == b.scripts && a.buttons == b.buttons;
}

// A project, its history, and what the project looked like after each step.
class HistoryTest : public testing::Test {
 protected:
  HistoryTest() {
    document.options.text3.clear();
    history.start(document);
    looks.push_back(document);
  }
  bool commit(const std::string& mergeKey = "") {
    return history.commit(document, "step " + std::to_string(++made), mergeKey);
  }
  void undoAllAndRedoAll() {
    for (std::size_t i = looks.size() - 1; i-- > 0;) {
      ASSERT_TRUE(history.undo(document));
      ASSERT_TRUE(equal(document, looks[i])) << "undo to " << i;
    }
    EXPECT_FALSE(history.undo(document));
    for (std::size_t i = 1; i < looks.size(); ++i) {
      ASSERT_TRUE(history.redo(document));
      ASSERT_TRUE(equal(document, looks[i])) << "redo to " << i;
    }
    EXPECT_FALSE(history.redo(document));
  }

  ProjectDocument document;
  History history;
  std::vector<ProjectDocument> looks;
  int made = 0;
};

class RandomEdits {
 public:
  explicit RandomEdits(unsigned seed) : random_(seed) {}
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  // One to three changes of any kind; some leave the project as it is.
  void apply(ProjectDocument& d) {
    for (int n = 1 + below(3); n > 0; --n) {
      const auto kind = kindInfos()[static_cast<std::size_t>(below(kObjectKinds))].kind;
      visitTable(d, kind, [this](auto& rows) { edit(rows); });
      if (below(5) == 0) d.pageColor[static_cast<std::size_t>(below(5))] = below(3);
      if (below(9) == 0) d.menus.pasting = std::string(static_cast<std::size_t>(below(4)), 'p');
    }
  }

 private:
  template <class Rows>
  void edit(Rows& rows) {
    const int what = below(10);
    if (what < 3 || rows.empty()) {
      rows.resize(rows.size() + static_cast<std::size_t>(1 + below(3)));
      rows.back().tag = std::to_string(below(100));
    } else if (what < 5) {
      rows.erase(rows.begin() + below(static_cast<int>(rows.size())));
    } else {
      auto& row = rows[static_cast<std::size_t>(below(static_cast<int>(rows.size())))];
      row.page = static_cast<decltype(row.page)>(below(5));
    }
  }
  void edit(std::vector<LineRow>& lines) {
    if (lines.empty() || below(2)) lines.emplace_back();
    lines.front().x1 += static_cast<float>(below(2));
  }
  void edit(std::vector<SquareRow>& squares) {
    if (squares.size() > 3) squares.clear();
    squares.emplace_back().left = static_cast<float>(below(3));
  }

  std::mt19937 random_;
};

TEST_F(HistoryTest, TakesEveryStepBackAndForthWhateverChanged) {
  RandomEdits random(20261121);
  while (looks.size() < 300) {
    random.apply(document);
    const bool changed = !equal(document, looks.back());
    ASSERT_EQ(commit(), changed);
    if (changed) looks.push_back(document);
  }
  EXPECT_EQ(history.steps(), 299u);
  undoAllAndRedoAll();
  undoAllAndRedoAll();
}

TEST_F(HistoryTest, WalksBackAndForthBetweenNewSteps) {
  RandomEdits random(7);
  std::size_t at = 0;
  for (int i = 0; i < 500; ++i) {
    const int what = random.below(4);
    if (what == 0 && at > 0) {
      ASSERT_TRUE(history.undo(document));
      --at;
    } else if (what == 1 && at + 1 < looks.size()) {
      ASSERT_TRUE(history.redo(document));
      ++at;
    } else {
      random.apply(document);
      if (!commit()) continue;
      looks.resize(++at);  // what could be redone is forgotten
      looks.push_back(document);
    }
    ASSERT_TRUE(equal(document, looks[at])) << i;
    ASSERT_EQ(history.canRedo(), at + 1 < looks.size());
  }
}

TEST_F(HistoryTest, JoinsStepsOfOneKeyToOneThatTakesAllBack) {
  for (const unsigned seed : {1u, 2u, 3u, 4u, 5u, 6u}) {
    RandomEdits random(seed);
    history.start(document);
    looks.assign(1, document);
    for (int group = 0; group < 40; ++group) {
      for (int i = 1 + random.below(6); i > 0; --i) {
        random.apply(document);
        commit("drag " + std::to_string(group));
      }
      if (!equal(document, looks.back())) looks.push_back(document);
    }
    ASSERT_EQ(history.steps(), looks.size() - 1);
    undoAllAndRedoAll();
  }
}

TEST_F(HistoryTest, AKeyJoinsOnlyWhatFollowsAtOnce) {
  const auto type = [&](const std::string& words, const std::string& key) {
    document.appTitle = words;
    return history.commit(document, "title " + words, key);
  };
  EXPECT_FALSE(type("", "a"));
  EXPECT_TRUE(type("S", "a"));
  EXPECT_TRUE(type("Sh", "a"));
  EXPECT_EQ(history.steps(), 1u);
  EXPECT_EQ(history.undoWords(), "title S");
  history.seal();
  EXPECT_TRUE(type("Sho", "a"));
  EXPECT_TRUE(type("Shop", "b"));
  EXPECT_TRUE(type("Shops", ""));
  EXPECT_TRUE(type("Shop", ""));
  EXPECT_EQ(history.steps(), 5u);
  ASSERT_TRUE(history.undo(document));
  EXPECT_EQ(history.redoWords(), "title Shop");
  EXPECT_TRUE(type("X", "c"));
  EXPECT_EQ(history.redoWords(), "");
  ASSERT_TRUE(history.undo(document));
  ASSERT_TRUE(history.redo(document));
  EXPECT_TRUE(type("XY", "c"));  // the walk ended the word
  EXPECT_EQ(history.steps(), 6u);
  EXPECT_TRUE(type("X", "c"));  // takes the letter back, and there is nothing to undo of it
  EXPECT_EQ(history.steps(), 5u);
  EXPECT_TRUE(type("Z", "c"));
  ASSERT_TRUE(history.undo(document));
  EXPECT_EQ(document.appTitle, "X");
}

TEST_F(HistoryTest, ForgetsTheOldestStepsOnly) {
  for (std::size_t i = 0; i < History::kSteps + 20; ++i) {
    document.valueMax = static_cast<std::int32_t>(1000 + i);
    ASSERT_TRUE(commit());
  }
  EXPECT_EQ(history.steps(), History::kSteps);
  while (history.undo(document)) {
  }
  EXPECT_EQ(document.valueMax, 1019);
}

TEST_F(HistoryTest, LeavesAloneWhatItWasNotTold) {
  document.titles[0].caption = "moved";
  ASSERT_TRUE(commit());
  document.titles[1].caption = "put right by a save";
  document.fields.emplace_back();
  history.adopt(document);
  EXPECT_FALSE(commit());
  document.dirty = false;
  document.memos.emplace_back();  // not told at all
  document.squares.resize(2);
  ASSERT_TRUE(history.undo(document));
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(document.titles[0].caption, looks[0].titles[0].caption);
  EXPECT_EQ(document.titles[1].caption, "put right by a save");
  EXPECT_EQ(document.fields.size(), 2u);
  EXPECT_EQ(document.memos.size(), 3u);
  document.titles.resize(1);  // takes away more than the step knows
  ASSERT_TRUE(history.redo(document));
  EXPECT_EQ(document.titles[0].caption, "moved");
  EXPECT_EQ(document.titles.size(), 1u);
  history.start(document);
  EXPECT_FALSE(history.canUndo() || history.canRedo());
}

}  // namespace
}  // namespace plinth
