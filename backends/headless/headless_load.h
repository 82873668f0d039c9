// A processor load that a test sets.
#pragma once

#include "platform/perf_data.h"

namespace vantora {

class HeadlessLoad final : public PerfData {
 public:
  int Percent = 10;
  bool Present = true;  // false: the system has no performance counters

  bool RegOpenKey(const Text& key) override {
    if (key == L"PerfStats\\StartStat") counting_ = true;
    if (key == L"PerfStats\\StopStat") counting_ = false;
    return Present;
  }
  void RegCloseKey(const Text& /*key*/) override {}
  std::optional<int> RegQueryValue(const Text& /*key*/, const Text& /*name*/) override {
    return Present && counting_ ? std::optional<int>(Percent) : std::nullopt;
  }

 private:
  bool counting_ = false;
};

}  // namespace vantora
