// Takes off the pre-emphasis of 50 and 15 µs with which some discs were made: a player finds its
// flag on the disc and turns the treble down, a wave file has no such flag. Follows the curve
// within 0.01 dB up to 20 kHz.
#pragma once

#include <array>
#include <cstddef>

namespace vantora {

class DeEmphasis {
 public:
  // Sound of 44.1 kHz, 16 bit, stereo, little-endian, which goes on from call to call.
  void Apply(char* sound, std::size_t frames);
  void Reset() { channels_ = {}; }

 private:
  struct Channel {
    double First = 0, Second = 0;  // what the filter remembers
  };
  std::array<Channel, 2> channels_;
};

}  // namespace vantora
