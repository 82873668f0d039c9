// Removes a range of frames from a wave file in place.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class TsCut {
 public:
  virtual ~TsCut() = default;
  // Takes out the frames from `first` up to `last`, which stays. A blank file tests for presence
  // only: no effect, and an error when the service is missing.
  virtual void Cut(const Text& file, std::int64_t first, std::int64_t last) = 0;
};

}  // namespace vantora
