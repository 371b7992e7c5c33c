// What the rewrite makes of typed formulas, its odd corners by name.
#include "formula/PrepareFormula.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

TEST(PrepareFormula, rewritesAsFormulasRelyOnIt) {
  const FormulaCounts counts{.fields = 12, .combos = 2, .memos = 1, .checks = 0};
  const struct {
    const char *why, *typed, *prepared;
  } cases[] = {
      {"sum", "SUM(F1:F3)*2", "F1+F2+F3*2"},
      {"the same sum twice", "SUM(F1:F2)+SUM(F1:F2)", "F1+F2+F1+F2"},
      {"a second, different sum stays", "SUM(F1:F2)+SUM(F3:F4)", "F1+F2+SUM(F3:F4)"},
      {"a sum that lost its ':' stays", "SUM(F1F5)", "SUM(F1F5)"},
      {"an open sum stays", "SUM(F1:F2", "SUM(F1:F2"},
      {"a backward sum is empty", "SUM(F5:F1)+1", "+1"},
      {"a sum beyond all bounds stays", "SUM(F1:F999999999)", "SUM(F1:F999999999)"},
      {"targets", "F12=1 M1=2 C2=3 K0=4 V99=5 V100=6", "f12=1 m1=2 c2=3 k0=4 v99=5 V100=6"},
      {"indices not in use are no targets", "F13=1 M2=2 C3=3 K1=4 F0=5 F01=6",
       "F13=1 M2=2 C3=3 K1=4 F0=5 F01=6"},
      {"conditions go back and to upper case", "IF F1=3 AND C1=\"Cash\" THEN F2=\"Paid\" ELSE K0=1",
       "IF F1=3 AND C1=\"CASH\" THEN f2=\"Paid\" ELSE k0=1"},
      {"each condition goes back", "IF F1=1 THEN F2=1\r\nIF F2=1 THEN F3=1",
       "IF F1=1 THEN f2=1\r\nIF F2=1 THEN f3=1"},
      {"a condition without THEN stays marked", "IF F1=1 F2=1", "IF f1=1 f2=1"},
      {"truth", "V1=TRUE V2=FALSE", "v1=1 v2=0"},
      {"minus", "F1-F2", "F1~F2"},
      {"minus a negative", "2--3", "2~-3"},
      {"signs behind operators", "2*-3+-4/-5^-6", "2*-3+-4/-5^-6"},
      {"minus at the start and behind '(' subtracts", "-5+(-3)", "~5+(~3)"},
      {"minus in a text too", "F1=\"A-B\"", "f1=\"A~B\""},
  };
  for (const auto& c : cases) EXPECT_EQ(prepareFormula(c.typed, counts), c.prepared) << c.why;
}

}  // namespace
}  // namespace plinth
