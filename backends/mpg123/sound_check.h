// Finds decoded blocks that can't be what the encoder meant, since the decoder does not report it.
// Blocks go through it one by one, interleaved stereo, before anything else touches them.
//
// Nothing is judged by its loudness: files that are far louder than full scale exist.
#pragma once

#include <cstddef>

namespace vantora {

class SoundCheck {
 public:
  // What follows does not join what was there before.
  void Begin() { lastLevel_ = 0; }

  template <typename Sample>
  bool Sound(const Sample* sound, std::size_t frames);

 private:
  float lastLevel_ = 0;  // at the end of the block before; 1 is full scale
};

}  // namespace vantora
