// The machine's processor load as a performance counter.
#pragma once

#include "platform/perf_data.h"

namespace vantora {

class ProcessorLoad final : public PerfData {
 public:
  bool RegOpenKey(const Text& /*key*/) override { return false; }
  void RegCloseKey(const Text& /*key*/) override {}
  std::optional<int> RegQueryValue(const Text& /*key*/, const Text& /*name*/) override {
    return std::nullopt;
  }
};

}  // namespace vantora
