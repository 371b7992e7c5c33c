// The rest of Placement: objects with a slot of their own, and tables.
#include <algorithm>

#include "basic/DateSerial.h"
#include "model/AssignTab.h"
#include "surface/NewObjects.h"
#include "surface/ObjectPlaces.h"
#include "surface/Placement.h"
#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

constexpr int kHelpBar = 1, kClock = 2, kDate = 3, kDateStamp = 4, kRecordId = 5;
constexpr int kRowDistance = 19;  // pixels, less than a frame is high, so that cells share their borders
constexpr int kFrameOfCell = 6;   // pixels, of the frame around the text
constexpr int kNarrowest = 7, kWhenTooNarrow = 12;  // pixels, of a column
constexpr int kFieldsLabel = 168;

bool isTable(int columns) { return columns >= 1 && columns <= 8 && columns != 5; }

TitleRow& titleSlot(ProjectDocument& document, int index) {
  const auto at = static_cast<std::size_t>(index);
  if (document.titles.size() <= at) document.titles.resize(at + 1);
  return document.titles[at];
}

}  // namespace

void Placement::documentBox() {
  if (c_.state.locked) return;
  begin();
  const bool vacant = !isLive(c_.document, {ObjectKind::Memo, 1});
  const ObjectRef object = documentBoxSlot(c_);
  if (vacant) moveTo(c_.document, object, startCorner());
  std::erase(c_.state.hidden, object);
  c_.state.selField = object.index;
  hand(object, "placing of the document box");
}

// Brings a system label to the current page; into view when it was on none.
ObjectRef Placement::showSlot(ObjectRef object) {
  TitleRow& row = titleSlot(c_.document, object.index);
  const bool vacant = !isLivePage(row.page);
  row.page = static_cast<std::int16_t>(c_.state.currentPage);
  row.visible = true;
  std::erase(c_.state.hidden, object);
  if (vacant) {
    PointPx corner = startCorner();
    if (object.index == kHelpBar)
      corner.y += kRowDistance;  // the clock is not carried away from there either
    moveTo(c_.document, object, corner);
  }
  return object;
}

void Placement::recordId() {
  if (c_.state.locked) return;
  begin();
  const ObjectRef object = showSlot({ObjectKind::Title, kRecordId});
  TitleRow& row = titleSlot(c_.document, kRecordId);
  row.caption = "0000000001";
  row.fontSize = 12;
  hand(object, "placing of the record number");
}

void Placement::dateStamp(int format) {
  showDate(kDateStamp, format, c_.document.dateVal, "placing of the date stamp");
}

void Placement::date(int format) { showDate(kDate, format, c_.document.dateVal2, "placing of the date"); }

void Placement::showDate(int index, int format, std::int16_t& stored, const char* words) {
  const std::array<std::string, 6> captions = dateCaptions();
  if (c_.state.locked || format < 0 || format >= static_cast<int>(captions.size())) return;
  begin();
  const ObjectRef object = showSlot({ObjectKind::Title, index});
  titleSlot(c_.document, index).caption = captions[static_cast<std::size_t>(format)];
  stored = static_cast<std::int16_t>(format);
  hand(object, words);
}

void Placement::clock() {
  if (c_.state.locked) return;
  begin();
  const ObjectRef object = showSlot({ObjectKind::Title, kClock});
  titleSlot(c_.document, kClock).caption = formatDate(c_.clock.now(), "h:mmam/pm", locale_);
  showSelected(object, "placing of the clock");
}

bool Placement::helpBarShown() const {
  const auto& titles = c_.document.titles;
  return titles.size() > kHelpBar && isLivePage(titles[kHelpBar].page) && titles[kHelpBar].visible;
}

void Placement::toggleHelpBar() {
  if (c_.state.locked) return;
  begin();
  const ObjectRef object{ObjectKind::Title, kHelpBar};
  if (helpBarShown()) {
    c_.document.titles[kHelpBar].page = kPageVacant;
    selectNothing(c_.state);
    c_.view.objectsChanged();
    c_.view.selectionChanged();
    finish(c_, "hiding of the help bar");
    return;
  }
  showSlot(object);
  TitleRow& row = titleSlot(c_.document, kHelpBar);
  row.page = 0;  // known to all pages from there
  row.caption = "Help Bar";
  showSelected(object, "showing of the help bar");
}

// Of objects that stay where they are until someone takes them.
void Placement::showSelected(ObjectRef object, const std::string& words) {
  c_.state.placingActive = false;
  select(c_.state, object);
  c_.view.objectsChanged();
  c_.view.selectionChanged();
  finish(c_, words);
}

void Placement::table(int columns) {
  if (c_.state.locked || !isTable(columns) || !c_.state.userSelVisible) return;
  RectPx area = c_.state.userSel;
  begin();
  if (area.width < columns * kNarrowest) area.width = columns * kWhenTooNarrow;
  const int columnWidth = area.width / columns;
  bool full = c_.document.fieldCount() >= kFieldLimit;
  for (int column = 0; column < columns && !full; ++column) {
    // The height is asked of the first cell, which has the template's.
    int rows = 0;
    for (int row = 0; row <= rows && !full; ++row) {
      newCell(c_);
      FieldRow& cell = c_.document.fields.back();
      rows = std::max(0, area.height) / (placePx(cell.height) + kFrameOfCell);
      cell.left = pixelsToTwips(area.left + column * columnWidth);
      cell.top = pixelsToTwips(area.top + row * kRowDistance);
      cell.width = pixelsToTwips(columnWidth);
      full = c_.document.fieldCount() >= kFieldLimit;
    }
  }
  assignTab(c_.document);
  c_.view.objectsChanged();
  finish(c_, "placing of a table");
  if (full) showLabel(c_, kFieldsLabel, "No more than 2000 field boxes can be placed.");
}

std::array<std::string, 6> Placement::dateCaptions() const {
  static constexpr std::array<const char*, 6> formats{"dddd dd-mmm-yyyy", "dd-mmmm-yyyy", "dd-mm-yyyy",
                                                      "mm-dd-yyyy",       "yyyy-mm-dd",   "Short Date"};
  std::array<std::string, 6> captions;
  std::ranges::transform(formats, captions.begin(),
                         [this](const char* format) { return formatDate(c_.clock.now(), format, locale_); });
  return captions;
}

}  // namespace plinth
