// What is to be done on the interface thread and when: posted work, delayed work and the timers of
// the forms. The agenda does not wait itself; the loop asks it at every turn.
//
// In a turn posted work comes first, in its order. Then delayed work and timers come in the order
// of the times when they were due, also when they are late; of two that were due at the same time,
// delayed work comes first, and else what was planned first. What is posted or becomes due while a
// turn runs has to wait for the next one, so that nothing keeps a user's input out.
//
// A timer that comes late does not make up for what it missed, and it does not tick while its own
// handler runs, whatever turns in there.
#pragma once

#include "platform/form.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

namespace vantora {

class Agenda {
 public:
  using Work = std::function<void()>;
  // Runs one piece of work. `due` is when delayed work was to come; nothing for all other work.
  using Runner = std::function<void(const Work& work, std::optional<std::int64_t> due)>;

  // `now` is the time of the program's clock in microseconds. `wake` stirs a loop that waits; it is
  // called from any thread.
  Agenda(std::function<std::int64_t()> now, std::function<void()> wake);

  void Post(Work work);  // from any thread
  void PostAfter(int ms, Work work);

  void Arm(const Form& form);  // looks which timers of the form are on, and how they are set
  void Forget(const Form& form);

  // Runs what is due now until `stop` says so; true when there was something.
  bool RunDue(const Runner& run, const std::function<bool()>& stop);

  bool AnyPosted() const;
  std::optional<std::int64_t> NextDue() const;  // of delayed work and timers; microseconds

 private:
  using Key =
      std::pair<std::int64_t, std::int64_t>;  // time due, and number in the order of planning
  struct Armed {
    const Form* Owner = nullptr;
    int Interval = 0, Starts = 0;
    Key Due;
  };

  Key After(int ms);
  bool RunPosted(const Runner& run, const std::function<bool()>& stop);
  bool RunDelayed(const Runner& run, Key limit);
  const Timer* NextTimer(Key limit) const;
  void Tick(const Timer& timer, const Runner& run);

  std::function<std::int64_t()> now_;
  std::function<void()> wake_;
  mutable std::mutex mutex_;
  std::deque<Work> posted_;
  std::map<Key, Work> delayed_;
  std::map<const Timer*, Armed> armed_;
  std::set<const Timer*> ticking_;
  std::int64_t planned_ = 0;
};

}  // namespace vantora
