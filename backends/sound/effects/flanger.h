// A flanger: the sound beside itself, later by a time that swings, with feedback.
#pragma once

#include "backends/sound/effects/glide.h"
#include "backends/sound/effects/switched_effect.h"

#include <array>

namespace vantora {

class Flanger final : public SwitchedEffect<MMFlangerX> {
 public:
  Flanger();

  float Delay = 1, MaxDelay = 250;  // frames; where the swing begins, and ends at full depth

  void SetDryMix(int percent) override;  // 0 to 100
  void SetWetMix(int percent) override;  // 0 to 100
  void SetFeedBack(int percent) override;
  void SetDepth(float percent) override;
  void SetRate(float hertz) override;

 private:
  static constexpr std::size_t kLine = 4096;      // frames
  static constexpr std::size_t kLongest = 4000;   // delay, in frames
  static constexpr std::size_t kKnotFrames = 32;  // between two looks at the swing

  struct Frame {
    float Middle = 0, Side = 0;  // half the sum of the ears, half their difference
  };
  // What moves in a straight line from knot to knot.
  struct Course {
    float Delay = 0, Early = 0, Late = 0;  // frames; the outer two are a quarter turn away
    float Feedback = 0, Strength = 0;      // of what comes back, and of what goes in
  };

  void Clear() override;
  void Settle() override;
  void Process(std::int16_t* samples, std::size_t frames) override;
  void Sweep(const std::int16_t* samples, std::size_t frames);  // to late_
  Course NextKnot(std::size_t frames);
  Frame Tap(float delay) const;
  void Put(Frame frame);

  Glide dry_{1}, wet_{0}, feedback_{0}, depth_{0}, rate_{0};
  double turn_;  // of the swing, in radians
  bool placed_ = false;
  Course at_;
  // Written twice, a line apart, so that every look back is in one piece.
  std::array<Frame, 2 * kLine> line_{};
  std::size_t head_ = 0;  // where the next frame goes
  Frame slow_;            // the lows, which the feedback keeps out
  std::array<float, kBufferFrames> dryPath_{}, wetPath_{};
  std::array<float, 2 * kKnotFrames> late_{};  // left, right, left …
};

}  // namespace vantora
