// From the payload's rows to an application. Values that a damaged or foreign payload brings are put into
// their ranges here, once, so that nobody behind this file meets a length below zero or an alignment of 900.
#include "engine/Application.h"

#include <algorithm>

#include "basic/CodePage.h"
#include "basic/Text.h"

namespace plinth {
namespace {

// Brings values into their ranges and remembers the names of those that were not.
class Repair {
 public:
  explicit Repair(std::vector<std::string>& problems) : problems_(problems) {}

  template <class T>
  void range(T& value, std::int64_t low, std::int64_t high, const char* name) {
    if (value >= low && value <= high) return;
    value = static_cast<T>(value < low ? low : high);
    tell(name);
  }
  void finite(float& value, const char* name, float low = -1e6f, float high = 1e6f) {
    if (value >= low && value <= high) return;  // false for not-a-number too
    value = value > high ? high : value < low ? low : 0;
    tell(name);
  }
  void font(PayloadFont& font) { finite(font.size, "FontSize", 1, 500); }
  template <class Row>
  void box(Row& row) {
    finite(row.left, "Left");
    finite(row.top, "Top");
    finite(row.width, "Width");
  }

 private:
  void tell(const char* name) {
    if (std::find(problems_.begin(), problems_.end(), name) == problems_.end()) problems_.push_back(name);
  }
  std::vector<std::string>& problems_;
};

void repairBoxes(Payload& p, Repair& repair) {
  for (PayloadField& f : p.fields) {
    if (!Application::live(f.page)) continue;
    repair.range(f.fieldType, 0, 23, "FieldType");
    if (f.fieldType == 23) f.fieldLength = 10;
    repair.range(f.fieldLength, 0, kMaxFieldLength, "MaxLength");
    repair.range(f.alignment, 0, 2, "Alignment");
    repair.range(f.textCase, 0, 3, "TextCase");
    // -1 forces the flag, as the designer offers no search of what is not stored.
    if (f.dummyField == -1) f.noSearch = 1;
    repair.box(f);
    repair.finite(f.height, "Height");
    repair.font(f.font);
  }
  for (PayloadCombo& c : p.combos) {
    if (!Application::live(c.page)) continue;
    repair.range(c.fieldLength, 0, 32767, "MaxLength");
    repair.range(c.textCase, 0, 3, "TextCase");
    repair.box(c);
    repair.font(c.font);
  }
  for (PayloadMemo& m : p.memos) {
    if (!Application::live(m.page)) continue;
    repair.range(m.fieldLength, 0, kMaxFieldLength, "MaxLength");
    repair.box(m);
    repair.finite(m.height, "Height");
    repair.font(m.font);
  }
}

void repairOthers(Payload& p, Repair& repair) {
  for (PayloadSquare& s : p.squares) {
    if (s.borderStyle == 0) s.borderStyle = 1;
    repair.box(s);
    repair.finite(s.height, "Height");
    repair.range(s.borderWidth, 0, 100, "BorderWidth");
  }
  for (PayloadLine& l : p.lines) {
    repair.finite(l.x1, "X1");
    repair.finite(l.y1, "Y1");
    repair.finite(l.x2, "X2");
    repair.finite(l.y2, "Y2");
  }
  for (PayloadPicture& i : p.pictures) {
    if (!Application::live(i.page)) continue;
    repair.box(i);
    repair.finite(i.height, "Height");
  }
  for (PayloadTitle& t : p.titles) {
    repair.range(t.alignment, 0, 2, "Alignment");
    repair.font(t.font);
    repair.finite(t.left, "Left");
    repair.finite(t.top, "Top");
  }
  for (PayloadButton& b : p.buttons) {
    if (!Application::live(b.page)) continue;
    repair.box(b);
    repair.finite(b.height, "Height");
    repair.font(b.font);
  }
  repair.finite(p.header.pageWidth, "Width", 0, 1e6f);
  repair.finite(p.header.pageHeight, "Height", 0, 1e6f);
  repair.finite(p.application.formWidth, "Width", 0, 1e6f);
  repair.finite(p.application.formHeight, "Height", 0, 1e6f);
}

// The rows that exist in every application whatever the payload holds.
void addFixedRows(Payload& p) {
  if (p.fields.empty()) p.fields.resize(1);
  if (p.combos.empty()) p.combos.resize(1);
  if (p.memos.empty()) p.memos.resize(1);
  if (p.titles.size() < 6) p.titles.resize(6);
  p.fields[0].page = 5;
  p.combos[0].page = 5;
  p.memos[0].page = 5;
}

int highestPage(const Payload& p) {
  int highest = 0;
  const auto look = [&](const auto& rows) {
    for (const auto& row : rows)
      if (row.page < 5) highest = std::max(highest, static_cast<int>(row.page));
  };
  look(p.squares);
  look(p.lines);
  look(p.pictures);
  look(p.titles);
  look(p.fields);
  look(p.combos);
  look(p.memos);
  look(p.checks);
  look(p.buttons);
  return highest;
}

void deriveObjects(Application& app) {
  const Payload& p = app.payload;
  const int highest = highestPage(p);
  app.pageTabVisible = {highest > 0, highest > 0, highest > 1, highest > 2, highest > 3};
  for (const PayloadTitle& t : p.titles) app.titleIsLink.push_back(!t.link.empty());
  for (const PayloadField& f : p.fields)
    app.calendarButton.push_back(app.calendarOn && Application::live(f.page) && isDateKind(f.fieldType));
  app.hasDataPictures =
      std::any_of(p.pictures.begin(), p.pictures.end(), [](const auto& i) { return i.isData(); });
}

}  // namespace

bool Application::shows(MenuId id) const {
  for (const MenuEntry& entry : menus)
    if (entry.id == id && entry.visible) return true;
  return false;
}

Application makeApplication(Payload payload) {
  Application app;
  addFixedRows(payload);
  Repair repair(app.problems);
  repairBoxes(payload, repair);
  repairOthers(payload, repair);
  repair.range(payload.application.dateVal, 0, 5, "DateVal");
  repair.range(payload.application.dateVal2, 0, 5, "DateVal2");
  app.payload = std::move(payload);
  const PayloadHeader& header = app.payload.header;
  const PayloadApplication& block = app.payload.application;
  app.title = header.title;
  app.charSet = header.charSet;
  app.codePage = codePageOfCharSet(header.charSet);
  app.functionKeys = block.functionKeys;
  app.sizable = header.border == 1;
  app.maximised = header.windowState == 2;
  app.minimiseAllowed = block.check13 == 0;
  app.toolBarVisible = block.guideVisible;
  app.helpInStatusLine = header.statusLineVisible;
  app.exportOn = block.exportOn != 0;
  app.chartOn = !header.statisticsCaption.empty();
  app.calendarOn = header.calendar != 0;
  app.scrambleData = header.scrambleData == 1;
  app.varObjects = header.varObjects == 1;
  app.showZero = block.showZero != 0;
  app.startOnLast = block.check12 != 0;
  app.dateFormat = block.dateVal;
  app.clockDateFormat = block.dateVal2;
  deriveObjects(app);
  app.menus = makeMenus(app.payload);
  return app;
}

std::string runMessage(const Application& application, int number, std::string_view value) {
  static constexpr struct {
    int number;
    const char* text;
  } kPlain[] = {
      {4, "The file * does not exist. Create it?"},
      {11, "The picture file was not found."},
      {12, "There is no such record."},
      {14, "The disk is full. The record was not saved."},
      {17, "The value * is not valid."},
      {19, "A picture of this record is damaged."},
      {21, "Error: *"},
      {45, "Record * is in use by another user."},
  };
  std::string text;
  if (number >= 0 && number < static_cast<int>(application.payload.header.runMessages.size()))
    text = application.payload.header.runMessages[static_cast<std::size_t>(number)];
  if (text.empty())
    for (const auto& plain : kPlain)
      if (plain.number == number) text = plain.text;
  return replaceAll(text, "*", value);
}

std::string runCaption(const Application& application, int number, std::string_view plain) {
  const auto& captions = application.payload.application.runCaptions;
  const bool known = number >= 0 && number < static_cast<int>(captions.size());
  if (!known || captions[static_cast<std::size_t>(number)].empty()) return std::string(plain);
  return captions[static_cast<std::size_t>(number)];
}

}  // namespace plinth
