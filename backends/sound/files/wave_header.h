// The 44 bytes in front of the sound in a plain wave file of 44.1 kHz, 16 bit, stereo.
#pragma once

#include "platform/files.h"

#include <array>
#include <cstdint>

namespace vantora {

constexpr std::int64_t kWaveHeaderBytes = 44;
// The largest value of the 32-bit sizes of a wave file; longer sound raises error 61.
constexpr std::int64_t kMaxWaveFileBytes = 0xFFFFFFFFLL;

using WaveHeader = std::array<unsigned char, kWaveHeaderBytes>;

WaveHeader MakeWaveHeader(std::int64_t dataBytes);
// Writes the header to the start of the file and leaves the position behind it.
void WriteWaveHeader(Datei& file, std::int64_t dataBytes);

}  // namespace vantora
