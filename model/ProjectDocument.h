// The one open project: ten parallel tables of plain rows addressed by kind and index, and the project-wide
// values. No behaviour but the invariants of the tables; whatever edits a project works on this.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "basic/Slots.h"
#include "reports/block/ReportBlock.h"

namespace plinth {

enum class ObjectKind { Field, Memo, Combo, Picture, CheckBox, Title, Line, Square, Script, Button };

// Values of an object's page beside 0 to 4.
inline constexpr int kPageAll = -1;
inline constexpr int kPageVacant = 5;
inline constexpr int kPageDeleted = 95;  // this and above
inline constexpr int kPages = 5;
inline constexpr bool isLivePage(int page) { return page < kPageVacant; }

// Highest index of each kind.
inline constexpr int kFieldLimit = 2000, kMemoLimit = 500, kComboLimit = 2000, kPictureLimit = 500,
                     kCheckLimit = 2000, kTitleLimit = 5000, kLineLimit = 5000, kSquareLimit = 5000,
                     kScriptLimit = 2000, kButtonLimit = 2000, kReportLimit = 21;

inline constexpr std::int16_t kFormatVersion = 22;

// Geometry is in twips, colours RGB with red in the low byte (negative: system colours), font sizes in
// points.
struct FieldRow {
  std::int16_t page = kPageVacant;
  bool visible = true;  // meaningful on page 0 only
  std::int16_t printOn = 1;
  std::uint8_t lockEntry = 0, noSearch = 0, noChart = 0;
  std::int16_t tabOrder = 0;
  std::string tag, helpText;
  std::uint8_t fieldType = 0;      // 0 to 22
  std::uint8_t textCase = 0;       // 0 "Plain", 1 "UPPER", 2 "Caps", 3 "lower"
  bool dummyField = false;         // not saved in records
  std::uint8_t noDefaultDate = 0;  // date types: no default date; others: blank when zero
  std::int16_t dayOffset = 0;
  std::string formula, defaultText;
  std::int32_t fieldLength = 30;
  std::int16_t alignment = 0;
  std::int16_t appearance = 0, borderStyle = 0;  // of the box: both 0 but in very old files
  std::int32_t frameStyle = 1, frameColor = 0x808080;
  float left = 0, top = 0, width = 0, height = 0;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string fontName = "Arial";
  float fontSize = 9;
  bool fontBold = false, fontItalic = false;
  bool operator==(const FieldRow&) const = default;
};

struct MemoRow {
  std::int16_t page = kPageVacant;
  bool visible = true;
  std::uint8_t lockEntry = 0, printOn = 0, noSearch = 0;
  std::int32_t fieldLength = 10000;
  std::int16_t tabOrder = 0;
  std::string tag, helpText;
  std::int16_t appearance = 0, borderStyle = 0;
  std::int32_t frameStyle = 0, frameColor = 0;
  float left = 0, top = 0, width = 0, height = 0;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string fontName = "Arial";
  float fontSize = 8.25f;
  bool fontBold = false, fontItalic = false;
  bool operator==(const MemoRow&) const = default;
};

struct ComboRow {
  std::int32_t page = kPageVacant;
  bool visible = true;
  std::int32_t lockEntry = 0, printOn = 0, noSearch = 0, noChart = 0, comboType = 0;
  std::int16_t textCase = 0, fieldLength = 30;
  std::int32_t tabOrder = 0;
  std::string tag, helpText;
  std::int32_t frameStyle = 1, frameColor = 0x808080;
  float left = 0, top = 0, width = 0;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  std::string fontName = "Arial";
  float fontSize = 8.25f;
  bool fontBold = false, fontItalic = false;
  std::vector<std::string> items;
  bool operator==(const ComboRow&) const = default;
};

struct PictureRow {
  std::string picField;
  std::int16_t page = kPageVacant;
  bool visible = true;
  std::uint8_t printOn = 0;
  float left = 0, top = 0, width = 0, height = 0;
  std::string picturePath;  // of the image on disk, in PicTempDir after a load; "" for none
  std::string helpText, tag;
  std::int16_t picBorder = 0;
  bool picFlag = false;  // holds a picture of each record
  std::int16_t pictureMode = 0;
  bool operator==(const PictureRow&) const = default;
};

struct CheckRow {
  std::int16_t page = kPageVacant;
  bool visible = true;
  std::uint8_t lockEntry = 0, printOn = 0, noSearch = 0, noChart = 0, value = 0, appearance = 1;
  float left = 0, top = 0;
  std::string tag, helpText;
  std::int16_t tabOrder = 0;
  bool operator==(const CheckRow&) const = default;
};

struct TitleRow {
  std::int16_t page = kPageVacant;
  bool visible = true;
  std::int16_t alignment = 0;
  std::uint8_t printOn = 0;
  std::string fontName = "Arial";
  float fontSize = 8.25f;
  bool fontBold = false, fontItalic = false, fontUnderline = false;
  std::int32_t foreColor = 0;
  float left = 0, top = 0;
  std::string caption, tag, helpText;
  bool operator==(const TitleRow&) const = default;
};

struct LineRow {
  std::int16_t page = kPageVacant;
  bool visible = true;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  std::int32_t borderColor = 0;
  std::uint8_t printOn = 0;
  bool operator==(const LineRow&) const = default;
};

struct SquareRow {
  std::int16_t page = kPageVacant;
  bool visible = true;
  std::uint8_t printOn = 0;
  std::int32_t backColor = 0xFFFFFF, borderColor = 0, fillColor = 0xFFFFFF;
  std::int16_t backStyle = 0, borderWidth = 1;
  // 0 rectangle, 1 square, 2 oval, 3 circle, 4 rounded rectangle, 5 rounded square
  std::int16_t shapeType = 0;
  std::int16_t fillStyle = 1;  // 0 solid, 1 transparent, 2 to 7 hatches
  std::int16_t borderStyle = 1;
  float left = 0, top = 0, width = 0, height = 0;
  bool operator==(const SquareRow&) const = default;
};

struct ScriptRow {
  std::int16_t page = kPageVacant;
  float left = 0, top = 0, width = 0, height = 0;
  std::string tag;  // the script: a block of the HTML export
  bool operator==(const ScriptRow&) const = default;
};

struct ButtonRow {
  std::int16_t page = kPageVacant;
  std::string caption;
  std::string tag;  // link text
  std::string fontName = "Arial";
  std::string helpText;
  float fontSize = 9;
  bool fontBold = false, fontItalic = false, fontUnderline = false;
  float left = 0, top = 0, width = 0, height = 0;
  std::int32_t backColor = 0xC0C0C0, foreColor = 0;
  std::int16_t buttonIcon = 0;
  std::string buttonPath;  // script
  bool operator==(const ButtonRow&) const = default;
};

// A document template of the finished application.
struct DocumentTemplate {
  std::string plateExt, templatePath, viewDocName;
  bool operator==(const DocumentTemplate&) const = default;
};

// An optional program in the application's menu.
struct OptionalProgram {
  bool visible = false;
  std::string caption, path;
  bool operator==(const OptionalProgram&) const = default;
};

// Captions of the run-time menus, in file order.
struct RunMenus {
  std::string mlist, newin, printingit, exitit, copyadress, erasefile, deletemarkrec, finden0, finden3, cal,
      infoo, aboutit, newview, fmenu, ops, finding, helpit, viewDoc, expot, copying, pasting, cuting, finden4,
      finden5, importmenu;
  bool operator==(const RunMenus&) const = default;
};

// Options of the finished application (the dialog Form8 and what belongs to it), by the names of their
// controls.
struct AppOptions {
  std::string text2 = ",";    // CSV delimiter
  std::string text3;          // copyright line
  std::string text4 = "dbd";  // data file extension
  std::string text5;
  std::string text6;          // web address of the about box
  std::string text9 = "csv";  // export extension
  std::string fonttext = "Arial";
  std::int16_t check1 = 0;  // "Help File"
  std::int16_t check2Calculator = 0, check2AboutBox = 0;
  std::int16_t check3 = 0;  // "0.00": zeros show
  std::int16_t check4 = 1;  // "Export"
  std::int16_t check5 = 0;  // tool frame Frame3 shows
  std::int16_t check7 = 0;  // "Encryption"
  std::int16_t check8 = 1;  // "Sizable"
  std::int16_t check9 = 0, check11 = 0 /* "Charting" */, check12 = 0, check13 = 0, check14 = 0;
  std::int16_t check15 = 0;  // "Calendar"
  std::int16_t fieldToolBox = 0;
  std::int16_t wMax = 0;
  bool operator==(const AppOptions&) const = default;
};

// The search window's options (the dialog Form15).
struct SearchOptions {
  std::array<std::string, 11> text1;  // columns: a letter and a number, "F2"
  std::int16_t check2 = 1, check3 = 1, check4 = 1, check5 = 0, check6 = 0;
  std::string text3 = "Courier New";
  bool operator==(const SearchOptions&) const = default;
};

struct FileProperties {
  std::int16_t deskIcon = 0;
  std::array<std::string, 9>
      comments;  // company, description, copyright, trademarks, product, version, setup ...
  bool operator==(const FileProperties&) const = default;
};

// The objects. Index 0 of fields, combos and scripts, 0 and 1 of memos and 0 to 5 of titles exist from the
// start; the others begin empty. The highest index is size() - 1.
struct ProjectTables {
  std::vector<FieldRow> fields = std::vector<FieldRow>(1);
  std::vector<MemoRow> memos = std::vector<MemoRow>(2);
  std::vector<ComboRow> combos = std::vector<ComboRow>(1);
  std::vector<PictureRow> pictures;
  std::vector<CheckRow> checks;
  std::vector<TitleRow> titles = std::vector<TitleRow>(6);
  std::vector<LineRow> lines;
  std::vector<SquareRow> squares;
  std::vector<ScriptRow> scripts = std::vector<ScriptRow>(1);
  std::vector<ButtonRow> buttons;

  // Counts as the project knows them: the highest index in use, by kind (fields 0 when empty, titles 5,
  // checks -1, ...).
  int fieldCount() const { return static_cast<int>(fields.size()) - 1; }
  int memoCount() const { return static_cast<int>(memos.size()) - 1; }
  int comboCount() const { return static_cast<int>(combos.size()) - 1; }
  int titleCount() const { return static_cast<int>(titles.size()) - 1; }
  int checkCount() const { return static_cast<int>(checks.size()) - 1; }
  int pictureCount() const { return static_cast<int>(pictures.size()) - 1; }
  int lineCount() const { return static_cast<int>(lines.size()) - 1; }
  int squareCount() const { return static_cast<int>(squares.size()) - 1; }
  int scriptCount() const { return static_cast<int>(scripts.size()) - 1; }
  int buttonCount() const { return static_cast<int>(buttons.size()) - 1; }
};

// Everything a project holds beside its objects.
struct ProjectValues {
  std::vector<ReportRow> reports;
  std::uint8_t languageCode = 1;
  std::int16_t charSet = 0;
  std::string appTitle;  // title of the application
  // Menu captions that stand apart in the file.
  std::string indexFeldCaption = "Index", statisticsCaption = "Statistics",
              deleteRecordCaption = "&Delete Record", replaceMenuCaption = "Replace...";
  Bytes appIcon;  // bytes of the ".ico" file
  std::string appIconPath, defaultImagePath;
  std::int16_t emailField = 0, emailNameField = 0;
  std::array<DocumentTemplate, 10> documents;
  std::array<std::int32_t, 5> pageColor{0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};
  std::string tileImage;
  std::int16_t tileMode = 3;
  std::array<std::int32_t, 96> palette;
  bool pageSize20 = false;
  std::int16_t pageSizeCode = 22;             // 22: user size
  float pageWidth = 9600, pageHeight = 7200;  // twips, stored when pageSizeCode is 22
  std::int16_t pattern = 0;                   // scroll bars
  std::int32_t valueMax = 100;
  float guideWidth = 9600;  // Shape1(0)
  float guideTop = 0;       // Shape1(1)
  float scrollLeft = 9600, scrollHeight = 7200;
  float formHeight = 8250, formWidth = 10050;
  std::int16_t dateVal = 4, dateVal2 = 4;  // date styles, 0 to 5
  bool calVisible = true, aboutitVisible = true;
  RunMenus menus;
  AppOptions options;
  SearchOptions search;
  FileProperties fileProp;
  std::array<OptionalProgram, 10> programs;
  float frame3Top = 2760, frame3Left = 30;
  std::int16_t reservedNumber = 0;
  std::string reservedText;
  std::array<std::string, 151> engineText;
  std::array<std::string, 60> menuText;
  std::array<std::string, 7> statLabels{"Sum",   "Average",   "Minimum", "Maximum",
                                        "Count", "Deviation", "Chart"};
  std::array<std::string, 12> functionKey;
  std::array<std::string, 5> pageCaptions{"Page 1", "Page 2", "Page 3", "Page 4", "Page 5"};  // PGE
  bool operator==(const ProjectValues&) const = default;
};

struct ProjectDocument : ProjectTables, ProjectValues {
  ProjectDocument();

  std::string projectPath, helpFile;
  std::int16_t formatVersion = kFormatVersion;  // of the file last read
  bool dirty = false;                           // differs from its file
};

}  // namespace plinth
