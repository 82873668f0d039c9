// The sound card's input "default" through libasound. A thread of its own takes what the card has
// heard and keeps it, so that neither a busy window nor a slow disk costs a frame.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/sound_input.h"

namespace vantora {

inline constexpr std::size_t kCaptureBuffers = 1024;  // of 1024 frames: 23.7 seconds wait at most

class AlsaSoundInput final : public SoundInput {
 public:
  // The clock is asked from the thread of the capture.
  AlsaSoundInput(EventLoop& loop, Clock& clock) : loop_(loop), clock_(clock) {}
  std::unique_ptr<SoundCapture> Listen(std::function<void()> ready) override;

 private:
  EventLoop& loop_;
  Clock& clock_;
};

}  // namespace vantora
