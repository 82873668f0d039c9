// The peaks of each buffer.
#pragma once

#include "platform/mmchain.h"

#include <algorithm>

namespace vantora {

struct Peaks {
  int Left = 0, Right = 0;  // 0 to 32768
};

// Finds the maximum and the minimum separately, so that the vector unit can work on 16-bit samples.
inline Peaks PeaksOf(const MMData& data) {
  constexpr std::size_t kLanes = 16;
  std::array<std::int16_t, kLanes> high{}, low{};
  std::size_t at = 0;
  for (; at + kLanes <= data.Bytes / 2; at += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const std::int16_t sample = data.Samples[at + lane];
      high[lane] = std::max(high[lane], sample);
      low[lane] = std::min(low[lane], sample);
    }
  }
  for (; at < data.Bytes / 2; ++at) {
    high[at % kLanes] = std::max(high[at % kLanes], data.Samples[at]);
    low[at % kLanes] = std::min(low[at % kLanes], data.Samples[at]);
  }
  Peaks peaks;
  for (std::size_t lane = 0; lane < kLanes; lane += 2) {
    peaks.Left = std::max({peaks.Left, int{high[lane]}, -low[lane]});
    peaks.Right = std::max({peaks.Right, int{high[lane + 1]}, -low[lane + 1]});
  }
  return peaks;
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
