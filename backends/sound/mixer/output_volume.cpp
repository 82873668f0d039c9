#include "backends/sound/mixer/output_volume.h"

#include <cmath>

namespace vantora {

double OutputVolume::Gain() const {
  if (!on_) return 0;
  const double share = static_cast<double>(volume_) / kFullVolume;
  return share * share * share;
}

void VolumeOnStream::Apply(std::int16_t* stereo, std::size_t frames) {
  const double from = gain_, to = volume_.Gain();
  gain_ = to;
  if (from == 1 && to == 1) return;
  for (std::size_t i = 0; i < frames; ++i) {
    const double share = static_cast<double>(i + 1) / static_cast<double>(frames);
    const double gain = from + (to - from) * share;
    for (std::size_t side = 0; side < 2; ++side) {
      std::int16_t& sample = stereo[2 * i + side];
      sample = static_cast<std::int16_t>(std::nearbyint(sample * gain));
    }
  }
}

}  // namespace vantora
