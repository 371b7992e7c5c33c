// Which parts of a text name an object, and that every place that does follows.
#include "model/FormulaReferences.h"

#include <gtest/gtest.h>

#include "model/ProjectFile.h"

namespace plinth {
namespace {

int plusTen(int old) { return old + 10; }

TEST(FormulaReferences, ALetterAloneAndItsNumberAreAReference) {
  const struct {
    char letter;
    const char *before, *after;
  } cases[] = {
      {'F', "F1", "F11"},
      {'F', "", ""},
      {'F', "F", "F"},
      {'F', "SUM(F1:F5)*F12R", "SUM(F11:F15)*F22R"},
      {'F', "F1F2", "F11F2"},  // the second touches the first
      {'F',
       "XF1+\xC4"
       "F1+2F1",
       "XF1+\xC4"
       "F1+2F1"},
      {'F', "IF C1=\"F2 or less\" THEN F3=0", "IF C1=\"F12 or less\" THEN F13=0"},
      {'F', "F007+F123456+f1", "F007+F123456+f1"},
      {'F', "F9\r\nF10=-F1", "F19\r\nF20=-F11"},
      {'F', ":3F", ":3F"},
      {'C', "(F1+F2)C3+C3", "(F1+F2)C3+C13"},
      {'M', "F1M2+NUM2(F1) M2=F1", "F1M2+NUM2(F1) M12=F1"},
      {'K', "NOT(K0=1)", "NOT(K10=1)"},
  };
  for (const auto& c : cases) EXPECT_EQ(renumbered(c.before, c.letter, plusTen), c.after);
}

TEST(FormulaReferences, EveryPlaceThatNamesAFieldFollows) {
  ProjectDocument d;
  d.fields.resize(2);
  d.fields[1].formula = "F1+K1+C1";
  d.buttons.resize(1);
  d.buttons[0].buttonPath = "F1=1F+2K\r\nselect F1 where 12.1F=x1F";
  d.buttons[0].tag = "calc.exe F1";
  d.titles[3].tag = "mailto:F1:?Subject=F2:";
  d.pictures.resize(1);
  d.pictures[0].tag = "C:\\F1\\F1.htm";
  d.search.text1 = {"F1", " f2", "C1", "F", "Fx"};
  d.emailField = 1;
  d.functionKey = {"1", "12345", "1a", "", "2"};
  d.documents[0].templatePath = "<a>:1F :1f :1C $1L</a>";
  d.reports.resize(1);
  d.reports[0].labels.resize(4);
  d.reports[0].labels[0].fieldOfLabel = 1;
  d.reports[0].labels[0].caption = "F1,1";
  d.reports[0].labels[1].fieldOfLabel = 1;
  d.reports[0].labels[1].caption = "C1,1";
  d.reports[0].labels[2].caption = "F1 costs $1=2F and $1=2C";
  d.reports[0].labels[3].fieldOfLabel = 1;
  d.reports[0].labels[3].caption = "x";
  d.reports[0].pictures.resize(1);
  renumberReferences(d, 'F', plusTen);
  EXPECT_EQ(d.fields[1].formula, "F11+K1+C1");
  EXPECT_EQ(d.buttons[0].buttonPath, "F11=11F+2K\r\nselect F11 where 12.1F=x1F");
  EXPECT_EQ(d.buttons[0].tag, "calc.exe F11");
  EXPECT_EQ(d.titles[3].tag, "mailto:F11:?Subject=F12:");
  EXPECT_EQ(d.pictures[0].tag, "C:\\F1\\F1.htm");
  EXPECT_EQ(d.search.text1, (std::array<std::string, 11>{"F11", "F12", "C1", "F", "Fx"}));
  EXPECT_EQ(d.emailField, 11);
  EXPECT_EQ(d.emailNameField, 0);
  EXPECT_EQ(d.functionKey, (std::array<std::string, 12>{"11", "12345", "1a", "", "12"}));
  EXPECT_EQ(d.documents[0].templatePath, "<a>:11F :11f :1C $1L</a>");
  const auto& labels = d.reports[0].labels;
  EXPECT_EQ(labels[0].fieldOfLabel, 11);
  EXPECT_EQ(labels[0].caption, "F11,1");
  EXPECT_EQ(labels[1].fieldOfLabel, 1);
  EXPECT_EQ(labels[2].caption, "F1 costs $11=2F and $1=2C");
  EXPECT_EQ(labels[3].fieldOfLabel, 1);

  renumberReferences(d, 'K', plusTen);
  renumberReferences(d, 'L', plusTen);
  renumberReferences(d, 'P', plusTen);
  EXPECT_EQ(d.fields[1].formula, "F11+K11+C1");
  EXPECT_EQ(d.buttons[0].buttonPath, "F11=11F+12K\r\nselect F11 where 12.1F=x1F");
  EXPECT_EQ(d.documents[0].templatePath, "<a>:11F :11f :1C $11L</a>");
  EXPECT_EQ(labels[3].fieldOfLabel, 11);
  EXPECT_EQ(d.reports[0].pictures[0].pictureOfImage, 10);
}

TEST(FormulaReferences, ASavedProjectNamesTheSameObjects) {
  ProjectDocument d;
  d.fields.resize(2);
  d.fields[1].page = 0;
  d.fields[1].formula = "K3+K1+K0";
  d.checks.resize(4);
  for (int i = 0; i < 4; ++i) {
    d.checks[i].page = static_cast<std::int16_t>(i == 1 ? kPageDeleted : 0);
    d.checks[i].tag = "check " + std::to_string(i);
  }
  d.titles.resize(9);
  d.titles[6].page = kPageDeleted;
  d.titles[5].page = kPageDeleted;  // a label of the application keeps its slot
  d.titles[8].caption = "eighth";
  d.documents[0].templatePath = "<a>:8L $8L :3K</a>";
  d.lines.resize(4);
  d.lines[0].page = d.lines[2].page = kPageDeleted;
  d.lines[3].x1 = 150;

  MemoryPictures pictures;
  const ProjectDocument loaded =
      readProject(writeProject(d, pictures, {"a.qvf", 45000}).bytes, pictures).document;
  EXPECT_EQ(loaded.fields[1].formula, "K2+K1+K0");
  ASSERT_EQ(loaded.checks.size(), 3u);
  EXPECT_EQ(loaded.checks[2].tag, "check 3");
  ASSERT_EQ(loaded.titles.size(), 8u);
  EXPECT_EQ(loaded.titles[7].caption, "eighth");
  EXPECT_EQ(loaded.documents[0].templatePath, "<a>:7L $7L :2K</a>");
  ASSERT_EQ(loaded.lines.size(), 3u);
  EXPECT_EQ(loaded.lines[2].x1, 150);
  EXPECT_EQ(d.fields[1].formula, "K3+K1+K0");  // the open project goes on with its numbers
  EXPECT_EQ(d.checks.size(), 4u);
}

}  // namespace
}  // namespace plinth
