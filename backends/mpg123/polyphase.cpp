#include "backends/mpg123/polyphase.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <numeric>

namespace vantora {

namespace {

constexpr long kTarget = 44100;

double BesselI0(double x) {
  double sum = 1, term = 1;
  for (int k = 1; term > sum * 1e-17; ++k) {
    term *= (x / (2 * k)) * (x / (2 * k));
    sum += term;
  }
  return sum;
}

// A sinc in a Kaiser window; `t` in input samples, `cutoff` as part of the input's rate.
double Lowpass(double t, double cutoff, double halfWidth) {
  constexpr double kBeta = 9.8;  // some 98 dB in the stop band
  if (std::abs(t) >= halfWidth) return 0;
  const double x = 2 * std::numbers::pi * cutoff * t;
  const double sinc = x == 0 ? 1 : std::sin(x) / x;
  const double part = t / halfWidth;
  return 2 * cutoff * sinc * BesselI0(kBeta * std::sqrt(1 - part * part)) / BesselI0(kBeta);
}

using Four = float __attribute__((vector_size(16)));

Four Load(const float* from) {
  Four four;
  std::memcpy(&four, from, sizeof four);
  return four;
}

std::int16_t Rounded(Four parts) {
  const float value = ((parts[0] + parts[1]) + (parts[2] + parts[3])) * 32768.0F;
  return static_cast<std::int16_t>(std::lrint(std::clamp(value, -32768.0F, 32767.0F)));
}

}  // namespace

Polyphase::Polyphase(long rate) : rate_(rate) {
  const long common = std::gcd(rate, kTarget);
  up_ = static_cast<std::size_t>(kTarget / common);
  const std::size_t down = static_cast<std::size_t>(rate / common);
  step_ = down / up_;
  stepRest_ = down % up_;

  constexpr double kHalf = static_cast<double>(kTaps) / 2;
  const double cutoff =
      0.5 * std::min(1.0, static_cast<double>(kTarget) / static_cast<double>(rate));
  bank_.resize(up_ * kTaps);
  for (std::size_t phase = 0; phase < up_; ++phase) {
    const double late = static_cast<double>(phase) / static_cast<double>(up_);
    std::vector<double> taps(kTaps);
    for (std::size_t k = 0; k < kTaps; ++k) {
      taps[k] = Lowpass(static_cast<double>(k) - (kHalf - 1) - late, cutoff, kHalf);
    }
    // Each phase passes a constant unchanged: otherwise the differences would be a whistle.
    const double sum = std::accumulate(taps.begin(), taps.end(), 0.0);
    for (std::size_t k = 0; k < kTaps; ++k) {
      bank_[phase * kTaps + k] = static_cast<float>(taps[k] / sum);
    }
  }
  left_.assign(kTaps / 2 - 1, 0.0F);
  right_ = left_;
}

void Polyphase::Push(const float* stereo, std::size_t frames, std::vector<std::int16_t>& out) {
  in_ += static_cast<std::int64_t>(frames);
  const std::size_t had = left_.size();
  left_.resize(had + frames);
  right_.resize(had + frames);
  for (std::size_t i = 0; i < frames; ++i) {
    left_[had + i] = stereo[2 * i];
    right_[had + i] = stereo[2 * i + 1];
  }
  Run(out);
}

void Polyphase::Flush(std::vector<std::int16_t>& out) {
  left_.resize(left_.size() + kTaps, 0.0F);
  right_.resize(left_.size(), 0.0F);
  const std::size_t before = out.size();
  const std::int64_t due = (in_ * kTarget + rate_ - 1) / rate_ - made_;
  Run(out);
  out.resize(std::min(out.size(), before + 2 * static_cast<std::size_t>(due)));
}

void Polyphase::Run(std::vector<std::int16_t>& out) {
  for (; place_ + kTaps <= left_.size(); ++made_) {
    const float* taps = &bank_[phase_ * kTaps];
    const float* left = &left_[place_];
    const float* right = &right_[place_];
    Four l0{}, l1{}, r0{}, r1{};
    for (std::size_t k = 0; k < kTaps; k += 8) {
      const Four t0 = Load(taps + k), t1 = Load(taps + k + 4);
      l0 += t0 * Load(left + k);
      l1 += t1 * Load(left + k + 4);
      r0 += t0 * Load(right + k);
      r1 += t1 * Load(right + k + 4);
    }
    out.push_back(Rounded(l0 + l1));
    out.push_back(Rounded(r0 + r1));
    place_ += step_;
    phase_ += stepRest_;
    if (phase_ >= up_) {
      phase_ -= up_;
      ++place_;
    }
  }
  const std::size_t done = std::min(place_, left_.size());
  left_.erase(left_.begin(), left_.begin() + static_cast<std::ptrdiff_t>(done));
  right_.erase(right_.begin(), right_.begin() + static_cast<std::ptrdiff_t>(done));
  place_ -= done;
}

}  // namespace vantora
