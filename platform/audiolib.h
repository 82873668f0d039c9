// Restores old recordings and draws spectra. The functions have the numbers by which the product
// knows them. All calls are from the interface thread. There is one filter of each kind.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class PictureBox;

class Audiolib {
 public:
  virtual ~Audiolib() = default;

  virtual void func_01(int size) = 0;  // starts; buffers have up to `size` bytes
  virtual void func_02() = 0;          // ends; switches all filters off

  // Switch the filters on and off. While a filter is on, its state is kept from buffer to buffer.
  // The `level` given here does not matter, since each buffer has its own.
  virtual void func_05(const float& level) = 0;  // clicks
  virtual void func_11() = 0;
  virtual void func_03(const float& level) = 0;  // crackle
  virtual void func_09() = 0;
  virtual void func_04(const float& level) = 0;  // hiss
  virtual void func_10() = 0;
  // The sound that follows the buffer of the next call, as far as it is known: up to 1024 frames,
  // given before each buffer. With it the filters look ahead; without it they see no further than
  // the end of the buffer.
  virtual void Follows(const std::int16_t* samples, const std::int16_t& channels, int frames) = 0;
  // Filter one buffer of `frames` interleaved 16-bit frames from `source` to `target`, which must
  // not overlap. The number of frames stays the same and there is no delay. `level` is 0 (leaves
  // the sound unchanged) to 1 and may change with each buffer. A filter that is off copies the
  // sound. Channels beyond the second are copied.
  virtual void func_08(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // clicks
  virtual void func_06(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // crackle
  virtual void func_07(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // hiss

  virtual void func_15(int depth) = 0;  // begins a spectrum; `depth` is its range in dB
  // Transforms `blocks` blocks of `blockSize` samples at 44.1 kHz, taken from the first of
  // `channels` interleaved channels.
  virtual void func_17(const std::int16_t* samples, int blocks, int blockSize, int channels) = 0;
  // Draws the spectrum as a waterfall of `width` by `height` twips. The texts name its axes.
  virtual void func_18(PictureBox& picture, const int& height, int width, const Text& xText,
                       const Text& yText) = 0;
  virtual void func_16() = 0;  // deletes the spectrum; without effect when there is none
};

}  // namespace vantora
