// The clock of the headless back end: it stands still until somebody lets time pass.
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

  // Sets date and time of day; the ticks run on as they were.
  void Set(const DateTime& now);
  void Advance(std::int64_t ms);  // nothing for a negative number

 private:
  std::int64_t ticks_ = 0;    // milliseconds passed
  std::int64_t startMs_ = 0;  // milliseconds from 1970 to the time when `ticks_` was 0
};

}  // namespace vantora
