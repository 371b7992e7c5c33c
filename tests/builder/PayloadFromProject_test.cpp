// What becomes of a project's objects and options in a finished application.
#include "builder/PayloadFromProject.h"

#include <gtest/gtest.h>

#include "builder/PayloadOptions.h"
#include "model/PictureStore.h"

namespace plinth {
namespace {

Payload make(ProjectDocument& document, PictureStore& pictures) {
  std::vector<std::string> notes;
  return payloadFromProject(document, "app", pictures, notes);
}

TEST(PayloadFromProject, NamesBlankObjectsAlsoInTheProject) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.fields.resize(3);
  document.fields[1].tag = "Kept";
  document.combos.resize(2);
  document.memos.resize(3);
  document.checks.resize(1);
  document.pictures.resize(2);
  const Payload payload = make(document, pictures);
  EXPECT_EQ(payload.fields[1].tag, "Kept");
  EXPECT_EQ(payload.fields[2].tag, "Field_2");
  EXPECT_EQ(payload.combos[1].tag, "Combo_Field_1");
  EXPECT_EQ(payload.memos[2].tag, "Notes_Field_2");
  EXPECT_EQ(payload.checks[0].tag, "CheckBox_Field_0");
  EXPECT_EQ(payload.pictures[1].name, "Image_1");
  EXPECT_EQ(document.fields[2].tag, "Field_2");
  EXPECT_EQ(document.pictures[1].picField, "Image_1");
}

TEST(PayloadFromProject, NamesStoredPicturesInOneRunningOrder) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.pictures.resize(5);
  for (PictureRow& row : document.pictures) row.page = 0;
  document.pictures[0].picturePath = *pictures.put("logo.bmp", Bytes{1});
  document.pictures[1].picturePath = "gone.gif";
  document.pictures[2].picturePath = *pictures.put("sample.jpg", Bytes{2});
  document.pictures[2].picFlag =
      true;  // shows a picture of each record: the sample is not part of the application
  document.pictures[3].picturePath = *pictures.put("old.png", Bytes{3});
  document.pictures[3].page = kPageVacant;
  document.pictures[4].picturePath = *pictures.put("photo.jpeg", Bytes{4});
  document.tileImage = *pictures.put("a", Bytes{5});
  std::vector<std::string> notes;
  const Payload payload = payloadFromProject(document, "app", pictures, notes);
  std::vector<std::string> names;
  for (const PayloadPicture& picture : payload.pictures) names.push_back(picture.image.storedName);
  EXPECT_EQ(names, (std::vector<std::string>{"app1.bmp", "", "", "", "app2jpeg"}));
  EXPECT_EQ(payload.background.storedName, "app3a");
  EXPECT_EQ(payload.background.bytes, Bytes{5});
  EXPECT_EQ(notes.size(), 1u);
}

TEST(PayloadFromProject, TakesOnlyColumnsThatNameAnObject) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.fields.resize(13);
  document.combos.resize(4);
  document.memos.resize(3);
  document.checks.resize(2);
  const std::pair<const char*, int> cases[] = {{"F12", 12}, {"F13", 0},   {"f1", 1}, {"C3", 2003},
                                               {"C4", 0},   {"K0", 4000}, {"K2", 0}, {"M2", 6002},
                                               {"F0", 0},   {"X1", 0},    {"F-1", 0}};
  for (std::size_t i = 0; i < 11; ++i) document.search.text1[i] = cases[i].first;
  const Payload payload = make(document, pictures);
  for (std::size_t i = 0; i < 11; ++i) {
    EXPECT_EQ(payload.application.showColumns[i], cases[i].second) << cases[i].first;
    EXPECT_EQ(document.search.text1[i], cases[i].second == 0 ? "" : cases[i].first);
  }
  EXPECT_EQ(columnCode(document, ""), 0);
  EXPECT_EQ(columnCode(document, "F1e30"), 0);
}

TEST(PayloadFromProject, PreparesFormulasAndDropsDeletedButtons) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.fields.resize(3);
  document.fields[1].formula = "F2-1";
  document.fields[1].tabOrder = 4;
  document.fields[1].dummyField = true;
  document.buttons.resize(3);
  document.buttons[0].page = 0;
  document.buttons[0].buttonPath = "F1=F2-1";
  document.buttons[1].page = kPageDeleted;
  document.buttons[2].page = kPageVacant;
  const Payload payload = make(document, pictures);
  EXPECT_EQ(payload.fields[1].formula, "F2~1");
  EXPECT_EQ(payload.fields[1].exportOrder, 14);
  EXPECT_EQ(payload.fields[1].dummyField, -1);
  ASSERT_EQ(payload.buttons.size(), 2u);
  EXPECT_EQ(payload.buttons[0].script, "f1=F2~1");
  EXPECT_EQ(payload.buttons[1].page, kPageVacant);
}

TEST(PayloadFromProject, NumbersObjectsAsASavedProjectDoes) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.fields.resize(2);
  document.fields[1].formula = "K3";
  document.checks.resize(4);
  document.checks[1].page = kPageDeleted;
  document.checks[2].tag = "second";
  document.search.text1 = {"K3", "K9"};
  const Payload payload = make(document, pictures);
  ASSERT_EQ(payload.checks.size(), 3u);
  EXPECT_EQ(payload.fields[1].formula, "K2");
  EXPECT_EQ(payload.checks[2].tag, "CheckBox_Field_2");
  EXPECT_EQ(payload.application.showColumns[0], 4002);
  EXPECT_EQ(document.fields[1].formula, "K3");
  EXPECT_EQ(document.checks[2].tag, "second");
  EXPECT_EQ(document.checks[3].tag, "CheckBox_Field_2");
  EXPECT_EQ(document.search.text1[0], "K3");
  EXPECT_EQ(document.search.text1[1], "");
}

TEST(PayloadFromProject, TurnsScriptsIntoHtmlAndTemplatesIntoXml) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.scripts.resize(2);
  document.scripts[1] = {.page = 2, .left = 150, .top = 300, .width = 1500, .height = 30, .tag = "<b>x</b>"};
  document.fields.resize(3);
  document.fields[1].page = 0;
  document.fields[1].tag = "Name";
  document.checks.resize(1);
  document.checks[0].page = -1;
  document.checks[0].tag = "VIP";
  document.documents = {};
  document.documents[0] = {"xml", "", "Record"};
  document.documents[1] = {"rtf", "", "Nothing"};
  document.documents[2] = {"txt", *pictures.put("letter.txt", Bytes{'h', 'i'}), "Letter"};
  document.documents[3] = {"", "body", "No extension"};
  const Payload payload = make(document, pictures);
  EXPECT_EQ(
      payload.fragments[1].html,
      "<Div Width=\"100\" Height=\"2\" Style=\"Left:10px; POSITION: absolute; Top:20px;\"><b>x</b></Div>");
  EXPECT_EQ(payload.fragments[1].page, 2);
  EXPECT_EQ(payload.templates[0].body,
            "<?xml version=\"1.0\" ?>\r\n<app_Record_>\r\n  <Name>:1F</Name>\r\n  "
            "<VIP>:0K</VIP>\r\n</app_Record_>\r\n");
  std::vector<std::string> captions;
  for (int i = 0; i < 4; ++i) captions.push_back(payload.templates[i].caption);
  EXPECT_EQ(captions, (std::vector<std::string>{"Record", "", "Letter", ""}));
  EXPECT_EQ(payload.templates[2].body, "hi");
  EXPECT_EQ(document.documents[0].templatePath, "");
}

TEST(PayloadFromProject, CarriesOptionsInTheirRunTimeForm) {
  ProjectDocument document;
  MemoryPictures pictures;
  document.options.wMax = 1;
  document.options.check8 = 0;
  document.options.check9 = 1;
  document.options.fieldToolBox = 1;
  document.formHeight = 5000;
  document.titles[1].page = 2;
  document.menus.aboutit = "About";
  document.aboutitVisible = false;
  document.squares.resize(1);
  document.squares[0].shapeType = 3;
  const Payload payload = make(document, pictures);
  EXPECT_EQ(payload.header.windowState, 2);
  EXPECT_EQ(payload.header.border, 2);
  EXPECT_EQ(payload.header.varObjects, 1);
  EXPECT_TRUE(payload.header.statusLineVisible);
  EXPECT_EQ(payload.application.formHeight, 4620);
  EXPECT_EQ(payload.application.menus.aboutit, "");
  EXPECT_FALSE(payload.application.guideVisible);
  EXPECT_EQ(payload.application.helpFile, "app.chm");
  EXPECT_EQ(payload.squares[0].shapeType, 3);
}

}  // namespace
}  // namespace plinth
