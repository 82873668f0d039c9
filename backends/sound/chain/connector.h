// Reports the level of the sound that is heard to level meters: every two buffers times `Speed`, or
// with every buffer when `Speed` is 0.
#pragma once

#include "backends/sound/chain/peak_detect.h"

#include "platform/mmchain.h"

#include <algorithm>

namespace vantora {

class Connector final : public MMConnectorX {
 public:
  void Receive() override {
    frames_ = 0;
    peaks_ = {};
    MMConnectorX::Receive();
  }
  void Push(const MMData& data) override {
    const Peaks peaks = PeaksOf(data);
    peaks_ = {std::max(peaks_.Left, peaks.Left), std::max(peaks_.Right, peaks.Right)};
    frames_ += data.Bytes / 4;
    if (OnTrigger) OnTrigger();
    MMConnectorX::Push(data);
    if (frames_ < kFrames * static_cast<std::size_t>(std::max(Speed, 0))) return;
    const Peaks told = peaks_;
    frames_ = 0;
    peaks_ = {};
    if (OnLevel) OnLevel(std::min(told.Left, kLoudest), std::min(told.Right, kLoudest));
  }

 private:
  static constexpr std::size_t kFrames = 2048;  // two full buffers, 46 ms
  static constexpr int kLoudest = 32767;

  std::size_t frames_ = 0;  // since the last report
  Peaks peaks_;
};

}  // namespace vantora
