// A thread that does half of a job while the caller does the other half.
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

  const std::function<void()>* job_ = nullptr;  // null: the thread ends
  std::atomic<unsigned> asked_ = 0, done_ = 0;  // jobs
  std::thread thread_;
};

}  // namespace vantora
