// The work of the interface thread: posted work, delayed work and the timers of the forms. The
// agenda never waits; the loop asks it at every turn.
//
// A turn runs posted work first, in the order of posting. Delayed work and timers follow in the
// order of their due times, also if they are late. At equal due times delayed work comes before
// timers, and otherwise the work that was planned first. Work that is posted or becomes due during
// a turn waits for the next turn, so that it cannot shut out the user's input.
//
// A late timer does not catch up on the ticks that it missed. A timer does not tick while its own
// handler runs, even if that handler turns the loop.
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
  // Runs one piece of work. `due` is the due time of delayed work, nothing for all other work.
  using Runner = std::function<void(const Work& work, std::optional<std::int64_t> due)>;

  // `now` returns the time of the program's clock in microseconds. `wake` wakes a waiting loop; it
  // is called from any thread.
  Agenda(std::function<std::int64_t()> now, std::function<void()> wake);

  void Post(Work work);  // from any thread
  void PostAfter(int ms, Work work);

  void Arm(const Form& form);  // reads the settings of its timers
  void Forget(const Form& form);

  // Runs the work that is due now, until `stop` returns true. Returns true if there was any.
  bool RunDue(const Runner& run, const std::function<bool()>& stop);

  bool AnyPosted() const;
  std::optional<std::int64_t> NextDue() const;  // of delayed work and timers; microseconds

 private:
  using Key = std::pair<std::int64_t, std::int64_t>;  // due time, then the order of planning
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
