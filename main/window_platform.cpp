#include "main/window_platform.h"

#include <cmath>

namespace vantora {

namespace {

constexpr int kSecondsPerDay = 86400;

}  // namespace

void FastClock::Set(const DateTime& now) {
  set_ = now;
  setAt_ = Ticks();
}

std::int64_t FastClock::Ticks() {
  return static_cast<std::int64_t>(static_cast<double>(machine_.Ticks() - start_) * speed_);
}

double FastClock::Timer() {
  const double start = set_.Hour * 3600 + set_.Minute * 60 + set_.Second;
  return std::fmod(start + static_cast<double>(Ticks() - setAt_) / 1000, kSecondsPerDay);
}

// A story takes only minutes, so the date never changes.
DateTime FastClock::Now() {
  const int seconds = static_cast<int>(Timer());
  DateTime now = set_;
  now.Hour = seconds / 3600;
  now.Minute = seconds / 60 % 60;
  now.Second = seconds % 60;
  return now;
}

}  // namespace vantora
