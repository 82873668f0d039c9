// The spectrum of a stretch of sound, block by block, as levels in dB. 0 dB is a sine of full
// scale.
//
// Each block is freed of its mean and weighted by the four-term Blackman-Harris window (F. J.
// Harris, "On the use of windows for harmonic analysis with the discrete Fourier transform", 1978).
// Its side lobes are 92 dB down, below the range of any picture, so that a pure tone is a single
// line. A raised cosine would spread it over half a kilohertz.
#pragma once

#include <cstdint>
#include <vector>

namespace vantora {

class Spectrum {
 public:
  explicit Spectrum(int depth) : depth_(depth < kLeastDepth ? kLeastDepth : depth) {}

  // Uses the first of `channels` interleaved channels. Replaces earlier results. A block length
  // that is not a power of two, or below 4, gives no blocks.
  void Transform(const std::int16_t* samples, int blocks, int blockSize, int channels);

  int Depth() const { return depth_; }  // range of a picture in dB
  int Blocks() const { return blocks_; }
  int Bins() const { return bins_; }
  double BlockMs() const { return blockMs_; }    // length of a block
  double BinHertz() const { return binHertz_; }  // from one bin to the next
  float Level(int block, int bin) const { return levels_[Place(block, bin)]; }
  float Highest() const;  // of all levels

 private:
  static constexpr int kLeastDepth = 10;  // dB
  std::size_t Place(int block, int bin) const {
    return static_cast<std::size_t>(block) * static_cast<std::size_t>(bins_) +
           static_cast<std::size_t>(bin);
  }

  int depth_;
  int blocks_ = 0, bins_ = 0;
  double blockMs_ = 0, binHertz_ = 0;
  std::vector<float> levels_;
};

}  // namespace vantora
