// Brings sound of any MPEG rate to 44.1 kHz, 16 bit, stereo through libsamplerate at its medium
// quality: flat to 18 kHz, or as far in proportion where the source's half rate is lower. Images
// and aliases below that are more than 110 dB down.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct SRC_STATE_tag;

namespace vantora {

class Resampler {
 public:
  explicit Resampler(long rate);  // Hz of what comes in

  long Rate() const { return rate_; }
  // Appends to `out` (left, right, left …) what `frames` more of interleaved stereo make sure.
  void Push(const float* stereo, std::size_t frames, std::vector<std::int16_t>& out);
  // Appends the rest. In all, n frames in give n x 44100 / rate frames out, rounded up.
  void Flush(std::vector<std::int16_t>& out);

 private:
  struct Delete {
    void operator()(SRC_STATE_tag* state) const;
  };
  void Run(const float* stereo, std::size_t frames, bool end, std::vector<std::int16_t>& out);

  long rate_;
  std::unique_ptr<SRC_STATE_tag, Delete> state_;
  std::vector<float> part_;         // of the sound that comes out
  std::int64_t in_ = 0, made_ = 0;  // frames
};

}  // namespace vantora
