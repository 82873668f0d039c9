#include "backends/qt/loop/agenda.h"

#include <algorithm>
#include <cmath>

namespace vantora {

Agenda::Agenda(double speed, std::function<void()> wake)
    : speed_(speed > 0 ? speed : 1), wake_(std::move(wake)) {}

Agenda::Time Agenda::After(int ms) const {
  const std::chrono::duration<double, std::milli> real(std::max(0, ms) / speed_);
  return std::chrono::steady_clock::now() +
         std::chrono::duration_cast<std::chrono::steady_clock::duration>(real);
}

void Agenda::Post(std::function<void()> work) {
  bool first = false;
  {
    const std::scoped_lock lock(mutex_);
    first = posted_.empty();
    posted_.push_back(std::move(work));
  }
  if (first) wake_();
}

void Agenda::PostAfter(int ms, std::function<void()> work) {
  delayed_.emplace(After(ms), std::move(work));
}

bool Agenda::AnyPosted() const {
  const std::scoped_lock lock(mutex_);
  return !posted_.empty();
}

void Agenda::Arm(const Form& form) {
  const auto& controls = form.Controls;
  std::erase_if(armed_, [&](const auto& entry) {
    return entry.second.Owner == &form &&
           std::find(controls.begin(), controls.end(), entry.first) == controls.end();
  });
  for (const Control* control : controls) {
    if (control->Kind() != ControlKind::Timer) continue;
    const auto* timer = static_cast<const Timer*>(control);
    if (timer->Interval <= 0 || !timer->Enabled) {
      armed_.erase(timer);
      continue;
    }
    const auto known = armed_.find(timer);
    if (known != armed_.end() && known->second.Interval == timer->Interval &&
        known->second.Starts == timer->Starts) {
      continue;
    }
    Armed& armed = armed_[timer];
    armed.Owner = &form;
    armed.Interval = timer->Interval;
    armed.Starts = timer->Starts;
    armed.Due = After(timer->Interval);
  }
}

void Agenda::Forget(const Form& form) {
  std::erase_if(armed_, [&](const auto& entry) { return entry.second.Owner == &form; });
}

bool Agenda::RunPosted(const std::function<void(const std::function<void()>&)>& handle,
                       const std::function<bool()>& stop) {
  std::size_t count = 0;
  {
    const std::scoped_lock lock(mutex_);
    count = posted_.size();
  }
  bool any = false;
  for (; count > 0 && !stop(); --count) {
    std::function<void()> work;
    {
      const std::scoped_lock lock(mutex_);
      if (posted_.empty()) break;  // a loop inside one of them has run the rest
      work = std::move(posted_.front());
      posted_.pop_front();
    }
    handle(work);
    any = true;
  }
  return any;
}

bool Agenda::RunDue(const std::function<void(const std::function<void()>&)>& handle,
                    const std::function<bool()>& stop) {
  bool any = RunPosted(handle, stop);
  const Time now = std::chrono::steady_clock::now();
  while (!stop() && !delayed_.empty() && delayed_.begin()->first <= now) {
    const std::function<void()> work = std::move(delayed_.begin()->second);
    delayed_.erase(delayed_.begin());
    handle(work);
    any = true;
  }
  std::vector<const Timer*> due;
  for (const auto& [timer, armed] : armed_) {
    if (armed.Due <= now && !armed.Running) due.push_back(timer);
  }
  for (const Timer* timer : due) {
    const auto found = armed_.find(timer);
    if (stop() || found == armed_.end() || found->second.Due > now) continue;
    const auto& controls = found->second.Owner->Controls;
    if (std::find(controls.begin(), controls.end(), timer) == controls.end()) continue;
    found->second.Due = After(found->second.Interval);
    found->second.Running = true;
    const std::function<void()> work = timer->OnTimer;
    if (work) handle(work);
    const auto after = armed_.find(timer);
    if (after != armed_.end()) after->second.Running = false;
    any = true;
  }
  return any;
}

std::optional<int> Agenda::MsToNext() const {
  std::optional<Time> next;
  if (!delayed_.empty()) next = delayed_.begin()->first;
  for (const auto& [timer, armed] : armed_) {
    if (!armed.Running && (!next || armed.Due < *next)) next = armed.Due;
  }
  if (!next) return std::nullopt;
  const std::chrono::duration<double, std::milli> left = *next - std::chrono::steady_clock::now();
  return static_cast<int>(std::ceil(std::clamp(left.count(), 0.0, 3600000.0)));
}

}  // namespace vantora
