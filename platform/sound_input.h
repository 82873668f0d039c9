// The sound card's input for back ends: 44.1 kHz, 16 bit, stereo, in buffers of 1024 frames, each
// with the time when it was heard.
#pragma once

#include "platform/mmchain.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

struct CapturedSound {
  MMData Data;
  std::int64_t Ticks = 0;  // when its last frame was heard, as Clock::Ticks counts; never goes back
  std::int64_t LostMs = 0;  // what was lost since the buffer before
};

// A card that is being listened to, until its destruction. What was heard waits until it is taken,
// at least 20 seconds of it; what then finds no room counts as lost.
class SoundCapture {
 public:
  virtual ~SoundCapture() = default;
  virtual bool Next(CapturedSound& sound) = 0;  // the oldest that waits; false when none does
  virtual void Skip() = 0;                      // drops all that was heard up to now
  virtual bool Gone() = 0;  // the device has gone away, and nothing more will come
};

class SoundInput {
 public:
  virtual ~SoundInput() = default;
  // `ready` comes on the interface thread when something waits or the device has gone, and not
  // after the capture's destruction. Raises 57, with the system's words as its reason, when there
  // is no input, or it is in use or refuses the format.
  virtual std::unique_ptr<SoundCapture> Listen(std::function<void()> ready) = 0;
};

}  // namespace vantora
