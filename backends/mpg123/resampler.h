// Converts sound of any MPEG rate to 44.1 kHz, 16 bit, stereo with libsamplerate at its medium
// quality. The response is flat to 18 kHz, or proportionally lower for sources below 44.1 kHz.
// Images and aliases are more than 110 dB down in this band.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct SRC_STATE_tag;

namespace vantora {

class Resampler {
 public:
  explicit Resampler(long rate);  // rate of the source in Hz

  long Rate() const { return rate_; }
  // Takes `frames` frames of interleaved stereo. Appends to `out` (left, right, left …) the frames
  // that are complete.
  void Push(const float* stereo, std::size_t frames, std::vector<std::int16_t>& out);
  // Appends the rest. For n frames in, n x 44100 / rate frames come out in all, rounded up.
  void Flush(std::vector<std::int16_t>& out);

 private:
  struct Delete {
    void operator()(SRC_STATE_tag* state) const;
  };
  void Run(const float* stereo, std::size_t frames, bool end, std::vector<std::int16_t>& out);

  long rate_;
  std::unique_ptr<SRC_STATE_tag, Delete> state_;
  std::vector<float> part_;         // part of the output
  std::int64_t in_ = 0, made_ = 0;  // frames taken and made
};

}  // namespace vantora
