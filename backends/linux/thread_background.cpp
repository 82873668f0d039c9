#include "backends/linux/thread_background.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace vantora {

namespace {

// The data of a thread. It is shared, so that it outlives a job that does not wait for its thread.
struct Work {
  Work(std::function<int()> slice, double speed) : Slice(std::move(slice)), Speed(speed) {}

  std::function<int()> Slice;
  const double Speed;
  std::mutex Guard;
  std::condition_variable Changed;
  bool Stopped = false, Ended = false;
};

void Run(Work& work) {
  std::unique_lock lock(work.Guard);
  while (!work.Stopped) {
    lock.unlock();
    const int delay = work.Slice();
    lock.lock();
    if (delay < 0) break;
    if (delay == 0) continue;
    work.Changed.wait_for(lock, std::chrono::duration<double, std::milli>(delay / work.Speed),
                          [&] { return work.Stopped; });
  }
  work.Ended = true;
  work.Changed.notify_all();
}

class ThreadJob final : public BackgroundJob {
 public:
  ThreadJob(std::function<int()> slice, double speed)
      : work_(std::make_shared<Work>(std::move(slice), speed)),
        thread_([work = work_] { Run(*work); }) {}
  ~ThreadJob() override {
    if (!thread_.joinable()) return;  // the thread was abandoned
    Tell();
    thread_.join();
  }
  bool Stop(int ms) override {
    Tell();
    std::unique_lock lock(work_->Guard);
    if (!thread_.joinable()) return work_->Ended;
    const bool ended = work_->Changed.wait_for(lock, std::chrono::milliseconds(ms),
                                               [this] { return work_->Ended; });
    lock.unlock();
    if (ended) {
      thread_.join();
    } else {
      thread_.detach();
    }
    return ended;
  }

 private:
  void Tell() {
    const std::lock_guard lock(work_->Guard);
    work_->Stopped = true;
    work_->Changed.notify_all();
  }

  std::shared_ptr<Work> work_;
  std::thread thread_;
};

}  // namespace

std::unique_ptr<BackgroundJob> ThreadBackground::Start(std::function<int()> slice) {
  return std::make_unique<ThreadJob>(std::move(slice), speed_);
}

}  // namespace vantora
