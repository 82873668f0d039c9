// Restoration filters and the spectrum, addressed by the function numbers of platform/audiolib.h.
#pragma once

#include "backends/sound/restoration/click_filter.h"
#include "backends/sound/restoration/denoiser.h"
#include "backends/sound/restoration/side_thread.h"
#include "backends/sound/spectrum/waterfall.h"

#include "platform/audiolib.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace vantora {

class AudioLibrary final : public Audiolib {
 public:
  void func_01(int size) override;
  void func_02() override;
  void func_05(const float& level) override;
  void func_11() override;
  void func_03(const float& level) override;
  void func_09() override;
  void func_04(const float& level) override;
  void func_10() override;
  void Follows(const std::int16_t* samples, const std::int16_t& channels, int frames) override;
  void func_08(const float& level, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override;
  void func_06(const float& level, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override;
  void func_07(const float& level, const std::int16_t& channels, const std::int16_t* source,
               std::int16_t* target, int frames) override;
  void func_15(int depth) override { spectrum_.emplace(depth); }
  void func_17(const std::int16_t* samples, int blocks, int blockSize, int channels) override {
    if (spectrum_) spectrum_->Transform(samples, blocks, blockSize, channels);
  }
  void func_18(PictureBox& picture, const int& height, int width, const Text& xText,
               const Text& yText) override {
    if (spectrum_) DrawWaterfall(*spectrum_, picture, width, height, xText, yText);
  }
  void func_16() override { spectrum_.reset(); }

 private:
  static constexpr std::size_t kChannels = 2;  // sound with more channels passes unchanged
  static constexpr std::size_t kPiece = std::min(ClickFilter::kBlock, Denoiser::kBlock);

  // A filter that is switched on, one per channel.
  template <class Filter>
  using Stage = std::optional<std::vector<Filter>>;

  // One channel on its way through a filter.
  struct Ear {
    std::vector<float> Piece, Rest;  // in hand, and what follows within a long buffer
    std::vector<float> Follows;      // what follows the buffer that is handed in next
    std::size_t Following = 0;       // samples of it
  };
  template <class Filter>
  void Run(Stage<Filter>& stage, float level, int channels, const std::int16_t* source,
           std::int16_t* target, int frames);
  template <class Filter>
  static void RunEar(Filter& filter, Ear& ear, float level, std::int16_t* samples,
                     std::size_t apart, std::size_t frames);

  Stage<ClickFilter> clicks_, crackle_;
  Stage<Denoiser> hiss_;
  std::array<Ear, kChannels> ears_;
  std::optional<SideThread> side_;  // computes the right channel; from the start to the end

  std::optional<Spectrum> spectrum_;  // the picture being drawn
};

}  // namespace vantora
