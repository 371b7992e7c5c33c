// What boxes take and show, kind by kind.
#include "engine/FieldEntry.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

TEST(FieldEntry, KeysPassByKind) {
  const struct {
    int kind;
    int typed, taken;
  } cases[] = {
      {0, 'a', 'a'}, {0, 13, 0},    {0, 17, 162},   {0, 27, 247},   {0, 9, 188}, {1, '5', '5'}, {1, 'e', 0},
      {1, '.', '.'}, {5, '.', 0},   {2, ',', ','},  {2, '-', '-'},  {2, ' ', 0}, {2, ':', ':'}, {2, 8, 8},
      {2, '$', 0},   {6, 'M', 'M'}, {10, ':', ':'}, {12, '7', '7'}, {1, 17, 0},
  };
  for (const auto& c : cases)
    EXPECT_EQ(keyPressFilter(c.kind, static_cast<unsigned char>(c.typed)), c.taken)
        << c.kind << " " << c.typed;
}

TEST(FieldEntry, CaseIsSetWhileTyping) {
  EXPECT_EQ(casedText(1,
                      "stra\xDF"
                      "e \xE4",
                      1252),
            "STRA\xDF"
            "E \xC4");
  EXPECT_EQ(casedText(2, "anna mcDonald", 1252), "Anna McDonald");
  EXPECT_EQ(casedText(3, "ABC", 1252), "abc");
  EXPECT_EQ(casedText(0, "aBc", 1252), "aBc");
}

TEST(FieldEntry, LeavingABoxFormatsWhatWasTyped) {
  const struct {
    int kind;
    const char *typed, *shown;
    double date;
  } cases[] = {
      {0, "  any ", "  any ", 0},
      {1, "1,234.5", "1234.5", 0},
      {2, "1234.567", "1,234.57", 0},
      {4, "2", "2.0000", 0},
      {5, "1999", "1,999", 0},
      {5, "99999999999", "before", 7},  // beyond a whole number's range
      {2, "1e300", "before", 7},
      {3, "0", "", 0},
      {6, "3/15/2023", "2023-03-15", 45000},
      {7, "2023-03-15", "3/15/2023", 45000},
      {8, "3/15/2023", "15-Mar-23", 45000},
      {6, "nonsense", "before", 7},
      {6, "14:30", "before", 7},  // a time is no date
      {9, "", "", 0},
      {10, "1430", "14:30", 14.5 / 24},
      {10, "9", "00:09", 9.0 / 1440},
      {10, "2:30 pm", "14:30", 14.5 / 24},
      {12, "90", "01:30", 90.0 / 86400},
      {12, "12345", "01:23:45", 5025.0 / 86400},
      {12, "abc", "before", 7},
      {11, "14:30", "02:30 PM", 14.5 / 24},
      {11, "", "", 0},
  };
  for (const auto& c : cases) {
    Payload p;
    p.fields = {PayloadField{}, fieldRow("x", c.kind, 30)};
    const EnteredField got =
        enterField(makeApplication(p), 1, c.typed, {"before", 7}, kTestNow, englishLocale());
    EXPECT_EQ(got.text, c.shown) << c.kind << " " << c.typed;
    EXPECT_EQ(got.taken, got.text != "before") << c.kind << " " << c.typed;
    EXPECT_NEAR(got.date, c.date, 1e-9) << c.kind << " " << c.typed;
  }
}

TEST(FieldEntry, NewRecordsStartWithDefaults) {
  const struct {
    int kind;
    bool showZero, noDate;
    const char* shown;
  } cases[] = {
      {0, false, false, ""},       {1, false, false, ""},          {1, true, false, "0"},
      {3, true, false, "0.000"},   {5, true, false, "0"},          {6, false, false, "2023-03-17"},
      {6, false, true, ""},        {7, false, false, "3/17/2023"}, {10, false, false, "12:00"},
      {11, false, false, ""},      {12, false, false, "12:00:00"}, {14, false, false, "2023"},
      {17, false, false, "March"}, {20, false, false, "Friday"},   {22, false, false, "11"},
      {23, false, false, ""},
  };
  for (const auto& c : cases) {
    Payload p;
    p.fields = {PayloadField{}, fieldRow("x", c.kind, 30)};
    p.fields[1].dayOffset = 2;
    p.fields[1].noDefaultDate = c.noDate;
    p.application.showZero = c.showZero;
    EXPECT_EQ(fieldDefault(makeApplication(p), 1, kTestNow, englishLocale()).text, c.shown) << c.kind;
  }
}

TEST(FieldEntry, TheFirstFittingTestNamesTheAction) {
  EXPECT_EQ(fieldAction("a@b.htm").action, FieldAction::web);
  EXPECT_EQ(fieldAction("Ann@home").action, FieldAction::mail);
  EXPECT_EQ(fieldAction("letter.DOCX").action, FieldAction::document);
  EXPECT_EQ(fieldAction("x.pdf").action, FieldAction::pdf);
  EXPECT_EQ(fieldAction("song.mp3").action, FieldAction::sound);
  EXPECT_EQ(fieldAction("face.jpg").action, FieldAction::picture);
  EXPECT_EQ(fieldAction("all.zip").action, FieldAction::archive);
  EXPECT_EQ(fieldAction("plain").action, FieldAction::none);
}

}  // namespace
}  // namespace plinth
