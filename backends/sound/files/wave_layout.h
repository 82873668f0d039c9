// Where things lie in a wave file. The reading trusts nothing that the file says of itself: sizes
// are cut to what the file holds, the order of chunks does not matter.
#pragma once

#include "platform/files.h"

#include <cstdint>

namespace vantora {

struct WaveLayout {
  int Channels = 0, SampleRate = 0, BitsPerSample = 0;
  int FrameBytes = 0;           // as channels and bits make it, whatever the header says
  std::int64_t DataOffset = 0;  // from the start of the file; the size field is the 4 bytes before
  std::int64_t DataBytes = 0;
  std::int64_t TailOffset = 0;  // everything behind the data, kept as it is
  std::int64_t TailBytes = 0;
};

// Raises error 57 for a file that is no PCM wave file. RF64 counts as such a file.
WaveLayout ReadWaveLayout(Datei& file);

}  // namespace vantora
