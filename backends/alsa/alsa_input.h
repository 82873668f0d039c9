// The sound card's input "default" through libasound. A separate thread takes the sound from the
// card and keeps it, so that neither a busy window nor a slow disk loses a frame.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/sound_input.h"

namespace vantora {

inline constexpr std::size_t kCaptureBuffers = 1024;  // of 1024 frames each; 23.7 seconds at most

class AlsaSoundInput final : public SoundInput {
 public:
  // `clock` is also read from the capturing thread.
  AlsaSoundInput(EventLoop& loop, Clock& clock) : loop_(loop), clock_(clock) {}
  std::unique_ptr<SoundCapture> Listen(std::function<void()> ready) override;

 private:
  EventLoop& loop_;
  Clock& clock_;
};

}  // namespace vantora
