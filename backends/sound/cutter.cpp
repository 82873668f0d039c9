#include "backends/sound/cutter.h"

#include "backends/sound/wave_file.h"

#include <algorithm>
#include <vector>

namespace vantora {

namespace {

// Small enough to stay in the processor's own memory between reading and writing.
constexpr std::size_t kBlock = 1U << 18U;

}  // namespace

void Cutter::Cut(const Text& file, std::int64_t first, std::int64_t last) {
  if (file.empty()) return;
  WaveFile wave(dateien_);
  wave.Open(file);
  const std::int64_t total = wave.Samples();
  const std::int64_t start = std::max<std::int64_t>(first, 0);
  const std::int64_t behind = std::min(last, total);
  if (start >= behind) return;

  const std::int64_t frameBytes = wave.FrameBytes();
  std::vector<char> block(kBlock);
  std::int64_t from = behind * frameBytes, to = start * frameBytes;
  for (;;) {
    wave.SetPosition(from);
    const std::size_t bytes = wave.Read(block.data(), block.size());
    if (bytes == 0) break;
    wave.SetPosition(to);
    wave.Write(block.data(), bytes);
    from += static_cast<std::int64_t>(bytes);
    to += static_cast<std::int64_t>(bytes);
  }
  wave.SetLength(total - (behind - start));
  wave.Close();
}

}  // namespace vantora
