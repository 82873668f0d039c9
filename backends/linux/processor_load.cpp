#include "backends/linux/processor_load.h"

#include <algorithm>
#include <cwctype>
#include <fstream>

namespace vantora {

namespace {

bool Same(const Text& one, const Text& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](wchar_t a, wchar_t b) {
    return std::towlower(static_cast<std::wint_t>(a)) == std::towlower(static_cast<std::wint_t>(b));
  });
}

}  // namespace

// The first line sums up the ticks of all processors: user, nice, system, idle, waiting for disks,
// two kinds of interrupts, and ticks lent to other virtual machines.
std::optional<ProcessorLoad::Times> ProcessorLoad::Read() const {
  constexpr int kFields = 8, kIdle = 3, kWaiting = 4;
  std::ifstream file(statistics_);
  std::string word;
  if (!(file >> word) || word != "cpu") return std::nullopt;
  Times times;
  for (int i = 0; i < kFields; ++i) {
    std::int64_t ticks = 0;
    if (!(file >> ticks)) {
      if (i <= kIdle) return std::nullopt;
      break;
    }
    times.All += ticks;
    if (i != kIdle && i != kWaiting) times.Busy += ticks;
  }
  return times;
}

bool ProcessorLoad::RegOpenKey(const Text& key) {
  const std::optional<Times> now = Read();
  if (!now) return false;
  if (Same(key, L"PerfStats\\StartStat")) {
    last_ = now;
    percent_ = 0;
    return true;
  }
  if (Same(key, L"PerfStats\\StopStat")) {
    last_.reset();
    return true;
  }
  return Same(key, L"PerfStats\\StatData");
}

std::optional<int> ProcessorLoad::RegQueryValue(const Text& key, const Text& name) {
  if (!last_ || !Same(key, L"PerfStats\\StatData") || !Same(name, L"KERNEL\\CPUUsage")) {
    return std::nullopt;
  }
  const std::optional<Times> now = Read();
  if (!now) return std::nullopt;
  const std::int64_t all = now->All - last_->All;
  if (all > 0) {
    const std::int64_t busy = now->Busy - last_->Busy;
    percent_ = static_cast<int>(std::clamp<std::int64_t>((busy * 100 + all / 2) / all, 0, 100));
    last_ = now;
  }
  return percent_;
}

}  // namespace vantora
