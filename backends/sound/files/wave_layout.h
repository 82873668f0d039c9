// Finds the parts of a wave file. Sizes in the file are limited to what the file really contains,
// and chunks may come in any order.
#pragma once

#include "platform/files.h"

#include <cstdint>

namespace vantora {

struct WaveLayout {
  int Channels = 0, SampleRate = 0, BitsPerSample = 0;
  int FrameBytes = 0;           // computed from channels and bits, not from the header
  std::int64_t DataOffset = 0;  // from the start of the file; the size field is just before
  std::int64_t DataBytes = 0;
  std::int64_t TailOffset = 0;  // of everything after the data, which is kept unchanged
  std::int64_t TailBytes = 0;
};

// Raises 57 for a file that is not a PCM wave, RF64 included.
WaveLayout ReadWaveLayout(Datei& file);

}  // namespace vantora
