#include "backends/burn/work_thread.h"

namespace vantora {

WorkThread::~WorkThread() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  wake_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void WorkThread::Give(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  wake_.notify_all();
  if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
}

void WorkThread::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return ending_ || !work_.empty(); });
    if (ending_) return;
    const std::function<void()> work = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

}  // namespace vantora
