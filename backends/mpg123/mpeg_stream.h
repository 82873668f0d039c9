// Decodes an MPEG audio file with libmpg123: its length, and its sound block by block.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace vantora {

constexpr int kFehlerKeinMpeg = 321;  // the file has a wrong format

struct MpegLength {
  std::int64_t frames = 0;   // MPEG frames in the file
  std::int64_t samples = 0;  // per channel, at `rate`, without the encoder's padding
  long rate = 0;             // Hz
};

struct MpegBlock {
  const void* sound = nullptr;  // interleaved stereo; valid until the next call
  std::size_t bytes = 0;
  long rate = 0;           // 44100: 16-bit integers; else 32-bit floats of -1 to 1
  std::int64_t frame = 0;  // number in the file, from 1
};

class MpegStream {
 public:
  // Raises the errors of Dateien::Open, and 321 for a file without MPEG audio.
  MpegStream(Dateien& dateien, const Text& path);
  ~MpegStream();

  // Counts the file's frames by scanning it.
  static MpegLength Measure(Dateien& dateien, const Text& path);

  // Returns the next block, which may be empty; nothing at the end. Data in the file that is not
  // MPEG audio is skipped. Raises the errors of reading the file.
  std::optional<MpegBlock> Next();

 private:
  MpegLength MeasureRun();  // of the run just opened

  struct Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace vantora
