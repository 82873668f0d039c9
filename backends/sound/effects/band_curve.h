// The filters of a graphic equalizer and how far each has to be turned, so that together they do at
// the middle of every band what was set there.
#pragma once

#include <vector>

namespace vantora {

struct BandEdges {
  double From, To;  // Hz
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
  // Frequencies beyond what the rate can carry are brought inside.
  BandCurve(const std::vector<BandEdges>& bands, double sampleRate);

  // What each filter has to be turned to, in dB, for these gains in dB at the middles of the bands.
  // Zeros give zeros.
  std::vector<double> Solve(const std::vector<double>& gains) const;
  FilterCoefficients Design(std::size_t band, double turned) const;
  double Middle(std::size_t band) const { return shapes_[band].Middle; }  // Hz

 private:
  struct Shape {
    bool Shelf;      // everything below its frequency; otherwise a bell
    double Place;    // frequency, as the bilinear transform sees it
    double Quality;  // of a bell that is turned by nothing: place by width
    double Middle;   // Hz
  };
  // What a filter does to a frequency, in dB.
  static double Response(const Shape& shape, double place, double turned);

  std::vector<Shape> shapes_;
  std::vector<double> middles_;  // places of the middles
};

}  // namespace vantora
