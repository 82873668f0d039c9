#include "backends/sound/restoration/side_thread.h"

namespace vantora {

namespace {

// Waits until `value` changes: for some 20 us without the system, since the next filter usually
// asks within them, and the other channel usually takes as long as this one.
void Await(const std::atomic<unsigned>& value, unsigned before) {
  constexpr int kLooks = 4000;
  for (int look = 0; look < kLooks && value == before; ++look) {
  }
  value.wait(before);
}

}  // namespace

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
  Await(done_, before);
}

void SideThread::Run() {
  for (unsigned seen = 0;;) {
    Await(asked_, seen);
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
