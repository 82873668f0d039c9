#include "backends/sound/edits/cutter.h"

#include "backends/sound/files/wave_file.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {}  // namespace

void Cutter::Cut(const Text& file, std::int64_t first, std::int64_t last) {
  if (file.empty()) return;
  WaveFile wave(dateien_);
  wave.Open(file);
  const std::int64_t bytes = wave.DataBytes(), total = bytes / kFrameBytes;
  wave.Close();
  const std::int64_t start = std::max<std::int64_t>(first, 0);
  const std::int64_t behind = std::min(last, total);
  if (start >= behind) return;
  WaveEdit cut{file, bytes, (total - (behind - start)) * kFrameBytes, {}};
  cut.Steps.push_back(
      MoveStep(behind * kFrameBytes, start * kFrameBytes, (total - behind) * kFrameBytes));
  edits_.Apply({{cut}, {}});
}

}  // namespace vantora
