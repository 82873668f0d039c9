// The state that outlives the windows in which the user taps a tempo.
#pragma once

#include <cstdint>

namespace vantora {

struct SchlagZustand {
  std::int16_t SpielIndex = 0;     // row of the medley whose track is played or measured
  std::int64_t LetzterSchlag = 0;  // ms of the last measured tap, by EventLoop::EventMs
  bool Umschalter = false;         // flips at each tap, because only every second tap measures
};

}  // namespace vantora
