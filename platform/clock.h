// The time of day and the passing of time.
#pragma once

#include <cstdint>

namespace vantora {

struct DateTime {
  int Year, Month, Day, Hour, Minute, Second;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;        // local time
  virtual double Timer() = 0;        // seconds since midnight, with fractions
  virtual std::int64_t Ticks() = 0;  // milliseconds since an arbitrary start; never decreases
};

}  // namespace vantora
