// What outlives the windows in which tempi are tapped.
#pragma once

#include <cstdint>

namespace vantora {

struct SchlagZustand {
  std::int16_t SpielIndex = 0;     // row of the medley that is played or measured
  std::int64_t LetzterSchlag = 0;  // ms of the last measurement, as EventLoop::EventMs has them
  bool Umschalter = false;         // flips at each tap; every second one measures
};

}  // namespace vantora
