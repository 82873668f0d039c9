// The input of a chain: pushes what the card has heard into what stands behind it, a buffer at a
// time. Stopping and closing are steps of this component; the card itself goes on until the
// component has been closed for a turn of the loop.
#pragma once

#include "platform/event_loop.h"
#include "platform/mmchain.h"
#include "platform/sound_input.h"

#include <memory>

namespace vantora {

class WaveIn final : public MMWaveInX {
 public:
  WaveIn(EventLoop& loop, SoundInput& input) : loop_(loop), input_(input) {}
  void Open() override;
  void Close() override;
  void Start() override;
  void Stop() override { running_ = false; }
  bool IsOpen() const override { return open_; }
  std::int64_t BufferTicks() const override { return piece_.Ticks; }

 private:
  void Deliver();
  bool DeliverOne();
  void Lose();

  EventLoop& loop_;
  SoundInput& input_;
  bool open_ = false, running_ = false;
  bool delivering_ = false;  // a buffer is on its way
  CapturedSound piece_;
  std::shared_ptr<SoundCapture> capture_;                  // kept by who takes from it
  std::shared_ptr<int> token_ = std::make_shared<int>(0);  // of this component's posted work
};

}  // namespace vantora
