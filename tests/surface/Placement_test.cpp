// The toolbox and the objects with a slot of their own, on a project in memory.
#include "surface/Placement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <tuple>

#include "surface/Units.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;

struct PlacementTest : testing::Test, DesignFixture {
  std::optional<ObjectRef> selected() const { return selectedObject(state, document); }
  // Messages show the label's number.
  void showNumbers() {
    context.label = [](int label, const char*) { return std::to_string(label); };
  }
  Placement tools{context};
};

std::string tagOf(const ProjectDocument& document, ObjectRef object) {
  std::string tag;
  withRow(document, object, [&](const auto& row) {
    if constexpr (requires { row.tag; }) tag = row.tag;
  });
  return tag;
}

TEST_F(PlacementTest, EachToolMakesItsObjectAndHandsItToTheMouse) {
  const struct {
    Tool tool;
    ObjectRef first;
    int selKind, placeTool;
    SizePx size;  // of the frame
    const char* tag;
    const char* words;
  } cases[] = {{Tool::label, {Title, 6}, 6, 6, {30, 14}, "", "placing of L6"},
               {Tool::field, {Field, 1}, 1, 7, {150, 21}, "Field1", "placing of F1"},
               {Tool::email, {Field, 1}, 1, 7, {150, 21}, "Email", "placing of F1"},
               {Tool::memo, {Memo, 2}, 2, 8, {100, 98}, "MemoField2", "placing of M2"},
               {Tool::combo, {Combo, 1}, 3, 10, {154, 21}, "ComboField1", "placing of C1"},
               {Tool::pictureField, {Picture, 0}, 4, 9, {65, 45}, "", "placing of P0"},
               {Tool::pictureArt, {Picture, 0}, 4, 9, {65, 45}, "", "placing of P0"},
               {Tool::checkBox, {CheckBox, 0}, 5, 13, {13, 13}, "CheckField1", "placing of K0"},
               {Tool::line, {Line, 1}, 7, 15, {117, 0}, "", "placing of Line 1"},
               {Tool::square, {Square, 0}, 8, 14, {15, 15}, "", "placing of square 0"},
               {Tool::button, {Button, 0}, 20, 20, {94, 34}, "", "placing of button 0"},
               {Tool::script, {Script, 1}, 9, 27, {96, 48}, "", "placing of script 1"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.words);
    DesignFixture f;
    f.state.currentPage = 3;
    f.visible = {40, -5, 300, 200};
    chooseGrid(f.state, 10);
    Placement(f.context).place(c.tool);
    EXPECT_EQ(selectedObject(f.state, f.document), c.first);
    EXPECT_EQ(f.state.selKind, c.selKind);
    EXPECT_EQ(f.state.placeTool, c.placeTool);
    EXPECT_TRUE(f.state.placingActive);
    EXPECT_EQ(toolInHand(f.state, f.document), c.tool);
    const RectPx place = f.place(c.first);
    EXPECT_EQ(place.left, 50);
    EXPECT_EQ(place.top, 10);
    EXPECT_EQ(place.width, c.size.width);
    EXPECT_EQ(place.height, c.size.height);
    EXPECT_EQ(pageOf(f.document, c.first), 3);
    EXPECT_EQ(tagOf(f.document, c.first), c.tag);
    withRow(f.document, c.first, [](const auto& row) {
      if constexpr (requires { row.printOn; }) {
        EXPECT_EQ(row.printOn, 1);
      }
    });
    EXPECT_EQ(f.history.undoWords(), c.words);
    EXPECT_TRUE(f.document.dirty);
    EXPECT_TRUE(f.view.objects && f.view.selections && f.view.documents);
    // The drop belongs to the placing.
    moveBy(f.document, c.first, 5, 5);
    finish(f.context, "drop", "place " + shortName(c.first));
    EXPECT_EQ(f.history.steps(), 1u);
    f.history.undo(f.document);
    EXPECT_FALSE(isLive(f.document, c.first));
  }
}

TEST_F(PlacementTest, NewObjectsTakeTheSwatchesAndTheTemplatesFont) {
  state.color1 = 0x11, state.color2 = 0x22, state.color3 = 0x33;
  document.fields[0].fontName = document.combos[0].fontName = "Courier";
  document.options.fonttext = "Courier";
  for (const ToolInfo& info : toolInfos()) tools.place(info.tool);
  const FieldRow& field = document.fields.at(1);
  const FieldRow& email = document.fields.at(2);
  const MemoRow& memo = document.memos.at(2);
  const ComboRow& combo = document.combos.at(1);
  const SquareRow& square = document.squares.at(0);
  const ButtonRow& button = document.buttons.at(0);
  EXPECT_EQ(document.titles.at(6).foreColor, 0x11);
  for (const auto& [fore, back, frame, style] :
       {std::tuple(field.foreColor, field.backColor, field.frameColor, field.frameStyle),
        std::tuple(memo.foreColor, memo.backColor, memo.frameColor, memo.frameStyle),
        std::tuple(combo.foreColor, combo.backColor, combo.frameColor, combo.frameStyle)}) {
    EXPECT_EQ(fore, 0x11);
    EXPECT_EQ(back, 0x22);
    EXPECT_EQ(frame, 0x33);
    EXPECT_EQ(style, 1);
  }
  EXPECT_EQ(email.backColor, 0xF0F0F0);
  EXPECT_EQ(email.foreColor, document.fields[0].foreColor);
  EXPECT_EQ(email.frameColor, document.fields[0].frameColor);
  EXPECT_EQ(document.lines.at(1).borderColor, 0x11);
  EXPECT_EQ(square.backColor, 0x22);
  EXPECT_EQ(square.borderColor, 0x33);
  EXPECT_EQ(square.backStyle, 1);
  EXPECT_EQ(button.foreColor, 0x11);
  EXPECT_TRUE(button.fontBold);
  EXPECT_EQ(field.fontName + combo.fontName + button.fontName, "CourierCourierCourier");
  EXPECT_EQ(field.fieldLength, 30);
  EXPECT_EQ(memo.fieldLength, 2000);
  EXPECT_EQ(combo.fieldLength, 60);
}

TEST_F(PlacementTest, PicturesHoldAFieldOrAFile) {
  tools.place(Tool::pictureField);
  EXPECT_TRUE(state.pictureArtMode);
  picture = "C:\\art\\logo.png";
  Placement(context, englishLocale(), [](const std::string&) {
    return SizePx{200, 80};
  }).place(Tool::pictureArt);
  const PictureRow& field = document.pictures.at(0);
  const PictureRow& art = document.pictures.at(1);
  EXPECT_TRUE(field.picFlag && field.picBorder == 1 && field.pictureMode == 1);
  EXPECT_FALSE(art.picFlag || art.picBorder || art.pictureMode);
  EXPECT_EQ(art.picturePath, picture);
  EXPECT_EQ(place({Picture, 1}).width, 200);
  EXPECT_EQ(place({Picture, 1}).height, 80);
}

TEST_F(PlacementTest, TabPositionsFollowThePlacing) {
  tools.place(Tool::field);
  tools.place(Tool::checkBox);
  tools.place(Tool::memo);
  tools.place(Tool::checkBox);
  EXPECT_EQ(document.fields[1].tabOrder, 1);
  EXPECT_EQ(document.checks[0].tabOrder, 2);
  // The slot of the document box counts as soon as a memo stands behind it.
  EXPECT_EQ(document.memos[1].tabOrder, 3);
  EXPECT_EQ(document.memos[2].tabOrder, 4);
  EXPECT_EQ(document.checks[1].tabOrder, 5);
  EXPECT_EQ(document.checks[1].tag, "CheckField5");
}

TEST_F(PlacementTest, ComboTakesAVacantSlotWithAllItWas) {
  add(Combo, {1, 2, 80, 21});
  const ObjectRef removed = add(Combo, {30, 40, 90, 21});
  ComboRow& row = document.combos[2];
  row.tag = "Colour", row.items = {"red"}, row.foreColor = 5, row.page = kPageVacant, row.visible = false;
  state.currentPage = 1;
  settle();
  tools.place(Tool::combo);
  EXPECT_EQ(selected(), removed);
  EXPECT_EQ(document.comboCount(), 2);
  EXPECT_EQ(row.tag + row.items.at(0), "Colourred");
  EXPECT_EQ(row.foreColor, 5);
  EXPECT_EQ(place(removed).left, 30);
  EXPECT_TRUE(row.page == 1 && row.visible);
  tools.place(Tool::combo);
  EXPECT_EQ(selected(), (ObjectRef{Combo, 3}));
}

TEST_F(PlacementTest, OneFieldOfMailAddresses) {
  tools.place(Tool::field);
  tools.place(Tool::email);
  EXPECT_EQ(document.emailField, 2);
  tools.place(Tool::memo);
  tools.place(Tool::email);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"The mail field box has already been placed"});
  EXPECT_EQ(document.fieldCount(), 2);
  EXPECT_EQ(state.selKind, 1);
  EXPECT_EQ(state.placeTool, kToolNone);
  document.emailField = 0;
  settle();
  tools.place(Tool::email);
  EXPECT_EQ(document.emailField, 3);
  EXPECT_EQ(history.undoWords(), "placing of F3");
  history.undo(document);
  EXPECT_EQ(document.emailField, 0);
}

TEST_F(PlacementTest, FullTablesRefuse) {
  showNumbers();
  const struct {
    Tool tool;
    std::string message;
    int placeTool;
  } cases[] = {{Tool::label, "167", 100},      {Tool::field, "168", 100},    {Tool::email, "168", 100},
               {Tool::memo, "169", 100},       {Tool::combo, "170", 100},    {Tool::pictureField, "163", 100},
               {Tool::pictureArt, "171", 100}, {Tool::checkBox, "173", 100}, {Tool::line, "172", 99},
               {Tool::square, "174", 100},     {Tool::button, "0", 100},     {Tool::script, "0", 100}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    const ObjectKind kind = toolInfos()[static_cast<std::size_t>(c.tool)].kind;
    const auto fill = [&](int highest) {
      visitTable(document, kind, [&](auto& rows) {
        rows.resize(static_cast<std::size_t>(highest) + 1);
        for (auto& row : rows) row.page = 0;
      });
    };
    const auto highest = [&] {
      return visitTable(document, kind, [](const auto& rows) { return static_cast<int>(rows.size()) - 1; });
    };
    const int limit = kindInfo(kind).limit;
    fill(limit - 1);
    settle();
    document.emailField = 0;
    state.selPicture = 0;
    tools.place(c.tool);
    EXPECT_EQ(highest(), limit);
    EXPECT_TRUE(messages.shown.empty());
    const std::size_t steps = history.steps();
    document.emailField = 0;
    tools.place(c.tool);
    EXPECT_EQ(highest(), limit);
    EXPECT_EQ(messages.texts(), std::vector<std::string>{c.message});
    EXPECT_EQ(state.selKind, kindInfo(kind).selKind);
    EXPECT_EQ(state.placeTool, c.placeTool);
    EXPECT_FALSE(state.placingActive);
    EXPECT_EQ(history.steps(), steps);
    messages.shown.clear();
  }
}

TEST_F(PlacementTest, PictureFieldsLookAtTheSelectionForTheirLimit) {
  showNumbers();
  for (int i = 0; i < 3; ++i) add(Picture, {0, 0, 65, 45});
  state.selPicture = 499;
  tools.place(Tool::pictureField);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"163"});
  EXPECT_EQ(document.pictureCount(), 2);
  tools.place(Tool::pictureArt);
  EXPECT_EQ(document.pictureCount(), 3);
}

TEST_F(PlacementTest, AnotherToolHidesWhatIsCarried) {
  for (const Tool tool : {Tool::label, Tool::field, Tool::memo, Tool::combo, Tool::pictureField,
                          Tool::checkBox, Tool::line, Tool::square, Tool::button, Tool::script}) {
    SCOPED_TRACE(static_cast<int>(tool));
    DesignFixture f;
    Placement placement(f.context);
    placement.place(tool);
    const ObjectRef carried = *selectedObject(f.state, f.document);
    const bool stays = tool == Tool::button || tool == Tool::script;
    placement.place(Tool::field);
    EXPECT_EQ(isHidden(f.state, carried), !stays);
    EXPECT_TRUE(isLive(f.document, carried));
    EXPECT_EQ(f.history.steps(), 2u);
  }
  tools.place(Tool::field);
  state.placingActive = false;  // dropped
  tools.place(Tool::memo);
  EXPECT_TRUE(state.hidden.empty());
  tools.cancelCarried();
  EXPECT_TRUE(isHidden(state, {Memo, 2}));
  EXPECT_EQ(state.selKind, kSelNone);
  tools.documentBox();
  tools.place(Tool::field);
  EXPECT_FALSE(isHidden(state, {Memo, 1}));
}

TEST_F(PlacementTest, AreaSelectionAndTypingEndWithATool) {
  const ObjectRef field = add(Field, {0, 0, 100, 21});
  state.selKind = kSelArea;
  state.userSelVisible = true;
  state.multiSel = {field};
  tools.place(Tool::label);
  EXPECT_FALSE(state.userSelVisible);
  EXPECT_TRUE(state.multiSel.empty());
  EXPECT_EQ(selected(), (ObjectRef{Title, 6}));
  state.editedTitle = 6;
  tools.place(Tool::label);
  EXPECT_EQ(state.editedTitle, -1);
  EXPECT_EQ(view.labelEdits, 1);
}

TEST_F(PlacementTest, DocumentBoxMovesToThePageInViewWithItsSize) {
  const ObjectRef box{Memo, 1};
  tools.documentBox();
  EXPECT_EQ(selected(), box);
  EXPECT_EQ(state.placeTool, 8);
  EXPECT_EQ(state.selField, 1);
  EXPECT_EQ(place(box).width, 304);
  EXPECT_EQ(place(box).height, 202);
  EXPECT_EQ(document.memos[1].tag, "MemoField1");
  EXPECT_EQ(document.memos[1].fieldLength, 10000);
  moveTo(document, box, {70, 80});
  document.memos[1].foreColor = 9;
  state.currentPage = 2;
  tools.documentBox();
  EXPECT_EQ(document.memoCount(), 1);
  EXPECT_EQ(pageOf(document, box), 2);
  EXPECT_EQ(place(box).left, 70);
  EXPECT_EQ(document.memos[1].foreColor, 9);
  EXPECT_EQ(history.steps(), 2u);
  tools.place(Tool::memo);
  EXPECT_EQ(selected(), (ObjectRef{Memo, 2}));
}

TEST_F(PlacementTest, DatesAndNumberAreLabelsOfTheirOwn) {
  clock.serial = 45000.5;
  state.currentPage = 1;
  const std::array<std::string, 6> today{
      "Wednesday 15-Mar-2023", "15-March-2023", "15-03-2023", "03-15-2023", "2023-03-15", "3/15/2023"};
  EXPECT_EQ(tools.dateCaptions(), today);
  tools.dateStamp(0);
  tools.date(5);
  tools.dateStamp(6);
  tools.date(-1);
  EXPECT_EQ(document.titles[4].caption, today[0]);
  EXPECT_EQ(document.titles[3].caption, today[5]);
  EXPECT_EQ(document.dateVal, 0);
  EXPECT_EQ(document.dateVal2, 5);
  EXPECT_EQ(history.steps(), 2u);
  EXPECT_EQ(selected(), (ObjectRef{Title, 3}));
  EXPECT_TRUE(state.placingActive);
  tools.recordId();
  EXPECT_EQ(toolInHand(state, document), std::nullopt);
  EXPECT_EQ(selected(), (ObjectRef{Title, 5}));
  EXPECT_EQ(document.titles[5].caption, "0000000001");
  EXPECT_EQ(document.titles[5].fontSize, 12);
  tools.clock();
  EXPECT_EQ(document.titles[2].caption, "12:00pm");
  EXPECT_FALSE(state.placingActive);
  for (int i = 2; i <= 5; ++i) EXPECT_EQ(document.titles[static_cast<std::size_t>(i)].page, 1) << i;
  EXPECT_EQ(document.titleCount(), 5);
  tools.place(Tool::label);
  EXPECT_EQ(selected(), (ObjectRef{Title, 6}));
}

TEST_F(PlacementTest, HelpBarComesAndGoes) {
  state.currentPage = 2;
  tools.toggleHelpBar();
  EXPECT_TRUE(tools.helpBarShown());
  EXPECT_EQ(document.titles[1].page, 0);
  EXPECT_EQ(document.titles[1].caption, "Help Bar");
  EXPECT_EQ(state.selTitle, 1);
  tools.toggleHelpBar();
  EXPECT_FALSE(tools.helpBarShown());
  EXPECT_EQ(document.titles[1].page, kPageVacant);
  EXPECT_FALSE(selected());
  history.undo(document);
  EXPECT_TRUE(tools.helpBarShown());
}

TEST_F(PlacementTest, TableFillsTheRectangle) {
  const struct {
    int columns;
    RectPx area;
    int cells, width;
    PointPx last;
  } cases[] = {{3, {100, 50, 200, 100}, 15, 66, {232, 126}},  // 4 rows fit, 5 are made
               {8, {0, 0, 50, 10}, 8, 12, {84, 0}},           // too narrow
               {8, {0, 0, 56, 21}, 16, 7, {49, 19}},
               {5, {0, 0, 200, 100}, 0, 0, {}},
               {0, {0, 0, 200, 100}, 0, 0, {}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.columns);
    DesignFixture f;
    f.state.selKind = kSelArea;
    f.state.userSelVisible = true;
    f.state.userSel = c.area;
    Placement(f.context).table(c.columns);
    ASSERT_EQ(f.document.fieldCount(), c.cells);
    EXPECT_EQ(f.history.steps(), c.cells ? 1u : 0u);
    EXPECT_EQ(f.state.userSelVisible, c.cells == 0);
    if (!c.cells) continue;
    const FieldRow& first = f.document.fields[1];
    const FieldRow& last = f.document.fields.back();
    EXPECT_EQ(first.left, pixelsToTwips(c.area.left));
    EXPECT_EQ(first.top, pixelsToTwips(c.area.top));
    EXPECT_EQ(last.width, pixelsToTwips(c.width));
    EXPECT_EQ(last.left, pixelsToTwips(c.last.x));
    EXPECT_EQ(last.top, pixelsToTwips(c.last.y));
    EXPECT_EQ(last.tag, "Cell_" + std::to_string(c.cells));
    EXPECT_EQ(last.tabOrder, c.cells);
  }
  tools.table(3);  // no rectangle
  EXPECT_EQ(document.fieldCount(), 0);
}

TEST_F(PlacementTest, TableEndsWithTheTableOfFields) {
  showNumbers();
  document.fields.resize(1991);
  settle();
  for (int round = 0; round < 2; ++round) {
    state.selKind = kSelArea;
    state.userSelVisible = true;
    state.userSel = {0, 0, 100, 100};
    tools.table(4);
    EXPECT_EQ(document.fieldCount(), 2000);
    EXPECT_EQ(document.fields.back().tag, "Cell_2000");
  }
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"168", "168"}));
  EXPECT_EQ(history.steps(), 1u);
}

TEST_F(PlacementTest, NothingIsPlacedWhileLocked) {
  state.locked = true;
  state.userSelVisible = true;
  state.userSel = {0, 0, 100, 100};
  for (const ToolInfo& info : toolInfos()) tools.place(info.tool);
  tools.documentBox(), tools.recordId(), tools.date(1), tools.dateStamp(1), tools.clock();
  tools.toggleHelpBar(), tools.table(2);
  EXPECT_EQ(objectsInProject(document), 0);
  EXPECT_EQ(state.selKind, kSelNone);
  EXPECT_FALSE(history.canUndo());
}

}  // namespace
}  // namespace plinth
