// The present time behind an interface.
#pragma once

namespace plinth {

class Clock {
 public:
  virtual ~Clock() = default;
  // Local date and time as a date serial (days since 1899-12-30).
  virtual double now() const = 0;
};

// The machine's clock.
class SystemClock : public Clock {
 public:
  double now() const override;
};

}  // namespace plinth
