#include "backends/sound/restoration/side_thread.h"

namespace vantora {

SideThread::SideThread() : thread_([this] { Run(); }) {}

SideThread::~SideThread() {
  job_ = nullptr;
  ++asked_;
  asked_.notify_one();
  thread_.join();
}

void SideThread::Both(const std::function<void()>& here, const std::function<void()>& there) {
  job_ = &there;
  const unsigned before = done_;
  ++asked_;
  asked_.notify_one();
  here();
  done_.wait(before);
}

void SideThread::Run() {
  for (unsigned seen = 0;; ++seen) {
    asked_.wait(seen);
    if (job_ == nullptr) return;
    (*job_)();
    ++done_;
    done_.notify_one();
  }
}

}  // namespace vantora
