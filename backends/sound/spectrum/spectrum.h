// The spectrum of a stretch of sound, block by block, as levels in dB: 0 dB is a sine that fills
// the 16 bits.
//
// Each block is freed of its mean and weighted by the four-term window of Blackman and Harris (F.
// J. Harris, "On the use of windows for harmonic analysis with the discrete Fourier transform",
// 1978). Its side lobes lie 92 dB down, below any range that a picture shows, so that a pure tone
// stands alone; a raised cosine would put skirts of half a kilohertz beside it.
#pragma once

#include <cstdint>
#include <vector>

namespace vantora {

class Spectrum {
 public:
  explicit Spectrum(int depth) : depth_(depth < kLeastDepth ? kLeastDepth : depth) {}

  // The first of `channels` interleaved channels. A block length that is no power of two, or under
  // 4, gives no blocks; what was transformed before is gone.
  void Transform(const std::int16_t* samples, int blocks, int blockSize, int channels);

  int Depth() const { return depth_; }  // dB that a picture shows
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
