// The clock of the headless back end. Its time passes only by Advance.
#pragma once

#include "platform/clock.h"

#include <cstdint>

namespace vantora {

class HeadlessClock final : public Clock {
 public:
  HeadlessClock();  // 2026-11-24, 10:00

  DateTime Now() override;
  double Timer() override;
  std::int64_t Ticks() override { return ticks_; }

  // Sets date and time of day. The ticks do not change.
  void Set(const DateTime& now);
  void Advance(std::int64_t ms);  // a negative number has no effect

 private:
  std::int64_t ticks_ = 0;    // milliseconds passed
  std::int64_t startMs_ = 0;  // milliseconds from 1970 to the time when `ticks_` was 0
};

}  // namespace vantora
