// Words and references in script lines.
#include "formula/SymbolicWords.h"

#include <gtest/gtest.h>

#include "tests/formula/FakeRecord.h"

namespace plinth {
namespace {

TEST(SymbolicWords, replacesWordsWithoutCaseAndReferencesWithCase) {
  FakeRecord r;
  r.fields = {{.text = "Miller"}, {.type = 2, .text = "1,250.50"}};
  r.fields.resize(12);
  r.fields[11] = {.type = 7, .text = "1/15/2024", .date = 45306};
  r.combos = {"Pay cash"};
  r.checks = {1};
  const SearchTotals totals{.sum = 10.5, .average = 3.5, .count = 3};
  const struct {
    const char *line, *replaced;
  } cases[] = {{"F1=ID id:", "F1=7 7:"},
               {"PAID ID2 idle", "PAID ID2 idle"},
               {"sdate date$ DateVal$", "45306 1/15/2024 45306.25"},
               {"SUMTOTAL$/CountTotal$=sumadv$", "10.5/3=3.5"}};
  for (const auto& c : cases) EXPECT_EQ(replaceSymbolicWords(c.line, r, totals), c.replaced);
  EXPECT_EQ(substituteScriptLine("F12>F2 f2 F1 C1 K0 ID", r, totals), "45306>1250.5 f2 0 Pay cash 1 7");
}

}  // namespace
}  // namespace plinth
