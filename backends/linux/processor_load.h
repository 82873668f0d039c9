// The machine's processor load as a performance counter.
#pragma once

#include "platform/perf_data.h"

#include <cstdint>
#include <string>
#include <utility>

namespace vantora {

class ProcessorLoad final : public PerfData {
 public:
  // `statistics` is a file like /proc/stat; on a machine without it there are no counters.
  explicit ProcessorLoad(std::string statistics = "/proc/stat")
      : statistics_(std::move(statistics)) {}

  bool RegOpenKey(const Text& key) override;
  void RegCloseKey(const Text& /*key*/) override {}
  // 0 to 100. Nothing new since the last question: what it was then.
  std::optional<int> RegQueryValue(const Text& key, const Text& name) override;

 private:
  struct Times {  // of all processors together, in ticks
    std::int64_t Busy = 0, All = 0;
  };
  std::optional<Times> Read() const;

  const std::string statistics_;
  std::optional<Times> last_;  // while it counts
  int percent_ = 0;
};

}  // namespace vantora
