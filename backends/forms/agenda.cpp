#include "backends/forms/agenda.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int64_t kUsPerMs = 1000;

}  // namespace

Agenda::Agenda(std::function<std::int64_t()> now, std::function<void()> wake)
    : now_(std::move(now)), wake_(std::move(wake)) {}

Agenda::Key Agenda::After(int ms) {
  return {now_() + std::max(ms, 0) * kUsPerMs, ++planned_};
}

void Agenda::Post(Work work) {
  bool first = false;
  {
    const std::scoped_lock lock(mutex_);
    first = posted_.empty();
    posted_.push_back(std::move(work));
  }
  if (first) wake_();
}

void Agenda::PostAfter(int ms, Work work) {
  delayed_.emplace(After(ms), std::move(work));
}

bool Agenda::AnyPosted() const {
  const std::scoped_lock lock(mutex_);
  return !posted_.empty();
}

// ---- timers ----

void Agenda::Arm(const Form& form) {
  for (const Timer* timer : form.Timers) {
    if (timer->Interval <= 0 || !timer->Enabled) {
      armed_.erase(timer);
      continue;
    }
    Armed& armed = armed_[timer];
    const bool known = armed.Owner == &form && armed.Interval == timer->Interval;
    if (known && armed.Starts == timer->Starts) continue;
    armed = {&form, timer->Interval, timer->Starts, After(timer->Interval)};
  }
}

void Agenda::Forget(const Form& form) {
  std::erase_if(armed_, [&](const auto& entry) { return entry.second.Owner == &form; });
}

const Timer* Agenda::NextTimer(Key limit) const {
  const Timer* next = nullptr;
  for (const auto& [timer, armed] : armed_) {
    if (armed.Due > limit || ticking_.count(timer) != 0) continue;
    next = timer;
    limit = armed.Due;
  }
  return next;
}

void Agenda::Tick(const Timer& timer, const Runner& run) {
  Armed& armed = armed_.at(&timer);
  const auto& timers = armed.Owner->Timers;
  if (std::find(timers.begin(), timers.end(), &timer) == timers.end()) {
    armed_.erase(&timer);
    return;
  }
  armed.Due = After(armed.Interval);
  ticking_.insert(&timer);
  if (const Work work = timer.OnTimer) run(work, std::nullopt);
  ticking_.erase(&timer);
}

// ---- turns ----

bool Agenda::RunPosted(const Runner& run, const std::function<bool()>& stop) {
  std::size_t count = 0;
  {
    const std::scoped_lock lock(mutex_);
    count = posted_.size();
  }
  bool any = false;
  for (; count > 0 && !stop(); --count) {
    Work work;
    {
      const std::scoped_lock lock(mutex_);
      if (posted_.empty()) break;  // a turn inside one of them has run the rest
      work = std::move(posted_.front());
      posted_.pop_front();
    }
    run(work, std::nullopt);
    any = true;
  }
  return any;
}

bool Agenda::RunDelayed(const Runner& run, Key limit) {
  const auto next = delayed_.begin();
  if (next == delayed_.end() || next->first > limit) return false;
  const std::int64_t due = next->first.first;
  const Work work = std::move(next->second);
  delayed_.erase(next);
  run(work, due);
  return true;
}

bool Agenda::RunDue(const Runner& run, const std::function<bool()>& stop) {
  const Key limit{now_(), planned_};
  bool any = RunPosted(run, stop);
  while (!stop()) {
    const Timer* timer = NextTimer(limit);
    const Key before = timer == nullptr ? limit : Key{armed_.at(timer).Due.first, limit.second};
    if (RunDelayed(run, before)) {
      any = true;
      continue;
    }
    if (timer == nullptr) break;
    Tick(*timer, run);
    any = true;
  }
  return any;
}

std::optional<std::int64_t> Agenda::NextDue() const {
  std::optional<std::int64_t> next;
  if (!delayed_.empty()) next = delayed_.begin()->first.first;
  for (const auto& [timer, armed] : armed_) {
    if (ticking_.count(timer) != 0) continue;
    next = std::min(next.value_or(armed.Due.first), armed.Due.first);
  }
  return next;
}

}  // namespace vantora
