// Long work of a back end, cut into slices. On the desktop the slices run in a thread of their own;
// without a screen the event loop runs them in turn with its timers, so that a story plays the same
// way every time.
#pragma once

#include <functional>
#include <memory>

namespace vantora {

class BackgroundJob {
 public:
  virtual ~BackgroundJob() = default;  // waits for the slice that runs; no slice starts after it
  // The same, but waits so many ms at the most. False: the slice still runs, nobody waits for it
  // any more, and what the call of the slices holds goes when it has returned.
  virtual bool Stop(int ms) = 0;
};

class Background {
 public:
  virtual ~Background() = default;
  // Calls `slice` again and again. It returns the milliseconds to the next call (0: at once), or a
  // negative number when the work is done. A slice takes 50 ms at the most, and leaves no
  // exception.
  virtual std::unique_ptr<BackgroundJob> Start(std::function<int()> slice) = 0;
};

}  // namespace vantora
