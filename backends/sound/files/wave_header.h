// The header of 44 bytes of a plain wave file of 44.1 kHz, 16 bit, stereo.
#pragma once

#include "platform/files.h"

#include <array>
#include <cstdint>

namespace vantora {

constexpr std::int64_t kWaveHeaderBytes = 44;
// The limit of a wave file's 32-bit sizes. Longer sound raises 61.
constexpr std::int64_t kMaxWaveFileBytes = 0xFFFFFFFFLL;

using WaveHeader = std::array<unsigned char, kWaveHeaderBytes>;

WaveHeader MakeWaveHeader(std::int64_t dataBytes);
// Writes the header at the start of the file and leaves the position after it.
void WriteWaveHeader(Datei& file, std::int64_t dataBytes);

}  // namespace vantora
