// Fades the sound around gaps: the block before a gap fades out, the block after it fades in.
// Without the fades a resampler rings at the cut, louder than the music.
//
// Takes decoded blocks in order, as interleaved stereo.
#pragma once

#include <cstddef>

namespace vantora {

class GapFade {
 public:
  // Announces that the next block follows a gap. Frames that refer to lost frames decode to silence
  // and stay silent. The first block with sound contains aliasing that only the missing granule
  // would cancel; it can be a fifth louder than the music, so it is silenced too.
  void Behind() { waiting_ = true; }

  // Silences the aliasing after a gap, then fades in.
  template <typename Sample>
  void Rise(Sample* sound, std::size_t frames);

  // Fades out the last block before a gap.
  template <typename Sample>
  static void Fall(Sample* sound, std::size_t frames);

 private:
  bool waiting_ = false;  // for the first block with sound after a gap
  std::size_t silent_ = 0, risen_ = kRamp;

  static constexpr std::size_t kRamp = 576;
  // One granule without its neighbour, and the time for which the filter bank rings after it.
  static constexpr std::size_t kEcho = 576 + 480;
};

}  // namespace vantora
