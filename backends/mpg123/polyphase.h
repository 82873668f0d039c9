// Brings sound of any MPEG rate to 44.1 kHz, 16 bit, stereo with a linear-phase polyphase filter:
// flat to 0.91 of the lower of the two half rates. Images of sound in that band, and aliases that
// fall into it, are more than 95 dB down; between it and the half rate the filter falls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantora {

class Polyphase {
 public:
  explicit Polyphase(long rate);  // Hz of what comes in

  long Rate() const { return rate_; }
  // Appends to `out` (left, right, left …) what `frames` more of interleaved stereo make sure.
  void Push(const float* stereo, std::size_t frames, std::vector<std::int16_t>& out);
  // Appends the rest. In all, n frames in give n x 44100 / rate frames out, rounded up.
  void Flush(std::vector<std::int16_t>& out);

 private:
  static constexpr std::size_t kTaps = 80;

  void Run(std::vector<std::int16_t>& out);

  long rate_;
  std::size_t up_, step_, stepRest_;  // the next output lies step_ + stepRest_ / up_ inputs on
  std::size_t place_ = 0, phase_ = 0;
  std::int64_t in_ = 0, made_ = 0;  // frames
  std::vector<float> bank_;         // kTaps coefficients for each phase
  std::vector<float> left_, right_;
};

}  // namespace vantora
