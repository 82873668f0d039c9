// One frame of sound: one 16-bit sample per channel.
#pragma once

#include <cstdint>

namespace vantora {

struct KlangFrame {
  std::int16_t Links = 0, Rechts = 0;
};

}  // namespace vantora
