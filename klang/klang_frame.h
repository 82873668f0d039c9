// One frame of sound: one 16-bit sample per channel.
#pragma once

#include "platform/cd_sound.h"

#include <cstdint>

namespace vantora {

struct KlangFrame {
  std::int16_t Links = 0, Rechts = 0;
};
static_assert(sizeof(KlangFrame) == kFrameBytes);

inline constexpr double kFramesJeMs = kSampleRate / 1000.0;

}  // namespace vantora
