// Finds decoded blocks that the encoder cannot have meant; the decoder does not report them. Takes
// the blocks in order, as interleaved stereo, before any other processing.
//
// Loudness is no criterion: there are files that are far louder than full scale.
#pragma once

#include <cstddef>

namespace vantora {

class SoundCheck {
 public:
  // The next block does not continue the one before.
  void Begin() { lastLevel_ = 0; }

  template <typename Sample>
  bool Sound(const Sample* sound, std::size_t frames);

 private:
  float lastLevel_ = 0;  // at the end of the block before; 1 is full scale
};

}  // namespace vantora
