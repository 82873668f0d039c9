// The sound card's output "default" for sound of 44.1 kHz, 16 bit, stereo. Only one thread may use
// it at a time.
#pragma once

#include <alsa/asoundlib.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace vantora {

class AlsaOutput {
 public:
  // Buffers `aheadMs` of sound, or as near to that as the card can. Raises 57 when the card
  // refuses.
  explicit AlsaOutput(int aheadMs);

  // Hands over up to `frames` frames and waits at most `ms` for room. Returns the number of frames
  // taken, 0 when there was no room. Recovers from an underrun by itself. Raises 57 when the card
  // is gone.
  std::int64_t Write(const void* sound, std::int64_t frames, int ms);
  void Begin();  // starts playing now, if it has not started
  // Frames handed over that have not been heard yet, as far as the card knows. A sound server goes
  // on reporting its own delay after the last frame, so this need not fall to 0.
  std::optional<std::int64_t> Ahead();
  bool Empty();  // all frames have left the buffer, or the card is gone
  void Drop();   // silences the output at once

 private:
  struct Close {
    void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
  };
  std::unique_ptr<snd_pcm_t, Close> pcm_;
  snd_pcm_uframes_t buffer_ = 0;  // frames
};

}  // namespace vantora
