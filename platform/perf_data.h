// The system's performance counters, HKEY_DYN_DATA.
#pragma once

#include "platform/text.h"

#include <optional>

namespace vantora {

class PerfData {
 public:
  virtual ~PerfData() = default;
  // RegOpenKey on `PerfStats\StartStat` starts the counter, on `PerfStats\StopStat` stops it.
  // Returns false for a key that does not exist.
  virtual bool RegOpenKey(const Text& key) = 0;
  virtual void RegCloseKey(const Text& key) = 0;
  // The value `KERNEL\CPUUsage` of the key `PerfStats\StatData` is the processor load since the
  // last call, in percent. Returns nothing for a value that does not exist or is not being counted.
  virtual std::optional<int> RegQueryValue(const Text& key, const Text& name) = 0;
};

}  // namespace vantora
