// The clock of the machine.
#pragma once

#include "platform/clock.h"

namespace vantora {

class LinuxClock final : public Clock {
 public:
  DateTime Now() override;
  double Timer() override;
  std::int64_t Ticks() override;
};

}  // namespace vantora
