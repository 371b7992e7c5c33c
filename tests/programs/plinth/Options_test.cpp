// The tool's command line: what is accepted, and what is refused with a word of why.
#include "programs/plinth/Options.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

struct Refused {
  std::vector<std::string> words;
  const char* problem;
};

TEST(OptionsTest, RefusesWithTheReason) {
  const Refused cases[] = {
      {{}, "no command"},
      {{"shew", "a.qvf"}, "unknown command shew"},
      {{"show"}, "needs a file"},
      {{"show", "a.qvf", "b.qvf"}, "too many words"},
      {{"convert", "a.qvf"}, "needs a file to write"},
      {{"convert", "a.qvf", "b.qvf", "--json"}, "--json does not go with convert"},
      {{"show", "a.qvf", "--icon", "x.ico"}, "--icon does not go with show"},
      {{"create", "a.qvf", "--icon"}, "--icon needs a value"},
      {{"create", "a.qvf", "--frobnicate"}, "unknown option --frobnicate"},
      {{"new", "a.qvf", "--example", "shop"}, "unknown example shop"},
      {{"records", "a.exe"}, "needs an action"},
      {{"records", "a.exe", "drop"}, "unknown action drop"},
      {{"records", "a.exe", "get"}, "record number is missing"},
      {{"records", "a.exe", "get", "0"}, "0 is not a record number"},
      {{"records", "a.exe", "get", "12x"}, "12x is not a record number"},
      {{"records", "a.exe", "get", "99999999999"}, "99999999999 is not a record number"},
      {{"records", "a.exe", "set", "1", "Name"}, "expected LABEL=VALUE"},
      {{"records", "a.exe", "set", "1", "=x"}, "expected LABEL=VALUE"},
      {{"records", "a.exe", "count", "Name=x"}, "too many words"},
      {{"records", "a.exe", "query"}, "query needs a line"},
      {{"records", "a.exe", "sort", ""}, "sort needs a box"},
      {{"records", "a.exe", "index", "Name", "City"}, "too many words"},
      {{"records", "a.exe", "script", "Sum", "0"}, "0 is not a record number"},
      {{"records", "a.exe", "users"}, "users needs the word list"},
      {{"records", "a.exe", "count", "--case"}, "--case does not go with count"},
      {{"records", "a.exe", "sort", "Name", "--field", "x"}, "--field does not go with sort"},
      {{"show", "a.qvf", "--descending"}, "--descending does not go with show"},
  };
  for (const Refused& c : cases) {
    EXPECT_NE(parseOptions(c.words).problem.find(c.problem), std::string::npos)
        << c.problem << " / " << parseOptions(c.words).problem;
  }
}

TEST(OptionsTest, SwitchesStandAnywhere) {
  const ParsedOptions p = parseOptions(
      {"--json", "records", "--data=d.dbd", "app.exe", "set", "--user", "eve", "7", "Name=a=b", "Note=-1"});
  ASSERT_EQ(p.problem, "");
  EXPECT_TRUE(p.options.json);
  EXPECT_EQ(p.options.data, "d.dbd");
  EXPECT_EQ(p.options.user, "eve");
  EXPECT_EQ(p.options.record, 7);
  ASSERT_EQ(p.options.assignments.size(), 2u);
  EXPECT_EQ(p.options.assignments[0].value, "a=b");
  EXPECT_EQ(p.options.assignments[1].value, "-1");
}

TEST(OptionsTest, DashesAfterADoubleDashAreWords) {
  const ParsedOptions p = parseOptions({"show", "--", "--odd-name.qvf"});
  ASSERT_EQ(p.problem, "");
  EXPECT_EQ(p.options.file, "--odd-name.qvf");
}

TEST(OptionsTest, ListTakesAFirstRecordAndACount) {
  EXPECT_EQ(parseOptions({"records", "a", "list"}).options.count, -1);
  const ParsedOptions p = parseOptions({"records", "a", "list", "5", "10"});
  EXPECT_EQ(p.options.record, 5);
  EXPECT_EQ(p.options.count, 10);
}

TEST(OptionsTest, HelpAnswersBeforeOperandsAreAsked) {
  const ParsedOptions p = parseOptions({"create", "--help"});
  EXPECT_EQ(p.problem, "");
  EXPECT_TRUE(p.options.help);
  EXPECT_NE(helpText(Command::create).find("--icon ICO"), std::string::npos);
  EXPECT_NE(helpText(Command::none).find("records"), std::string::npos);
}

}  // namespace
}  // namespace plinth
