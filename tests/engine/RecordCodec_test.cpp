// The bytes of a record: where each kind stands, what it stores, and that everything stored comes back.
#include "engine/RecordCodec.h"

#include <gtest/gtest.h>

#include <string_view>

#include "basic/DateSerial.h"
#include "engine/VariableArea.h"
#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

TEST(RecordLayout, LaysObjectsOutInFileOrderAndSkipsDeletedAndGlobalOnes) {
  Payload p = shopPayload();
  p.fields[2].page = 5;         // deleted
  p.fields[5].dummyField = -1;  // global
  p.pictures.resize(2);
  p.pictures[0].page = 0;
  p.pictures[0].image.storedName = "logo.gif";  // fixed
  p.pictures[1].page = 0;                       // of each record
  p.header.varObjects = 1;
  const RecordLayout layout = *computeLayout(makeApplication(p));
  EXPECT_EQ(layout.fields, (std::vector<std::int32_t>{0, 1, 0, 11, 15, 0}));
  EXPECT_EQ(layout.combos[1], 23);
  EXPECT_EQ(layout.checks[0], 31);
  EXPECT_EQ(layout.pictures, (std::vector<std::int32_t>{0, 32}));
  EXPECT_EQ(layout.memos[1], 40);
  EXPECT_EQ(layout.dateStamp, 80);
  EXPECT_EQ(layout.variableArea, 88);
  EXPECT_EQ(layout.recLen, 10088);
  EXPECT_EQ(layout.columns, 6);
}

TEST(RecordLayout, RefusesARecordOfAbsurdLength) {
  Payload p;
  p.fields.assign(2001, fieldRow("x", 0, kMaxFieldLength));
  const auto layout = computeLayout(makeApplication(p));
  ASSERT_FALSE(layout.ok());
  EXPECT_EQ(layout.error().kind, ErrorKind::damaged);
}

struct KindCase {
  int kind;
  const char* shown;
  std::vector<std::uint8_t> bytes;  // as the file holds it
  double date = 0;
};

TEST(RecordCodec, EachKindHasItsStoredForm) {
  const KindCase cases[] = {
      {0, "Abc", {'A', 'b', 'c', ' ', ' ', ' '}},
      {1, "2.5", {0, 0, 0, 0, 0, 0, 4, 0x40}},
      {2, "1,234.50", {0xA8, 0x5E, 0xBC, 0, 0, 0, 0, 0}},
      {4, "-0.0001", {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
      {3, "", {0, 0, 0, 0, 0, 0, 0, 0}},
      {5, "-2", {0xFE, 0xFF, 0xFF, 0xFF}},
      {6, "2023-03-15", {0x80, 0x74, 0xD2, 0x1A, 0, 0, 0, 0}, 45000},
      {9, "", {0, 0, 0, 0, 0, 0, 0, 0}},
      {10, "14:30", {'1', '4', ':', '3', '0', ' '}, 0.604166666666667},
      {15, "03", {'0', '3', ' ', ' ', ' ', ' '}},
      {23, "free", {'f', 'r', 'e', 'e', ' ', ' ', ' ', ' ', ' ', ' '}},
  };
  for (const KindCase& c : cases) {
    SCOPED_TRACE(c.kind);
    Payload p;
    p.fields = {PayloadField{}, fieldRow("x", c.kind, 6)};
    const Application app = makeApplication(p);
    const RecordCodec codec(app, *computeLayout(app), englishLocale());
    RecordForm form = makeRecordForm(app);
    form.fields[1].text = c.shown;
    form.fields[1].date = c.date;
    Bytes bytes(static_cast<std::size_t>(codec.layout().recLen));
    codec.encode(form, bytes);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.end() - 1), c.bytes);
    EXPECT_EQ(bytes.back(), ' ');
    form.fields[1] = {"stale", 99, false};
    codec.decode(bytes, form);
    EXPECT_EQ(form.fields[1].text, c.shown);
    EXPECT_NEAR(form.fields[1].date, c.date, 1e-6);
  }
}

TEST(RecordCodec, NumbersKeepTheirCentsAndStayInRange) {
  const struct {
    const char* text;
    std::int64_t scaled;
  } cases[] = {
      {"123,456,789,012,345.67", 1234567890123456700},
      {"-0.5", -5000},
      {"1.00005", 10000},
      {"1.00015", 10002},
      {"1E3", 10000000},
      {"12 apples", 120000},
      {"", 0},
      {"99999999999999999999", std::numeric_limits<std::int64_t>::max()},
  };
  for (const auto& c : cases) EXPECT_EQ(scaledFromText(c.text, englishLocale()), c.scaled) << c.text;
  EXPECT_EQ(shownCurrency(2, 1234567890123456700, false, englishLocale()), "123,456,789,012,345.67");
  EXPECT_EQ(shownNumber(2, 0, true, englishLocale()), "0.00");
  EXPECT_EQ(shownNumber(2, 0, false, englishLocale()), "");
  EXPECT_EQ(shownNumber(5, 100, false, englishLocale()), "100");
  Locale german = englishLocale();
  german.decimalSeparator = ',';
  german.groupSeparator = ".";
  EXPECT_EQ(scaledFromText("1.234,5", german), 12345000);
  EXPECT_EQ(shownNumber(3, 0, false, german), "");
}

// Cut texts, foreign check bytes, pictures and the date stamp; plain and substituted.
TEST(RecordCodec, PaddingIsBlanksAndNulsAtTheEnd) {
  for (const std::string_view text : {"", "x", " x", "a  b\xA0", "eight..8", "sixteen letters.", "\1"})
    for (std::size_t padding = 0; padding < 20; ++padding) {
      std::string stored(text);
      for (std::size_t i = 0; i < padding; ++i) stored += i % 3 == 1 ? '\0' : ' ';
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(stored.data());
      EXPECT_EQ(storedText({bytes, stored.size()}), text) << padding;
    }
}

TEST(RecordCodec, WholeRecordComesBack) {
  for (const int scramble : {0, 1}) {
    Payload p = shopPayload();
    p.header.scrambleData = static_cast<std::int16_t>(scramble);
    p.pictures.resize(1);
    p.pictures[0].page = 0;
    const Application app = makeApplication(p);
    const RecordCodec codec(app, *computeLayout(app), englishLocale());
    RecordForm form = makeRecordForm(app);
    form.fields[1].text = "0123456789overflow";
    form.combos[1].text = "Cash  ";
    form.checks[0].value = 1;
    form.pictures[0].stem = "00000042";
    form.memos[1].text = "two\r\nlines";
    form.dateStamp = 45000;
    Bytes bytes(static_cast<std::size_t>(codec.layout().recLen));
    codec.encode(form, bytes);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 10) == "0123456789", scramble == 0);
    RecordForm back = makeRecordForm(app);
    codec.decode(bytes, back);
    EXPECT_EQ(back.fields[1].text, "0123456789");
    EXPECT_EQ(back.combos[1].text, "Cash");
    EXPECT_EQ(back.checks[0].value, 1);
    EXPECT_EQ(back.pictures[0].stem, "00000042");
    EXPECT_EQ(back.memos[1].text, "two\r\nlines");
    EXPECT_EQ(back.dateStamp, 45000);
  }
}

VariableLabel label(const std::string& text, bool bold, bool underline) {
  VariableLabel one;
  one.visible = true;
  one.text = text;
  one.bold = bold;
  one.underline = underline;
  one.left = 120;
  one.foreColor = 0xFF;
  return one;
}

TEST(VariableArea, KeepsLabelsAndPicturesAndTheOldStyleOfStyle100) {
  RecordForm form;
  form.labels = {label("bold", true, false), label("  ", true, true), label("lined", false, true)};
  form.labels[0].page = -1;
  form.variablePictures.resize(1);
  form.variablePictures[0] = {true, 2, 1, 2, 3, 4, 5, 6};
  Bytes area(kVariableAreaSize + 1, ' ');
  EXPECT_EQ(writeVariableArea(form, area), 0);
  RecordForm back;
  back.labels = {label("old", false, false), label("old", true, true), label("old", true, true)};
  readVariableArea(area, back);
  EXPECT_EQ(back.labels[0].text, "bold");
  EXPECT_EQ(back.labels[0].page, -1);
  EXPECT_TRUE(back.labels[0].bold);
  EXPECT_EQ(back.labels[1].text, "lined") << "the empty one was left out";
  EXPECT_TRUE(back.labels[1].bold) << "style 100 leaves what the object had";
  EXPECT_FALSE(back.labels[2].visible);
  ASSERT_EQ(back.variablePictures.size(), 1u);
  EXPECT_EQ(back.variablePictures[0].second, 6);
  EXPECT_EQ(back.variablePictures[0].page, 2);
}

TEST(VariableArea, StopsAtItsRoomAndSurvivesGarbage) {
  RecordForm form;
  for (int i = 0; i < 30; ++i) form.labels.push_back(label(std::string(400, 'x'), false, false));
  form.variablePictures.push_back({true, 0, 0, 0, 0, 0, 1, 0});
  Bytes area(kVariableAreaSize + 1, ' ');
  EXPECT_EQ(writeVariableArea(form, area), 30 - 23);
  RecordForm back;
  readVariableArea(area, back);
  EXPECT_EQ(back.labels.size(), 23u);
  EXPECT_EQ(back.variablePictures.size(), 1u);
  for (std::uint8_t fill = 0; fill < 255; ++fill) {
    std::fill(area.begin(), area.end(), fill);
    readVariableArea(std::span(area).first(fill), back);
    std::fill(area.begin() + 4, area.begin() + 8, std::uint8_t{0x7F});
    area[0] = 2, area[1] = area[2] = area[3] = 0;
    readVariableArea(area, back);
  }
  EXPECT_LE(back.labels.size(), 417u);
}

}  // namespace
}  // namespace plinth
