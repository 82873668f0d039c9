// Removes the pre-emphasis of 50 and 15 µs with which some discs were made. A player finds a flag
// on the disc and lowers the treble; a wave file has no such flag. The result follows the curve
// within 0.01 dB up to 20 kHz.
#pragma once

#include <array>
#include <cstddef>

namespace vantora {

class DeEmphasis {
 public:
  // `sound` is 44.1 kHz, 16 bit, stereo, little-endian, and continues that of the call before.
  void Apply(char* sound, std::size_t frames);
  void Reset() { channels_ = {}; }

 private:
  struct Channel {
    double First = 0, Second = 0;  // state of the filter
  };
  std::array<Channel, 2> channels_;
};

}  // namespace vantora
