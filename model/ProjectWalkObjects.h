// The ten tables of objects. Squares, lines, titles, check boxes and buttons leave deleted rows out, so that
// the reader numbers the others anew; the remaining kinds keep their indices, which formulas name.
#pragma once

#include "model/ProjectDocument.h"
#include "model/ProjectRepairs.h"
#include "reports/block/BlockArchive.h"

namespace plinth {

// Rows that a save keeps.
inline constexpr auto notDeleted = [](const auto& row) { return row.page < kPageDeleted; };
inline constexpr auto everyRow = [](const auto&) { return true; };

// Files say of page 0 alone what is shown at the start; other pages show when they are turned to.
template <class Archive, class Row>
void walkVisible(Archive& ar, Row& row) {
  ar.onlyIf(row.page == 0, "page 0", [&] { ar.slot(row.visible, Tag::boolean, "Visible"); });
}

template <class Archive, class Document>
void walkSquares(Archive& ar, Document& d) {
  ar.rows(d.squares, {.name = "Squares", .bias = 1, .limit = kSquareLimit}, notDeleted, [&](auto& row, int) {
    ar.slot(row.page, Tag::i2, "Page");
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
    walkVisible(ar, row);
    ar.slot(row.backColor, Tag::i4, "BackColor");
    ar.slot(row.borderColor, Tag::i4, "BorderColor", always, windowTextReadsAsBlack);
    ar.slot(row.fillColor, Tag::i4, "FillColor");
    ar.slot(row.backStyle, Tag::i2, "BackStyle");
    ar.slot(row.borderWidth, Tag::i2, "BorderWidth");
    std::int16_t shape = packSquareShape(row);
    ar.slot(shape, Tag::i2, "ShapeType");
    if constexpr (Archive::kReads) unpackSquareShape(row, shape);
    ar.slot(row.borderStyle, Tag::i2, "BorderStyle");
    ar.length(row.width, "Width");
    ar.length(row.height, "Height");
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
  });
}

template <class Archive, class Document>
void walkLines(Archive& ar, Document& d) {
  ar.rows(d.lines, {.name = "Lines", .bias = 1, .limit = kLineLimit}, notDeleted, [&](auto& row, int) {
    ar.slot(row.page, Tag::i2, "Page");
    walkVisible(ar, row);
    ar.length(row.x1, "X1");
    ar.length(row.y1, "Y1");
    ar.length(row.x2, "X2");
    ar.length(row.y2, "Y2");
    ar.slot(row.borderColor, Tag::i4, "BorderColor");
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
  });
}

template <class Archive, class Document>
void walkImages(Archive& ar, Document& d) {
  ar.slot(d.emailNameField, Tag::i2, "EmailNameField", above(9));
  ar.text(d.appIconPath, "AppIconPath", above(9));
  ar.text(d.defaultImagePath, "DefaultImagePath", above(9));
}

template <class Archive, class Document>
void walkPictures(Archive& ar, Document& d) {
  ar.rows(d.pictures, {.name = "Pictures", .bias = 1, .limit = kPictureLimit}, everyRow, [&](auto& row, int) {
    ar.text(row.picField, "PicField", above(16));
    ar.slot(row.page, Tag::i2, "Page");
    walkVisible(ar, row);
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
    ar.length(row.height, "Height");
    ar.length(row.width, "Width");
    ar.picture(row.picturePath, "FileName", "File", above(14));
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
    ar.text(row.helpText, "HelpText");
    ar.slot(row.picBorder, Tag::i2, "PicBorder");
    ar.slot(row.picFlag, Tag::boolean, "PicFlag");
    ar.slot(row.pictureMode, Tag::i2, "PictureMode");
    ar.text(row.tag, "Tag", above(12));
  });
}

// Style and colour of the frame behind a box. The box itself had a border only in the oldest files.
template <class Archive, class Row>
void walkFrame(Archive& ar, Row& row) {
  ar.slot(row.appearance, Tag::i2, "Appearance");
  ar.slot(row.borderStyle, Tag::i2, "BorderStyle");
  ar.onlyIf(row.appearance == 0, "Appearance 0", [&] {
    ar.slot(row.frameStyle, Tag::i4, "FrameStyle", above(7));
    ar.slot(row.frameColor, Tag::i4, "FrameColor", above(7));
  });
}

template <class Archive, class Document>
void walkFields(Archive& ar, Document& d) {
  ar.rows(d.fields, {.name = "Fields", .first = 1, .limit = kFieldLimit}, everyRow, [&](auto& row, int) {
    ar.slot(row.noChart, Tag::ui1, "NoChart", above(18));
    ar.slot(row.dummyField, Tag::boolean, "DummyField", above(17));
    ar.constantText("", "Dropped", below(19));
    ar.slot(row.page, Tag::i2, "Page");
    ar.slot(row.noDefaultDate, Tag::ui1, "NoDefaultDate", above(10));
    walkVisible(ar, row);
    ar.slot(row.lockEntry, Tag::ui1, "LockEntry");
    ar.slot(row.printOn, Tag::i2, "PrintOn", always, overOneReadsAsOne<std::int16_t>);
    ar.slot(row.noSearch, Tag::ui1, "NoSearch", above(13));
    ar.length(row.width, "Width");
    ar.length(row.height, "Height");
    ar.slot(row.fieldLength, Tag::i4, "FieldLength");
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
    ar.text(row.fontName, "FontName");
    ar.slot(row.foreColor, Tag::i4, "ForeColor", always, windowTextReadsAsBlack);
    ar.slot(row.fontBold, Tag::boolean, "FontBold");
    ar.slot(row.fontItalic, Tag::boolean, "FontItalic");
    ar.slot(row.backColor, Tag::i4, "BackColor", always, negativeReadsAsWhite);
    ar.fontSize(row.fontSize, "FontSize");
    ar.text(row.tag, "Tag");
    ar.slot(row.tabOrder, Tag::i2, "TabOrder", above(3));
    walkFrame(ar, row);
    ar.slot(row.alignment, Tag::i2, "Alignment");
    ar.text(row.helpText, "HelpText");
    ar.slot(row.dayOffset, Tag::i2, "DayOffset");
    ar.slot(row.textCase, Tag::ui1, "TextCase");
    ar.slot(row.fieldType, Tag::ui1, "FieldType");
    ar.text(row.formula, "Formula", always, tildeReadsAsMinus);
    ar.text(row.defaultText, "DefaultText", above(15));
    ar.afterReading([&](auto version) { repairField(row, version); });
  });
}

template <class Archive, class Document>
void walkTitles(Archive& ar, Document& d) {
  ar.rows(d.titles, {.name = "Titles", .first = 1, .limit = kTitleLimit}, notDeleted, [&](auto& row, int i) {
    ar.slot(row.alignment, Tag::i2, "Alignment", above(4));
    ar.slot(row.page, Tag::i2, "Page");
    walkVisible(ar, row);
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
    ar.text(row.fontName, "FontName");
    ar.slot(row.fontItalic, Tag::boolean, "FontItalic");
    ar.slot(row.fontBold, Tag::boolean, "FontBold");
    ar.slot(row.fontUnderline, Tag::boolean, "FontUnderline", above(1));
    ar.fontSize(row.fontSize, "FontSize");
    ar.slot(row.foreColor, Tag::i4, "ForeColor");
    ar.length(row.left, "Left");
    ar.length(row.top, "Top");
    ar.text(row.caption, "Caption");
    ar.text(row.tag, "Tag");
    ar.text(row.helpText, "HelpText");
    ar.afterReading([&](auto version) { repairTitle(row, i, version); });
  });
}

template <class Archive, class Document>
void walkCombos(Archive& ar, Document& d) {
  ar.rows(d.combos, {.name = "Combos", .first = 1, .limit = kComboLimit}, everyRow, [&](auto& row, int i) {
    ar.slot(row.noChart, Tag::i4, "NoChart", above(18));
    ar.slot(row.textCase, Tag::i2, "TextCase");
    ar.slot(row.fieldLength, Tag::i2, "FieldLength");
    ar.slot(row.page, Tag::i4, "Page");
    walkVisible(ar, row);
    ar.slot(row.lockEntry, Tag::i4, "LockEntry");
    ar.slot(row.printOn, Tag::i4, "PrintOn");
    ar.slot(row.noSearch, Tag::i4, "NoSearch", above(13));
    ar.slot(row.comboType, Tag::i4, "ComboType", above(18));
    ar.length(row.width, "Width");
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
    ar.slot(row.foreColor, Tag::i4, "ForeColor");
    ar.slot(row.fontBold, Tag::boolean, "FontBold");
    ar.slot(row.fontItalic, Tag::boolean, "FontItalic");
    ar.slot(row.backColor, Tag::i4, "BackColor", always, negativeReadsAsWhite);
    ar.fontSize(row.fontSize, "FontSize");
    ar.text(row.fontName, "FontName");
    ar.text(row.tag, "Tag");
    ar.slot(row.tabOrder, Tag::i4, "TabOrder", above(3));
    ar.text(row.helpText, "HelpText");
    ar.slot(row.frameStyle, Tag::i4, "FrameStyle", above(18));
    ar.slot(row.frameColor, Tag::i4, "FrameColor", above(21));
    ar.items(row.items, "Items");
    ar.afterReading([&](auto version) { repairTab(row, "ComboField", i, version); });
  });
}

template <class Archive, class Document>
void walkMemos(Archive& ar, Document& d) {
  // The document box alone is no reason for a table until it is placed.
  const bool none = d.memos.size() <= 2 && (d.memos.empty() || d.memos.back().page == kPageVacant);
  const auto stored = [none](const MemoRow&) { return !none; };
  ar.rows(d.memos, {.name = "Memos", .first = 1, .limit = kMemoLimit}, stored, [&](auto& row, int i) {
    ar.slot(row.page, Tag::i2, "Page");
    walkVisible(ar, row);
    ar.slot(row.lockEntry, Tag::ui1, "LockEntry");
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
    ar.slot(row.noSearch, Tag::ui1, "NoSearch", above(13));
    ar.length(row.width, "Width");
    ar.length(row.height, "Height");
    ar.slot(row.fieldLength, Tag::i4, "FieldLength");
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
    ar.text(row.fontName, "FontName");
    ar.slot(row.foreColor, Tag::i4, "ForeColor");
    ar.slot(row.fontBold, Tag::boolean, "FontBold");
    ar.slot(row.fontItalic, Tag::boolean, "FontItalic");
    ar.slot(row.backColor, Tag::i4, "BackColor", always, negativeReadsAsWhite);
    ar.fontSize(row.fontSize, "FontSize");
    ar.text(row.tag, "Tag");
    ar.slot(row.tabOrder, Tag::i2, "TabOrder", above(3));
    walkFrame(ar, row);
    ar.text(row.helpText, "HelpText");
    ar.afterReading([&](auto version) {
      repairFrame(row, version);
      repairTab(row, "MemoField", i, version);
    });
  });
}

template <class Archive, class Document>
void walkChecks(Archive& ar, Document& d) {
  ar.rows(d.checks, {.name = "Checks", .bias = 1, .limit = kCheckLimit}, notDeleted, [&](auto& row, int i) {
    ar.slot(row.noChart, Tag::ui1, "NoChart", above(18));
    ar.slot(row.page, Tag::i2, "Page");
    walkVisible(ar, row);
    ar.slot(row.lockEntry, Tag::ui1, "LockEntry");
    ar.slot(row.printOn, Tag::ui1, "PrintOn");
    ar.slot(row.noSearch, Tag::ui1, "NoSearch", above(13));
    ar.slot(row.value, Tag::ui1, "Value");  // the default of a new record
    ar.length(row.top, "Top");
    ar.length(row.left, "Left");
    ar.text(row.tag, "Tag");
    ar.slot(row.tabOrder, Tag::i2, "TabOrder", above(3));
    ar.text(row.helpText, "HelpText");
    ar.slot(row.appearance, Tag::ui1, "Appearance");
    ar.afterReading([&](auto version) { repairCheck(row, d.combos, i, version); });
  });
}

template <class Archive, class Document>
void walkButtons(Archive& ar, Document& d) {
  ar.section("Buttons", above(20), [&] {
    ar.rows(d.buttons, {.name = "Buttons", .bias = 1, .limit = kButtonLimit}, notDeleted,
            [&](auto& row, int) {
              ar.slot(row.page, Tag::i2, "Page");
              ar.text(row.caption, "Caption");
              ar.text(row.tag, "Tag");
              ar.text(row.fontName, "FontName");
              ar.text(row.helpText, "HelpText");
              ar.fontSize(row.fontSize, "FontSize");
              ar.slot(row.fontBold, Tag::boolean, "FontBold");
              ar.slot(row.fontItalic, Tag::boolean, "FontItalic");
              ar.slot(row.fontUnderline, Tag::boolean, "FontUnderline");
              ar.length(row.top, "Top");
              ar.length(row.left, "Left");
              ar.length(row.width, "Width");
              ar.length(row.height, "Height");
              ar.slot(row.backColor, Tag::i4, "BackColor");
              ar.slot(row.foreColor, Tag::i4, "ForeColor");
              ar.slot(row.buttonIcon, Tag::i2, "ButtonIcon");
              ar.text(row.buttonPath, "ButtonPath");
            });
  });
}

template <class Archive, class Document>
void walkScripts(Archive& ar, Document& d) {
  ar.section("Scripts", above(14), [&] {
    ar.rows(d.scripts, {.name = "Scripts", .first = 1, .limit = kScriptLimit}, everyRow, [&](auto& row, int) {
      ar.length(row.width, "Width");
      ar.length(row.height, "Height");
      ar.length(row.left, "Left");
      ar.length(row.top, "Top");
      ar.text(row.tag, "Tag");
      ar.slot(row.page, Tag::i2, "Page");
    });
  });
}

}  // namespace plinth
