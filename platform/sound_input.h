// The sound card's input for back ends: 44.1 kHz, 16 bit, stereo, in buffers of 1024 frames, each
// with the time of its recording.
#pragma once

#include "platform/mmchain.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantora {

struct CapturedSound {
  PcmData Data;
  std::int64_t Ticks = 0;   // when the last frame was recorded, as Clock::Ticks; never decreases
  std::int64_t LostMs = 0;  // of sound lost since the buffer before
};

// A recording from a card, which ends with this object. It keeps at least 20 seconds of sound until
// they are taken; sound that finds no room after that counts as lost.
class SoundCapture {
 public:
  virtual ~SoundCapture() = default;
  virtual bool Next(CapturedSound& sound) = 0;  // takes the oldest buffer; false when there is none
  virtual void Skip() = 0;                      // drops all sound recorded up to now
  virtual bool Gone() = 0;                      // the device is gone and all buffers are taken
};

class SoundInput {
 public:
  virtual ~SoundInput() = default;
  // Starts recording. `ready` is called on the interface thread when buffers are waiting or the
  // device is gone, never after the capture's destruction. Raises 57, with the system's words as
  // its reason, when there is no input, or it is in use or refuses the format.
  virtual std::unique_ptr<SoundCapture> Listen(std::function<void()> ready) = 0;
};

}  // namespace vantora
