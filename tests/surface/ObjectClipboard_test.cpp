// Lines out and in for every kind, text from anywhere, and the commands on the surface.
#include "surface/ObjectClipboard.h"

#include <gtest/gtest.h>

#include "basic/Text.h"
#include "surface/ClipboardColumns.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

const std::string kSignature = "~QRVTM2.0\r\n";

class ObjectClipboardTest : public testing::Test, public DesignFixture {
 protected:
  std::vector<ObjectRef> pasted(const std::string& lines, PointPx offset = {}) {
    return pasteObjects(document, kSignature + lines, 2, offset).objects;
  }
  // Copies and pastes the object; everything but name and tab position has to come back.
  template <class Row>
  void expectSameCopy(const std::vector<Row>& rows, ObjectRef object) {
    const PasteResult result =
        pasteObjects(document, clipboardText(document, {object}, context.measure), 0, {});
    EXPECT_EQ(result.skipped, 0);
    Row original = rows[static_cast<std::size_t>(object.index)];
    const Row& copy = rows.back();
    if constexpr (requires { original.tabOrder; }) original.tabOrder = copy.tabOrder;
    if constexpr (std::is_same_v<Row, FieldRow>) original.tag = "Field2";
    EXPECT_EQ(result.objects.size(), 1u);
    EXPECT_TRUE(copy == original) << kindInfo(object.kind).noun;
  }

  AreaSelection area{context};
  ObjectClipboard clipboard{context, area};
};

TEST_F(ObjectClipboardTest, FieldLineHoldsItsColumnsInOrder) {
  const ObjectRef field = add(Field, {97, 47, 150, 21});
  document.fields[1].helpText = "one, two\r\nthree";
  document.fields[1].formula = "F1*2";
  document.fields[1].fieldType = 2;
  document.fields[1].lockEntry = 1;
  document.fields[1].fontBold = true;
  EXPECT_EQ(
      clipboardText(document, {field}, context.measure),
      kSignature +
          "Field,97,47,150,21,8421504,1,16777215,100,50,144,15,0,False,16777215,0,Arial,9,True,False,False,"
          "one/~/ two&_&three,True,30,1,1,0,0,2,0,False,F1*2,True,1,0,0,\r\n");
}

// A row of a kind that differs from a fresh one wherever the line can tell.
TEST_F(ObjectClipboardTest, EveryKindComesBackAsItWas) {
  const RectPx place{40, 30, 120, 70};
  const std::string text = "a, \"b\"\r\n\xE4\n";

  const ObjectRef title = add(Title, place);
  document.titles[6] = {.page = 0,
                        .visible = true,
                        .alignment = 2,
                        .printOn = 1,
                        .fontName = "Courier, New",
                        .fontSize = 8.25f,
                        .fontBold = true,
                        .fontItalic = true,
                        .fontUnderline = true,
                        .foreColor = 0x123456,
                        .left = 600,
                        .top = 450,
                        .caption = text,
                        .tag = text,
                        .helpText = text};
  expectSameCopy(document.titles, title);

  const ObjectRef memo = add(Memo, place);
  MemoRow& memoRow = document.memos[2];
  memoRow.lockEntry = memoRow.printOn = memoRow.noSearch = 1;
  memoRow.tag = memoRow.helpText = text;
  memoRow.frameStyle = 3;
  memoRow.frameColor = memoRow.foreColor = memoRow.backColor = 0xABCDE;
  memoRow.fontItalic = true;
  memoRow.fieldLength = 77;
  expectSameCopy(document.memos, memo);

  const ObjectRef combo = add(Combo, place);
  document.combos[1].items = {"one", "two,", "", text};
  document.combos[1].comboType = 3;
  document.combos[1].printOn = document.combos[1].noChart = 1;
  document.combos[1].textCase = 2;
  document.combos[1].tag = "Town";
  document.combos[1].helpText = text;
  expectSameCopy(document.combos, combo);

  const ObjectRef picture = add(Picture, place);
  document.pictures[0].picturePath = "C:\\temp\\a,b.bmp";
  document.pictures[0].picField = "Photo";
  document.pictures[0].tag = document.pictures[0].helpText = text;
  document.pictures[0].picBorder = document.pictures[0].pictureMode = 1;
  document.pictures[0].picFlag = true;
  expectSameCopy(document.pictures, picture);

  const ObjectRef check = add(CheckBox, place);
  document.checks[0].appearance = 3;
  document.checks[0].value = document.checks[0].noSearch = document.checks[0].noChart = 1;
  document.checks[0].tag = document.checks[0].helpText = text;
  expectSameCopy(document.checks, check);

  const ObjectRef line = add(Line, place);
  document.lines[1].borderColor = 0xFF;
  document.lines[1].printOn = 1;
  expectSameCopy(document.lines, line);

  const ObjectRef square = add(Square, place);
  document.squares[0].shapeType = 4;
  document.squares[0].fillStyle = 6;
  document.squares[0].fillColor = document.squares[0].backColor = 0x8000;
  document.squares[0].borderWidth = 5;
  document.squares[0].borderStyle = 2;
  expectSameCopy(document.squares, square);

  const ObjectRef script = add(Script, place);
  document.scripts[1].tag = "<p>\r\n" + text;
  expectSameCopy(document.scripts, script);

  const ObjectRef button = add(Button, place);
  document.buttons[0].caption = document.buttons[0].helpText = text;
  document.buttons[0].tag = "notepad.exe a, b";
  document.buttons[0].buttonPath = "F1=1\r\nSUM F2";
  document.buttons[0].buttonIcon = 7;
  document.buttons[0].backColor = 0x00FF00;
  expectSameCopy(document.buttons, button);

  const ObjectRef field = add(Field, {43, 33, 126, 21});
  FieldRow& fieldRow = document.fields[1];
  fieldRow.tag = "Own name";
  fieldRow.defaultText = fieldRow.formula = text;
  fieldRow.textCase = 3;
  fieldRow.noDefaultDate = fieldRow.noChart = 1;
  fieldRow.dummyField = true;
  fieldRow.dayOffset = -4;
  fieldRow.alignment = 1;
  fieldRow.fieldLength = 100000;
  expectSameCopy(document.fields, field);
}

TEST_F(ObjectClipboardTest, TextFromAnywhereDoesNoHarm) {
  const struct {
    const char* lines;
    int made, skipped;
  } cases[] = {
      {"\r\nLine,1,2,3,4", 0, 0},  // the second line is empty
      {"Line,1,2,3,4", 1, 0},
      {"Line,1,2,3,4\r\n\r\nSquare,1\r\n", 2, 0},
      {"Label,1,2\r\nline,1,2\r\n,Line\r\nLine\r\nLineXY,2", 0, 5},
      {"Line,", 1, 0},
      {"Script,a,b,c,d\r\n\r\n\x01\x02\xFF,\xFF", 1, 1},
      {"Combo,1,2,3,4,5,6,Arial,9,True,False,0,0,30,1,0,Tag,1,0,0,99999999999,only", 1, 0},
      {"Combo,1,2,3,4,5,6,Arial,9,True,False,0,0,30,1,0,Tag,1,0,0,-5,none", 1, 0},
  };
  for (const auto& c : cases) {
    const PasteResult result = pasteObjects(document, kSignature + c.lines, 0, {});
    EXPECT_EQ(result.objects.size(), static_cast<std::size_t>(c.made)) << c.lines;
    EXPECT_EQ(result.skipped, c.skipped) << c.lines;
  }
  EXPECT_EQ(document.combos[1].items, (std::vector<std::string>{"only"}));
  EXPECT_TRUE(document.combos[2].items.empty());
  EXPECT_EQ(pageOf(document, {Line, 0}), kPageVacant);
  for (const char* text : {"", "~QRVTM2.0", "~QRVTM2.0\r\n", "~QRVTM2.1\r\nLine,1,2,3,4", "Line,1,2,3,4"})
    EXPECT_TRUE(pasteObjects(document, text, 0, {}).objects.empty()) << text;
  EXPECT_EQ(pasteObjects(document, "~QRVTM2.0\nLine,1,2,3,4\nLine,1\n", 0, {}).objects.size(), 2u);
}

TEST_F(ObjectClipboardTest, NumbersComeOutWithinTheirRange) {
  pasted(
      "Square,1e9,-1e300,-5,99999999,-1,nan,70000,900,-1,16777216,x,2\r\n"
      "Line,inf,0x10,12.6,1 2,-2147483640\r\n"
      "Title,a,TRUE,30001,-30001,9,Arial,-1,0,yes,1000000\r\n",
      {10, -10});
  const SquareRow& square = document.squares[0];
  EXPECT_EQ(square.left, 30000 * 15);
  EXPECT_EQ(square.top, -30000 * 15);
  EXPECT_EQ(square.width, 0);
  EXPECT_EQ(square.height, 30000 * 15);
  EXPECT_EQ(square.backColor, 0xFFFFFF);
  EXPECT_EQ(square.borderColor, 0);
  EXPECT_EQ(square.borderStyle, 32767);
  EXPECT_EQ(square.fillStyle, 7);
  EXPECT_EQ(square.shapeType, 0);
  EXPECT_EQ(square.fillColor, 0xFFFFFF);
  EXPECT_EQ(square.borderWidth, 1);
  EXPECT_EQ(square.printOn, 1);
  EXPECT_EQ(square.page, 2);
  const LineRow& line = document.lines[1];
  EXPECT_EQ(line.x1, 0);
  EXPECT_EQ(line.y1, 0);
  EXPECT_EQ(line.x2, 23 * 15);
  EXPECT_EQ(line.y2, 0);
  EXPECT_EQ(line.borderColor, 0);
  const TitleRow& title = document.titles[6];
  EXPECT_EQ(title.printOn, 1);
  EXPECT_EQ(title.left, 30000 * 15);
  EXPECT_EQ(title.alignment, 2);
  EXPECT_TRUE(title.fontBold);
  EXPECT_FALSE(title.fontItalic);
  EXPECT_FALSE(title.fontUnderline);
  EXPECT_EQ(title.fontSize, 200);
}

TEST_F(ObjectClipboardTest, TablesEndAtTheirLimits) {
  for (const KindInfo& info : kindInfos()) {
    std::string lines = kSignature;
    for (int i = 0; i < info.limit + 3; ++i) lines.append(info.word).append(",1\r\n");
    ProjectDocument d;
    const PasteResult result = pasteObjects(d, lines, 0, {});
    EXPECT_EQ(result.objects.back().index, info.limit) << info.word;
    EXPECT_GE(result.skipped, 2) << info.word;
    EXPECT_EQ(result.fieldsFull, info.kind == Field);
    visitTable(d, info.kind, [&](const auto& rows) {
      EXPECT_EQ(rows.size(), static_cast<std::size_t>(info.limit) + 1) << info.word;
    });
  }
}

TEST_F(ObjectClipboardTest, AHundredThousandLinesFillTheTablesAndNoMore) {
  std::string lines;
  for (int i = 0; i < 100000; ++i) lines += i % 2 ? "Field,1,2\r\n" : "junk line,,,,,\r\n";
  const PasteResult result = pasteObjects(document, kSignature + lines, 0, {});
  EXPECT_EQ(result.objects.size(), 2000u);
  EXPECT_EQ(result.skipped, 98000);
  EXPECT_TRUE(result.fieldsFull);
}

TEST_F(ObjectClipboardTest, ReferencesBetweenTheCopiesFollow) {
  for (int i = 0; i < 12; ++i) add(Field, {10, 20 * i, 60, 21});
  document.fields[3].formula = "F10+F3+F1*SUM(F3:F12)";
  const std::string text = clipboardText(document, {{Field, 10}, {Field, 3}, {Field, 12}}, context.measure);
  pasteObjects(document, text, 0, {});
  EXPECT_EQ(document.fields[14].formula, "F13+F14+F1*SUM(F14:F15)");
  EXPECT_EQ(document.fields[3].formula, "F10+F3+F1*SUM(F3:F12)");

  ProjectDocument other;
  other.fields.resize(2);
  pasteObjects(other, text, 0, {});
  EXPECT_EQ(other.fields[3].formula, "F2+F3+F1*SUM(F3:F4)");
}

TEST_F(ObjectClipboardTest, APastedPathIsAnImageOfThisMachine) {
  document.pictures.resize(1);
  document.pictures[0].picturePath = "mine.dat";
  const std::pair<const char*, bool> cases[] = {{"C:\\pictures\\a.BMP", true},
                                                {"/tmp/x.png", true},
                                                {"mine.dat", true},
                                                {"C:\\secret.txt", false},
                                                {"\\\\server\\a.bmp", false},
                                                {"//server/a.bmp", false},
                                                {"a.bmp\\secret", false},
                                                {"", false}};
  for (const auto& [path, kept] : cases) {
    pasted("Picture," + std::string(path) + ",1,2,3,4\r\n");
    EXPECT_EQ(document.pictures.back().picturePath, kept ? path : "");
  }
}

TEST_F(ObjectClipboardTest, OneObjectLandsTenPixelsAwayAndIsSelected) {
  const ObjectRef field = add(Field, {100, 50, 126, 21});
  document.fields[1].formula = "F1+1";
  settle();
  select(state, field);
  scrolled = {30, -40};
  const std::string text = clipboard.copy();
  scrolled = {0, -140};
  state.currentPage = 3;
  clipboard.paste(text);
  clipboard.paste(text);
  const ObjectRef first{Field, 2}, second{Field, 3};
  for (const ObjectRef copy : {first, second}) {
    EXPECT_EQ(cornerOf(document, copy).x, 80);
    EXPECT_EQ(cornerOf(document, copy).y, 160);
    EXPECT_EQ(pageOf(document, copy), 3);
  }
  EXPECT_EQ(selectedObject(state, document), second);
  EXPECT_EQ(document.fields[3].formula, "F3+1");
  EXPECT_EQ(document.fields[3].tabOrder, 3);
  EXPECT_EQ(state.pasteFirstField, 2);
  EXPECT_EQ(history.undoWords(), "paste of F3");
  EXPECT_EQ(history.steps(), 2u);
  EXPECT_TRUE(document.dirty);
  history.undo(document);
  EXPECT_EQ(document.fieldCount(), 2);

  clipboard.paste("no objects");
  EXPECT_EQ(state.selKind, kindInfo(Field).selKind);
  EXPECT_EQ(history.steps(), 1u);
}

TEST_F(ObjectClipboardTest, AnAreaGoesAndComesAsOne) {
  const ObjectRef line = add(Line, {20, 20, 50, 10}), check = add(CheckBox, {40, 60, 13, 13});
  const ObjectRef outside = add(Square, {400, 300, 30, 30});
  settle();
  area.show({line, check});
  const std::string text = clipboard.copy();
  EXPECT_EQ(split(text, "\r\n").size(), 4u);
  clipboard.paste(text);
  EXPECT_EQ(state.multiSel, (std::vector<ObjectRef>{{Line, 2}, {CheckBox, 1}}));
  EXPECT_EQ(state.userSel.left, 30);
  EXPECT_EQ(history.undoWords(), "paste of 2 objects");

  clipboard.remove();
  EXPECT_EQ(pageOf(document, {Line, 2}), kPageDeleted);
  EXPECT_EQ(pageOf(document, {CheckBox, 1}), kPageVacant);
  EXPECT_EQ(history.undoWords(), "deletion of 2 objects");
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_FALSE(state.userSelVisible);
  EXPECT_TRUE(isLive(document, outside));
  EXPECT_EQ(clipboard.copy(), "");
}

TEST_F(ObjectClipboardTest, DeletingOneEndsTheSelectionAndCanBeUndone) {
  for (int i = 1; i <= 5; ++i) add(Field, {10, 30 * i, 100, 21});
  document.fields[1].formula = "F4-F3";
  settle();
  clipboard.remove();
  EXPECT_EQ(history.steps(), 0u);
  select(state, {Field, 3});
  const int selections = view.selections, changes = view.objects;
  clipboard.remove();
  EXPECT_EQ(document.fieldCount(), 4);
  EXPECT_EQ(document.fields[1].formula, "F3-F3");
  EXPECT_EQ(history.undoWords(), "deletion of F3");
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_EQ(state.selField, 0);
  EXPECT_EQ(state.selTitle, 5);
  EXPECT_GT(view.selections, selections);
  EXPECT_GT(view.objects, changes);
  history.undo(document);
  EXPECT_EQ(document.fields[1].formula, "F4-F3");
  EXPECT_EQ(document.fieldCount(), 5);
}

TEST_F(ObjectClipboardTest, ObjectsMoveToAnotherPage) {
  const ObjectRef button = add(Button, {10, 10, 50, 20}, kPageAll), memo = add(Memo, {10, 60, 90, 60});
  settle();
  area.show({button, memo});
  clipboard.moveToPage(5);
  clipboard.moveToPage(-1);
  EXPECT_EQ(history.steps(), 0u);
  clipboard.moveToPage(4);
  EXPECT_EQ(pageOf(document, button), 4);
  EXPECT_EQ(pageOf(document, memo), 4);
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_EQ(history.undoWords(), "move of 2 objects to page 5");

  select(state, memo);
  clipboard.moveToPage(0);
  EXPECT_EQ(selectedObject(state, document), memo);  // still on view
}

}  // namespace
}  // namespace plinth
