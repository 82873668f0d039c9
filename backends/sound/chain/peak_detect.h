// The peaks of each buffer.
#pragma once

#include "platform/mmchain.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace vantora {

struct Peaks {
  int Left = 0, Right = 0;  // 0 to 32768
};

inline Peaks PeaksOf(const MMData& data) {
  using Lanes = float __attribute__((vector_size(16)));  // left, right, left, right
  constexpr std::size_t kLanes = 4;
  Lanes peaks{};
  const std::size_t count = data.Bytes / 2, whole = count / kLanes * kLanes;
  for (std::size_t at = 0; at < whole; at += kLanes) {
    Lanes sound;
    std::memcpy(&sound, &data.Samples[at], sizeof sound);
    const Lanes size = sound > -sound ? sound : -sound;
    peaks = size > peaks ? size : peaks;
  }
  float left = std::max(peaks[0], peaks[2]), right = std::max(peaks[1], peaks[3]);
  for (std::size_t at = whole; at + 1 < count; at += 2) {
    left = std::max(left, std::abs(data.Samples[at]));
    right = std::max(right, std::abs(data.Samples[at + 1]));
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
