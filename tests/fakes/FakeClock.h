// A clock that stands still until a test moves it.
#pragma once

#include "platform/Clock.h"

namespace plinth {

class FakeClock : public Clock {
 public:
  explicit FakeClock(double serial = 45000.5) : serial(serial) {}
  double now() const override { return serial; }

  double serial;  // 45000.5 is 2023-03-15 12:00:00
};

}  // namespace plinth
