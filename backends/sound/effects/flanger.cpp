// A delay line read at a position that follows a sine (Dattorro, "Effect design, part 2: delay-line
// modulation and chorus", 1997). Lagrange's cubic interpolates between frames; it never amplifies,
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
// In frames. The cubic reads one frame ahead, and adding up small steps ends only approximately at
// the target.
constexpr float kShortest = 2.001F;
float Share(int percent, int most) {
  return static_cast<float>(std::clamp(percent, 0, most)) / 100;
}

// Also handles NaN.
float Inside(float value, float most) {
  return value > 0 ? std::min(value, most) : 0;
}

}  // namespace

Flanger::Flanger() : turn_(kFullTurn / 4) {}

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
  line_.fill({});
  slow_ = {};
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

inline Flanger::Frame Flanger::Tap(float delay) const {
  const auto whole = static_cast<int>(delay);
  const float f = delay - static_cast<float>(whole);
  const Frame* at = &line_[head_ + kLine - static_cast<std::size_t>(whole)];
  const float above = f + 1, below = f - 1, far = f - 2;
  const float w0 = f * below * far * (-1.0F / 6), w1 = above * below * far * 0.5F;
  const float w2 = above * f * far * -0.5F, w3 = above * f * below * (1.0F / 6);
  return {w0 * at[1].Middle + w1 * at[0].Middle + w2 * at[-1].Middle + w3 * at[-2].Middle,
          w0 * at[1].Side + w1 * at[0].Side + w2 * at[-1].Side + w3 * at[-2].Side};
}

inline void Flanger::Put(Frame frame) {
  line_[head_] = line_[head_ + kLine] = frame;
  head_ = (head_ + 1) % kLine;
}

void Flanger::Sweep(const std::int16_t* samples, std::size_t frames) {
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
    const auto left = static_cast<float>(samples[2 * n]);
    const auto right = static_cast<float>(samples[2 * n + 1]);
    const Frame tap = Tap(at_.Delay);
    const float wide = kWidth * (Tap(at_.Early).Middle - Tap(at_.Late).Middle);
    const float side = tap.Side + wide;
    late_[2 * n] = tap.Middle + side;
    late_[2 * n + 1] = tap.Middle - side;
    slow_.Middle = Hushed(slow_.Middle + kHoldBack * (tap.Middle - slow_.Middle));
    slow_.Side = Hushed(slow_.Side + kHoldBack * (tap.Side - slow_.Side));
    const float middle =
        at_.Strength * (left + right) / 2 + at_.Feedback * (tap.Middle - slow_.Middle);
    const float beside = at_.Strength * (left - right) / 2 + at_.Feedback * (tap.Side - slow_.Side);
    Put({Hushed(middle), Hushed(beside)});
  }
  at_ = next;
}

void Flanger::Process(std::int16_t* samples, std::size_t frames) {
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
      std::int16_t& sample = samples[2 * done + i];
      sample = ToSample(dryPath_[n] * static_cast<float>(sample) + wetPath_[n] * late_[i]);
    }
  }
}

}  // namespace vantora
