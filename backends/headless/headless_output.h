// A sound output on the loop's time. It fetches the sound from its source when the sound is due,
// and stays silent.
#pragma once

#include "backends/headless/headless_player.h"

#include "platform/sound_output.h"

namespace vantora {

class HeadlessOutput final : public SoundOutput {
 public:
  HeadlessOutput(EventLoop& loop, Clock& clock, HeadlessSoundCard& card)
      : loop_(loop), clock_(clock), card_(card) {}

  std::unique_ptr<SoundStream> Play(Source source, std::function<void()> ended,
                                    int aheadMs) override;

 private:
  EventLoop& loop_;
  Clock& clock_;
  HeadlessSoundCard& card_;
};

}  // namespace vantora
