#include "backends/sound/spectrum/fft.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace vantora::test {

TEST(RealFft, ItAgreesWithTheSumThatDefinesItAndTheWayBackLeadsHome) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> value(-1, 1);
  for (std::size_t size = 4; size <= 4096; size *= 2) {
    SCOPED_TRACE(size);
    RealFft fft(size);
    std::vector<float> samples(size), real(fft.Bins()), imaginary(fft.Bins()), back(size);
    for (float& sample : samples) sample = value(random);
    fft.Forward(samples.data(), real.data(), imaginary.data());
    double worst = 0;
    for (std::size_t k = 0; k < fft.Bins(); k += 1 + size / 256) {
      std::complex<double> sum = 0;
      for (std::size_t n = 0; n < size; ++n) {
        const auto turn = static_cast<double>(n * k % size) / static_cast<double>(size);
        sum += std::polar(double{samples[n]}, -2 * std::numbers::pi * turn);
      }
      worst = std::max(worst, std::abs(sum - std::complex<double>(real[k], imaginary[k])));
    }
    EXPECT_LT(worst, 1e-6 * static_cast<double>(size) + 1e-5);
    fft.Inverse(real.data(), imaginary.data(), back.data());
    for (std::size_t n = 0; n < size; ++n) ASSERT_NEAR(back[n], samples[n], 2e-6) << n;
  }
}

}  // namespace vantora::test
