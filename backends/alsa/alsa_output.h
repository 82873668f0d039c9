// The sound card's output "default" for sound of 44.1 kHz, 16 bit, stereo. One thread at a time.
#pragma once

#include <alsa/asoundlib.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace vantora {

class AlsaOutput {
 public:
  // Holds so much sound ahead of the ear, or what the card can do with. Raises 57 when it refuses.
  explicit AlsaOutput(int aheadMs);

  // Hands over up to `frames`, waiting at most `ms` for room. Returns the frames taken, 0 when
  // there was no room; raises 57 when the card is gone. An interruption is mended on the way.
  std::int64_t Write(const void* sound, std::int64_t frames, int ms);
  void Begin();  // plays at once what has been handed over, if it does not yet
  // Frames handed over that are not heard yet, as far as the card knows. A sound server behind it
  // goes on telling its own delay when nothing follows, so this need not fall to 0.
  std::optional<std::int64_t> Ahead();
  bool Empty();  // all that was handed over is on its way to the loudspeaker, or the card is gone
  void Drop();   // silence now

 private:
  struct Close {
    void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
  };
  std::unique_ptr<snd_pcm_t, Close> pcm_;
  snd_pcm_uframes_t buffer_ = 0;  // frames
};

}  // namespace vantora
