// The input of a sound card, on the loop's time. The input hears silence and the wave files that
// Play plays to it. A wave file sounds from the call of Play on, even if no capture is open. A
// buffer comes when its last frame has been heard. If the loop was busy then, the buffer comes
// later, with the same sound.
#pragma once

#include "backends/headless/headless_player.h"

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/sound_input.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace vantora {

class HeadlessInput final : public SoundInput {
 public:
  HeadlessInput(EventLoop& loop, Clock& clock, HeadlessPlayer::NewWaveFile newWaveFile)
      : loop_(loop), clock_(clock), newWaveFile_(std::move(newWaveFile)) {}

  std::unique_ptr<SoundCapture> Listen(std::function<void()> ready) override;

  // Plays a file of the chain's format once, from now on. An earlier file that still sounds ends
  // now.
  void Play(const Text& file);
  void Lose(int ms);  // the card loses the next `ms` milliseconds of sound

  bool Present = true;    // false: a new capture is refused, and an open capture loses the device
  bool Kept = false;      // true: a new capture is refused, because another program has the device
  bool Fleeting = false;  // true: a new capture hears nothing, and its device is gone at once

  struct Sound {
    std::shared_ptr<MMWave> File;
    std::int64_t Start = 0;  // ticks
  };
  struct Ear;

 private:
  EventLoop& loop_;
  Clock& clock_;
  HeadlessPlayer::NewWaveFile newWaveFile_;
  std::shared_ptr<std::vector<Sound>> sounds_ = std::make_shared<std::vector<Sound>>();
  std::weak_ptr<Ear> ear_;  // the open capture
};

}  // namespace vantora
