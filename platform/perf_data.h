// The system's performance counters, HKEY_DYN_DATA.
#pragma once

#include "platform/text.h"

#include <optional>

namespace vantora {

class PerfData {
 public:
  virtual ~PerfData() = default;
  // Opens and closes a key. To open `PerfStats\StartStat` starts the counting, `PerfStats\StopStat`
  // ends it; false for a key that is not there.
  virtual bool RegOpenKey(const Text& key) = 0;
  virtual void RegCloseKey(const Text& key) = 0;
  // `KERNEL\CPUUsage` below `PerfStats\StatData`: load of the processors since the last question,
  // in percent. Nothing for a value that is not there or not counted.
  virtual std::optional<int> RegQueryValue(const Text& key, const Text& name) = 0;
};

}  // namespace vantora
