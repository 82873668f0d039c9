// Removes a range of frames from a wave file in place.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class TsCut {
 public:
  virtual ~TsCut() = default;
  // Removes the frames from `first` up to, but not including, `last`. Raises the errors of MMWave.
  // A blank file only tests whether the service is present: nothing changes, and a missing service
  // raises.
  virtual void Cut(const Text& file, std::int64_t first, std::int64_t last) = 0;
};

}  // namespace vantora
