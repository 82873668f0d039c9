// Is a file on the disk a wave file that an audio CD can take?
#pragma once

#include "platform/mmtools.h"
#include "platform/plattform.h"

namespace vantora {

// 44.1 kHz, 16 bit, stereo, writable, with a header that agrees with the file. Every error on the
// way counts as an unusable file.
bool CheckWaveValid(Plattform& plattform, MMWaveFileX& wave, const Text& datei);

// Length in ms, not rounded. Raises what opening raises.
double WaveLaenge(MMWaveFileX& wave, const Text& datei);

inline constexpr double kFramesJeMs = 44.1;

}  // namespace vantora
