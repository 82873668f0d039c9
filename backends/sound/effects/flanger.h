// A flanger: adds the sound to itself with a varying delay and feedback.
#pragma once

#include "backends/sound/effects/glide.h"
#include "backends/sound/effects/switched_effect.h"

#include <array>

namespace vantora {

class Flanger final : public SwitchedEffect<MMFlangerX> {
 public:
  Flanger();

  float Delay = 1, MaxDelay = 250;  // frames; range of the delay at full depth

  void SetDryMix(int percent) override;  // 0 to 100
  void SetWetMix(int percent) override;  // 0 to 100
  void SetFeedBack(int percent) override;
  void SetDepth(float percent) override;
  void SetRate(float hertz) override;

 private:
  static constexpr std::size_t kLine = 4096;      // frames
  static constexpr std::size_t kLongest = 4000;   // in frames
  static constexpr std::size_t kKnotFrames = 32;  // between two computations of the modulation

  struct Frame {
    float Middle = 0, Side = 0;  // half the sum and half the difference of left and right
  };
  // Values that are interpolated linearly between two knots.
  struct Course {
    float Delay = 0, Early = 0, Late = 0;  // frames; the reads a quarter period before and after
    float Feedback = 0, Strength = 0;      // gain of the feedback and of the input
  };

  void Clear() override;
  void Settle() override;
  void Process(std::int16_t* samples, std::size_t frames) override;
  void Sweep(const std::int16_t* samples, std::size_t frames);  // result in late_
  Course NextKnot(std::size_t frames);
  Frame Tap(float delay) const;
  void Put(Frame frame);

  Glide dry_{1}, wet_{0}, feedback_{0}, depth_{0}, rate_{0};
  double turn_;  // phase of the modulation in radians
  bool placed_ = false;
  Course at_;
  // Each frame is stored twice, kLine frames apart, so that every read is contiguous.
  std::array<Frame, 2 * kLine> line_{};
  std::size_t head_ = 0;  // index of the next frame
  Frame slow_;            // low frequencies, removed from the feedback
  std::array<float, kBufferFrames> dryPath_{}, wetPath_{};
  std::array<float, 2 * kKnotFrames> late_{};  // left, right, left …
};

}  // namespace vantora
