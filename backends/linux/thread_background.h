// Background work with one thread for each job.
#pragma once

#include "platform/background.h"

namespace vantora {

class ThreadBackground final : public Background {
 public:
  // Delays between slices are divided by `speed`: with 100, a burn with a set pace runs 100 times
  // as fast.
  explicit ThreadBackground(double speed = 1.0) : speed_(speed) {}

  std::unique_ptr<BackgroundJob> Start(std::function<int()> slice) override;

 private:
  double speed_;
};

}  // namespace vantora
