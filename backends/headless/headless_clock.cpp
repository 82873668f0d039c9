#include "backends/headless/headless_clock.h"

#include <algorithm>
#include <chrono>

namespace vantora {

namespace {

constexpr std::int64_t kDayMs = 24LL * 3600 * 1000;

std::int64_t MsSince1970(const DateTime& t) {
  using namespace std::chrono;
  const sys_days day = year{t.Year} / month{static_cast<unsigned>(t.Month)} /
                       std::chrono::day{static_cast<unsigned>(t.Day)};
  const auto time = day + hours{t.Hour} + minutes{t.Minute} + seconds{t.Second};
  return duration_cast<milliseconds>(time.time_since_epoch()).count();
}

}  // namespace

HeadlessClock::HeadlessClock() {
  Set({2026, 11, 24, 10, 0, 0});
}

DateTime HeadlessClock::Now() {
  using namespace std::chrono;
  const sys_time<milliseconds> now{milliseconds{startMs_ + ticks_}};
  const sys_days day = floor<days>(now);
  const year_month_day date{day};
  const hh_mm_ss time{now - day};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

double HeadlessClock::Timer() {
  const std::int64_t ofDay = ((startMs_ + ticks_) % kDayMs + kDayMs) % kDayMs;
  return static_cast<double>(ofDay) / 1000.0;
}

void HeadlessClock::Set(const DateTime& now) {
  startMs_ = MsSince1970(now) - ticks_;
}

void HeadlessClock::Advance(std::int64_t ms) {
  ticks_ += std::max<std::int64_t>(ms, 0);
}

}  // namespace vantora
