// Samples and volume are integers, so the product is exact and is rounded once, ties to even.
#include "backends/sound/effects/volume.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kUnityBits = 14;
constexpr float kUnity = 1U << kUnityBits;

}  // namespace

Volume::Volume() : volume_(kUnity) {}

void Volume::SetVolume(int volume) {
  volume_.To(static_cast<float>(std::clamp(volume, 0, 32767)));
}

void Volume::Clear() {
  volume_.From(kUnity);
}

void Volume::Process(std::int16_t* samples, std::size_t frames) {
  if (volume_.RestsAt(kUnity)) return;
  volume_.Fill(path_.data(), frames);
  for (std::size_t i = 0; i < 2 * frames; ++i) {
    const auto volume = static_cast<std::int16_t>(path_[i / 2]);
    const int product = int{samples[i]} * int{volume};
    const int odd = (product >> kUnityBits) & 1;
    const int rounded = (product + (1 << (kUnityBits - 1)) - 1 + odd) >> kUnityBits;
    samples[i] = static_cast<std::int16_t>(std::clamp(rounded, -32768, 32767));
  }
}

}  // namespace vantora
