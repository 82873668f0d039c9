// Long work of a back end, divided into slices. On the desktop each job has a thread. Without a
// screen the event loop runs the slices between its timers, so that a story always runs the same
// way.
#pragma once

#include <functional>
#include <memory>

namespace vantora {

class BackgroundJob {
 public:
  virtual ~BackgroundJob() = default;  // waits for the running slice; none starts after it
  // Stops like the destructor, but waits at most `ms` milliseconds. Returns false when the slice is
  // still running. That slice is then abandoned, and the function object is destroyed when it
  // returns.
  virtual bool Stop(int ms) = 0;
};

class Background {
 public:
  virtual ~Background() = default;
  // Calls `slice` repeatedly. It returns the milliseconds until the next call (0: at once), or a
  // negative number when the work is done. A slice should take at most 50 ms and must not throw. It
  // may run on another thread than the interface thread.
  virtual std::unique_ptr<BackgroundJob> Start(std::function<int()> slice) = 0;
};

}  // namespace vantora
