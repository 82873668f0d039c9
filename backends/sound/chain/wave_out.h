// Plays a chain on the loudspeaker.
#pragma once

#include "platform/event_loop.h"
#include "platform/mmchain.h"
#include "platform/sound_output.h"

namespace vantora {

class WaveOut final : public MMWaveOutX {
 public:
  WaveOut(EventLoop& loop, SoundOutput& output) : loop_(loop), output_(output) {}
  void Open() override {}
  void Close() override {}
  void Start() override {}
  void Stop() override {}
  void Pause() override {}
  void Restart() override {}
  std::int64_t Position() const override { return 0; }
  int State() const override { return Closed; }

 private:
  [[maybe_unused]] EventLoop& loop_;
  [[maybe_unused]] SoundOutput& output_;
};

}  // namespace vantora
