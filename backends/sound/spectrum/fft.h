// The discrete Fourier transform of real signals whose length is a power of two, at least 4. All
// tables are made once with the object; a transform takes no memory.
#pragma once

#include <cstddef>
#include <vector>

namespace vantora {

class RealFft {
 public:
  explicit RealFft(std::size_t size);

  std::size_t Size() const { return size_; }
  std::size_t Bins() const { return size_ / 2 + 1; }  // from 0 Hz to half the sample rate

  // The spectrum of Size() samples, unscaled: a sine of amplitude 1 in the middle of a bin shows
  // there with the magnitude Size() / 2.
  void Forward(const float* samples, float* real, float* imaginary);
  // The samples of a spectrum, scaled so that it undoes Forward. The imaginary parts of the first
  // and the last bin count as 0.
  void Inverse(const float* real, const float* imaginary, float* samples);

 private:
  struct Complex {  // real and imaginary parts apart, for the vector unit
    std::vector<float> Re, Im;
    explicit Complex(std::size_t n) : Re(n), Im(n) {}
  };
  void Transform();  // a_ to its transform, through b_

  std::size_t size_, half_;
  Complex a_, b_;
  Complex turns_;  // e^(-2 pi i k / half), for the stages
  Complex split_;  // e^(-2 pi i k / size), between the half transform and the real one
};

}  // namespace vantora
