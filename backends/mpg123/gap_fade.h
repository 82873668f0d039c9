// Takes the edges off the places where sound is missing: what comes before fades out, what comes
// behind rises from silence. Without it a resampler rings at the cut, above the music's own level.
//
// Blocks go through it one by one, as they are decoded, interleaved stereo.
#pragma once

#include <cstddef>

namespace vantora {

class GapFade {
 public:
  // The next sound lacks its past. Frames that refer to it are silent, and stay so; the first that
  // sounds is mixed with an echo of itself, which its neighbour would have taken away, and which
  // may be a fifth louder than the music: this one is silenced.
  void Behind() { waiting_ = true; }

  // Silences what is still to be silenced, and lets what follows rise.
  template <typename Sample>
  void Rise(Sample* sound, std::size_t frames);

  // The end of the last block before a gap.
  template <typename Sample>
  static void Fall(Sample* sound, std::size_t frames);

 private:
  bool waiting_ = false;  // for a block that is not silent
  std::size_t silent_ = 0, risen_ = kRamp;

  static constexpr std::size_t kRamp = 576;
  // A granule that lacks its neighbour, and as long as the filter bank goes on sounding.
  static constexpr std::size_t kEcho = 576 + 480;
};

}  // namespace vantora
