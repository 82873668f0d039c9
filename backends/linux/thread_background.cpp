#include "backends/linux/thread_background.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace vantora {

namespace {

class ThreadJob final : public BackgroundJob {
 public:
  ThreadJob(std::function<int()> slice, double speed)
      : slice_(std::move(slice)), speed_(speed), thread_([this] { Run(); }) {}
  ~ThreadJob() override {
    {
      std::lock_guard lock(mutex_);
      stopped_ = true;
    }
    wake_.notify_all();
    thread_.join();
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (!stopped_) {
      lock.unlock();
      const int delay = slice_();
      lock.lock();
      if (delay < 0) return;
      if (delay == 0) continue;
      wake_.wait_for(lock, std::chrono::duration<double, std::milli>(delay / speed_),
                     [this] { return stopped_; });
    }
  }

  std::function<int()> slice_;
  double speed_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool stopped_ = false;
  std::thread thread_;  // last: it uses all the others
};

}  // namespace

std::unique_ptr<BackgroundJob> ThreadBackground::Start(std::function<int()> slice) {
  return std::make_unique<ThreadJob>(std::move(slice), speed_);
}

}  // namespace vantora
