#include "backends/sound/cutter.h"

#include "backends/sound/wave_file.h"

#include <algorithm>
#include <vector>

namespace vantora {

void Cutter::Cut(const Text& file, std::int64_t fromFrame, std::int64_t frames) {
  if (file.empty()) return;
  WaveFile wave(dateien_);
  wave.Open(file);
  const std::int64_t total = wave.Samples();
  if (frames <= 0) return;
  if (fromFrame < 0) frames += fromFrame;
  const std::int64_t first = std::max<std::int64_t>(fromFrame, 0);
  if (frames <= 0 || first >= total) return;
  const std::int64_t behind = frames < total - first ? first + frames : total;

  const std::int64_t frameBytes = wave.FrameBytes();
  std::vector<char> block(1U << 20U);
  std::int64_t from = behind * frameBytes, to = first * frameBytes;
  for (;;) {
    wave.SetPosition(from);
    const std::size_t bytes = wave.Read(block.data(), block.size());
    if (bytes == 0) break;
    wave.SetPosition(to);
    wave.Write(block.data(), bytes);
    from += static_cast<std::int64_t>(bytes);
    to += static_cast<std::int64_t>(bytes);
  }
  wave.SetLength(total - (behind - first));
  wave.Close();
}

}  // namespace vantora
