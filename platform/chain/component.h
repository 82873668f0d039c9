// The base of all components of the sound chain. Components are connected by their inputs, which
// may change while they play. The last component pulls the sound through the chain, buffer by
// buffer. Between components sound is 44.1 kHz, stereo, in floats on the scale of 16-bit samples:
// nothing is rounded or clipped on the way. Files, the card and the buffers of a callback have 16
// bits, so bytes are counted in 16 bits everywhere, and a frame is 4 bytes. Unless a comment says
// otherwise, all calls and events are on the interface thread.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace vantora {

inline constexpr std::size_t kBufferBytes = 4096;  // size of a buffer in a chain

// A buffer in the chain. Sound that no effect has changed is in whole numbers.
struct MMData {
  std::array<float, kBufferBytes / 2> Samples;  // left, right, left …
  std::size_t Bytes = 0;                        // of the sound in 16 bits; 0: end of the sound
};
// A buffer at an end of the chain.
struct PcmData {
  std::array<std::int16_t, kBufferBytes / 2> Samples;  // left, right, left …
  std::size_t Bytes = 0;
};

// Rounds to the nearest sample, ties to even, and clips. Adding the constant leaves no bits for the
// fraction.
inline std::int16_t ToSample(float value) {
  constexpr float kRounder = 12'582'912.0F;  // 1.5 * 2^23
  const float low = value < -32768.0F ? -32768.0F : value;
  const float inside = low > 32767.0F ? 32767.0F : low;
  return static_cast<std::int16_t>(static_cast<int>((inside + kRounder) - kRounder));
}

// These functions return the number of bytes in a buffer, copy sound out of a buffer, and copy
// sound into a buffer.
inline std::size_t ParseWaveHeader(const MMData& data) {
  return data.Bytes;
}
inline void CopyWaveHeader(const MMData& data, std::int16_t* buffer, std::size_t bytes) {
  std::transform(data.Samples.begin(),
                 data.Samples.begin() + static_cast<std::ptrdiff_t>(bytes / 2), buffer, ToSample);
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

  // The neighbours in the chain. A component that has been taken out of the chain keeps its input,
  // so that it can be inserted again.
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

  // Returns the next buffer of the sound. A chain without a source returns an empty one.
  virtual void Pull(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Pull(data);
  }
  // Returns what the next Pull will bring; no position moves. Components that change sound do not
  // stand before one that looks ahead.
  virtual void Peek(MMData& data) {
    data.Bytes = 0;
    if (input_ != nullptr) input_->Peek(data);
  }
  // Restarts the sound: the source goes back to the start of its range. Echoes that are still
  // sounding continue.
  virtual void Rewind() {
    if (input_ != nullptr) input_->Rewind();
  }
  // Called for components after the end of a chain: Receive before the sound begins, then Push for
  // each buffer.
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
