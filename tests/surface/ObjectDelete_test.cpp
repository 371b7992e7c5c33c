// What deleting leaves of each kind's table, and which numbers follow.
#include "surface/ObjectDelete.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

using enum ObjectKind;

// `count` live objects of a kind, from the first index on, that bear their number.
void addObjects(ProjectDocument& d, ObjectKind kind, int count) {
  visitTable(d, kind, [&](auto& rows) {
    rows.resize(static_cast<std::size_t>(kindInfo(kind).firstIndex));
    for (int i = 0; i < count; ++i) {
      auto& row = rows.emplace_back();
      row.page = 0;
      if constexpr (requires { row.tag; }) row.tag = std::to_string(rows.size() - 1);
    }
  });
}

std::vector<std::string> tagsOf(const ProjectDocument& d, ObjectKind kind) {
  std::vector<std::string> tags;
  visitTable(d, kind, [&](const auto& rows) {
    for (const auto& row : rows)
      if constexpr (requires { row.tag; })
        if (isLivePage(row.page)) tags.push_back(row.tag);
  });
  return tags;
}

using Tags = std::vector<std::string>;

TEST(ObjectDelete, BoxesPicturesAndScriptsCloseTheirGaps) {
  const struct {
    ObjectKind kind;
    std::vector<int> removed;
    Tags left;
  } cases[] = {
      {Field, {3}, {"1", "2", "4", "5"}},
      {Field, {5, 1, 2, 1}, {"3", "4"}},
      {Memo, {2}, {"3", "4", "5", "6"}},
      {Memo, {6, 3}, {"2", "4", "5"}},
      {Combo, {1, 2, 3, 4, 5}, {}},
      {Picture, {0, 4}, {"1", "2", "3"}},
      {Picture, {0, 1, 2, 3, 4}, {}},
      {Script, {5}, {"1", "2", "3", "4"}},
      {Field, {0, 99, -1}, {"1", "2", "3", "4", "5"}},
  };
  for (const auto& c : cases) {
    ProjectDocument d;
    addObjects(d, c.kind, 5);
    std::vector<ObjectRef> objects;
    for (const int index : c.removed) objects.push_back({c.kind, index});
    deleteObjects(d, objects);
    EXPECT_EQ(tagsOf(d, c.kind), c.left) << kindInfo(c.kind).noun;
    visitTable(d, c.kind, [&](const auto& rows) {
      EXPECT_EQ(rows.size(), kindInfo(c.kind).firstIndex + c.left.size()) << kindInfo(c.kind).noun;
    });
  }
}

TEST(ObjectDelete, OtherKindsKeepTheirSlots) {
  const struct {
    ObjectRef object;
    bool ofArea;
    int page;
  } cases[] = {
      {{CheckBox, 0}, false, kPageVacant}, {{CheckBox, 2}, false, kPageDeleted},
      {{CheckBox, 2}, true, kPageVacant},  {{Line, 0}, false, kPageVacant},
      {{Line, 2}, true, kPageDeleted},     {{Square, 0}, true, kPageVacant},
      {{Square, 2}, false, kPageDeleted},  {{Button, 0}, false, kPageVacant},
      {{Button, 2}, true, kPageDeleted},   {{Title, 5}, false, kPageVacant},
      {{Title, 6}, false, kPageDeleted},   {{Title, 7}, true, kPageDeleted},
      {{Memo, 1}, false, kPageVacant},
  };
  for (const auto& c : cases) {
    ProjectDocument d;
    addObjects(d, c.object.kind, 3);
    setPage(d, c.object, 1);
    visitTable(d, c.object.kind, [&](const auto& rows) {
      const std::size_t before = rows.size();
      deleteObjects(d, {c.object}, c.ofArea);
      EXPECT_EQ(rows.size(), before);
    });
    EXPECT_EQ(pageOf(d, c.object), c.page) << kindInfo(c.object.kind).noun << c.object.index;
  }
}

TEST(ObjectDelete, ReferencesFollowOnce) {
  ProjectDocument d;
  addObjects(d, Field, 12);
  addObjects(d, Combo, 3);
  d.fields[1].formula = "F3+F4+F10*F12+SUM(F5:F11)+C1+C3";
  d.fields[12].formula = "F12=F2";
  d.emailField = 4;
  d.emailNameField = 3;
  deleteObjects(d, {{Field, 3}, {Combo, 2}});
  EXPECT_EQ(d.fields[1].formula, "F3+F3+F9*F11+SUM(F4:F10)+C1+C2");
  EXPECT_EQ(d.fields[11].formula, "F11=F2");
  EXPECT_EQ(d.emailField, 3);
  EXPECT_EQ(d.emailNameField, 0);

  deleteObjects(d, {{Field, 2}, {Field, 3}, {Field, 9}}, true);
  EXPECT_EQ(d.fields[1].formula, "F3+F3+F9*F8+SUM(F2:F7)+C1+C2");
  EXPECT_EQ(d.emailField, 0);
  EXPECT_EQ(d.fieldCount(), 8);
}

TEST(ObjectDelete, TabPositionsBecomeDense) {
  ProjectDocument d;
  addObjects(d, Field, 4);
  for (int i = 1; i <= 4; ++i) d.fields[i].tabOrder = static_cast<std::int16_t>(10 * (5 - i));
  deleteObjects(d, {{Field, 2}});
  EXPECT_EQ(d.fields[3].tabOrder, 1);
  EXPECT_EQ(d.fields[2].tabOrder, 2);
  EXPECT_EQ(d.fields[1].tabOrder, 3);
}

}  // namespace
}  // namespace plinth
