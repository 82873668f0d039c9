// FFTW works on memory that it aligns itself, with real and imaginary parts side by side. Copying
// samples and bins to and from that memory takes less time than a plan for any other memory loses.
#include "backends/sound/spectrum/fft.h"

#include <algorithm>
#include <fftw3.h>
#include <mutex>
#include <new>

namespace vantora {

namespace {

// FFTW keeps its knowledge about plans in memory that all threads share, and does not lock it. The
// first plan of a length takes about 1 ms; later plans of the same length take about 20 us.
std::mutex& PlannerLock() {
  static std::mutex lock;
  return lock;
}

}  // namespace

struct RealFft::Plans {
  explicit Plans(std::size_t size)
      : Samples(fftwf_alloc_real(size)), Bins(fftwf_alloc_complex(size / 2 + 1)) {
    if (Samples != nullptr && Bins != nullptr) {
      const std::scoped_lock lock(PlannerLock());
      const int length = static_cast<int>(size);
      Forward = fftwf_plan_dft_r2c_1d(length, Samples, Bins, FFTW_ESTIMATE);
      Inverse = fftwf_plan_dft_c2r_1d(length, Bins, Samples, FFTW_ESTIMATE);
    }
    if (Forward != nullptr && Inverse != nullptr) return;
    Free();
    throw std::bad_alloc();
  }
  ~Plans() { Free(); }
  Plans(const Plans&) = delete;
  Plans& operator=(const Plans&) = delete;

  void Free() {
    const std::scoped_lock lock(PlannerLock());
    fftwf_destroy_plan(Forward);
    fftwf_destroy_plan(Inverse);
    fftwf_free(Samples);
    fftwf_free(Bins);
  }

  float* Samples;
  fftwf_complex* Bins;  // overwritten by Inverse
  fftwf_plan Forward = nullptr, Inverse = nullptr;
};

RealFft::RealFft(std::size_t size) : size_(size), plans_(std::make_unique<Plans>(size)) {}

RealFft::~RealFft() = default;

void RealFft::Forward(const float* samples, float* real, float* imaginary) {
  std::copy_n(samples, size_, plans_->Samples);
  fftwf_execute(plans_->Forward);
  const fftwf_complex* bins = plans_->Bins;
  for (std::size_t k = 0; k < Bins(); ++k) {
    real[k] = bins[k][0];
    imaginary[k] = bins[k][1];
  }
}

void RealFft::Inverse(const float* real, const float* imaginary, float* samples) {
  const float scale = 1 / static_cast<float>(size_);
  fftwf_complex* bins = plans_->Bins;
  for (std::size_t k = 0; k < Bins(); ++k) {
    bins[k][0] = scale * real[k];
    bins[k][1] = scale * imaginary[k];
  }
  bins[0][1] = bins[size_ / 2][1] = 0;
  fftwf_execute(plans_->Inverse);
  std::copy_n(plans_->Samples, size_, samples);
}

}  // namespace vantora
