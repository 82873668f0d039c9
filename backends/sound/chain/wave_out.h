// Plays a chain on a sound device. The interface thread fills a queue in turns of its event loop,
// and the device's thread reads it. The sound between the chain and the ear stays within
// `NumBuffers`, so that a change to the chain is soon heard.
//
// A rewiring is a pause that is ended at once by `Start`, with the range moved to the position
// heard. During a rewiring the device keeps playing the old sound, and joins the new sound without
// a gap.
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

  // The number of underruns since the start.
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
  std::int64_t place_ = 0;       // current place while nothing plays
  std::int64_t round_ = 0;       // start of the loop being fetched
  int roundsDone_ = 0;           // loops fetched to their ends
  std::int64_t rangeStart_ = 0;  // in frames of the source, when the loop began
  std::shared_ptr<int> token_;   // of the turns posted; a turn without it does nothing
  std::unique_ptr<SoundStream> stream_;
};

}  // namespace vantora
