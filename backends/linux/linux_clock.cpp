#include "backends/linux/linux_clock.h"

#include <chrono>
#include <ctime>

namespace vantora {

namespace {

struct LocalTime {
  std::tm Parts{};
  long Nanoseconds = 0;
};

LocalTime ReadLocalTime() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  LocalTime time;
  ::localtime_r(&now.tv_sec, &time.Parts);
  time.Nanoseconds = now.tv_nsec;
  return time;
}

}  // namespace

DateTime LinuxClock::Now() {
  const std::tm parts = ReadLocalTime().Parts;
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
          parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

double LinuxClock::Timer() {
  const LocalTime time = ReadLocalTime();
  return time.Parts.tm_hour * 3600 + time.Parts.tm_min * 60 + time.Parts.tm_sec +
         static_cast<double>(time.Nanoseconds) / 1e9;
}

std::int64_t LinuxClock::Ticks() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}

}  // namespace vantora
