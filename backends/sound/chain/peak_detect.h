// The highest samples of each buffer.
#pragma once

#include "platform/mmchain.h"

namespace vantora {

class PeakDetect final : public MMPeakDetectX {
 public:
  int PeakLeft() const override { return left_; }
  int PeakRight() const override { return right_; }

 private:
  int left_ = 0, right_ = 0;
};

}  // namespace vantora
