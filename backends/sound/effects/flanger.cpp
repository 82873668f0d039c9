// A delay line read at a position that follows a sine (Dattorro, "Effect design, part 2: delay-line
// modulation and chorus", 1997). A sinc of eight frames under a Kaiser window interpolates between
// frames. Its error is below -53 dB up to 12 kHz, so a bright tone gains no audible products even
// where a slow modulation gathers them in few lines. It amplifies no frequency by more than 0.3 %,
// so the feedback stays stable. `Depth` is the modulated share of the range from `Delay` to
// `MaxDelay`, `Rate` the modulation frequency in Hz. Without modulation the delay is the middle of
// the range.
//
// Middle and side of the sound have separate lines. The stereo width comes from the difference of
// two reads a quarter period before and after. It is added to the side only: in a mono sum it
// disappears, and a plain flanger of the mono sound remains.
//
// Feedback would raise the level, so the input of the line is attenuated by the factor by which
// noise would grow. Low frequencies are kept out of the feedback, since these delays are short
// compared to their periods.
#include "backends/sound/effects/flanger.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantora {

namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr double kFrameSeconds = 1.0 / kSampleRate;
constexpr float kWidth = 0.35F;
constexpr float kHoldBack = 0.02F;  // a high-pass at 140 Hz
// In frames. The kernel reads three frames ahead, and adding up small steps ends only approximately
// at the target.
constexpr float kShortest = 4.001F;

// The window of the kernel: half its width in frames and its shape.
constexpr double kReach = 4, kShape = 5.6;

double Bessel(double x) {
  double sum = 1, term = 1;
  for (int k = 1; k < 40; ++k) sum += term *= x * x / (4.0 * k * k);
  return sum;
}

double KaiserSinc(double distance) {
  const double share = distance / kReach;
  if (std::abs(share) >= 1) return 0;
  const double window = Bessel(kShape * std::sqrt(1 - share * share)) / Bessel(kShape);
  const double x = std::numbers::pi * distance;
  return x == 0 ? window : window * std::sin(x) / x;
}

float Share(int percent, int most) {
  return static_cast<float>(std::clamp(percent, 0, most)) / 100;
}

// Limits a value to the range from 0 to `most`; NaN becomes 0.
float Inside(float value, float most) {
  return value > 0 ? std::min(value, most) : 0;
}

}  // namespace

Flanger::Kernels Flanger::MakeKernels() {
  Kernels kernels;
  for (std::size_t step = 0; step < kSteps; ++step) {
    std::array<double, kTaps> exact{};
    double sum = 0;
    for (std::size_t k = 0; k < kTaps; ++k) {
      const double share = (static_cast<double>(step) + 0.5) / static_cast<double>(kSteps);
      exact[k] = KaiserSinc(kReach - static_cast<double>(k) - share);
      sum += exact[k];
    }
    for (std::size_t k = 0; k < kTaps; ++k) {
      kernels[step][k] = static_cast<float>(exact[k] / sum);
    }
  }
  return kernels;
}

const Flanger::Kernels& Flanger::SharedKernels() {
  static const Kernels kernels = MakeKernels();
  return kernels;
}

Flanger::Flanger() : kernels_(SharedKernels()), turn_(kFullTurn / 4) {}

void Flanger::SetDryMix(int percent) {
  dry_.To(Share(percent, 100));
}

void Flanger::SetWetMix(int percent) {
  wet_.To(Share(percent, 100));
}

void Flanger::SetFeedBack(int percent) {
  feedback_.To(Share(percent, 99));
}

void Flanger::SetDepth(float percent) {
  depth_.To(Inside(percent, 99) / 100);
}

void Flanger::SetRate(float hertz) {
  rate_.To(Inside(hertz, 5));
}

void Flanger::Clear() {
  middle_ = side_ = {};
  turn_ = kFullTurn / 4;
  placed_ = false;
  dry_.From(1);
  wet_.From(0);
}

void Flanger::Settle() {
  for (Glide* glide : {&dry_, &wet_, &feedback_, &depth_, &rate_}) glide->Settle();
}

Flanger::Course Flanger::NextKnot(std::size_t frames) {
  const auto passed = static_cast<double>(frames) * kFrameSeconds;
  turn_ = std::fmod(turn_ + kFullTurn * double{rate_.After(frames)} * passed, kFullTurn);
  const float first = Inside(Delay, kLongest) - 1 + kShortest;
  const float way = std::max(Inside(MaxDelay, kLongest) - Inside(Delay, kLongest), 0.0F);
  const float half = depth_.After(frames) * way / 2;
  const auto sine = static_cast<float>(std::sin(turn_));
  const auto cosine = static_cast<float>(std::cos(turn_));
  const float feedback = feedback_.After(frames);
  return {first + half * (1 - cosine), first + half * (1 - sine), first + half * (1 + sine),
          feedback, std::sqrt(1 - feedback * feedback)};
}

inline Flanger::Reader Flanger::At(float delay) const {
  const auto whole = static_cast<int>(delay);
  const float place = (delay - static_cast<float>(whole)) * static_cast<float>(int{kSteps});
  const auto step = static_cast<std::size_t>(static_cast<int>(place));
  return {kernels_[step], static_cast<std::size_t>(whole) + kTaps / 2};
}

// The vector unit adds up four sums at a time.
inline float Flanger::Read(const Channel& channel, const Reader& reader) const {
  const float* at = &channel.Line[head_ + kLine - reader.Back];
  std::array<float, kTaps / 2> sums;
  for (std::size_t k = 0; k < kTaps / 2; ++k) {
    sums[k] = reader.Weight[k] * at[k] + reader.Weight[k + kTaps / 2] * at[k + kTaps / 2];
  }
  return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

// Writes the next frame: the input plus the feedback of the echo.
inline void Flanger::Put(Channel& channel, float frame, float echo) {
  channel.Slow = Hushed(channel.Slow + kHoldBack * (echo - channel.Slow));
  const float next = Hushed(at_.Strength * frame + at_.Feedback * (echo - channel.Slow));
  channel.Line[head_] = channel.Line[head_ + kLine] = next;
}

void Flanger::Sweep(const float* samples, std::size_t frames) {
  const Course next = NextKnot(frames);
  const float share = 1 / static_cast<float>(static_cast<int>(frames));
  const auto step = [share](float from, float to) { return (to - from) * share; };
  const Course move{step(at_.Delay, next.Delay), step(at_.Early, next.Early),
                    step(at_.Late, next.Late), step(at_.Feedback, next.Feedback),
                    step(at_.Strength, next.Strength)};
  for (std::size_t n = 0; n < frames; ++n) {
    at_.Delay += move.Delay;
    at_.Early += move.Early;
    at_.Late += move.Late;
    at_.Feedback += move.Feedback;
    at_.Strength += move.Strength;
    const float left = samples[2 * n], right = samples[2 * n + 1];
    const Reader reader = At(at_.Delay);
    const float middle = Read(middle_, reader), beside = Read(side_, reader);
    const float wide = Read(middle_, At(at_.Early)) - Read(middle_, At(at_.Late));
    const float side = beside + kWidth * wide;
    late_[2 * n] = middle + side;
    late_[2 * n + 1] = middle - side;
    Put(middle_, (left + right) / 2, middle);
    Put(side_, (left - right) / 2, beside);
    head_ = (head_ + 1) % kLine;
  }
  at_ = next;
}

void Flanger::Process(float* samples, std::size_t frames) {
  if (dry_.RestsAt(1) && wet_.RestsAt(0)) return;
  if (!placed_) at_ = NextKnot(0);
  placed_ = true;
  dry_.Fill(dryPath_.data(), frames);
  wet_.Fill(wetPath_.data(), frames);
  for (std::size_t done = 0; done < frames; done += kKnotFrames) {
    const std::size_t some = std::min(kKnotFrames, frames - done);
    Sweep(samples + 2 * done, some);
    for (std::size_t i = 0; i < 2 * some; ++i) {
      const std::size_t n = done + i / 2;
      float& sample = samples[2 * done + i];
      sample = dryPath_[n] * sample + wetPath_[n] * late_[i];
    }
  }
}

}  // namespace vantora
