// A form laid out by hand, step by step, and what the project must hold afterwards. The hands differ: plain
// events on a machine in memory, or messages to real windows.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "surface/DesignerCommands.h"
#include "surface/ObjectPlaces.h"
#include "surface/Placement.h"
#include "surface/PropertyPanel.h"

namespace plinth {

// Hands must have: command(int id); place(Tool, x, y): chooses the tool and drops its object with a click at
// a point of the page; drag(x1, y1, x2, y2); click(x, y); key(code, shift); typeLabel(text): into the label's
// box, left with Enter; type(PanelId, text): into a control of the panel, checks get "1".
template <class Hands>
void layOutContacts(Hands& h) {
  h.command(static_cast<int>(Command::newProject));
  const auto label = [&](int x, int y, const char* text) {
    h.place(Tool::label, x, y);
    h.typeLabel(text);
  };
  label(20, 14, "Contacts");
  h.type(PanelId::fontSize, "14");
  h.type(PanelId::bold, "1");
  const char* names[] = {"First", "Last", "City"};
  for (int i = 0; i < 3; ++i) {
    label(20, 58 + 30 * i, names[i]);
    h.place(Tool::field, 98, 58 + 30 * i);
    h.type(PanelId::fieldLabel, std::string(names[i]) + "_name");
  }
  h.type(PanelId::fieldLength, "40");  // of the field placed last
  label(20, 148, "Mail");
  h.place(Tool::email, 98, 148);
  label(20, 178, "Group");
  h.place(Tool::combo, 98, 178);
  label(20, 208, "Friend");
  h.place(Tool::checkBox, 98, 208);
  label(300, 58, "Notes");
  h.place(Tool::memo, 298, 78);
  h.place(Tool::button, 298, 248);
  h.drag(340, 260, 400, 280);  // by its middle
  h.key(kUpKey, 0);
  h.command(static_cast<int>(Command::undo));  // and back
  h.place(Tool::line, 18, 48);
  // The memo grows by its lower right corner.
  h.click(350, 120);
  h.drag(398 - 4, 179 - 4, 498, 239);
}

inline void expectContacts(const ProjectDocument& d) {
  ASSERT_EQ(d.fieldCount(), 4);
  ASSERT_EQ(d.titleCount(), 13);
  ASSERT_EQ(d.memoCount(), 2);
  ASSERT_EQ(d.comboCount(), 1);
  ASSERT_EQ(d.checkCount(), 0);
  EXPECT_EQ(d.titles[6].caption, "Contacts");
  EXPECT_EQ(d.titles[6].fontSize, 14);
  EXPECT_TRUE(d.titles[6].fontBold);
  EXPECT_EQ(cornerOf(d, {ObjectKind::Title, 6}).x, 22);
  const char* tags[] = {"First_name", "Last_name", "City_name", "Email"};
  for (int i = 1; i <= 4; ++i) {
    const FieldRow& field = d.fields[static_cast<std::size_t>(i)];
    EXPECT_EQ(field.tag, tags[i - 1]);
    EXPECT_EQ(field.tabOrder, i);
    const PointPx at = cornerOf(d, {ObjectKind::Field, i});
    EXPECT_EQ(at.x, 100) << i;
    EXPECT_EQ(at.y, 60 + 30 * (i - 1)) << i;
  }
  EXPECT_EQ(d.fields[3].fieldLength, 40);
  EXPECT_EQ(d.fields[2].fieldLength, 30);
  EXPECT_EQ(d.emailField, 4);
  EXPECT_EQ(d.combos[1].tag, "ComboField1");
  EXPECT_EQ(cornerOf(d, {ObjectKind::Combo, 1}).y, 180);
  EXPECT_EQ(d.checks[0].page, 0);
  EXPECT_EQ(d.memos[2].tag, "MemoField2");
  EXPECT_EQ(cornerOf(d, {ObjectKind::Memo, 2}).x, 300);
  EXPECT_GT(d.memos[2].width, 180 * 15);
  EXPECT_GT(d.memos[2].height, 140 * 15);
  const int button = d.buttonCount();
  EXPECT_EQ(cornerOf(d, {ObjectKind::Button, button}).x, 360);
  EXPECT_EQ(cornerOf(d, {ObjectKind::Button, button}).y, 270);
  EXPECT_GE(d.lineCount(), 1);
}

}  // namespace plinth
