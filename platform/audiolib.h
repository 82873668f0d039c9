// Restoration of old recordings and a picture of the spectrum. The functions bear the numbers under
// which the product knows them. All from the interface thread; one filter of a kind at a time.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class PictureBox;

class Audiolib {
 public:
  virtual ~Audiolib() = default;

  // ---- the library ----
  virtual void func_01(int size) = 0;  // start, for buffers of up to `size` bytes
  virtual void func_02() = 0;          // end; all filters go off. No effect without a start

  // ---- restoration ----
  // On, with a level of 0 (leaves the sound as it is) to 1, and off. State of the sound is kept
  // from buffer to buffer, from the on call to the off call.
  virtual void func_05(const float& level) = 0;  // clicks
  virtual void func_11() = 0;
  virtual void func_03(const float& level) = 0;  // crackle
  virtual void func_09() = 0;
  virtual void func_04(const float& level) = 0;  // hiss
  virtual void func_10() = 0;
  // The sound that follows the buffer that is handed in next, as far as it is known, up to 1024
  // frames, given before each buffer. It lets the filters see ahead; without it they see no further
  // than the buffer's end.
  virtual void Follows(const std::int16_t* samples, const std::int16_t& channels, int frames) = 0;
  // One buffer of `frames` frames, 16 bit, interleaved, from `source` to `target`, which do not
  // overlap; as many frames come out as go in, without delay. A level may differ from buffer to
  // buffer. A filter that is off copies.
  virtual void func_08(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // clicks
  virtual void func_06(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // crackle
  virtual void func_07(const float& level, const std::int16_t& channels, const std::int16_t* source,
                       std::int16_t* target, int frames) = 0;  // hiss

  // ---- spectrum ----
  virtual void func_15(int depth) = 0;  // begins a picture; `depth` is its range in dB
  // Transforms `blocks` blocks of `blockSize` samples of one channel, 44.1 kHz.
  virtual void func_17(const std::int16_t* samples, int blocks, int blockSize, int channels) = 0;
  // Draws what was transformed as a waterfall with axes named by the texts.
  virtual void func_18(PictureBox& picture, const int& height, int width, const Text& xText,
                       const Text& yText) = 0;
  virtual void func_16() = 0;  // lets go of the picture; no effect without one
};

}  // namespace vantora
