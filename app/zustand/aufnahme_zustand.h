// The mode in which the recorder is opened.
#pragma once

#include <cstdint>

namespace vantora {

struct AufnahmeZustand {
  std::int16_t LPModus = 0;  // -1: to copy a whole record
};

}  // namespace vantora
