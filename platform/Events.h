// Mouse, key and menu events as plain values: windows make them, controllers take them, tests
// write them down.
#pragma once

namespace plinth {

enum ShiftState : unsigned { kShift = 1, kCtrl = 2, kAlt = 4 };

struct MouseEvent {
  int button = 1;      // 1 left, 2 right, 4 middle
  unsigned shift = 0;  // ShiftState bits
  int x = 0, y = 0;    // pixels in the receiver's client area
};

// Virtual key codes. Letters and digits are the codes of their capital characters.
inline constexpr int kEnterKey = 13, kPauseKey = 19, kEscapeKey = 27, kSpaceKey = 32, kPageUpKey = 33,
                     kPageDownKey = 34, kEndKey = 35, kHomeKey = 36, kLeftKey = 37, kUpKey = 38,
                     kRightKey = 39, kDownKey = 40, kInsertKey = 45, kDeleteKey = 46, kF1Key = 112,
                     kF2Key = 113, kF4Key = 115, kF5Key = 116, kF9Key = 120, kF12Key = 123;

struct KeyEvent {
  int key = 0;  // virtual key code
  unsigned shift = 0;
};

}  // namespace plinth
