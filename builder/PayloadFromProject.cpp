// See PayloadFromProject.h. This file takes the objects along; the options stand in PayloadOptions.cpp.
#include "builder/PayloadFromProject.h"

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "builder/PayloadOptions.h"
#include "formula/PrepareFormula.h"
#include "model/FormulaReferences.h"
#include "model/PictureStore.h"

namespace plinth {

namespace {

constexpr int kExportOrderBase = 10;
constexpr std::size_t kSuffixLength = 4;

class ObjectTransfer {
 public:
  ObjectTransfer(ProjectDocument& document, const std::string& appName, PictureStore& pictures,
                 std::vector<std::string>& notes)
      : document_(document),
        appName_(appName),
        pictures_(pictures),
        notes_(notes),
        counts_{.fields = document.fieldCount(),
                .combos = document.comboCount(),
                .memos = document.memoCount(),
                .checks = document.checkCount(),
                .codePage = codePageOfCharSet(document.charSet)} {}

  void nameObjects();
  void squaresAndLines(Payload& payload) const;
  void pictures(Payload& payload);
  void titles(Payload& payload) const;
  void fields(Payload& payload) const;
  void combos(Payload& payload) const;
  void memos(Payload& payload) const;
  void checks(Payload& payload) const;
  void buttons(Payload& payload) const;
  EmbeddedFile embed(const std::string& path, const std::string& owner);

 private:
  ProjectDocument& document_;
  const std::string& appName_;
  PictureStore& pictures_;
  std::vector<std::string>& notes_;
  FormulaCounts counts_;
  int pictureCounter_ = 1;  // shared by picture objects and the background
};

template <class Row>
void nameBlanks(std::vector<Row>& rows, std::size_t first, std::string Row::*name, const std::string& word) {
  for (std::size_t i = first; i < rows.size(); ++i) {
    if ((rows[i].*name).empty()) rows[i].*name = word + std::to_string(i);
  }
}

void ObjectTransfer::nameObjects() {
  nameBlanks(document_.pictures, 0, &PictureRow::picField, "Image_");
  nameBlanks(document_.fields, 1, &FieldRow::tag, "Field_");
  nameBlanks(document_.combos, 1, &ComboRow::tag, "Combo_Field_");
  nameBlanks(document_.memos, 1, &MemoRow::tag, "Notes_Field_");
  nameBlanks(document_.checks, 0, &CheckRow::tag, "CheckBox_Field_");
}

void ObjectTransfer::squaresAndLines(Payload& payload) const {
  for (const SquareRow& row : document_.squares) {
    payload.squares.push_back({.page = row.page,
                               .printOn = row.printOn,
                               .backColor = row.backColor,
                               .borderColor = row.borderColor,
                               .fillColor = row.fillColor,
                               .backStyle = row.backStyle,
                               .borderStyle = row.borderStyle,
                               .fillStyle = row.fillStyle,
                               .shapeType = row.shapeType,
                               .borderWidth = row.borderWidth,
                               .width = row.width,
                               .height = row.height,
                               .top = row.top,
                               .left = row.left});
  }
  for (const LineRow& row : document_.lines) {
    payload.lines.push_back({row.page, row.x1, row.y1, row.x2, row.y2, row.borderColor, row.printOn});
  }
}

EmbeddedFile ObjectTransfer::embed(const std::string& path, const std::string& owner) {
  if (path.empty()) return {};
  std::optional<Bytes> bytes = pictures_.get(path);
  if (!bytes) {
    notes_.push_back(owner + ": the picture " + path + " cannot be read and is left out");
    return {};
  }
  const std::string name = fileNameOf(path);
  const std::string suffix = name.size() > kSuffixLength ? name.substr(name.size() - kSuffixLength) : name;
  return {appName_ + std::to_string(pictureCounter_++) + suffix, std::move(*bytes)};
}

void ObjectTransfer::pictures(Payload& payload) {
  for (const PictureRow& row : document_.pictures) {
    PayloadPicture& picture = payload.pictures.emplace_back();
    picture.name = row.picField;
    picture.page = row.page;
    if (!isLivePage(row.page)) continue;
    picture.printOn = row.printOn;
    // An embedded image would turn a picture of each record into one of the design.
    if (!row.picFlag) picture.image = embed(row.picturePath, row.picField);
    picture.top = row.top;
    picture.left = row.left;
    picture.width = row.width;
    picture.height = row.height;
    picture.helpText = row.helpText;
    picture.link = row.tag;
    picture.stretch = row.pictureMode;
    picture.borderStyle = row.picBorder;
    picture.visible = row.visible;
  }
}

void ObjectTransfer::titles(Payload& payload) const {
  payload.titles.resize(1);
  for (std::size_t i = 1; i < document_.titles.size(); ++i) {
    const TitleRow& row = document_.titles[i];
    payload.titles.push_back(
        {.page = row.page,
         .printOn = row.printOn,
         .font = {row.fontName, row.fontSize, row.fontBold, row.fontItalic, row.fontUnderline},
         .foreColor = row.foreColor,
         .left = row.left,
         .top = row.top,
         .caption = row.caption,
         .alignment = row.alignment,
         .link = row.tag,
         .helpText = row.helpText});
  }
}

// What the boxes have in common.
template <class From, class To>
void copyBox(const From& row, To& box) {
  box.page = row.page;
  box.lockEntry = row.lockEntry;
  box.printOn = row.printOn;
  box.noSearch = row.noSearch;
  box.fieldLength = row.fieldLength;
  box.top = row.top;
  box.left = row.left;
  box.width = row.width;
  box.font = {row.fontName, row.fontSize, row.fontBold, row.fontItalic, false};
  box.foreColor = row.foreColor;
  box.backColor = row.backColor;
  box.tag = row.tag;
  box.helpText = row.helpText;
  box.exportOrder = row.tabOrder + kExportOrderBase;
}

// A box has a frame unless it came with a border of its own from a very old project.
template <class From, class To>
void copyFrame(const From& row, To& box) {
  box.height = row.height;
  box.tabIndex = row.tabOrder;
  box.borderStyle = row.borderStyle;
  box.frame.present = row.appearance == 0 && row.borderStyle == 0;
  if (box.frame.present) box.frame = {true, row.frameStyle, row.frameColor};
}

void ObjectTransfer::fields(Payload& payload) const {
  payload.fields.resize(1);
  for (std::size_t i = 1; i < document_.fields.size(); ++i) {
    const FieldRow& row = document_.fields[i];
    PayloadField& box = payload.fields.emplace_back();
    copyBox(row, box);
    copyFrame(row, box);
    box.noChart = row.noChart;
    box.dummyField = row.dummyField ? -1 : 0;
    box.noDefaultDate = row.noDefaultDate;
    box.alignment = row.alignment;
    box.dayOffset = row.dayOffset;
    box.textCase = row.textCase;
    box.fieldType = row.fieldType;
    box.formula = prepareFormula(row.formula, counts_);
  }
}

void ObjectTransfer::combos(Payload& payload) const {
  payload.combos.resize(1);
  for (std::size_t i = 1; i < document_.combos.size(); ++i) {
    const ComboRow& row = document_.combos[i];
    PayloadCombo& box = payload.combos.emplace_back();
    copyBox(row, box);
    box.noChart = row.noChart;
    box.textCase = row.textCase;
    box.comboType = row.comboType;
    box.items = row.items;
    box.frameStyle = row.frameStyle;
    box.frameColor = row.frameColor;
  }
}

void ObjectTransfer::memos(Payload& payload) const {
  payload.memos.resize(1);
  for (std::size_t i = 1; i < document_.memos.size(); ++i) {
    const MemoRow& row = document_.memos[i];
    PayloadMemo& box = payload.memos.emplace_back();
    copyBox(row, box);
    copyFrame(row, box);
  }
}

void ObjectTransfer::checks(Payload& payload) const {
  for (const CheckRow& row : document_.checks) {
    payload.checks.push_back({.noChart = row.noChart,
                              .page = row.page,
                              .lockEntry = row.lockEntry,
                              .printOn = row.printOn,
                              .noSearch = row.noSearch,
                              .value = row.value,
                              .top = row.top,
                              .left = row.left,
                              .caption = row.helpText,
                              .tag = row.tag,
                              .exportOrder = static_cast<std::int16_t>(row.tabOrder + kExportOrderBase),
                              .appearance = row.appearance});
  }
}

void ObjectTransfer::buttons(Payload& payload) const {
  for (const ButtonRow& row : document_.buttons) {
    payload.buttons.push_back(
        {.page = row.page,
         .helpText = row.helpText,
         .tag = row.tag,
         .caption = row.caption,
         .font = {row.fontName, row.fontSize, row.fontBold, row.fontItalic, row.fontUnderline},
         .top = row.top,
         .left = row.left,
         .width = row.width,
         .height = row.height,
         .backColor = row.backColor,
         .foreColor = row.foreColor,
         .image = row.buttonIcon,
         .script = prepareFormula(row.buttonPath, counts_)});
  }
}

Payload payloadOf(ProjectDocument& document, const std::string& appName, PictureStore& pictures,
                  std::vector<std::string>& notes) {
  Payload payload;
  ObjectTransfer transfer(document, appName, pictures, notes);
  transfer.nameObjects();
  payload.header = payloadHeader(document);
  transfer.squaresAndLines(payload);
  transfer.pictures(payload);
  transfer.titles(payload);
  transfer.fields(payload);
  transfer.combos(payload);
  transfer.memos(payload);
  transfer.checks(payload);
  transfer.buttons(payload);
  payload.application = payloadApplication(document, appName);
  payload.fragments = payloadFragments(document);
  payload.documentsCaption = document.menus.viewDoc;
  payload.templates = payloadTemplates(document, appName, pictures);
  payload.pageColors = document.pageColor;
  payload.reports = document.reports;
  payload.background = transfer.embed(document.tileImage, "Background");
  return payload;
}

// Names that the payload gave; rows that were dropped get none.
template <class Row>
void takeNames(std::vector<Row>& rows, const std::vector<Row>& named, std::string Row::*name) {
  std::size_t next = 0;
  for (Row& row : rows) {
    if (next == named.size()) return;
    if (rows.size() == named.size() || row.page < kPageDeleted) row.*name = named[next++].*name;
  }
}

}  // namespace

Payload payloadFromProject(ProjectDocument& document, const std::string& appName, PictureStore& pictures,
                           std::vector<std::string>& notes) {
  // Numbers as the project will have them when it is saved and opened again.
  ProjectDocument kept = withoutDeleted(document);
  Payload payload = payloadOf(kept, appName, pictures, notes);
  takeNames(document.pictures, kept.pictures, &PictureRow::picField);
  takeNames(document.fields, kept.fields, &FieldRow::tag);
  takeNames(document.combos, kept.combos, &ComboRow::tag);
  takeNames(document.memos, kept.memos, &MemoRow::tag);
  takeNames(document.checks, kept.checks, &CheckRow::tag);
  for (std::size_t i = 0; i < kept.search.text1.size(); ++i)
    if (kept.search.text1[i].empty()) document.search.text1[i].clear();
  return payload;
}

}  // namespace plinth
