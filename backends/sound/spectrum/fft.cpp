// A real signal of N samples is transformed as a complex one of N / 2, its even samples as real and
// its odd ones as imaginary parts (Cooley, Lewis, Welch 1970). The complex transform is Stockham's:
// stages of radix 4, in the end perhaps one of radix 2, go from one array to the other and leave
// everything in order, so that there is no shuffling and every inner loop runs through memory.
#include "backends/sound/spectrum/fft.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace vantora {

namespace {

struct Side {
  const float* FromRe;
  const float* FromIm;
  float* ToRe;
  float* ToIm;
};

struct Turn {
  float Re, Im;
};

// One block of a radix-4 stage: quarters that lie `apart` from each other, `run` values each.
void Four(const Side& side, std::size_t apart, std::size_t run, Turn w1, Turn w2, Turn w3) {
  const float* __restrict xr = side.FromRe;
  const float* __restrict xi = side.FromIm;
  float* __restrict yr = side.ToRe;
  float* __restrict yi = side.ToIm;
  for (std::size_t q = 0; q < run; ++q) {
    const float ar = xr[q], ai = xi[q];
    const float br = xr[q + apart], bi = xi[q + apart];
    const float cr = xr[q + 2 * apart], ci = xi[q + 2 * apart];
    const float dr = xr[q + 3 * apart], di = xi[q + 3 * apart];
    const float sumR = ar + cr, sumI = ai + ci, difR = ar - cr, difI = ai - ci;
    const float oddR = br + dr, oddI = bi + di, crossR = bi - di, crossI = dr - br;
    yr[q] = sumR + oddR;
    yi[q] = sumI + oddI;
    const float r1 = difR + crossR, i1 = difI + crossI;
    yr[q + run] = r1 * w1.Re - i1 * w1.Im;
    yi[q + run] = r1 * w1.Im + i1 * w1.Re;
    const float r2 = sumR - oddR, i2 = sumI - oddI;
    yr[q + 2 * run] = r2 * w2.Re - i2 * w2.Im;
    yi[q + 2 * run] = r2 * w2.Im + i2 * w2.Re;
    const float r3 = difR - crossR, i3 = difI - crossI;
    yr[q + 3 * run] = r3 * w3.Re - i3 * w3.Im;
    yi[q + 3 * run] = r3 * w3.Im + i3 * w3.Re;
  }
}

void Two(const Side& side, std::size_t run) {
  const float* __restrict xr = side.FromRe;
  const float* __restrict xi = side.FromIm;
  float* __restrict yr = side.ToRe;
  float* __restrict yi = side.ToIm;
  for (std::size_t q = 0; q < run; ++q) {
    yr[q] = xr[q] + xr[q + run];
    yi[q] = xi[q] + xi[q + run];
    yr[q + run] = xr[q] - xr[q + run];
    yi[q + run] = xi[q] - xi[q + run];
  }
}

}  // namespace

RealFft::RealFft(std::size_t size)
    : size_(size), half_(size / 2), a_(half_), b_(half_), turns_(half_), split_(half_) {
  const double step = -2 * std::numbers::pi / static_cast<double>(size);
  for (std::size_t k = 0; k < half_; ++k) {
    const double angle = step * static_cast<double>(k);
    split_.Re[k] = static_cast<float>(std::cos(angle));
    split_.Im[k] = static_cast<float>(std::sin(angle));
    turns_.Re[k] = static_cast<float>(std::cos(2 * angle));
    turns_.Im[k] = static_cast<float>(std::sin(2 * angle));
  }
}

void RealFft::Transform() {
  std::size_t length = half_, run = 1;
  const auto turn = [&](std::size_t k) { return Turn{turns_.Re[k], turns_.Im[k]}; };
  for (; length >= 4; length /= 4, run *= 4) {
    const std::size_t quarter = length / 4;
    for (std::size_t p = 0; p < quarter; ++p) {
      const std::size_t from = run * p, to = 4 * run * p;
      Four({&a_.Re[from], &a_.Im[from], &b_.Re[to], &b_.Im[to]}, run * quarter, run, turn(run * p),
           turn(2 * run * p), turn(3 * run * p));
    }
    std::swap(a_, b_);
  }
  if (length == 2) {
    Two({a_.Re.data(), a_.Im.data(), b_.Re.data(), b_.Im.data()}, run);
    std::swap(a_, b_);
  }
}

void RealFft::Forward(const float* samples, float* real, float* imaginary) {
  for (std::size_t k = 0; k < half_; ++k) {
    a_.Re[k] = samples[2 * k];
    a_.Im[k] = samples[2 * k + 1];
  }
  Transform();
  real[0] = a_.Re[0] + a_.Im[0];
  real[half_] = a_.Re[0] - a_.Im[0];
  imaginary[0] = imaginary[half_] = 0;
  for (std::size_t k = 1; k < half_; ++k) {
    const float evenR = a_.Re[k] + a_.Re[half_ - k], evenI = a_.Im[k] - a_.Im[half_ - k];
    const float oddR = a_.Im[k] + a_.Im[half_ - k], oddI = a_.Re[half_ - k] - a_.Re[k];
    real[k] = 0.5F * (evenR + oddR * split_.Re[k] - oddI * split_.Im[k]);
    imaginary[k] = 0.5F * (evenI + oddR * split_.Im[k] + oddI * split_.Re[k]);
  }
}

// The half transform backwards is the forward one with real and imaginary parts exchanged.
void RealFft::Inverse(const float* real, const float* imaginary, float* samples) {
  const float scale = 0.5F / static_cast<float>(half_);
  a_.Im[0] = scale * (real[0] + real[half_]);
  a_.Re[0] = scale * (real[0] - real[half_]);
  for (std::size_t k = 1; k < half_; ++k) {
    const float evenR = real[k] + real[half_ - k], evenI = imaginary[k] - imaginary[half_ - k];
    const float difR = real[k] - real[half_ - k], difI = imaginary[k] + imaginary[half_ - k];
    const float oddR = difR * split_.Re[k] + difI * split_.Im[k];
    const float oddI = difI * split_.Re[k] - difR * split_.Im[k];
    a_.Im[k] = scale * (evenR - oddI);
    a_.Re[k] = scale * (evenI + oddR);
  }
  Transform();
  for (std::size_t k = 0; k < half_; ++k) {
    samples[2 * k] = a_.Im[k];
    samples[2 * k + 1] = a_.Re[k];
  }
}

}  // namespace vantora
