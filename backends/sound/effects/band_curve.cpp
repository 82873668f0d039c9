// Each band is a peaking filter with half its gain (in dB) a little outside the band's edges; the
// first band, from 0 Hz, is a shelf. The filters are the usual second-order ones (Bristow-Johnson,
// "Audio EQ cookbook"), designed by the bilinear transform with prewarped edges.
//
// Neighbouring filters overlap, so the gains of the filters differ from the gains set for the
// bands. A filter's gain at another frequency is nearly proportional to its peak gain in dB. The
// peak gains therefore follow from a linear system, and corrections from further ones (Abel and
// Berners, "Filter design using second-order peaking and shelving sections", 2004; Välimäki and
// Liski, "Accurate cascade graphic equalizer", 2017). Here Newton steps use the exact slopes; after
// four steps no error is audible for any settings. Wide filters ripple less between the bands'
// middles, narrow ones need less gain.
#include "backends/sound/effects/band_curve.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vantora {

namespace {

constexpr double kBellWidth = 4.0 / 3;  // relative to the band
constexpr double kShelfQuality = 0.9;
constexpr double kMostTurned = 60;  // dB
constexpr int kSteps = 6;
constexpr double kSlopeStep = 0.05;  // dB
// For overlapping bands the solution is not unique; this term makes it so.
constexpr double kStiffness = 1e-6;

using Row = std::vector<double>;

// Solves a symmetric, positive definite system. The last column of `rows` is its right side.
Row Eliminate(std::vector<Row> rows) {
  const std::size_t n = rows.size();
  for (std::size_t a = 0; a < n; ++a) {
    for (std::size_t b = a + 1; b < n; ++b) {
      const double factor = rows[b][a] / rows[a][a];
      for (std::size_t c = a; c <= n; ++c) rows[b][c] -= factor * rows[a][c];
    }
  }
  Row solution(n);
  for (std::size_t a = n; a-- > 0;) {
    double rest = rows[a][n];
    for (std::size_t b = a + 1; b < n; ++b) rest -= rows[a][b] * solution[b];
    solution[a] = rest / rows[a][a];
  }
  return solution;
}

// The step that reduces the remaining errors most, for these slopes.
Row LeastSquares(const std::vector<Row>& slopes, const Row& rests) {
  const std::size_t n = slopes.size();
  std::vector<Row> rows(n, Row(n + 1));
  for (std::size_t a = 0; a < n; ++a) {
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t b = 0; b < n; ++b) rows[a][b] += slopes[i][a] * slopes[i][b];
      rows[a][n] += slopes[i][a] * rests[i];
    }
    rows[a][a] += kStiffness;
  }
  return Eliminate(std::move(rows));
}

}  // namespace

BandCurve::BandCurve(const std::vector<BandEdges>& bands, double sampleRate) {
  const double highest = 0.499 * sampleRate;
  const auto place = [&](double hertz) {
    return std::tan(std::numbers::pi * std::clamp(hertz, 1.0, highest) / sampleRate);
  };
  for (const BandEdges& band : bands) {
    const double to = std::clamp(band.To, 2.0, highest);
    const double from = std::clamp(band.From, 0.0, to / 1.01);
    const bool shelf = from < 1;
    const double middle = shelf ? to / 2 : std::sqrt(from * to);
    const double low = place(from), high = place(to);
    if (shelf) {
      shapes_.push_back({true, high, kShelfQuality, middle});
    } else {
      const double centre = std::sqrt(low * high);
      shapes_.push_back({false, centre, centre / (high - low) / kBellWidth, middle});
    }
    middles_.push_back(place(middle));
  }
}

double BandCurve::Response(const Shape& shape, double place, double turned) {
  const double a = std::pow(10, turned / 40), x = place * place / (shape.Place * shape.Place);
  const double wide = x / (shape.Quality * shape.Quality);
  if (!shape.Shelf) {
    const double far = (1 - x) * (1 - x);
    return 10 * std::log10((far + a * a * wide) / (far + wide / (a * a)));
  }
  const double above = (a - x) * (a - x) + a * wide;
  const double below = (1 - a * x) * (1 - a * x) + a * wide;
  return 10 * std::log10(a * a * above / below);
}

std::vector<double> BandCurve::Solve(const std::vector<double>& gains) const {
  const std::size_t n = shapes_.size();
  Row turned = gains;
  for (int step = 0; step < kSteps; ++step) {
    Row rests = gains;
    std::vector<Row> slopes(n, Row(n));
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = 0; j < n; ++j) {
        const double now = Response(shapes_[j], middles_[i], turned[j]);
        const double then = Response(shapes_[j], middles_[i], turned[j] + kSlopeStep);
        rests[i] -= now;
        slopes[i][j] = (then - now) / kSlopeStep;
      }
    }
    const Row correction = LeastSquares(slopes, rests);
    for (std::size_t j = 0; j < n; ++j) {
      turned[j] = std::clamp(turned[j] + correction[j], -kMostTurned, kMostTurned);
    }
  }
  return turned;
}

// The state-variable filter of Simper ("Linear trapezoidal integrated state variable filter",
// 2013), with its outputs doubled.
FilterCoefficients BandCurve::Design(std::size_t band, double turned) const {
  const Shape& shape = shapes_[band];
  const double a = std::pow(10, turned / 40);
  const double g = shape.Shelf ? shape.Place / std::sqrt(a) : shape.Place;
  const double k = shape.Shelf ? 1 / shape.Quality : 1 / (shape.Quality * a);
  const double gain = 1 / (1 + g * (g + k));
  FilterCoefficients filter{2 * gain, 2 * g * gain, 2 * g * g * gain, 0, 0};
  filter.Band = shape.Shelf ? k * (a - 1) / 2 : k * (a * a - 1) / 2;
  filter.Low = shape.Shelf ? (a * a - 1) / 2 : 0;
  return filter;
}

}  // namespace vantora
