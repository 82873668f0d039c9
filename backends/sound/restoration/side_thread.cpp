#include "backends/sound/restoration/side_thread.h"

namespace vantora {

SideThread::SideThread() : thread_([this] { Run(); }) {}

SideThread::~SideThread() {
  ends_ = true;
  ++asked_;
  asked_.notify_one();
  thread_.join();
}

void SideThread::Both(const std::function<void()>& here, const std::function<void()>& there) {
  const unsigned before = done_;
  job_ = &there;
  ++asked_;
  asked_.notify_one();
  here();
  if (job_.exchange(nullptr) != nullptr) return there();
  done_.wait(before);
}

void SideThread::Run() {
  constexpr int kLooks = 4000;  // some 20 us, within which the next filter usually asks
  for (unsigned seen = 0;;) {
    for (int look = 0; look < kLooks && asked_ == seen; ++look) {
    }
    asked_.wait(seen);
    seen = asked_;
    if (ends_) return;
    const std::function<void()>* const job = job_.exchange(nullptr);
    if (job == nullptr) continue;
    (*job)();
    ++done_;
    done_.notify_one();
  }
}

}  // namespace vantora
