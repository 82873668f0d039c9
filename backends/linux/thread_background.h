// Long work in a thread for each job.
#pragma once

#include "platform/background.h"

namespace vantora {

class ThreadBackground final : public Background {
 public:
  // Delays between slices are divided by `speed`: a burn paced by its job runs 100 times as fast
  // with 100.
  explicit ThreadBackground(double speed = 1.0) : speed_(speed) {}

  std::unique_ptr<BackgroundJob> Start(std::function<int()> slice) override;

 private:
  double speed_;
};

}  // namespace vantora
