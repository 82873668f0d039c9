#include "backends/sound/spectrum/spectrum.h"

#include "backends/sound/spectrum/fft.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace vantora {

namespace {

constexpr double kFullScale = 32768;
constexpr double kSilence = 1e-10;         // share of full scale, far below one step of 16 bits
constexpr double kMeanOfWindow = 0.35875;  // mean weight of the Blackman-Harris window
constexpr double kHarmonics[] = {0.48829, 0.14128, 0.01168};

std::vector<float> Window(int size) {
  std::vector<float> weights;
  for (int i = 0; i < size; ++i) {
    const double turn = 2 * std::numbers::pi * i / size;
    weights.push_back(static_cast<float>(kMeanOfWindow - kHarmonics[0] * std::cos(turn) +
                                         kHarmonics[1] * std::cos(2 * turn) -
                                         kHarmonics[2] * std::cos(3 * turn)));
  }
  return weights;
}

}  // namespace

void Spectrum::Transform(const std::int16_t* samples, int blocks, int blockSize, int channels) {
  levels_.clear();
  blocks_ = 0;
  if (blocks < 1 || channels < 1 || blockSize < 4) return;
  const auto size = static_cast<std::size_t>(blockSize);
  if (!std::has_single_bit(size)) return;

  RealFft fft(size);
  const std::vector<float> window = Window(blockSize);
  std::vector<float> block(size), real(fft.Bins()), imaginary(fft.Bins());
  const auto weight = static_cast<float>(kMeanOfWindow * blockSize);
  const double sine = kFullScale * kMeanOfWindow * blockSize / 2;  // magnitude of 0 dB
  const auto step = static_cast<std::size_t>(channels);
  levels_.reserve(static_cast<std::size_t>(blocks) * fft.Bins());
  for (int b = 0; b < blocks; ++b, samples += size * step) {
    // The mean is weighted by the window. A plain mean would leave a trace of every tone, as a
    // spike at 0 Hz.
    float sum = 0;
    for (std::size_t i = 0; i < size; ++i) sum += samples[i * step] * window[i];
    const float mean = sum / weight;
    for (std::size_t i = 0; i < size; ++i) block[i] = (samples[i * step] - mean) * window[i];
    fft.Forward(block.data(), real.data(), imaginary.data());
    for (std::size_t k = 0; k < fft.Bins(); ++k) {
      const double share = std::hypot(real[k], imaginary[k]) / sine;
      levels_.push_back(static_cast<float>(20 * std::log10(std::max(share, kSilence))));
    }
  }
  blocks_ = blocks;
  bins_ = static_cast<int>(fft.Bins());
  blockMs_ = blockSize * 1000.0 / kSampleRate;
  binHertz_ = double{kSampleRate} / blockSize;
}

float Spectrum::Highest() const {
  float highest = static_cast<float>(20 * std::log10(kSilence));
  for (const float level : levels_) highest = std::max(highest, level);
  return highest;
}

}  // namespace vantora
