// Plays a chain on the loudspeaker. The interface thread fills a queue in turns of its loop, the
// device's thread drains it. What has left the chain and is not heard yet stays within
// `NumBuffers`, so that a change to the chain is soon heard.
//
// A pause that `Start` ends at once, with the range moved to where the ear was, is a rewiring: the
// device goes on with the old sound for so long, and into the new one without a gap.
#pragma once

#include "backends/sound/chain/sound_queue.h"

#include "platform/event_loop.h"
#include "platform/mmchain.h"
#include "platform/sound_output.h"

#include <memory>

namespace vantora {

class WaveOut final : public MMWaveOutX {
 public:
  WaveOut(EventLoop& loop, SoundOutput& output) : loop_(loop), output_(output) {}
  void Open() override;
  void Close() override;
  void Start() override;
  void Stop() override;
  void Pause() override;
  void Restart() override;
  std::int64_t Position() const override;
  int State() const override { return state_; }

  // How often the device has found nothing since the start, while there was more to come.
  int Underruns() const { return queue_ ? queue_->Underruns() : 0; }

 private:
  void StartAnew();
  bool GoOn();
  void Sound();
  void Run();
  void Turn();
  bool Room(std::int64_t heard) const;
  void Fetch(SoundQueue& queue);
  void Ended();
  void Halt(bool failed);
  std::int64_t Heard() const;
  std::int64_t RangeStart();

  EventLoop& loop_;
  SoundOutput& output_;
  OutState state_ = Closed;
  bool failed_ = false;
  std::shared_ptr<SoundQueue> queue_;
  std::int64_t place_ = 0;       // where the ear is while nothing sounds
  std::int64_t round_ = 0;       // where the round began that is being fetched
  int roundsDone_ = 0;           // fetched to their ends
  std::int64_t rangeStart_ = 0;  // frames; of the source, when the round began
  std::shared_ptr<int> token_;   // of the turns that are due; without it they do nothing
  std::unique_ptr<SoundStream> stream_;
};

}  // namespace vantora
