// A wave file's sound as a track's source for libburn: read in blocks from the writing thread, in
// whole frames, and nothing of the header.
#pragma once

#include "backends/burn/burn_library.h"

#include "platform/files.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

struct WaveTrack {
  Text File;
  std::int64_t Offset = 0, Bytes = 0;  // of the sound in the file
};

struct FreeSource {
  void operator()(burn_source* source) const { burn_source_free(source); }
};
using SourceHandle = std::unique_ptr<burn_source, FreeSource>;

// Raises 57 for what is no sound of 44.1 kHz, 16 bit, stereo.
WaveTrack LookAtWave(Dateien& files, const Text& file);

// `failed` is called from the writing thread when the file cannot be read to its end; the library
// itself would go on with silence.
SourceHandle WaveSource(Dateien& files, const WaveTrack& track,
                        std::function<void(int number, const Text& text)> failed);

}  // namespace vantora
