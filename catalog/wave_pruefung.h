// Is a file on the disk a wave file that an audio CD can take?
#pragma once

#include "platform/mmtools.h"
#include "platform/plattform.h"

#include <cstdint>

namespace vantora {

// What one look at a file found.
struct WaveBefund {
  bool Gueltig = false;
  double LaengeMs = 0;     // of a valid file; not rounded
  std::int64_t Bytes = 0;  // of a valid file
  Text Datum;              // of its last change
};

// Valid is a file of 44.1 kHz, 16 bit, stereo, writable, with a header that agrees with the file.
// Every error on the way counts as an unusable file.
WaveBefund WavePruefen(Plattform& plattform, MMWave& wave, const Text& datei);
bool CheckWaveValid(Plattform& plattform, MMWave& wave, const Text& datei);

// Length in ms, not rounded. Raises what opening raises.
double WaveLaenge(MMWave& wave, const Text& datei);

}  // namespace vantora
