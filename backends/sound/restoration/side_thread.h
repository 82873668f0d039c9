// A thread that does half of a job while the caller does the other half. Where all processors are
// busy, the thread may not have begun by the time at which the caller is done: then the caller does
// both halves, so that no job waits for a processor.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace vantora {

class SideThread {
 public:
  SideThread();
  ~SideThread();
  SideThread(const SideThread&) = delete;
  SideThread& operator=(const SideThread&) = delete;

  // Returns when both are done. Neither may throw. The two see what the caller has written, and the
  // caller sees what they have written.
  void Both(const std::function<void()>& here, const std::function<void()>& there);

 private:
  void Run();

  std::atomic<const std::function<void()>*> job_ = nullptr;  // that nobody has begun
  std::atomic<bool> ends_ = false;
  std::atomic<unsigned> asked_ = 0, done_ = 0;  // jobs
  std::thread thread_;
};

}  // namespace vantora
