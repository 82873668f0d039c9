#include "backends/sound/restoration/denoiser.h"

#include "backends/sound/edits/vector_unit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantora {

namespace {

constexpr float kRate = 44100;
constexpr float kDeepest = 48, kBend = 0.64F;  // dB at level 1; the power of the level
constexpr float kKeep = 0.97F;                 // of the music found, from spectrum to spectrum
constexpr float kExcess = 1.1F;                // the noise's own peaks are noise too
constexpr float kLeastRatio = 0.002F;          // of music to noise
constexpr float kRise = 1.6F, kRisen = 1.2F;   // times the noise, where a sound begins; and more

float Quarter(std::size_t part, std::size_t whole) {  // 0 to 1, a quarter of a sine
  return std::sin(0.5F * std::numbers::pi_v<float> * (static_cast<float>(part) + 0.5F) /
                  static_cast<float>(whole));
}

float Least(float noise) {
  return noise > 1e-3F ? noise : 1e-3F;
}

float More(float a, float b) {
  return a > b ? a : b;
}

// The gain of each bin by its noise, its power and how far the bins around it rise, and with the
// music found in the spectrum before, of which it makes that found now.
VANTORA_VECTOR_UNIT void Gains(const float* __restrict noise, const float* __restrict power,
                               const float* __restrict rise, float least, float* __restrict music,
                               float* __restrict gain, std::size_t count) {
  for (std::size_t k = 0; k < count; ++k) {
    const float usual = kExcess * Least(noise[k]), now = power[k] / usual;
    const float part = (rise[k] - kRise) / kRisen, begun = part < 1 ? part : 1;
    const float begins = More(begun, 0);
    const float found = More(now - 1, 0);
    const float followed = kKeep * music[k] / usual + (1 - kKeep) * found;
    const float sudden = begins * More(found, rise[k] - 1);
    const float ratio = More(More(followed, sudden), kLeastRatio);
    float wiener = ratio / (1 + ratio);
    music[k] = wiener * wiener * power[k];
    wiener += begins * (std::sqrt(wiener) - wiener);  // a beginning is short within its spectrum
    gain[k] = noise[k] > 0 ? least + (1 - least) * wiener : 1;
  }
}

}  // namespace

Denoiser::Denoiser()
    : fft_(kSpan),
      floor_(kBins),
      window_(kSpan),
      spoken_(kSpoken),
      sound_(kSpan + 2 * kBlock + kSpoken),
      out_(kBlock + 2 * kSpoken),
      time_(kSpan),
      real_(kBins),
      imaginary_(kBins),
      power_(kBins),
      around_(kBins + 1),
      rise_(kBins),
      gain_(kBins),
      music_(kBins) {
  for (std::size_t i = 0; i < kSpan; ++i) {
    window_[i] = i < kSpan - kHop ? Quarter(i, kSpan - kHop) : Quarter(kSpan - 1 - i, kHop);
    weight_ += window_[i] * window_[i];
  }
  for (std::size_t i = 0; i < kSpoken; ++i) {
    const float bell = Quarter(std::min(i, kSpoken - 1 - i), kHop);
    spoken_[i] = bell * bell / window_[kSpan - kSpoken + i];
  }
}

std::size_t Denoiser::Process(float level, float* sound, std::size_t count, const float* follows,
                              std::size_t following) {
  Take(sound, count, follows, following);
  if (level > 0) {
    if (stale_) {
      std::fill(out_.begin(), out_.end(), 0.0F);
      next_ = (next_ - 1) % kHop + 1;
    }
    const float depth = kDeepest * std::pow(std::min(level, 1.0F), kBend);
    while (next_ < count + kSpoken) {
      Frame(std::pow(10.0F, -depth / 20));
      next_ += kHop;
    }
    std::copy_n(out_.begin(), count, sound);
  } else {
    next_ += (count + kSpoken - std::min(next_, count + kSpoken) + kHop - 1) / kHop * kHop;
  }
  stale_ = level <= 0;
  next_ -= count;
  const auto shift = static_cast<std::ptrdiff_t>(count);
  std::copy(sound_.begin() + shift, sound_.end(), sound_.begin());
  std::fill(sound_.end() - shift, sound_.end(), 0.0F);
  std::copy(out_.begin() + shift, out_.end(), out_.begin());
  std::fill(out_.end() - shift, out_.end(), 0.0F);
  return 0;
}

// What was put together of sound that followed holds as long as that comes as it was announced.
void Denoiser::Take(const float* sound, std::size_t count, const float* follows,
                    std::size_t following) {
  auto put = [this, place = kSpan](const float* from, std::size_t length) mutable {
    const std::size_t heard = kSpan + next_ - kHop;  // where the last spectrum ended
    const std::size_t same = std::min(length, heard - std::min(place, heard));
    const auto target = sound_.begin() + static_cast<std::ptrdiff_t>(place);
    stale_ = stale_ || !std::equal(from, from + same, target);
    std::copy_n(from, length, target);
    place += length;
  };
  put(sound, count);
  put(follows, following);
  // Behind its end the sound goes on backwards, turned about its last sample. A step down to
  // silence would spread over the spectrum, be taken for hiss, and bend the last samples.
  const std::size_t end = kSpan + count + following;
  for (std::size_t i = 1; following + i <= kSpoken && count > 0; ++i) {
    sound_[end - 1 + i] = 2 * sound_[end - 1] - sound_[end - 1 - i];
  }
}

void Denoiser::Frame(float least) {
  const float* const span = sound_.data() + next_;
  Listen(span + kSpan - kHop);
  for (std::size_t i = 0; i < kSpan; ++i) time_[i] = window_[i] * span[i];
  fft_.Forward(time_.data(), real_.data(), imaginary_.data());
  for (std::size_t k = 0; k < kBins; ++k) {
    power_[k] = (real_[k] * real_[k] + imaginary_[k] * imaginary_[k]) / weight_;
  }
  // A floor that has learnt from an overflow would never be a number again.
  const bool finite = std::isfinite(power_[0]);
  if (loud_ >= kSpan && finite) floor_.Hear(power_.data(), static_cast<float>(kHop) / kRate);
  FindGains(least);
  for (std::size_t k = 0; k < kBins; ++k) real_[k] *= gain_[k], imaginary_[k] *= gain_[k];
  fft_.Inverse(real_.data(), imaginary_.data(), time_.data());
  // The first spectra after a change speak for samples before the piece, too: those are gone.
  const std::size_t before = kSpoken - std::min(next_, kSpoken);
  float* const target = out_.data() + (next_ + before - kSpoken);
  for (std::size_t i = before; i < kSpoken; ++i) {
    target[i - before] += spoken_[i] * time_[kSpan - kSpoken + i];
  }
}

// Digital silence is no hiss, so no floor is learnt from it.
void Denoiser::Listen(const float* newest) {
  const bool silent = std::all_of(newest, newest + kHop, [](float x) { return x == 0; });
  loud_ = silent ? 0 : std::min(loud_ + kHop, kSpan);
}

void Denoiser::FindGains(float least) {
  const float* const noise = floor_.Power();
  around_[0] = 0;  // sums of ratios up to each bin
  for (std::size_t k = 0; k < kBins; ++k) rise_[k] = power_[k] / Least(noise[k]);
  for (std::size_t k = 0; k < kBins; ++k) around_[k + 1] = around_[k] + rise_[k];
  for (std::size_t k = 0; k < kBins; ++k) {
    const std::size_t low = k - std::min(k, kAround), high = std::min(k + kAround + 1, kBins);
    rise_[k] = (around_[high] - around_[low]) / static_cast<float>(high - low);
  }
  Gains(noise, power_.data(), rise_.data(), least, music_.data(), gain_.data(), kBins);
}

}  // namespace vantora
