// Whole journeys on a machine in memory: a form from nothing to its file and back, objects into another
// project, formulas that follow, and every step undone and done again.
#include "model/PictureStore.h"
#include "model/ProjectFile.h"
#include "tests/surface/ContactsJourney.h"
#include "tests/surface/DesignerFixture.h"

namespace plinth {
namespace {

class Journey : public DesignerFixture {
 public:
  void command(int id) { EXPECT_TRUE(runCommand(designer, id)) << id; }
  void key(int code, unsigned shift) { EXPECT_TRUE(designer.keyDown({code, shift})); }
  void typeLabel(const std::string& text) {
    EXPECT_GT(window.label.width, 0) << "no label is typed";
    designer.surface().typeLabel(text);
    designer.surface().endLabel();
  }
  using DesignerFixture::click;
  using DesignerFixture::drag;
  using DesignerFixture::place;
  using DesignerFixture::type;
};

TEST_F(Journey, AFormLaidOutByHandSurvivesItsFileAndUndo) {
  layOutContacts(*this);
  expectContacts(document());
  EXPECT_TRUE(document().dirty);
  chooser.answers = {"/projects/mine.qvf"};
  command(static_cast<int>(Command::save));
  EXPECT_FALSE(document().dirty);
  const ProjectTables laidOut = document();

  while (designer.surface().history().canUndo()) designer.surface().undo();
  EXPECT_EQ(document().fieldCount(), 0);
  EXPECT_EQ(document().titleCount(), 5);
  while (designer.surface().history().canRedo()) designer.surface().redo();
  EXPECT_EQ(document().fields, laidOut.fields);
  EXPECT_EQ(document().titles, laidOut.titles);
  EXPECT_EQ(document().memos, laidOut.memos);

  messages.answers = {false};
  command(static_cast<int>(Command::newProject));
  designer.openPath("/projects/mine.qvf");
  expectContacts(document());
}

TEST_F(Journey, AnAreaGoesIntoASecondProject) {
  command(static_cast<int>(Command::newProject));
  for (int i = 0; i < 20; ++i) place(Tool::field, 20 + 200 * (i / 10), 20 + 30 * (i % 10));
  command(static_cast<int>(Command::selectAll));
  EXPECT_EQ(designer.surface().selectionWords(), "20 objects");
  command(static_cast<int>(Command::copy));
  messages.answers = {false};
  command(static_cast<int>(Command::newProject));
  ASSERT_EQ(document().fieldCount(), 0);
  command(static_cast<int>(Command::paste));
  ASSERT_EQ(document().fieldCount(), 20);
  EXPECT_EQ(designer.surface().selectionWords(), "20 objects");
  EXPECT_EQ(cornerOf(document(), {ObjectKind::Field, 1}).x, 32);
  EXPECT_EQ(document().fields[20].tag, "Field20");
  EXPECT_EQ(designer.surface().history().undoWords(), "paste of 20 objects");
  command(static_cast<int>(Command::undo));
  EXPECT_EQ(document().fieldCount(), 0);
}

TEST_F(Journey, WhatWasCopiedInViewIsPastedInView) {
  command(static_cast<int>(Command::newProject));
  designer.surface().page().resize({500, 300});
  designer.surface().page().scrollTo(0, 200);
  place(Tool::field, 100, 250);
  command(static_cast<int>(Command::copy));
  messages.answers = {false};
  command(static_cast<int>(Command::newProject));
  ASSERT_EQ(designer.surface().page().vertical().value, 0);
  command(static_cast<int>(Command::paste));
  const PointPx pasted = cornerOf(document(), {ObjectKind::Field, 1});
  EXPECT_EQ(pasted.x, 112);
  EXPECT_EQ(pasted.y, 62);
}

TEST_F(Journey, FormulasFollowADeletedField) {
  command(static_cast<int>(Command::newProject));
  for (int i = 0; i < 5; ++i) place(Tool::field, 20, 20 + 30 * i);
  designer.shell().document().fields[5].formula = "=F4+F2*F3";
  designer.shell().document().fields[1].formula = "=SUM(F1:F5)";
  designer.surface().finished("formulas");
  click(40, 90);  // field 3
  EXPECT_EQ(designer.surface().selectionWords(), "F3 Field3");
  key(kDeleteKey, 0);
  ASSERT_EQ(document().fieldCount(), 4);
  EXPECT_EQ(document().fields[4].formula, "=F3+F2*F3");
  EXPECT_EQ(document().fields[1].formula, "=SUM(F1:F4)");
  command(static_cast<int>(Command::undo));
  EXPECT_EQ(document().fields[5].formula, "=F4+F2*F3");
}

}  // namespace
}  // namespace plinth
