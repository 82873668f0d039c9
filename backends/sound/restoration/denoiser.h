// Takes hiss off one channel of music, in overlapping spectra.
//
// Each spectrum covers 46 ms, mostly of the past, but changes only the newest 12 ms (D. Mauler, R.
// Martin, "A low delay, variable resolution, perfect reconstruction spectral analysis-synthesis
// system for speech enhancement", 2007). The long window separates close tones. The short one keeps
// the reduction before an attack out of the attack. For the newest samples the filter also reads
// the 512 samples that follow.
//
// The spectrum of the noise comes from NoiseFloor. That of the music is followed with the
// decision-directed rule (Y. Ephraim, D. Malah, "Speech enhancement using a minimum mean-square
// error short-time spectral amplitude estimator", 1984): it moves slowly as long as there is only
// noise, so that no single bin comes up for a moment and sounds. Where a whole neighbourhood of
// bins rises above the noise, a sound begins, and it is believed at once.
//
// The level, 0 to 1, says how deep the noise is pressed: 17 dB at 0.2, 48 dB at 1. At 0 nothing is
// done.
#pragma once

#include "backends/sound/restoration/noise_floor.h"
#include "backends/sound/spectrum/fft.h"

#include <cstddef>
#include <vector>

namespace vantora {

class Denoiser {
 public:
  static constexpr std::size_t kBlock = 1024;

  Denoiser();

  // One piece in place, at most kBlock samples in the units of 16 bit, and what follows it. None of
  // what follows is changed.
  std::size_t Process(float level, float* sound, std::size_t count, const float* follows,
                      std::size_t following);

 private:
  static constexpr std::size_t kSpan = 2048;
  static constexpr std::size_t kHop = 256;
  static constexpr std::size_t kSpoken = 2 * kHop;  // the newest samples, for which a spectrum is
  static constexpr std::size_t kBins = kSpan / 2 + 1;
  static constexpr std::size_t kAround = 8;  // bins on each side that rise when a sound begins

  void Take(const float* sound, std::size_t count, const float* follows, std::size_t following);
  void Frame(float least);
  void Listen(const float* newest);
  void FindGains(float least);

  RealFft fft_;
  NoiseFloor floor_;
  std::vector<float> window_, spoken_;  // of looking, and of putting together
  float weight_ = 0;                    // the sum of the squares of the first
  std::vector<float> sound_;  // kSpan samples of the past, the piece, what follows, and zeros
  std::vector<float> out_;    // what has been put together, from the piece on
  std::size_t next_ = kHop;   // where the next spectrum ends, from the piece on
  bool stale_ = true;         // what has been put together is not of this sound
  std::size_t loud_ = 0;      // samples since the last digital silence
  std::vector<float> time_, real_, imaginary_, power_, around_, rise_, gain_, music_;
};

}  // namespace vantora
