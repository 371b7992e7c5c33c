// A project's template rows hold fonts, but no sizes; those stand here.
#include "surface/NewObjects.h"

#include <algorithm>

#include "model/AssignTab.h"

namespace plinth {

namespace {

constexpr SizePx kFieldText{144, 15}, kMemoText{96, 96}, kPicture{65, 45}, kSquare{15, 15}, kButton{94, 34},
    kScript{96, 48}, kDocumentText{300, 200};
constexpr int kComboWidth = 152, kLineLength = 117;
constexpr int kMemoLength = 2000, kComboLength = 60, kDocumentLength = 10000;
constexpr std::int32_t kEmailColor = 0xF0F0F0;
constexpr std::size_t kDocumentBox = 1, kFirstMemo = 2, kFirstLabel = 6, kFirstLine = 1;

template <class Row>
void setSize(Row& row, SizePx size) {
  row.width = pixelsToTwips(size.width);
  row.height = pixelsToTwips(size.height);
}

// Of a row whose template knows none.
template <class Row>
void keepOrSetSize(Row& row, SizePx size) {
  if (!(row.width > 0)) row.width = pixelsToTwips(size.width);
  if constexpr (requires { row.height; })
    if (!(row.height > 0)) row.height = pixelsToTwips(size.height);
}

// Shows on the current page and prints.
template <class Row>
void setPlace(const DesignContext& context, Row& row) {
  row.page = static_cast<std::int16_t>(context.state.currentPage);
  if constexpr (requires { row.visible; }) row.visible = true;
  if constexpr (requires { row.printOn; }) row.printOn = 1;
}

// Of a box in a frame.
template <class Row>
void setColors(const DesignState& state, Row& row) {
  row.foreColor = state.color1;
  row.backColor = state.color2;
  row.frameColor = state.color3;
  row.frameStyle = 1;
}

// Appends a row, at `first` or behind; earlier slots stay vacant.
template <class Row>
int append(std::vector<Row>& rows, Row row, std::size_t first = 0) {
  if (rows.size() < first) rows.resize(first);
  rows.push_back(std::move(row));
  return static_cast<int>(rows.size()) - 1;
}

std::string numbered(const char* word, int number) { return word + std::to_string(number); }

PictureRow pictureRow(const DesignContext& context, SizePx size) {
  PictureRow row;
  setPlace(context, row);
  setSize(row, size);
  return row;
}

ObjectRef appendField(DesignContext& c, const char* tagWord) {
  FieldRow row = c.document.fields[0];
  setPlace(c, row);
  setColors(c.state, row);
  keepOrSetSize(row, kFieldText);
  row.noSearch = 0;
  row.tag = numbered(tagWord, c.document.fieldCount() + 1);
  return {ObjectKind::Field, append(c.document.fields, std::move(row))};
}

}  // namespace

ObjectRef newLabel(DesignContext& c) {
  TitleRow row = c.document.titles[0];
  setPlace(c, row);
  row.foreColor = c.state.color1;
  row.caption = c.label(127, "Label");
  return {ObjectKind::Title, append(c.document.titles, std::move(row), kFirstLabel)};
}

ObjectRef newField(DesignContext& c) {
  const ObjectRef object = appendField(c, "Field");
  assignTab(c.document);
  return object;
}

ObjectRef newCell(DesignContext& c) { return appendField(c, "Cell_"); }

ObjectRef newEmailField(DesignContext& c) {
  const ObjectRef object = newField(c);
  FieldRow& row = c.document.fields.back();
  const FieldRow& pattern = c.document.fields[0];
  row.foreColor = pattern.foreColor;
  row.frameColor = pattern.frameColor;
  row.backColor = kEmailColor;
  row.tag = "Email";
  c.document.emailField = static_cast<std::int16_t>(object.index);
  return object;
}

ObjectRef newMemo(DesignContext& c) {
  MemoRow row = c.document.memos[0];
  setPlace(c, row);
  setColors(c.state, row);
  keepOrSetSize(row, kMemoText);
  row.fieldLength = kMemoLength;
  const int index = append(c.document.memos, std::move(row), kFirstMemo);
  c.document.memos.back().tag = numbered("MemoField", index);
  assignTab(c.document);
  return {ObjectKind::Memo, index};
}

ObjectRef newCombo(DesignContext& c) {
  auto& combos = c.document.combos;
  const auto vacant = std::find_if(combos.begin() + 1, combos.end(),
                                   [](const ComboRow& row) { return row.page == kPageVacant; });
  if (vacant != combos.end()) {
    vacant->page = c.state.currentPage;
    vacant->visible = true;
    return {ObjectKind::Combo, static_cast<int>(vacant - combos.begin())};
  }
  ComboRow row = combos[0];
  setPlace(c, row);
  setColors(c.state, row);
  if (!(row.width > 0)) row.width = pixelsToTwips(kComboWidth);
  row.lockEntry = 0;
  row.fieldLength = kComboLength;
  const int index = append(combos, std::move(row));
  combos.back().tag = numbered("ComboField", index);
  assignTab(c.document);
  return {ObjectKind::Combo, index};
}

ObjectRef newPictureField(DesignContext& c) {
  PictureRow row = pictureRow(c, kPicture);
  row.picFlag = true;
  row.picBorder = 1;
  row.pictureMode = 1;
  return {ObjectKind::Picture, append(c.document.pictures, std::move(row))};
}

ObjectRef newPictureArt(DesignContext& c, const std::string& path, SizePx size) {
  PictureRow row = pictureRow(c, size.width > 0 && size.height > 0 ? size : kPicture);
  row.picturePath = path;
  return {ObjectKind::Picture, append(c.document.pictures, std::move(row))};
}

ObjectRef newCheckBox(DesignContext& c) {
  CheckRow row;
  setPlace(c, row);
  const int index = append(c.document.checks, std::move(row));
  assignTab(c.document);
  // Unlike those of the other kinds it is named by its position, not by its index.
  CheckRow& placed = c.document.checks.back();
  placed.tag = numbered("CheckField", placed.tabOrder);
  return {ObjectKind::CheckBox, index};
}

ObjectRef newLine(DesignContext& c) {
  LineRow row;
  setPlace(c, row);
  row.borderColor = c.state.color1;
  row.x2 = pixelsToTwips(kLineLength);
  return {ObjectKind::Line, append(c.document.lines, std::move(row), kFirstLine)};
}

ObjectRef newSquare(DesignContext& c) {
  SquareRow row;
  setPlace(c, row);
  setSize(row, kSquare);
  row.backColor = c.state.color2;
  row.backStyle = 1;
  row.borderColor = c.state.color3;
  return {ObjectKind::Square, append(c.document.squares, std::move(row))};
}

ObjectRef newButton(DesignContext& c) {
  ButtonRow row;
  setPlace(c, row);
  setSize(row, kButton);
  row.caption = "Button";
  row.foreColor = c.state.color1;
  row.fontBold = true;
  if (!c.document.options.fonttext.empty()) row.fontName = c.document.options.fonttext;
  return {ObjectKind::Button, append(c.document.buttons, std::move(row))};
}

ObjectRef newScript(DesignContext& c) {
  ScriptRow row = c.document.scripts[0];
  setPlace(c, row);
  keepOrSetSize(row, kScript);
  return {ObjectKind::Script, append(c.document.scripts, std::move(row))};
}

ObjectRef documentBoxSlot(DesignContext& c) {
  auto& memos = c.document.memos;
  if (memos.size() <= kDocumentBox) memos.resize(kDocumentBox + 1);
  MemoRow& row = memos[kDocumentBox];
  if (!isLivePage(row.page)) {
    row = memos[0];
    setColors(c.state, row);
    row.printOn = 1;
  }
  row.page = static_cast<std::int16_t>(c.state.currentPage);
  row.visible = true;
  setSize(row, kDocumentText);
  row.tag = "MemoField1";
  row.fieldLength = kDocumentLength;
  assignTab(c.document);
  return {ObjectKind::Memo, static_cast<int>(kDocumentBox)};
}

}  // namespace plinth
