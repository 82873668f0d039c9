// What is to be done on the interface thread and when: posted work, delayed work and the timers of
// the forms. It does not wait itself; the loop asks it at every turn.
#pragma once

#include "platform/event_loop.h"

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>

namespace vantora {

class Agenda {
 public:
  // `wake` stirs a loop that waits; it is called from any thread.
  Agenda(double speed, std::function<void()> wake);

  void Post(std::function<void()> work);  // from any thread
  void PostAfter(int ms, std::function<void()> work);
  bool AnyPosted() const;

  // Reads the timers of a form anew. `handle` in RunDue runs their handlers.
  void Arm(const Form& form);
  void Forget(const Form& form);

  // Runs what is due now, and nothing that becomes due or is posted meanwhile. True: there was
  // some.
  bool RunDue(const std::function<void(const std::function<void()>&)>& handle,
              const std::function<bool()>& stop);
  std::optional<int> MsToNext() const;  // real milliseconds; nothing when nothing is planned

  double Speed() const { return speed_; }

 private:
  using Time = std::chrono::steady_clock::time_point;
  struct Armed {
    const Form* Owner = nullptr;
    int Interval = 0, Starts = 0;
    Time Due;
    bool Running = false;  // a timer does not tick while its own handler runs
  };

  Time After(int ms) const;
  bool RunPosted(const std::function<void(const std::function<void()>&)>& handle,
                 const std::function<bool()>& stop);

  double speed_;
  std::function<void()> wake_;
  mutable std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
  std::multimap<Time, std::function<void()>> delayed_;
  std::map<const Timer*, Armed> armed_;
};

}  // namespace vantora
