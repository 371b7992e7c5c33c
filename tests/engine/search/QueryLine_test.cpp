// Command lines taken apart: which lines are commands, how they are normalised, and what their terms come to.
#include "engine/search/QueryLine.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

// The shop with a label of two words, a deleted field and a global one, a double and a time of day.
struct QueryLineTest : ::testing::Test {
  QueryLineTest() {
    Payload p = shopPayload();
    p.fields.push_back(fieldRow("First Name", 0, 12));  // 6
    p.fields.push_back(fieldRow("Gone", 0, 5));
    p.fields.back().page = 9;
    p.fields.push_back(fieldRow("Everywhere", 0, 5));
    p.fields.back().dummyField = -1;
    p.fields.push_back(fieldRow("Weight", 1, 10));  // 9
    p.fields.push_back(fieldRow("Start", 10, 5));   // 10
    p.fields.push_back(fieldRow("Lap", 12, 8));     // 11
    app = makeApplication(std::move(p));
    layout = *computeLayout(app);
    defaults[0] = 3;
  }
  Query parse(std::string_view line, bool matchCase = false) const {
    return parseQuery(line, {app, layout, englishLocale(), matchCase, kTestNow, defaults});
  }
  // The conditions as "label operator text".
  std::string conditions(std::string_view line, bool matchCase = false) const {
    std::string all;
    for (const QueryCondition& row : parse(line, matchCase).conditions)
      all += row.key.label + "|" + std::to_string(static_cast<int>(row.op)) + "|" + row.text + ";";
    return all;
  }
  Application app;
  RecordLayout layout;
  ShowColumns defaults{};
};

TEST_F(QueryLineTest, VerbsAreKnownByTheirWordsAndWhere) {
  const std::pair<const char*, QueryVerb> rows[] = {
      {"  SELECT a WHERE b=1  ", QueryVerb::select},
      {"select where b=1", QueryVerb::select},
      {"select a", QueryVerb::plain},
      {"select a where", QueryVerb::plain},
      {"replace x=1", QueryVerb::plain},
      {"Replace x=1 where y=2", QueryVerb::replace},
      {"sum x", QueryVerb::sum},
      {"sum", QueryVerb::plain},
      {"summit", QueryVerb::plain},
      {"Count x=1", QueryVerb::count},
      {"", QueryVerb::plain},
      {"x where select y where z", QueryVerb::plain},
  };
  for (const auto& [line, verb] : rows) {
    EXPECT_EQ(queryVerb(line), verb) << line;
    EXPECT_EQ(parse(line).verb, verb) << line;
  }
}

TEST_F(QueryLineTest, BlanksInQuotesBecomeTildesAndOthersSingle) {
  EXPECT_EQ(normaliseQuery("count  a='x  y'     b=1"), "count a=x~~y b=1");
  EXPECT_EQ(normaliseQuery("a '' b 'c d"), "a b c~d") << "an open quote reaches to the end";
}

TEST_F(QueryLineTest, TermsAreSplitAtTheFirstOperatorOfTheFixedOrder) {
  const std::pair<const char*, const char*> rows[] = {
      {"count name<>a name<=a name>=a name<a name>a name=a name",
       "Name|1|a;Name|2|a;Name|3|a;Name|4|a;Name|5|a;"
       "Name|0|a;Name|-1|;"},
      {"count NAME='New York'", "Name|0|new york;"},
      {"count name=a~b name=\"q\"", "Name|0|a b;Name|0|q;"},
      {"count name=a=b", "Name|0|a=b;"},
      {"count name=<a", ""},  // "<" comes first: no object is called "name="
      {"count 'first name'=x first~name=y", "First Name|0|x;First Name|0|y;"},
      {"count nobody=1 gone=1 everywhere=1 =1 paid=1", "Paid|0|1;"},
      {"count terms=net where notes=x", "Terms|0|net;Notes|0|x;"},
      {"sum price where paid=1 where count>2", "Price|-1|;Paid|0|1;Count|5|2;"},
      {"sum where price>2", "Price|5|2;"},
      {"select name='a where b' where paid=1", "Paid|0|1;"},
      {"select name='x where y'", ""},
  };
  for (const auto& [line, expected] : rows) EXPECT_EQ(conditions(line), expected) << line;
  EXPECT_EQ(conditions("COUNT NAME=Ab", true), "Name|0|Ab;") << "labels have no case";
  EXPECT_EQ(conditions("Select * WHERE NAME=Ab", true), "Name|0|Ab;");
}

TEST_F(QueryLineTest, ValuesAreReadAsTheirObjectsReadThem) {
  const std::pair<const char*, double> rows[] = {
      {"price=1,234.5", 1234.5},      {"count=abc", 0},
      {"due=2023-03-15", 45000},      {"due=3/15", 45000},  // this year's
      {"due=45000", 45000},           {"due=", 0},
      {"start=14:30", 14.5 / 24},     {"start=1430", 14.5 / 24},
      {"start='2:30 pm'", 14.5 / 24}, {"start=0.25", 0.25},
      {"lap=1430", 14.5 / 1440},  // minutes and seconds
      {"lap=1:00:00", 1.0 / 24},
  };
  for (const auto& [term, value] : rows) {
    const Query query = parse("count " + std::string(term));
    ASSERT_EQ(query.conditions.size(), 1u) << term;
    EXPECT_NEAR(query.conditions[0].number, value, 1e-9) << term;
  }
  EXPECT_EQ(parse("count price=0.1").conditions[0].scaled, 1000);
  for (const char* term : {"due=soon", "start=soon", "lap=:"})
    EXPECT_TRUE(std::isnan(parse("count " + std::string(term)).conditions[0].number)) << term;
}

TEST_F(QueryLineTest, ColumnsComeFromPatternsInTheOrderOfNames) {
  const auto columns = [&](const char* names, bool matchCase = false) {
    return parse("select " + std::string(names) + " where paid=1", matchCase).columns;
  };
  EXPECT_EQ(columns("Notes p* terms"), (ShowColumns{6001, 2, 4000, 2001}));
  EXPECT_EQ(columns("NAME 'FIRST N'*", true), (ShowColumns{1, 6}));
  EXPECT_EQ(columns("nobody *"), (ShowColumns{1, 2, 3, 4, 5, 6, 9, 10, 11, 2001, 4000}))
      << "the first eleven";
  for (const char* names : {"", "*", "* name", "nobody gone everywhere", "[", "'"})
    EXPECT_EQ(columns(names), defaults) << names;
}

TEST_F(QueryLineTest, ReplacementsAreTheBytesOfTheObject) {
  const auto bytes = [&](const std::string& term, bool matchCase = false) {
    const Query query = parse("replace " + term + " where name=x", matchCase);
    if (query.replacements.size() != 1) return std::string("none");
    return std::string(query.replacements[0].bytes.begin(), query.replacements[0].bytes.end());
  };
  using namespace std::string_literals;
  const std::pair<const char*, std::string> rows[] = {
      {"name='Ab Cd'", "ab cd     "},
      {"name=", "          "},
      {"name=abcdefghijkl", "abcdefghij"},
      {"name=\"q\"", "\"q\"       "},
      {"terms=net", "net     "},
      {"price=-1.5", "\x68\xC5\xFF\xFF\xFF\xFF\xFF\xFF"s},
      {"count=2.6", "\x03\0\0\0"s},
      {"count=1e99", "\xFF\xFF\xFF\x7F"s},
      {"weight=1", "\0\0\0\0\0\0\xF0\x3F"s},
      {"due=2023-03-15", "\x80\x74\xD2\x1A\0\0\0\0"s},
      {"due=", "\0\0\0\0\0\0\0\0"s},
      {"due=soon", "none"},
      {"start=1430", "1430 "},
      {"paid=1", "1"},
      {"paid=", "none"},
      {"nobody=1", "none"},
      {"everywhere=1", "none"},
      {"name", "none"},
  };
  for (const auto& [term, expected] : rows) EXPECT_EQ(bytes(term), expected) << term;
  EXPECT_EQ(bytes("NAME=Ab", true), "Ab        ");
  EXPECT_EQ(parse("replace price=1 where name=x").replacements[0].position, layout.fields[2] - 1);
}

}  // namespace
}  // namespace plinth
