// The spectrum of the steady noise under music, followed from power spectra that come at any pace.
//
// Two things tell hiss from music. It is smooth over the frequencies while music has peaks and gaps
// between them: so a band counts with a low quantile of its bins, which a held tone does not touch.
// And it is always there while music pauses somewhere: so over time the minimum of some seconds
// counts (R. Martin, "Noise power spectral density estimation based on optimal smoothing and
// minimum statistics", 2001). The quantile makes a usable estimate of the very first spectrum.
//
// After a fade-in or a change of the record those minima are of another noise. Where nearly all
// bands have been steady for a third of a second, and their bins spread as those of noise do, what
// is heard is the hiss itself, and its level is taken over at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantora {

class NoiseFloor {
 public:
  explicit NoiseFloor(std::size_t bins);

  // A spectrum, `seconds` after the one before.
  void Hear(const float* power, float seconds);

  const float* Power() const { return power_.data(); }  // for each bin; 0 before anything was heard

 private:
  static constexpr std::size_t kPeriods = 8;  // of which the minima are kept

  struct Band {
    std::size_t First, Count;
    float Smooth = 0;
    std::array<float, kPeriods> Least{};  // of each period; the newest at period_
    float Level = 0;
    float Steepest = 0;  // of a hiss that was heard alone: its level to that of the band above
    // Of the look at steadiness: the range and the sum of Smooth, and of the mean to it.
    float Low = 0, High = 0, Sum = 0, Spread = 0;
  };

  float Quantile(const Band& band, const float* power);
  void Watch(Band& band, const float* power);
  void TakeOver();
  void Spread();

  std::vector<Band> bands_;
  std::vector<std::int32_t> bits_;
  std::vector<float> power_;
  float heard_ = 0, inPeriod_ = 0, watched_ = 0;  // seconds
  std::size_t period_ = 0, looks_ = 0;
};

}  // namespace vantora
