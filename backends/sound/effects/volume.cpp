#include "backends/sound/effects/volume.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr float kUnity = 16384;

}  // namespace

Volume::Volume() : volume_(kUnity) {}

void Volume::SetVolume(int volume) {
  volume_.To(static_cast<float>(std::clamp(volume, 0, 32767)));
}

void Volume::Clear() {
  volume_.From(kUnity);
}

void Volume::Process(float* samples, std::size_t frames) {
  if (volume_.RestsAt(kUnity)) return;
  volume_.Fill(path_.data(), frames);
  for (std::size_t i = 0; i < 2 * frames; ++i) samples[i] *= path_[i / 2] / kUnity;
}

}  // namespace vantora
