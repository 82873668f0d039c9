// Sound as the whole program has it: 44.1 kHz, 16 bit, stereo.
#pragma once

#include <cstdint>

namespace vantora {

// A sample for each ear.
struct KlangFrame {
  std::int16_t Links = 0, Rechts = 0;
};

inline constexpr std::int32_t kFrameBytes = sizeof(KlangFrame);
inline constexpr int kBits = 16, kKanaele = 2;
inline constexpr int kRate = 44100;  // frames a second
inline constexpr double kFramesJeMs = kRate / 1000.0;

}  // namespace vantora
