// Removes a range of frames from a wave file in place.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class TsCut {
 public:
  virtual ~TsCut() = default;
  // A blank file tests for presence only: no effect, and an error when the service is missing.
  virtual void Cut(const Text& file, std::int64_t fromFrame, std::int64_t frames) = 0;
};

}  // namespace vantora
