// The peaks of each buffer.
#pragma once

#include "platform/mmchain.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vantora {

struct Peaks {
  int Left = 0, Right = 0;  // 0 to 32768
};

// Keeps a maximum for each place in a vector, so that the vector unit finds them side by side.
inline Peaks PeaksOf(const MMData& data) {
  constexpr std::size_t kLanes = 16;
  std::array<float, kLanes> peaks{};
  const std::size_t count = data.Bytes / 2, whole = count / kLanes * kLanes;
  const auto raise = [&](std::size_t lane, float sample) {
    const float size = std::abs(sample);
    peaks[lane] = size > peaks[lane] ? size : peaks[lane];
  };
  for (std::size_t at = 0; at < whole; at += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) raise(lane, data.Samples[at + lane]);
  }
  for (std::size_t at = whole; at < count; ++at) raise(at % kLanes, data.Samples[at]);
  float left = 0, right = 0;
  for (std::size_t lane = 0; lane < kLanes; lane += 2) {
    left = std::max(left, peaks[lane]);
    right = std::max(right, peaks[lane + 1]);
  }
  constexpr float kLoudest = 32768;
  return {static_cast<int>(std::min(left, kLoudest)), static_cast<int>(std::min(right, kLoudest))};
}

class PeakDetect final : public MMPeakDetectX {
 public:
  void Pull(MMData& data) override {
    MMPeakDetectX::Pull(data);
    peaks_ = PeaksOf(data);
  }
  void Push(const MMData& data) override {
    peaks_ = PeaksOf(data);
    MMPeakDetectX::Push(data);
  }
  int PeakLeft() const override { return peaks_.Left; }
  int PeakRight() const override { return peaks_.Right; }

 private:
  Peaks peaks_;
};

}  // namespace vantora
