// The discrete Fourier transform of real signals whose length is a power of two, at least 4, by
// FFTW. Its plans are made once with the object.
#pragma once

#include <cstddef>
#include <memory>

namespace vantora {

class RealFft {
 public:
  explicit RealFft(std::size_t size);
  ~RealFft();

  std::size_t Size() const { return size_; }
  std::size_t Bins() const { return size_ / 2 + 1; }  // from 0 Hz to half the sample rate

  // The spectrum of Size() samples, unscaled: a sine of amplitude 1 in the middle of a bin shows
  // there with the magnitude Size() / 2.
  void Forward(const float* samples, float* real, float* imaginary);
  // The samples of a spectrum, scaled so that it undoes Forward. The imaginary parts of the first
  // and the last bin count as 0.
  void Inverse(const float* real, const float* imaginary, float* samples);

 private:
  struct Plans;

  std::size_t size_;
  std::unique_ptr<Plans> plans_;
};

}  // namespace vantora
