// Takes hiss off one channel of music without delay.
//
// What is taken off is the best estimate of the noise that a filter can make which knows the past
// and 16 samples of the future: the Wiener filter with a lag, by spectral factorization of the
// power spectrum (N. Wiener, "Extrapolation, interpolation, and smoothing of stationary time
// series", 1949; the factor from the cepstrum as in A. V. Oppenheim, R. W. Schafer, "Discrete-time
// signal processing"). It leaves tones where they are, in phase as well, which a filter of shortest
// delay with the same response does not. In the middle of a buffer that much future is known; at
// its end it is foretold by an autoregressive model.
//
// The spectrum of the noise comes from NoiseFloor. That of the music is followed with the
// decision-directed rule (Y. Ephraim, D. Malah, "Speech enhancement using a minimum mean-square
// error short-time spectral amplitude estimator", 1984): it moves slowly as long as there is only
// noise, so that no single bin comes up for a moment and sounds, and at once where music begins.
// Both are looked at through a window over the newest 46 ms, whose weight lies near its end.
//
// The level, 0 to 1, says how deep the noise is pressed, 36 dB at 1. The filter does not depend on
// it. At 0 nothing is done.
#pragma once

#include "backends/sound/fft.h"
#include "backends/sound/restoration/ar_model.h"
#include "backends/sound/restoration/noise_floor.h"

#include <cstddef>
#include <vector>

namespace vantora {

class Denoiser {
 public:
  static constexpr std::size_t kBlock = 1024;

  Denoiser();

  // One piece in place, at most kBlock samples in the units of 16 bit.
  std::size_t Process(float level, float* sound, std::size_t count, float* follows,
                      std::size_t following);

 private:
  static constexpr std::size_t kSpan = 2048;
  static constexpr std::size_t kAhead = 16;  // samples of the future that the filter sees
  static constexpr std::size_t kTaps =
      kSpan - kBlock - kAhead;  // behind them, so that a piece fits
  static constexpr std::size_t kBins = kSpan / 2 + 1;

  struct Spectrum {
    std::vector<float> Re, Im;
    Spectrum() : Re(kBins), Im(kBins) {}
  };

  void Foretell();
  void Look();
  void FollowMusic(float seconds);
  void Design();
  void Noise(const Spectrum& filter, std::vector<float>& noise);
  void TakeOff(float* sound, const float* noise, std::size_t count);

  RealFft fft_;
  NoiseFloor floor_;
  ArModel model_;
  std::vector<float> past_;  // the newest samples
  std::vector<float> foretold_;
  std::size_t known_ = 0;  // of these have been heard
  std::size_t fresh_ = 0;  // samples since the last look
  std::vector<float> window_;
  std::vector<float> power_, music_, ratio_;  // as is, of the music, of the music to the noise
  std::vector<float> time_, old_, new_;
  Spectrum work_, factor_, sound_, filter_, former_;
  float share_ = 0;  // of the noise that is taken off
  float usual_ = 0;  // power of noise behind the filter
  float trust_ = 1;  // in what the filter takes for noise, at the end of the last piece
};

}  // namespace vantora
