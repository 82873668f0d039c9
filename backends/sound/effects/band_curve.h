// The filters of a graphic equalizer, and the gain that each filter needs so that together they
// have the gains set at the middle of every band.
#pragma once

#include <vector>

namespace vantora {

struct BandEdges {
  double From, To;  // in Hz
};

// Coefficients of a second-order state-variable filter with the states s and t. For an input x:
//   u = x - t,  p = P * s + Q * u,  t' = t + Q * s + R * u,  s' = p - s,
//   output = x + Band * p + Low * (t + t')
struct FilterCoefficients {
  double P = 0, Q = 0, R = 0, Band = 0, Low = 0;
};

class BandCurve {
 public:
  BandCurve() = default;
  // Frequencies too high for the sample rate are lowered.
  BandCurve(const std::vector<BandEdges>& bands, double sampleRate);

  // The gain of each filter in dB, for these gains in dB at the middles of the bands. Zeros give
  // zeros.
  std::vector<double> Solve(const std::vector<double>& gains) const;
  FilterCoefficients Design(std::size_t band, double turned) const;
  double Middle(std::size_t band) const { return shapes_[band].Middle; }  // Hz

 private:
  struct Shape {
    bool Shelf;      // affects all frequencies below Place; else a peak at it
    double Place;    // frequency, prewarped for the bilinear transform
    double Quality;  // of a peaking filter with a gain of 0 dB: Place divided by width
    double Middle;   // Hz
  };
  // The gain of a filter at a frequency, in dB.
  static double Response(const Shape& shape, double place, double turned);

  std::vector<Shape> shapes_;
  std::vector<double> middles_;  // the bands' middles, prewarped
};

}  // namespace vantora
