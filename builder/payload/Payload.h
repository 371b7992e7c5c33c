// The plain data of a finished application: what the designer writes behind the engine's image and all that
// the engine knows of a project. Rows only; PayloadWalk.h holds their one order.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "basic/Slots.h"
#include "reports/block/ReportBlock.h"

namespace plinth {

// Geometry in twips, colours RGB with red in the low byte, font sizes in points. `page` as in the project: 0
// to 4, -1 all pages, 5 or more a vacant slot that keeps its index.
struct EmbeddedFile {
  std::string storedName;  // "" for none
  Bytes bytes;
  bool operator==(const EmbeddedFile&) const = default;
};

struct PayloadFont {
  std::string name = "Arial";
  float size = 9;
  bool bold = false, italic = false, underline = false;
  bool operator==(const PayloadFont&) const = default;
};

struct PayloadSquare {
  std::int16_t page = 5;
  std::uint8_t printOn = 0;
  std::int32_t backColor = 0xFFFFFF, borderColor = 0, fillColor = 0xFFFFFF;
  std::int16_t backStyle = 0, borderStyle = 1, fillStyle = 1, shapeType = 0, borderWidth = 1;
  float width = 0, height = 0, top = 0, left = 0;
  bool operator==(const PayloadSquare&) const = default;
};

struct PayloadLine {
  std::int16_t page = 5;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  std::int32_t borderColor = 0;
  std::uint8_t printOn = 0;
  bool operator==(const PayloadLine&) const = default;
};

struct PayloadPicture {
  std::string name;
  std::int16_t page = 5;
  std::uint8_t printOn = 0;
  EmbeddedFile image;
  float top = 0, left = 0, width = 0, height = 0;
  std::string helpText, link;
  std::int16_t stretch = 0, borderStyle = 0;
  bool visible = true;
  // A picture of each record rather than one of the design.
  bool isData() const { return page < 5 && image.storedName.empty(); }
  bool operator==(const PayloadPicture&) const = default;
};

struct PayloadTitle {
  std::int16_t page = 5;
  std::uint8_t printOn = 0;
  PayloadFont font;
  std::int32_t foreColor = 0;
  float left = 0, top = 0;
  std::string caption;  // scrambled in the file
  std::int16_t alignment = 0;
  std::string link, helpText;
  bool operator==(const PayloadTitle&) const = default;
};

struct PayloadFrame {
  bool present = false;
  std::int32_t style = 0, color = 0;
  bool operator==(const PayloadFrame&) const = default;
};

struct PayloadField {
  std::uint8_t noChart = 0;
  std::int16_t dummyField = 0;     // -1: global, stores nothing in records
  std::uint8_t noDefaultDate = 0;  // also: blank when zero
  std::uint8_t lockEntry = 0;
  std::int16_t page = 5;
  std::int16_t printOn = 1;
  std::uint8_t noSearch = 0;
  std::int16_t alignment = 0;
  std::int32_t fieldLength = 30;
  float top = 0, left = 0, width = 0, height = 0;
  PayloadFont font;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string tag;
  std::int16_t exportOrder = 0, tabIndex = 0;  // exportOrder: tab position plus 10
  std::string helpText;
  std::int16_t dayOffset = 0;
  std::uint8_t textCase = 0, fieldType = 0;
  std::string formula;  // prepared; scrambled in the file
  std::int16_t borderStyle = 0;
  PayloadFrame frame;
  bool operator==(const PayloadField&) const = default;
};

struct PayloadCombo {
  std::int32_t noChart = 0;
  std::int16_t textCase = 0, fieldLength = 30;
  std::int32_t page = 5, lockEntry = 0, printOn = 0, noSearch = 0, comboType = 0;
  float top = 0, left = 0, width = 0;
  PayloadFont font;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string tag;
  std::int32_t exportOrder = 0;
  std::string helpText;
  std::vector<std::string> items;
  std::int32_t frameStyle = 1, frameColor = 0;
  bool operator==(const PayloadCombo&) const = default;
};

struct PayloadMemo {
  std::int16_t page = 5;
  std::uint8_t lockEntry = 0, printOn = 0, noSearch = 0;
  std::int32_t fieldLength = 10000;
  float top = 0, left = 0, width = 0, height = 0;
  PayloadFont font;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string tag;
  std::int16_t exportOrder = 0, tabIndex = 0;
  std::string helpText;
  std::int16_t borderStyle = 0;
  PayloadFrame frame;
  bool operator==(const PayloadMemo&) const = default;
};

struct PayloadCheck {
  std::uint8_t noChart = 0;
  std::int16_t page = 5;
  std::uint8_t lockEntry = 0, printOn = 0, noSearch = 0, value = 0;  // value: the default of a new record
  float top = 0, left = 0;
  std::string caption, tag;  // caption carries the help text
  std::int16_t exportOrder = 0;
  std::uint8_t appearance = 1;
  bool operator==(const PayloadCheck&) const = default;
};

struct PayloadButton {
  std::int16_t page = 95;
  std::string helpText, tag, caption;
  PayloadFont font;
  float top = 0, left = 0, width = 0, height = 0;
  std::int32_t backColor = 0, foreColor = 0;
  std::int16_t image = 0;
  std::string script;  // prepared
  bool operator==(const PayloadButton&) const = default;
};

struct PayloadFragment {
  std::string html;
  std::int16_t page = 0;
  bool operator==(const PayloadFragment&) const = default;
};

struct PayloadTemplate {
  std::string extension, body, caption;
  bool operator==(const PayloadTemplate&) const = default;
};

struct PayloadProgram {
  bool visible = false;
  std::string caption, path;
  bool operator==(const PayloadProgram&) const = default;
};

struct PayloadHeader {
  std::int16_t pattern = 0;
  std::int32_t valueMax = 100;
  bool statusLineVisible = false;  // help texts go to the status line rather than to tool tips
  std::string exportExtension = "csv";
  std::int16_t varObjects = 0;  // 1: records carry the variable-object area
  float pageWidth = 9600, pageHeight = 7200;
  std::int16_t windowState = 0;  // 2 maximised
  bool pageSize20 = false;
  std::int16_t calendar = 0;
  std::string indexCaption, statisticsCaption;
  std::array<std::string, 7> statLabels;
  std::int16_t scrambleData = 0;
  std::string title;
  std::uint8_t languageCode = 1;
  std::string fontName = "Arial";
  std::int16_t charSet = 0;
  std::int16_t border = 2;  // 1 sizable, else 2
  std::array<std::string, 60> runMessages;
  bool operator==(const PayloadHeader&) const = default;
};

// Menu captions in file order; an empty one hides its entry.
struct PayloadMenus {
  std::string mlist, newin, printingit, exitit, copyadress, erasefile, deletemarkrec, finden0, finden3, cal,
      infoo, aboutit, fmenu, ops, finding, helpit, expot, copying, pasting, cuting, finden4, finden5, newview,
      importmenu;
  bool operator==(const PayloadMenus&) const = default;
};

struct PayloadApplication {
  std::int16_t dateVal2 = 4;
  float formHeight = 0, formWidth = 0;
  std::string copyright;  // scrambled in the file
  bool calVisible = false;
  std::string helpFile;
  std::string mainPassword;  // Form8.Text5, scrambled in the file
  PayloadMenus menus;
  std::int16_t dateVal = 4;
  std::string webAddress;  // scrambled in the file
  std::string replaceCaption;
  std::array<std::string, 5> pageCaptions;
  std::array<PayloadProgram, 10> programs;
  std::int16_t tileMode = 3;
  std::int16_t exportOn = 1;
  std::array<std::string, 81> runCaptions;
  std::array<std::string, 12> functionKeys;
  std::array<std::int16_t, 11> showColumns{};  // codes: F n, C 2000+n, K 4000+n, M 6000+n, 0 none
  std::string resultFont;
  std::array<std::int16_t, 5> resultOptions{};  // Form15.Check2 to Check6
  bool frame3Visible = false;
  float frame3Top = 0, frame3Left = 0;
  std::int16_t check13 = 0, check14 = 0;
  std::string csvDelimiter = ",", dataExtension = "dbd";
  bool guideVisible = false;
  std::string deleteRecordCaption;
  std::int16_t check12 = 0;
  std::int16_t emailField = 0, emailNameField = 0;
  std::int16_t showZero = 0;
  bool operator==(const PayloadApplication&) const = default;
};

struct Payload {
  PayloadHeader header;
  // Fields, combos, memos and titles: index 0 is unused; the others begin at 0.
  std::vector<PayloadSquare> squares;
  std::vector<PayloadLine> lines;
  std::vector<PayloadPicture> pictures;
  std::vector<PayloadTitle> titles;
  std::vector<PayloadField> fields;
  std::vector<PayloadCombo> combos;
  std::vector<PayloadMemo> memos;
  std::vector<PayloadCheck> checks;
  std::vector<PayloadButton> buttons;
  PayloadApplication application;
  std::vector<PayloadFragment> fragments;  // index 0 unused
  std::string documentsCaption;            // mtitle(4)
  std::array<PayloadTemplate, 10> templates;
  std::array<std::int32_t, 5> pageColors{};
  std::vector<ReportRow> reports;
  EmbeddedFile background;
};

}  // namespace plinth
