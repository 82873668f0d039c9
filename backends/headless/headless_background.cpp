#include "backends/headless/headless_background.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

struct Work {
  EventLoop& Loop;
  std::function<int()> Slice;
  bool Wanted = true;
};

void Schedule(const std::shared_ptr<Work>& work, int ms) {
  work->Loop.PostAfter(std::max(ms, 1), [work] {
    if (!work->Wanted) return;
    const int next = work->Slice();
    if (work->Wanted && next >= 0) Schedule(work, next);
  });
}

class SlicedJob final : public BackgroundJob {
 public:
  explicit SlicedJob(std::shared_ptr<Work> work) : work_(std::move(work)) {}
  ~SlicedJob() override { work_->Wanted = false; }
  bool Stop(int /*ms*/) override {
    work_->Wanted = false;
    return true;
  }

 private:
  std::shared_ptr<Work> work_;
};

}  // namespace

std::unique_ptr<BackgroundJob> HeadlessBackground::Start(std::function<int()> slice) {
  const auto work = std::make_shared<Work>(Work{loop_, std::move(slice)});
  Schedule(work, 0);
  return std::make_unique<SlicedJob>(work);
}

}  // namespace vantora
