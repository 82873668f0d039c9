// The load of the machine, from the system's performance counters. Without counters the load is 0.
#pragma once

#include "platform/perf_data.h"

#include <cstdint>
#include <optional>

namespace vantora {

class Prozessorlast {
 public:
  explicit Prozessorlast(PerfData& zaehler) : zaehler_(zaehler) {}

  bool Beginnen();              // false: there are no counters
  std::optional<int> Messen();  // percent since the last call; nothing when it is not known
  void Beenden();

  std::int16_t CPULast() const { return CPULast_; }  // percent, smoothed
  // Replaces the smoothed load when the measured load does not show the load of the coming work.
  void Annehmen(std::int16_t prozent) { CPULast_ = prozent; }
  // True if the machine is so busy that more work would make the sound stutter.
  bool Hoch() const { return CPULast_ > 70; }

 private:
  PerfData& zaehler_;
  std::int16_t CPULast_ = 0;
};

}  // namespace vantora
