// One frame of sound: a sample of 16 bits for each ear.
#pragma once

#include <cstdint>

namespace vantora {

struct KlangFrame {
  std::int16_t Links = 0, Rechts = 0;
};

}  // namespace vantora
