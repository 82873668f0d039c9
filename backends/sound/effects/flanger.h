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

  static constexpr std::size_t kTaps = 8;      // frames that are weighted for one read
  static constexpr std::size_t kSteps = 1024;  // places between two frames

  using Weights = std::array<float, kTaps>;     // of the frames around a place, oldest first
  using Kernels = std::array<Weights, kSteps>;  // from one frame to the next older one
  // The weights of a read and how far its oldest frame lies behind the next frame.
  struct Reader {
    const Weights& Weight;
    std::size_t Back;
  };
  // Half the sum or half the difference of left and right. Each frame is stored twice, kLine frames
  // apart, so that every read is contiguous.
  struct Channel {
    std::array<float, 2 * kLine> Line{};
    float Slow = 0;  // low frequencies, removed from the feedback
  };
  // Values that are interpolated linearly between two knots.
  struct Course {
    float Delay = 0, Early = 0, Late = 0;  // frames; the reads a quarter period before and after
    float Feedback = 0, Strength = 0;      // gain of the feedback and of the input
  };

  void Clear() override;
  void Settle() override;
  void Process(float* samples, std::size_t frames) override;
  void Sweep(const float* samples, std::size_t frames);  // result in late_
  Course NextKnot(std::size_t frames);
  static Kernels MakeKernels();
  static const Kernels& SharedKernels();
  Reader At(float delay) const;
  float Read(const Channel& channel, const Reader& reader) const;
  void Put(Channel& channel, float frame, float echo);

  const Kernels& kernels_;
  Glide dry_{1}, wet_{0}, feedback_{0}, depth_{0}, rate_{0};
  double turn_;  // phase of the modulation in radians
  bool placed_ = false;
  Course at_;
  Channel middle_, side_;
  std::size_t head_ = 0;  // index of the next frame
  std::array<float, kBufferFrames> dryPath_{}, wetPath_{};
  std::array<float, 2 * kKnotFrames> late_{};  // left, right, left …
};

}  // namespace vantora
