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

struct KeyEvent {
  int key = 0;  // virtual key code (13 Enter, 19 Pause, 33 PageUp, 38 Up, 40 Down, 45 Insert, 112.. F1..)
  unsigned shift = 0;
};

}  // namespace plinth
