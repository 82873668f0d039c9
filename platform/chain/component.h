// What all components of the sound chain have in common: they are wired one behind the other by
// their inputs, also while they play; the end of the chain pulls sound through them in buffers.
// Between components sound is 44.1 kHz, 16 bit, stereo: a frame is 4 bytes.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace vantora {

inline constexpr std::size_t kBufferBytes = 4096;  // what goes through a chain at a time

// One buffer on its way through the chain.
struct MMData {
  std::array<std::int16_t, kBufferBytes / 2> Samples;  // left, right, left …
  std::size_t Bytes = 0;                               // 0: the sound is over
};

// Bytes of sound in a buffer, 0 for none; its sound out of it and back into it.
inline std::size_t ParseWaveHeader(const MMData& data) {
  return data.Bytes;
}
inline void CopyWaveHeader(const MMData& data, std::int16_t* buffer, std::size_t bytes) {
  std::copy_n(data.Samples.begin(), bytes / 2, buffer);
}
inline void FillWaveHeader(MMData& data, const std::int16_t* buffer, std::size_t bytes) {
  std::copy_n(buffer, bytes / 2, data.Samples.begin());
  data.Bytes = bytes;
}

enum MMBitLength : int { b8Bit = 8, b16Bit = 16 };
enum MMChannelMode : int { mMono = 0, mStereo = 1 };

class MMComponentX {
 public:
  MMComponentX() = default;
  virtual ~MMComponentX() = default;
  MMComponentX(const MMComponentX&) = delete;
  MMComponentX& operator=(const MMComponentX&) = delete;

  // The neighbours. A component that has dropped out of the path keeps its input, so that it can be
  // wired in again.
  MMComponentX* Input() const { return input_; }
  MMComponentX* Output() const { return output_; }
  void SetInput(MMComponentX* input) {
    input_ = input;
    if (input != nullptr) input->output_ = this;
  }
  void SetOutput(MMComponentX* output) {
    output_ = output;
    if (output != nullptr) output->input_ = this;
  }

  // The next buffer of the sound; a chain without a source has none.
  virtual void Pull(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Pull(data);
  }
  // The sound begins anew: the source goes back to the start of its range. Echoes that still ring
  // go on ringing.
  virtual void Rewind() {
    if (input_ != nullptr) input_->Rewind();
  }
  // What stands behind the end of a chain: it hears that sound follows, and then each buffer.
  virtual void Receive() {
    if (output_ != nullptr) output_->Receive();
  }
  virtual void Push(const MMData& data) {
    if (output_ != nullptr) output_->Push(data);
  }

 private:
  MMComponentX* input_ = nullptr;
  MMComponentX* output_ = nullptr;
};

}  // namespace vantora
