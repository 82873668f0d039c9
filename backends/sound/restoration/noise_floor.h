// The spectrum of the steady noise under music, followed from power spectra that come at any pace.
//
// Two things tell hiss from music. It is smooth over the frequencies while music has peaks and gaps
// between them: so a band counts with a low quantile of its bins, which a held tone does not touch.
// And it is always there while music pauses somewhere: so over time the minimum of some seconds
// counts (R. Martin, "Noise power spectral density estimation based on optimal smoothing and
// minimum statistics", 2001). The quantile makes a usable estimate of the very first spectrum.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace vantora {

class NoiseFloor {
 public:
  explicit NoiseFloor(std::size_t bins);

  // A spectrum, `seconds` after the one before.
  void Hear(const float* power, float seconds);

  const float* Power() const { return power_.data(); }  // for each bin; 0 before anything was heard

 private:
  static constexpr std::size_t kBands = 32;
  static constexpr std::size_t kPeriods = 8;  // of which the minima are kept

  struct Band {
    std::size_t First, Count;
    float Smooth = 0;
    std::array<float, kPeriods> Least{};  // of each period; the newest at period_
    float Level = 0;
  };

  float Quantile(const Band& band, const float* power);
  void Smooth(Band& band, float now, float keep);
  void Spread();

  std::vector<Band> bands_;
  std::vector<float> sorted_, power_;
  float heard_ = 0, inPeriod_ = 0;  // seconds
  std::size_t period_ = 0;
};

}  // namespace vantora
