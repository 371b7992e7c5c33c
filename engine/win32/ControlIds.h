// The numbers by which tests, screen readers and scripts find the parts of the main window. A control's
// number never depends on what else the application has: it is the base of its kind plus the object's own
// index.
#pragma once

namespace plinth {

inline constexpr int kNavigationId = 100;  // Command2(0..5)
inline constexpr int kNewRecordId = 106;   // newbut
inline constexpr int kRecordBoxId = 107;   // Text1
inline constexpr int kPageTabId = 110;     // Pge(0..4)
inline constexpr int kToolId = 120;        // tools of the tool bar, by their row
inline constexpr int kActionToolId = 140;  // Image8(1): what the focused field's text offers

inline constexpr int kFieldId = 1000;        // nameing(n)
inline constexpr int kComboId = 10000;       // Cb(n)
inline constexpr int kMemoId = 20000;        // Notes(n)
inline constexpr int kCheckId = 25000;       // CheckBox(n)
inline constexpr int kButtonId = 30000;      // Command1(n)
inline constexpr int kDateButtonId = 40000;  // DownB(n), beside field n

inline constexpr int kMenuId = 60000;  // menu entries, by their row
inline constexpr int kMostMenuEntries = 5000;

}  // namespace plinth
