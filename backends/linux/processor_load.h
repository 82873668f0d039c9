// The machine's processor load as a performance counter.
#pragma once

#include "platform/perf_data.h"

#include <cstdint>
#include <string>
#include <utility>

namespace vantora {

class ProcessorLoad final : public PerfData {
 public:
  // `statistics` is a file like /proc/stat. Without it there are no counters.
  explicit ProcessorLoad(std::string statistics = "/proc/stat")
      : statistics_(std::move(statistics)) {}

  bool RegOpenKey(const Text& key) override;
  void RegCloseKey(const Text& /*key*/) override {}
  // Returns the load from 0 to 100 since the last call. When no ticks have passed since, returns
  // the last value again.
  std::optional<int> RegQueryValue(const Text& key, const Text& name) override;

 private:
  struct Times {  // ticks of all processors
    std::int64_t Busy = 0, All = 0;
  };
  std::optional<Times> Read() const;

  const std::string statistics_;
  std::optional<Times> last_;  // while the counter is open
  int percent_ = 0;
};

}  // namespace vantora
