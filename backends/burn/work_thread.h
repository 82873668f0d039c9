// A thread that does pieces of work one after the other, in the order in which they were given. It
// starts with the first piece. The destructor waits for the piece that has begun and drops the
// others.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace vantora {

class WorkThread {
 public:
  WorkThread() = default;
  ~WorkThread();
  WorkThread(const WorkThread&) = delete;
  WorkThread& operator=(const WorkThread&) = delete;

  template <typename Result>
  std::shared_future<Result> Do(std::function<Result()> work) {
    const auto task = std::make_shared<std::packaged_task<Result()>>(std::move(work));
    Give([task] { (*task)(); });
    return task->get_future().share();
  }

 private:
  void Give(std::function<void()> work);
  void Run();

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> work_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace vantora
