// A finished application as the engine knows it: the payload's rows and everything that follows from them,
// decided once at start. Windows, the console tool and the record store all read this and know no other
// project data.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "builder/payload/Payload.h"
#include "engine/ApplicationMenus.h"

namespace plinth {

// Stored code of a field, as in the payload: what its box holds and how it is stored.
inline bool isDateKind(int kind) { return kind >= 6 && kind <= 9; }
inline bool isNumberKind(int kind) { return kind >= 1 && kind <= 5; }
inline bool isTimeKind(int kind) { return kind >= 10 && kind <= 12; }
inline bool isDatePartKind(int kind) { return kind >= 13 && kind <= 22; }

struct Application {
  // Rows as stored. Fields, combos, memos and titles count from 1 (row 0 is unused but exists), the others
  // from 0. There are always the titles 0 to 5: 1 help line, 2 clock, 3 day, 4 date stamp, 5 record number; 6
  // upward labels. Lengths, alignments, flags and fonts are within their ranges.
  Payload payload;

  std::string title;  // of the window and of message boxes, 8-bit text
  int charSet = 0;
  int codePage = 1252;                   // of every text of the application
  std::array<bool, 5> pageTabVisible{};  // Pge(0..4)
  std::vector<MenuEntry> menus;
  std::vector<bool> calendarButton;          // by field: a DownB button opens the calendar
  std::vector<bool> titleIsLink;             // by title
  std::array<std::string, 12> functionKeys;  // F1 to F12
  bool sizable = false, maximised = false;
  bool minimiseAllowed = true;    // the frame's minimise and maximise buttons
  bool toolBarVisible = true;     // Frame1
  bool helpInStatusLine = false;  // help texts go to Title(1) instead of tool tips
  bool exportOn = true, chartOn = false, calendarOn = false;
  bool scrambleData = false, varObjects = false, showZero = false, startOnLast = false;
  bool hasDataPictures = false;
  int dateFormat = 4;       // 0 to 5: date stamp and fields of kind 6
  int clockDateFormat = 4;  // 0 to 5: Title(3)
  // Values that had to be brought into their range, as names for message 17; each once.
  std::vector<std::string> problems;

  const PayloadField& field(int n) const { return payload.fields[static_cast<std::size_t>(n)]; }
  const PayloadCombo& combo(int n) const { return payload.combos[static_cast<std::size_t>(n)]; }
  const PayloadMemo& memo(int n) const { return payload.memos[static_cast<std::size_t>(n)]; }
  const PayloadCheck& check(int n) const { return payload.checks[static_cast<std::size_t>(n)]; }
  const PayloadPicture& picture(int n) const { return payload.pictures[static_cast<std::size_t>(n)]; }
  const PayloadTitle& titleRow(int n) const { return payload.titles[static_cast<std::size_t>(n)]; }
  const PayloadButton& button(int n) const { return payload.buttons[static_cast<std::size_t>(n)]; }

  // Highest index in use: fields, combos, memos and titles 0 for none, the others -1 for none.
  int fieldCount() const { return static_cast<int>(payload.fields.size()) - 1; }
  int comboCount() const { return static_cast<int>(payload.combos.size()) - 1; }
  int memoCount() const { return static_cast<int>(payload.memos.size()) - 1; }
  int titleCount() const { return static_cast<int>(payload.titles.size()) - 1; }
  int checkCount() const { return static_cast<int>(payload.checks.size()) - 1; }
  int pictureCount() const { return static_cast<int>(payload.pictures.size()) - 1; }
  int buttonCount() const { return static_cast<int>(payload.buttons.size()) - 1; }

  // Page 5 and above marks a deleted slot; -1 is all pages.
  static bool live(int page) { return page < 5; }
  // Whether an object of this page value shows while `current` (0 to 4) is the page.
  static bool onPage(int page, int current) { return page == current || page == -1; }
  // Whether field n takes part in records. A global field keeps its text in the .cfg file.
  bool storesField(int n) const { return live(field(n).page) && field(n).dummyField == 0; }
  bool globalField(int n) const { return live(field(n).page) && field(n).dummyField == -1; }
  bool hasDateStamp() const { return live(titleRow(4).page); }
  bool shows(MenuId id) const;
};

// Takes the payload's rows over, brings damaged values into range and works out what follows from them.
Application makeApplication(Payload payload);

// Message `number` (0 to 59) of the application with `*` replaced by `value`. The messages that the engine
// itself needs read in plain English when the payload leaves them empty.
std::string runMessage(const Application& application, int number, std::string_view value = {});
// Caption `number` (0 to 80); `plain` words when it is empty or unknown.
std::string runCaption(const Application& application, int number, std::string_view plain = {});

// Highest FieldLength that is taken from a payload.
inline constexpr std::int32_t kMaxFieldLength = 1 << 20;

}  // namespace plinth
