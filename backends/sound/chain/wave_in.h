// The input of a chain: pushes recorded sound into the components downstream, buffer by buffer.
// Stop and Close only stop this component. The card goes on recording until the component has been
// closed for a turn of the event loop.
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
  void CatchUp() override;
  bool IsOpen() const override { return open_; }
  std::int64_t BufferTicks() const override { return piece_.Ticks; }

 private:
  void Deliver(int most);  // the limit of buffers
  bool DeliverOne();
  void Lose();

  EventLoop& loop_;
  SoundInput& input_;
  bool open_ = false, running_ = false;
  bool delivering_ = false;  // a buffer is being delivered
  CapturedSound piece_;
  std::shared_ptr<SoundCapture> capture_;                  // shared with a running Deliver
  std::shared_ptr<int> token_ = std::make_shared<int>(0);  // for this component's posted calls
};

}  // namespace vantora
