// Every version of the file, damage at every place, and what a save leaves out or keeps.
#include "model/ProjectFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "model/ProjectDescription.h"
#include "model/ProjectRepairs.h"
#include "tests/model/FlatJson.h"
#include "tests/model/VersionedProject.h"

namespace plinth {
namespace {

Bytes saved(ProjectDocument& document, const PictureStore& pictures, std::span<const std::uint8_t> old = {}) {
  return writeProject(document, pictures, {"C:\\a.qvf", 45000}, old).bytes;
}

TEST(ProjectFile, EveryVersionIsReadToItsLastByte) {
  for (int version = 1; version <= 22; ++version) {
    SCOPED_TRACE(version);
    MemoryPictures pictures;
    const Bytes bytes = VersionedProject(version).bytes;
    LoadResult loaded = readProject(bytes, pictures);
    EXPECT_TRUE(loaded.accepted);
    EXPECT_EQ(loaded.skipped, 0);
    EXPECT_EQ(loaded.facts.end, static_cast<std::int64_t>(bytes.size()));
    const LoadResult again = readProject(saved(loaded.document, pictures), pictures);
    const FileFacts none;
    EXPECT_EQ(FlatJson::of(describeProject(again.document, pictures, none)).size(),
              FlatJson::of(describeProject(loaded.document, pictures, none)).size());
    EXPECT_TRUE(again.complete);
  }
}

TEST(ProjectFile, VersionsDifferInWhatTheyMean) {
  for (int version = 1; version <= 22; ++version) {
    SCOPED_TRACE(version);
    MemoryPictures pictures;
    const ProjectDocument d = readProject(VersionedProject(version).bytes, pictures).document;
    const FieldRow& field = d.fields.at(1);
    const float unit = version > 21 ? 1 : 15;
    EXPECT_EQ(field.width, 40 * unit);
    EXPECT_EQ(field.fontSize, version > 21 ? 12 : 9);
    EXPECT_EQ(field.height, version < 8 ? 180 : 40 * unit);
    EXPECT_EQ(field.frameStyle, version < 8 ? 1 : 2);
    EXPECT_EQ(field.appearance + field.borderStyle, 0);
    EXPECT_EQ(field.page, version < 16 ? kPageVacant : 3);
    EXPECT_EQ(field.formula, version < 16 ? "F1-23" : "F1-2:3");
    EXPECT_EQ(field.tabOrder, version > 3 ? 4 : 0);
    EXPECT_EQ(field.printOn, 1);
    EXPECT_EQ(field.backColor, 0xFFFFFF);
    EXPECT_EQ(d.memos.at(2).tabOrder, version > 3 ? 4 : 9);
    EXPECT_EQ(d.memos.at(2).tag, version > 3 ? "9 old" : "MemoField2");
    EXPECT_EQ(d.memos.at(1).tabOrder, 0);  // vacant
    EXPECT_EQ(d.memos.at(2).height, 70 * unit);
    EXPECT_EQ(d.combos.at(1).tag, version > 3 ? "7 old" : "ComboField1");
    EXPECT_EQ(d.combos.at(1).tabOrder, version > 3 ? 8 : 7);
    EXPECT_EQ(d.combos.at(0).tabOrder, version > 3 ? 0 : 33);  // the check box's number
    EXPECT_EQ(d.checks.at(0).tag, version > 3 ? "33" : "CheckField0");
    EXPECT_EQ(d.titles.at(1).caption, "This Blank Label Was Found, Just Delete Me");
    EXPECT_EQ(d.titles.at(1).top, 20 * unit);
    EXPECT_EQ(d.pictures.at(0).picturePath, version > 14 ? "logo.bmp" : "");
    EXPECT_EQ(d.pageColor, version > 15 ? (std::array<std::int32_t, 5>{100, 101, 102, 103, 104})
                                        : (std::array<std::int32_t, 5>{321, 321, 321, 321, 321}));
    EXPECT_EQ(d.documents[0].plateExt, version > 15 ? "doc0" : "");
    EXPECT_EQ(d.palette[20], version > 17 ? 1020 : 0xFFFF);
    EXPECT_EQ(d.engineText[53], version > 15 ? "engine53" : "");
    EXPECT_EQ(d.search.text1[4], "column4");
    EXPECT_EQ(d.fileProp.comments[4], version > 18 ? "comment4" : "");
    EXPECT_EQ(d.pageCaptions[3], version > 15 ? "page3" : "Page 4");
    EXPECT_EQ(d.menus.expot, version > 15 ? "menu18" : "menu17");
    EXPECT_EQ(d.valueMax, version > 21 ? 500 : 100);
    EXPECT_EQ(d.appIcon.size(), version > 16 ? 3u : 0u);
    EXPECT_EQ(d.pattern, 5);
    EXPECT_EQ(d.lines.at(0).page, kPageVacant);
    EXPECT_EQ(d.squares.at(0).borderColor, 0);
    EXPECT_EQ(d.options.text2, ",");
    EXPECT_EQ(d.search.text3, "Courier New");  // the file's is empty
    EXPECT_EQ(d.tileMode, 3);                  // there is no image
    EXPECT_EQ(d.reports.at(0).pictures.at(0).rowOfPicture, 1);
    EXPECT_EQ(d.pageWidth, 200 * unit);
  }
}

TEST(ProjectFile, CutAnywhereIsAPartialProject) {
  const Bytes whole = VersionedProject(22).bytes;
  std::mt19937 random(1);
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < std::min<std::size_t>(4096, whole.size()); ++i) places.push_back(i);
  for (int i = 0; i < 200; ++i) places.push_back(random() % whole.size());
  for (const std::size_t place : places) {
    MemoryPictures pictures;
    LoadResult loaded = readProject(std::span(whole).first(place), pictures);
    // The last slot may end behind its value.
    EXPECT_EQ(loaded.complete, place >= whole.size() - 12) << place;
    const LoadResult again = readProject(saved(loaded.document, pictures), pictures);
    EXPECT_TRUE(again.complete) << place;
  }
}

TEST(ProjectFile, FalseNumbersNeitherCrashNorAllocate) {
  const Bytes whole = VersionedProject(22).bytes;
  for (std::size_t place = 2; place + 4 < whole.size(); ++place) {
    for (const std::uint8_t value : {0x7F, 0x80, 0xFF}) {
      Bytes damaged = whole;
      // Low bytes full, so that a count becomes the largest or the most negative of its type.
      std::fill_n(damaged.begin() + place, 4, std::uint8_t{0xFF});
      damaged[place + 1] = damaged[place + 3] = value;
      MemoryPictures pictures;
      const ProjectDocument d = readProject(damaged, pictures).document;
      ASSERT_LE(d.fields.size() + d.titles.size() + d.squares.size() + d.combos[0].items.size(), 200u);
    }
  }
}

TEST(ProjectFile, OtherFilesAreRefused) {
  MemoryPictures pictures;
  for (const std::string first : {"", "Plinth", "rvn"}) {
    Bytes bytes;
    SlotWriter(bytes).text16(first);
    bytes.resize(200);
    EXPECT_FALSE(readProject(bytes, pictures).accepted) << first;
  }
  EXPECT_FALSE(readProject({}, pictures).accepted);
}

TEST(ProjectFile, NewProjectKeepsFontAndCharacterSet) {
  MemoryPictures pictures;
  const ReadOptions options{.keepLook = true, .fontName = "Tahoma", .charSet = 161};
  const ProjectDocument d = readProject(VersionedProject(22).bytes, pictures, options).document;
  EXPECT_EQ(d.options.fonttext, "Tahoma");
  EXPECT_EQ(d.charSet, 161);
  EXPECT_EQ(d.languageCode, 2);
  EXPECT_EQ(d.fields[0].fontName, "Tahoma");
  EXPECT_EQ(readProject(VersionedProject(22).bytes, pictures).document.fields[0].fontName, "Courier New");
}

TEST(ProjectFile, DeletedRowsAreDroppedAndTheOthersRenumbered) {
  MemoryPictures pictures;
  ProjectDocument d;
  const auto fill = [](auto& rows, int count) {
    rows.resize(count);
    for (int i = 0; i < count; ++i)
      rows[i].page = static_cast<std::int16_t>(i % 2 ? kPageDeleted : 1 + i % 3);
  };
  fill(d.squares, 5);
  fill(d.lines, 5);
  fill(d.checks, 4);
  fill(d.buttons, 3);
  d.titles.resize(9);
  d.titles[6].page = d.titles[8].page = 1;
  d.titles[7].page = kPageDeleted;
  d.titles[6].caption = "six";
  d.titles[8].caption = "eight";
  d.checks[2].tag = "two";
  d.fields.resize(4);
  const ProjectDocument again = readProject(saved(d, pictures), pictures).document;
  EXPECT_EQ(again.squares.size(), 3u);
  EXPECT_EQ(again.lines.size(), 3u);
  EXPECT_EQ(again.checks.size(), 2u);
  EXPECT_EQ(again.checks[1].tag, "two");
  EXPECT_EQ(again.buttons.size(), 2u);
  EXPECT_EQ(again.titleCount(), 7);
  EXPECT_EQ(again.titles[7].caption, "eight");
  EXPECT_EQ(again.fieldCount(), 3);  // vacant fields keep their numbers
  EXPECT_EQ(again.memos.size(), 2u);
  EXPECT_EQ(d.squares.size(), 5u);  // the open project is as it was
}

TEST(ProjectFile, LabelsOfTheApplicationKeepTheirNumbers) {
  MemoryPictures pictures;
  ProjectDocument d;
  d.titles[3].page = 77;
  Bytes bytes = saved(d, pictures);
  const Bytes odd{2, 0, 77, 0};
  *(std::search(bytes.begin(), bytes.end(), odd.begin(), odd.end()) + 2) = kPageDeleted;
  ProjectDocument loaded = readProject(bytes, pictures).document;
  EXPECT_EQ(loaded.titles[3].page, kPageVacant);
  loaded = readProject(saved(loaded, pictures), pictures).document;
  EXPECT_EQ(loaded.titles[5].caption, d.titles[5].caption);
}

TEST(ProjectFile, ShapeAndFillOfASquareShareTheirSlot) {
  for (std::int16_t shape = 0; shape <= 5; ++shape)
    for (std::int16_t fill = 0; fill <= 7; ++fill) {
      SquareRow row, read;
      row.shapeType = shape;
      row.fillStyle = fill;
      const std::int16_t packed = packSquareShape(row);
      EXPECT_TRUE(fill != 1 || packed == shape);
      unpackSquareShape(read, packed);
      EXPECT_EQ(read.shapeType, shape);
      EXPECT_EQ(read.fillStyle, fill);
    }
}

TEST(ProjectFile, OverwritesInPlaceAndSaveAsIsClean) {
  MemoryPictures pictures;
  ProjectDocument d;
  const Bytes clean = saved(d, pictures);
  const Bytes old(clean.size() + 100, 0xAA);
  const Bytes over = saved(d, pictures, old);
  EXPECT_EQ(over.size(), old.size());
  EXPECT_EQ(over.back(), 0xAA);
  EXPECT_NE(std::search(over.begin(), over.begin() + 200, old.begin(), old.begin() + 5), over.begin() + 200);
  const LoadResult again = readProject(over, pictures);
  EXPECT_TRUE(again.complete);
  EXPECT_EQ(again.facts.end, static_cast<std::int64_t>(clean.size()));
  EXPECT_EQ(again.document.titles[4].caption, d.titles[4].caption);
  EXPECT_EQ(saved(d, pictures), clean);
}

TEST(ProjectFile, PicturesAreNeitherLostNorMixedUp) {
  MemoryPictures store;
  const Bytes one{1}, two{2, 2};
  ProjectDocument d;
  d.pictures.resize(4);
  for (PictureRow& row : d.pictures) row.page = 0;
  d.pictures[0].picturePath = *store.put("a/pic.bmp", one);
  d.pictures[1].picturePath = *store.put("b/PIC.bmp", two);
  d.pictures[2].picturePath = *store.put("c/pic.bmp", one);
  d.pictures[3].picturePath = "gone.bmp";
  const Bytes bytes = saved(d, store);
  EXPECT_EQ(d.pictures[3].picturePath, "");  // no bytes, so no name either
  MemoryPictures extracted;
  const LoadResult loaded = readProject(bytes, extracted);
  EXPECT_TRUE(loaded.complete);
  EXPECT_EQ(extracted.get(loaded.document.pictures[0].picturePath), one);
  EXPECT_EQ(extracted.get(loaded.document.pictures[1].picturePath), two);
  EXPECT_EQ(loaded.document.pictures[2].picturePath, loaded.document.pictures[0].picturePath);

  d.pictures[0].picturePath = *store.put(std::string(300, 'x') + "1.bmp", one);
  d.pictures[1].picturePath = *store.put(std::string(300, 'x') + "2.bmp", two);
  MemoryPictures cut;
  const ProjectDocument longNames = readProject(saved(d, store), cut).document;
  for (int i = 0; i < 2; ++i) {
    const std::string& path = longNames.pictures[i].picturePath;
    EXPECT_LT(path.size(), 100u) << "no disk takes it";
    EXPECT_EQ(path.substr(path.size() - 4), ".bmp");
    EXPECT_EQ(cut.get(path), i == 0 ? one : two);
  }
}

TEST(ProjectFile, MissingImagesAreToldAndTheirPathsCleared) {
  MemoryPictures pictures;
  ProjectDocument d;
  d.tileImage = "C:\\tile.jpg";
  d.tileMode = 1;
  LoadResult loaded = readProject(saved(d, pictures), pictures, {.defaultImage = "main.jpg"});
  ASSERT_EQ(loaded.messages.size(), 1u);
  EXPECT_EQ(loaded.messages[0].label, 330);
  EXPECT_EQ(loaded.document.tileImage, "");
  EXPECT_EQ(loaded.document.tileMode, 3);
  EXPECT_EQ(loaded.document.defaultImagePath, "main.jpg");
  loaded = readProject(saved(d, pictures), pictures, {.checkPaths = false});
  EXPECT_EQ(loaded.document.tileImage, d.tileImage);
  loaded = readProject(VersionedProject(14).bytes, pictures);  // a name without bytes
  LanguageTexts texts;
  texts.setText(191, "Gone");
  ASSERT_EQ(loaded.messages.size(), 1u);
  EXPECT_EQ(loaded.messages[0].text(texts), "Gone.....\\..\\logo.bmp");
}

TEST(ProjectFile, PaperFollowsItsCode) {
  MemoryPictures pictures;
  ProjectDocument d;
  d.pageSizeCode = 12;
  d.pageSize20 = true;  // landscape
  d.pageWidth = 1;
  const ProjectDocument again = readProject(saved(d, pictures), pictures).document;
  EXPECT_EQ(again.pageWidth, 16845);
  EXPECT_EQ(again.pageHeight, 11910);
}

}  // namespace
}  // namespace plinth
