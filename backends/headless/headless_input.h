// What a sound card's input hears, on the loop's time: silence, and wave files that are played to
// it, each from its moment on, whether or not anybody listens. Every buffer comes when its last
// frame has been heard; if the loop was busy then, it comes later and is the same.
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

  // A file of the chain's format is heard once from now on; one that still sounds ends there.
  void Play(const Text& file);
  void Lose(int ms);  // the card loses so much from now on

  bool Present = true;    // false: a start is refused, and who listens loses the device
  bool Kept = false;      // the same for a start alone: somebody else has the device
  bool Fleeting = false;  // a start succeeds, but nothing is heard and the device is gone at once

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
  std::weak_ptr<Ear> ear_;  // who listens
};

}  // namespace vantora
