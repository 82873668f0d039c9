// A parameter that moves to its target value linearly.
#pragma once

#include "backends/sound/effects/switched_effect.h"

#include <algorithm>
#include <cstddef>

namespace vantora {

class Glide {
 public:
  explicit Glide(float value) : value_(value), target_(value) {}

  void To(float target) {
    if (target == target_) return;
    target_ = target;
    Leave();
  }
  void From(float value) {  // restarts from `value` to the same target
    value_ = value;
    Leave();
  }
  void Settle() {
    value_ = target_;
    left_ = 0;
  }
  bool Resting() const { return left_ == 0; }
  bool RestsAt(float value) const { return left_ == 0 && value_ == value; }

  // Writes the values of the next frames.
  void Fill(float* values, std::size_t frames) {
    const std::size_t moving = std::min(frames, left_);
    for (std::size_t i = 0; i < moving; ++i) {
      values[i] = value_ + step_ * static_cast<float>(static_cast<int>(i + 1));
    }
    Advance(moving);
    std::fill(values + moving, values + frames, value_);
  }
  // Returns the value after the next frames.
  float After(std::size_t frames) {
    Advance(std::min(frames, left_));
    return value_;
  }

 private:
  void Leave() {
    left_ = kGlideFrames;
    step_ = (target_ - value_) / static_cast<float>(kGlideFrames);
  }
  void Advance(std::size_t frames) {
    left_ -= frames;
    value_ = left_ == 0 ? target_ : value_ + step_ * static_cast<float>(static_cast<int>(frames));
  }

  float value_, target_;
  float step_ = 0;        // per frame
  std::size_t left_ = 0;  // frames until the target is reached
};

}  // namespace vantora
