// Checks whether a file is a wave file that an audio CD can take.
#pragma once

#include "platform/mmtools.h"
#include "platform/plattform.h"

#include <cstdint>

namespace vantora {

// The result of one examination of a file.
struct WaveBefund {
  bool Gueltig = false;
  double LaengeMs = 0;     // of a valid file; not rounded
  std::int64_t Bytes = 0;  // of a valid file
  Text Datum;              // time stamp of the file
};

// A valid file has 44.1 kHz, 16 bit, stereo, is writable, and has a header that agrees with the
// file. Every error while checking counts as an unusable file.
WaveBefund WavePruefen(Plattform& plattform, MMWave& wave, const Text& datei);
bool CheckWaveValid(Plattform& plattform, MMWave& wave, const Text& datei);

// Returns the length in ms, not rounded. Raises the errors of opening.
double WaveLaenge(MMWave& wave, const Text& datei);

}  // namespace vantora
