// Each band is a bell, half as high (in dB) a little beyond its edges as in its middle, the first
// one, from 0 Hz, a shelf: the second-order filters of the usual catalogue (Bristow-Johnson, "Audio
// EQ cookbook"), placed by the bilinear transform with edges bent beforehand.
//
// Neighbours reach into each other's middles, so a set of sliders is not yet a set of filters. How
// far a bell reaches is nearly in proportion to its height in dB; that makes the heights that are
// needed the solution of a linear system, and of the small rest another one (Abel and Berners,
// "Filter design using second-order peaking and shelving sections", 2004; Välimäki and Liski,
// "Accurate cascade graphic equalizer", 2017). Here Newton's steps use the true slopes; four leave
// nothing to hear, whatever the sliders say. Wide bells ripple less between the middles, narrow
// ones need less height.
#include "backends/sound/effects/band_curve.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vantora {

namespace {

constexpr double kBellWidth = 4.0 / 3;  // of the band
constexpr double kShelfQuality = 0.9;
constexpr double kMostTurned = 60;  // dB
constexpr int kSteps = 6;
constexpr double kSlopeStep = 0.05;  // dB
// Bands that cover each other leave it open which of them is turned; this settles it.
constexpr double kStiffness = 1e-6;

using Row = std::vector<double>;

// Solves the symmetric, positive definite system whose right side is the rows' last column.
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

// The step that brings the rests down most, for these slopes.
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
