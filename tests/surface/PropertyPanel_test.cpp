// The property panel as a person uses it: what it offers for a selection, and what comes of a change.
#include "surface/PropertyPanel.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/surface/DesignFixture.h"

namespace plinth {
namespace {

using enum ObjectKind;
using P = PanelId;

struct PropertyPanelTest : DesignFixture, testing::Test {
  // One object of each kind, in the order of ObjectKind, each at 30,40 and 100 x 50.
  void addAll() {
    for (const KindInfo& info : kindInfos()) all.push_back(add(info.kind, {30, 40, 100, 50}));
    settle();
  }
  void pick(ObjectRef object) {
    select(state, object);
    panel.fill();
  }
  void pickArea(std::vector<ObjectRef> members) {
    state.selKind = kSelArea;
    state.multiSel = std::move(members);
    panel.fill();
  }
  const std::string& text(PanelId id) const { return panel.control(id).text; }
  std::string undoWords() const { return history.undoWords(); }
  static std::string numbers(const RectPx& r) {
    std::string words;
    for (const int n : {r.left, r.top, r.width, r.height}) words += std::to_string(n) + " ";
    return words;
  }

  std::vector<ObjectRef> all;
  PropertyPanel panel{context};
};

TEST_F(PropertyPanelTest, OffersEachKindWhatItHas) {
  addAll();
  // By kind: field, memo, combo, picture, check box, label, line, square, script, button.
  const struct {
    PanelId id;
    const char* offered;
  } cases[] = {{P::color1, "1110010001"},     {P::color2, "1110001101"},      {P::color3, "1110000100"},
               {P::fontName, "1110010001"},   {P::bold, "1110010001"},        {P::underline, "0000010001"},
               {P::alignRight, "1000010000"}, {P::borderStyle, "1110000000"}, {P::fieldLength, "1110000000"},
               {P::noChart, "1010100000"},    {P::noSearch, "1110100000"},    {P::lockEnabled, "1110100000"},
               {P::tabOrder, "1110100000"},   {P::fieldLabel, "1110100000"},  {P::printOn, "1111111100"},
               {P::allPages, "1111111111"},   {P::left, "1111111111"},        {P::width, "1111001111"},
               {P::height, "1101001111"}};
  for (const auto& c : cases)
    for (std::size_t kind = 0; kind < all.size(); ++kind) {
      pick(all[kind]);
      EXPECT_EQ(panel.control(c.id).enabled, c.offered[kind] == '1') << int(c.id) << " " << kind;
      EXPECT_EQ(panel.icon(), all[kind].kind);
    }
}

TEST_F(PropertyPanelTest, OffersOnlyThePlaceWithoutASelection) {
  for (const PanelControl& control : panel.controls()) {
    EXPECT_EQ(control.shown, control.id == P::left || control.id == P::top) << int(control.id);
    EXPECT_FALSE(control.enabled);
  }
  EXPECT_FALSE(panel.icon());
  panel.write(P::bold, "1");
  panel.write(P::left, "5");
  EXPECT_FALSE(document.dirty);
}

TEST_F(PropertyPanelTest, ShowsTheValuesOfTheSelected) {
  const ObjectRef f = add(Field, {13, 17, 106, 21}, kPageAll);
  FieldRow& row = document.fields[1];
  row.foreColor = 0x0000FF, row.backColor = 0x00FF00, row.frameColor = 0xFF0000;
  row.fontSize = 10.5f, row.fontItalic = true, row.alignment = 2, row.tag = "Town", row.tabOrder = 4;
  row.fieldLength = 25, row.frameStyle = 3, row.noSearch = 1;
  pick(f);
  const std::pair<PanelId, std::int32_t> colors[] = {
      {P::color1, 0x0000FF}, {P::color2, 0x00FF00}, {P::color3, 0xFF0000}, {P::selItem, 0x0000FF}};
  for (const auto& [id, expected] : colors) EXPECT_EQ(panel.control(id).color, expected) << int(id);
  const std::pair<PanelId, const char*> texts[] = {
      {P::fontName, "Arial"}, {P::fontSize, "10"},   {P::fieldLabel, "Town"}, {P::tabOrder, "4"},
      {P::fieldLength, "25"}, {P::borderStyle, "3"}, {P::left, "13"},         {P::top, "17"},
      {P::width, "106"},      {P::height, "21"},     {P::selItem, "1F"}};
  for (const auto& [id, expected] : texts) EXPECT_EQ(text(id), expected) << int(id);
  const std::pair<PanelId, bool> checks[] = {
      {P::italic, true},   {P::bold, false},    {P::alignCenter, true}, {P::alignLeft, false},
      {P::allPages, true}, {P::noSearch, true}, {P::noChart, false},    {P::lockEnabled, false}};
  for (const auto& [id, expected] : checks) EXPECT_EQ(panel.control(id).checked, expected) << int(id);
}

TEST_F(PropertyPanelTest, WritesToEveryMemberThatHasTheValue) {
  addAll();
  pickArea(all);
  const struct {
    PanelId id;
    const char* value;
    const char* words;
    std::function<bool()> done;
  } cases[] = {
      {P::bold, "1", "bold type of 5 objects",
       [&] {
         return document.fields[1].fontBold && document.memos[2].fontBold && document.buttons[0].fontBold;
       }},
      {P::underline, "1", "underline of 2 objects", [&] { return document.titles[6].fontUnderline; }},
      {P::alignCenter, "1", "alignment of 2 objects", [&] { return document.titles[6].alignment == 2; }},
      {P::fontName, "Tahoma", "font of 5 objects", [&] { return document.combos[1].fontName == "Tahoma"; }},
      {P::fontSize, "12", "font size of 5 objects",
       [&] { return document.fields[1].height == 240 && document.memos[2].height == 48 * 15; }},
      {P::borderStyle, "2", "border style of 3 objects",
       [&] { return document.memos[2].frameStyle == 2 && document.combos[1].frameStyle == 2; }},
      {P::fieldLength, "70000", "field length of 3 objects",
       [&] { return document.fields[1].fieldLength == 70000 && document.combos[1].fieldLength == 32767; }},
      {P::noChart, "1", "charting of 3 objects", [&] { return document.checks[0].noChart == 1; }},
      {P::lockEnabled, "1", "entry lock of 4 objects", [&] { return document.memos[2].lockEntry == 1; }},
      {P::printOn, "1", "printing of 8 objects", [&] { return document.lines[1].printOn == 1; }},
      {P::tabOrder, "77", "tab position of 4 objects", [&] { return document.checks[0].tabOrder == 77; }},
      {P::fieldLabel, "A b~c,d", "field label of F1",
       [&] { return document.fields[1].tag == "A_b_cd" && document.memos[2].tag.empty(); }},
  };
  int steps = 0;
  for (const auto& c : cases) {
    panel.write(c.id, c.value);
    EXPECT_TRUE(c.done()) << c.words;
    EXPECT_EQ(undoWords(), c.words);
    EXPECT_EQ(view.objects, ++steps) << c.words;
  }
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(text(P::fieldLength), "70000");
  EXPECT_EQ(text(P::fieldLabel), "A_b_cd");
  EXPECT_EQ(document.pictures[0].tag + document.scripts[1].tag, "");
}

TEST_F(PropertyPanelTest, BringsNumbersIntoRangeWhileTheyAreTyped) {
  addAll();
  const struct {
    std::size_t kind;
    PanelId id;
    const char *typed, *shown;
  } cases[] = {{0, P::fieldLength, "301", "300"}, {2, P::fieldLength, "999", "300"},
               {1, P::fieldLength, "301", "301"}, {1, P::fieldLength, "60001", "60000"},
               {0, P::fontSize, "201", "200"},    {9, P::fontSize, "72", "72"},
               {0, P::borderStyle, "9", "5"},     {0, P::borderStyle, "-1", "0"},
               {1, P::tabOrder, "40000", "40000"}};
  for (const auto& c : cases) {
    pick(all[c.kind]);
    panel.write(c.id, c.typed);
    EXPECT_EQ(text(c.id), c.shown) << c.typed;
  }
  EXPECT_EQ(document.memos[2].fieldLength, 60000);
  EXPECT_EQ(document.memos[2].tabOrder, 32767);
  EXPECT_EQ(document.combos[1].fieldLength, 300);
  pick(all[0]);
  for (const char* none : {"", "0", "0.5", "x"}) panel.write(P::fontSize, none);
  EXPECT_EQ(document.fields[1].fontSize, 200);
  panel.write(P::fontName, "");
  EXPECT_EQ(document.fields[1].fontName, "Arial");
}

TEST_F(PropertyPanelTest, TypingIsOneStepAndStandsAsTyped) {
  const ObjectRef f = add(Field, {10, 10, 100, 21}), m = add(Memo, {10, 50, 100, 80});
  settle();
  pick(f);
  for (const char* typed : {"1", "12", "12.", "12.5"}) {
    panel.write(P::fontSize, typed);
    panel.fill();
    EXPECT_EQ(text(P::fontSize), typed);
  }
  EXPECT_EQ(document.fields[1].fontSize, 12.5f);
  EXPECT_EQ(history.steps(), 1u);
  panel.write(P::fontSize, "12.5");
  EXPECT_EQ(view.objects, 3);  // the point alone changed nothing
  pick(m);
  pick(f);
  EXPECT_EQ(text(P::fontSize), "12");
  panel.write(P::fontSize, "14");
  panel.write(P::bold, "1");
  panel.write(P::bold, "");
  EXPECT_EQ(history.steps(), 4u);
  while (history.undo(document)) {
  }
  panel.fill();
  EXPECT_EQ(text(P::fontSize), "9");
}

TEST_F(PropertyPanelTest, AllPagesTurnsEachMemberByItsOwnPage) {
  const ObjectRef there = add(Memo, {0, 0, 50, 50}, 3), everywhere = add(Button, {0, 0, 50, 50}, kPageAll);
  const ObjectRef gone = add(Line, {0, 0, 50, 50}, 95);
  settle();
  state.currentPage = 2;
  pickArea({there, everywhere, gone});
  panel.write(P::allPages, "1");
  EXPECT_EQ(document.memos[2].page, kPageAll);
  EXPECT_EQ(document.buttons[0].page, 2);
  EXPECT_EQ(document.lines[1].page, 95);
  EXPECT_EQ(undoWords(), "page of 2 objects");
  document.memos[2].visible = false;
  state.currentPage = 0;
  pick(there);
  panel.write(P::allPages, "");
  EXPECT_EQ(document.memos[2].page, 0);
  EXPECT_TRUE(document.memos[2].visible);
}

TEST_F(PropertyPanelTest, ReadOutsPlaceTheFrame) {
  addAll();
  document.pageWidth = 640 * 15, document.pageHeight = 480 * 15;
  document.squares[0].shapeType = 3;
  settle();
  // One change after the other, each object from 30,40 and 100 x 50; a line's boxes are its ends.
  const struct {
    std::size_t kind;
    PanelId id;
    const char* typed;
    RectPx place;
  } cases[] = {{0, P::left, "10", {10, 40, 100, 21}},    {0, P::width, "80", {10, 40, 80, 21}},
               {0, P::height, "80", {10, 40, 80, 21}},   {1, P::top, "9999", {30, 480, 100, 50}},
               {1, P::height, "70", {30, 480, 100, 70}}, {3, P::left, "-5", {0, 40, 100, 50}},
               {3, P::width, "9999", {0, 40, 640, 50}},  {5, P::left, "x", {0, 40, 0, 14}},
               {7, P::width, "66", {30, 40, 66, 66}},    {7, P::height, "20", {30, 40, 66, 20}},
               {9, P::top, "1", {30, 1, 100, 50}},       {6, P::left, "50", {50, 40, 80, 50}},
               {6, P::height, "200", {50, 40, 80, 160}}};
  for (const auto& c : cases) {
    pick(all[c.kind]);
    panel.write(c.id, c.typed);
    EXPECT_EQ(numbers(place(all[c.kind])), numbers(c.place)) << c.kind << " " << c.typed;
  }
  EXPECT_EQ(text(P::height), "200");
  EXPECT_EQ(undoWords(), "height of Line 1");
}

TEST_F(PropertyPanelTest, ReadOutsSpeakTheUnitAndTheMovablePanel) {
  const ObjectRef b = add(Button, {48, 40, 100, 50});
  settle();
  state.scaleUnit = ScaleUnit::inches;
  pick(b);
  EXPECT_EQ(text(P::left), "0.5");
  panel.write(P::left, "1.25");
  EXPECT_EQ(place(b).left, 120);
  const std::size_t steps = history.steps();
  panel.write(P::left, "1.25");
  EXPECT_EQ(history.steps(), steps);

  state.scaleUnit = ScaleUnit::pixels;
  state.selKind = kSelFrame3;
  panel.fill();
  EXPECT_EQ(text(P::left) + " " + text(P::top), "2 184");
  EXPECT_FALSE(panel.control(P::width).enabled || panel.control(P::height).enabled);
  panel.write(P::left, "20");
  panel.write(P::top, "0");
  EXPECT_EQ(document.frame3Left, 300);
  EXPECT_EQ(document.frame3Top, 15);
}

TEST_F(PropertyPanelTest, ReadOutsOfAnAreaMoveTheMembersAndItsRectangle) {
  const ObjectRef b = add(Button, {20, 20, 40, 40}), p = add(Picture, {50, 90, 60, 30}),
                  l = add(Line, {40, 10, 30, 30});
  settle();
  state.userSel = {5, 5, 150, 150};
  state.userSelVisible = true;
  pickArea({l, p, b});
  EXPECT_EQ(text(P::left) + " " + text(P::width), "5 150");
  panel.write(P::left, "15");
  EXPECT_EQ(numbers(place(b)) + numbers(place(p)) + numbers(place(l)),
            "15 20 40 40 15 90 60 30 15 10 55 30 ");
  EXPECT_EQ(numbers(state.userSel), "15 10 60 110 ");
  EXPECT_EQ(undoWords(), "position of 3 objects");
  EXPECT_EQ(text(P::left), "15");
  EXPECT_EQ(view.objects, 1);
}

TEST_F(PropertyPanelTest, ColorsGoToTheirTargetAndStayForTheNextObject) {
  addAll();
  const std::int32_t red = 0xFF, green = 0xFF00, blue = 0xFF0000;
  pickArea(all);
  panel.useColor(red);  // no target yet
  EXPECT_FALSE(document.dirty);
  const std::pair<PanelId, std::int32_t> uses[] = {{P::color1, red}, {P::color2, green}, {P::color3, blue}};
  for (const auto& [id, color] : uses) {
    panel.write(id, "");
    panel.useColor(color);
    EXPECT_EQ(panel.control(id).color, color);
  }
  EXPECT_EQ(state.colorTarget, ColorTarget::borderColor);
  EXPECT_EQ(document.fields[1].foreColor | document.fields[1].backColor | document.fields[1].frameColor,
            red | green | blue);
  EXPECT_EQ(document.titles[6].foreColor, red);
  EXPECT_EQ(document.lines[1].borderColor, green);
  EXPECT_EQ(document.squares[0].backColor, green);
  EXPECT_EQ(document.squares[0].borderColor, blue);
  EXPECT_EQ(document.buttons[0].backColor, green);
  EXPECT_EQ(undoWords(), "border colour of 4 objects");
  state.colorTarget = ColorTarget::textColor;
  selectNothing(state);
  panel.useColor(green);
  EXPECT_EQ(state.color1, green);
  EXPECT_EQ(state.color3, blue);
  EXPECT_EQ(view.objects, 3);
}

TEST_F(PropertyPanelTest, LabelLeavesEditingBeforeItsLookChanges) {
  const ObjectRef t = add(Title, {5, 5, 0, 0});
  settle();
  for (const PanelId id : {P::italic, P::underline, P::alignRight}) {
    pick(t);
    state.editedTitle = t.index;
    panel.write(id, "1");
    EXPECT_EQ(state.editedTitle, -1);
  }
  EXPECT_EQ(view.labelEdits, 3);
  state.editedTitle = t.index;
  panel.write(P::alignRight, "");  // the option that another one replaced
  EXPECT_EQ(state.editedTitle, t.index);
  EXPECT_EQ(document.titles[6].alignment, 1);
}

TEST_F(PropertyPanelTest, KeysAreFiltered) {
  const struct {
    PanelId id;
    const char *typed, *becomes;  // "." for a swallowed key
  } cases[] = {{P::fieldLength, "09a- \b", "09...\b"},
               {P::fieldLabel, "a, ~_\b", "a.___\b"},
               {P::tabOrder, "1\b", "1."},
               {P::left, "1,5\b", "1,5."},
               {P::height, "\b", "."},
               {P::fontName, "a, \b", "a, \b"}};
  for (const auto& c : cases) {
    std::string becomes;
    for (const char* key = c.typed; *key; ++key) {
      const char kept = panel.filterKey(c.id, *key);
      becomes += kept ? kept : '.';
    }
    EXPECT_EQ(becomes, c.becomes) << int(c.id);
  }
}

}  // namespace
}  // namespace plinth
