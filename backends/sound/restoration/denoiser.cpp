#include "backends/sound/restoration/denoiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantora {

namespace {

constexpr float kRate = 44100;
constexpr float kDeepest = 36;           // dB, at level 1
constexpr float kMemory = 0.12F;         // seconds for which music found is believed in
constexpr float kExcess = 1.6F;          // the noise's own peaks are noise too
constexpr float kLeastRatio = 0.003F;    // of music to noise
constexpr std::size_t kLookEvery = 512;  // samples, at least
constexpr std::size_t kFade = 256;       // samples from one filter to the next
constexpr std::size_t kOrder = 32;       // of the model that foretells
constexpr std::size_t kModelled = 512;   // samples
constexpr std::size_t kMoment = 32;      // samples
constexpr std::size_t kRise = 1536;      // of the window; the rest falls
constexpr float kMostNoise = 2;  // the power that noise takes on for a moment, beside its usual

float Bell(float x) {  // 0 to 1 for 0 to 1, smooth at both ends
  return 0.5F - 0.5F * std::cos(std::numbers::pi_v<float> * x);
}

float Share(std::size_t part, std::size_t whole) {
  return (static_cast<float>(part) + 0.5F) / static_cast<float>(whole);
}

}  // namespace

Denoiser::Denoiser()
    : fft_(kSpan),
      floor_(kBins),
      model_(kOrder, kModelled),
      past_(kSpan),
      foretold_(kSpan),
      window_(kSpan),
      power_(kBins),
      music_(kBins),
      ratio_(kBins),
      time_(kSpan),
      old_(kSpan),
      new_(kSpan) {
  for (std::size_t i = 0; i < kSpan; ++i) {
    window_[i] = i < kRise ? Bell(Share(i, kRise)) : Bell(Share(kSpan - 1 - i, kSpan - kRise));
  }
}

std::size_t Denoiser::Process(float level, float* sound, std::size_t count, float*, std::size_t) {
  if (count == 0) return 0;
  std::copy(past_.begin() + static_cast<std::ptrdiff_t>(count), past_.end(), past_.begin());
  std::copy_n(sound, count, past_.end() - static_cast<std::ptrdiff_t>(count));
  known_ = std::min(known_ + count, kSpan);
  fresh_ += count;
  const float depth = kDeepest * std::clamp(level, 0.0F, 1.0F);
  const float former = share_;
  share_ = level > 0 ? 1 - std::pow(10.0F, -depth / 20) : 0;
  former_ = filter_;
  if (fresh_ >= kLookEvery) {
    Look();
    fresh_ = 0;
  }
  if (former == 0 && share_ == 0) return 0;
  Foretell();
  fft_.Forward(foretold_.data(), sound_.Re.data(), sound_.Im.data());
  Noise(former_, old_);
  Noise(filter_, new_);
  const std::size_t begin = kSpan - kAhead - count, fade = std::min(kFade, count);
  for (std::size_t i = 0; i < fade; ++i) {
    const float x = Bell(Share(i, fade));
    new_[begin + i] = (1 - x) * former * old_[begin + i] + x * share_ * new_[begin + i];
  }
  for (std::size_t i = fade; i < count; ++i) new_[begin + i] *= share_;
  TakeOff(sound, new_.data() + begin, count);
  return 0;
}

// The past, and a little future as far as it follows from it.
void Denoiser::Foretell() {
  std::copy(past_.begin() + kAhead, past_.end(), foretold_.begin());
  float* const modelled = foretold_.data() + (kSpan - kAhead - kModelled);
  model_.Fit(modelled, kModelled);
  model_.Fill(modelled, kModelled, kAhead, kModelled + kAhead);
}

// What looks like more than noise can be is the beginning of a sound that the filter does not know
// yet: of that no more is taken off than noise would be.
void Denoiser::TakeOff(float* sound, const float* noise, std::size_t count) {
  const float most = kMostNoise * share_ * share_ * usual_;
  for (std::size_t from = 0; from < count; from += kMoment) {
    const std::size_t moment = std::min(kMoment, count - from);
    float power = 0;
    for (std::size_t i = from; i < from + moment; ++i) power += noise[i] * noise[i];
    power /= static_cast<float>(moment);
    const float trust = power > most ? std::sqrt(most / power) : 1;
    const float step = (trust - trust_) / static_cast<float>(moment);
    for (std::size_t i = 0; i < moment; ++i) {
      const float now = trust_ + step * static_cast<float>(i + 1);
      sound[from + i] -= now * noise[from + i];
    }
    trust_ = trust;
  }
}

void Denoiser::Look() {
  std::fill(time_.begin(), time_.end(), 0.0F);
  const std::size_t begin = kSpan - known_;
  float weight = 0;
  for (std::size_t i = begin; i < kSpan; ++i) {
    const float w = window_[(i - begin) * kSpan / known_];
    time_[i] = w * past_[i];
    weight += w * w;
  }
  fft_.Forward(time_.data(), work_.Re.data(), work_.Im.data());
  const float scale = 1 / weight;
  for (std::size_t k = 0; k < kBins; ++k) {
    power_[k] = scale * (work_.Re[k] * work_.Re[k] + work_.Im[k] * work_.Im[k]);
  }
  const float seconds = static_cast<float>(fresh_) / kRate;
  floor_.Hear(power_.data(), seconds);
  FollowMusic(seconds);
  Design();
}

void Denoiser::FollowMusic(float seconds) {
  const float* const noise = floor_.Power();
  const float keep = std::exp(-seconds / kMemory);
  for (std::size_t k = 0; k < kBins; ++k) {
    const float around =
        0.25F * (power_[k > 0 ? k - 1 : 1] + 2 * power_[k] + power_[k + 1 < kBins ? k + 1 : k - 1]);
    const float usual = kExcess * noise[k];
    const float found = std::max(around / usual - 1, 0.0F);
    const float ratio = std::max(keep * music_[k] / usual + (1 - keep) * found, kLeastRatio);
    const float gain = ratio / (1 + ratio);
    ratio_[k] = ratio;
    music_[k] = gain * gain * power_[k];
  }
}

// With P the power spectrum of noise and music and P = F F* the factor F that is causal, as its
// inverse is, the filter is [N / F*] / F, N the noise's spectrum, [] the part from time -kAhead on.
void Denoiser::Design() {
  const float* const noise = floor_.Power();
  for (std::size_t k = 0; k < kBins; ++k) {
    power_[k] = kExcess * noise[k] * (1 + ratio_[k]);
    work_.Re[k] = 0.5F * std::log(power_[k]);
    work_.Im[k] = 0;
  }
  fft_.Inverse(work_.Re.data(), work_.Im.data(), time_.data());
  for (std::size_t i = 1; i < kSpan / 2; ++i) {
    time_[i] *= 2;
    time_[kSpan - i] = 0;
  }
  fft_.Forward(time_.data(), work_.Re.data(), work_.Im.data());
  for (std::size_t k = 0; k < kBins; ++k) {
    const float magnitude = 1 / std::sqrt(power_[k]), share = 1 / (1 + ratio_[k]);
    factor_.Re[k] = magnitude * std::cos(work_.Im[k]);  // 1 / F*
    factor_.Im[k] = magnitude * std::sin(work_.Im[k]);
    const float n = share * power_[k];
    work_.Re[k] = n * factor_.Re[k];
    work_.Im[k] = n * factor_.Im[k];
  }
  fft_.Inverse(work_.Re.data(), work_.Im.data(), time_.data());
  std::fill(time_.begin() + kSpan / 2, time_.end() - kAhead, 0.0F);
  fft_.Forward(time_.data(), work_.Re.data(), work_.Im.data());
  usual_ = 0;
  for (std::size_t k = 0; k < kBins; ++k) {
    const float re = work_.Re[k], im = work_.Im[k];
    work_.Re[k] = re * factor_.Re[k] + im * factor_.Im[k];
    work_.Im[k] = im * factor_.Re[k] - re * factor_.Im[k];
    usual_ += noise[k] * (work_.Re[k] * work_.Re[k] + work_.Im[k] * work_.Im[k]);
  }
  usual_ /= static_cast<float>(kBins);
  fft_.Inverse(work_.Re.data(), work_.Im.data(), time_.data());
  for (std::size_t i = kTaps / 2; i < kTaps; ++i) time_[i] *= Bell(2 * Share(kTaps - 1 - i, kTaps));
  std::fill(time_.begin() + kTaps, time_.end() - kAhead, 0.0F);
  fft_.Forward(time_.data(), filter_.Re.data(), filter_.Im.data());
}

// The kBlock samples of `noise` before the foretold ones count; the others are what a circle makes
// of the past.
void Denoiser::Noise(const Spectrum& filter, std::vector<float>& noise) {
  for (std::size_t k = 0; k < kBins; ++k) {
    work_.Re[k] = sound_.Re[k] * filter.Re[k] - sound_.Im[k] * filter.Im[k];
    work_.Im[k] = sound_.Re[k] * filter.Im[k] + sound_.Im[k] * filter.Re[k];
  }
  fft_.Inverse(work_.Re.data(), work_.Im.data(), noise.data());
}

}  // namespace vantora
