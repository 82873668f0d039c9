// A processor load that the test says.
#pragma once

#include "platform/perf_data.h"

namespace vantora {

class HeadlessLoad final : public PerfData {
 public:
  int Percent = 10;
  bool Present = true;  // false: a system without such counters

  bool RegOpenKey(const Text& /*key*/) override { return Present; }
  void RegCloseKey(const Text& /*key*/) override {}
  std::optional<int> RegQueryValue(const Text& /*key*/, const Text& /*name*/) override {
    return Present ? std::optional<int>(Percent) : std::nullopt;
  }
};

}  // namespace vantora
