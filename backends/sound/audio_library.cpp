#include "backends/sound/audio_library.h"

#include <algorithm>
#include <cmath>

namespace vantora {

namespace {

constexpr float kLeast = -32768, kGreatest = 32767;

std::int16_t Rounded(float sample) {
  return static_cast<std::int16_t>(std::nearbyint(std::clamp(sample, kLeast, kGreatest)));
}

}  // namespace

void AudioLibrary::func_01(int /*size*/) {
  for (std::vector<float>& piece : piece_) piece.resize(kPiece);
  for (std::vector<float>& follows : follows_) follows.resize(kPiece);
  following_ = 0;
}

void AudioLibrary::func_02() {
  func_11();
  func_09();
  func_10();
  for (std::vector<float>& piece : piece_) piece.clear();
}

void AudioLibrary::func_05(const float& /*level*/) {
  clicks_.emplace(kChannels, ClickFilter(ClickFilter::Damage::kClicks));
}

void AudioLibrary::func_11() {
  clicks_.reset();
}

void AudioLibrary::func_03(const float& /*level*/) {
  crackle_.emplace(kChannels, ClickFilter(ClickFilter::Damage::kCrackle));
}

void AudioLibrary::func_09() {
  crackle_.reset();
}

void AudioLibrary::func_04(const float& /*level*/) {
  hiss_.emplace(kChannels);
}

void AudioLibrary::func_10() {
  hiss_.reset();
}

void AudioLibrary::func_08(const float& level, const std::int16_t& channels,
                           const std::int16_t* source, std::int16_t* target, int frames) {
  Run(clicks_, level, channels, source, target, frames);
}

void AudioLibrary::func_06(const float& level, const std::int16_t& channels,
                           const std::int16_t* source, std::int16_t* target, int frames) {
  Run(crackle_, level, channels, source, target, frames);
}

void AudioLibrary::func_07(const float& level, const std::int16_t& channels,
                           const std::int16_t* source, std::int16_t* target, int frames) {
  Run(hiss_, level, channels, source, target, frames);
}

void AudioLibrary::Follows(const std::int16_t* samples, const std::int16_t& channels, int frames) {
  if (piece_[0].empty() || channels <= 0) return;
  const auto apart = static_cast<std::size_t>(channels);
  following_ = std::min(static_cast<std::size_t>(std::max(frames, 0)), kPiece);
  for (std::size_t channel = 0; channel < std::min(apart, kChannels); ++channel) {
    for (std::size_t i = 0; i < following_; ++i) {
      follows_[channel][i] = samples[i * apart + channel];
    }
  }
}

// What a filter has seen of what follows, the next filter gets in its final form.
template <class Filter>
void AudioLibrary::Run(Stage<Filter>& stage, float level, int channels, const std::int16_t* source,
                       std::int16_t* target, int frames) {
  if (frames <= 0 || channels <= 0) return;
  const auto total = static_cast<std::size_t>(frames), apart = static_cast<std::size_t>(channels);
  std::copy_n(source, total * apart, target);
  if (!stage || piece_[0].empty()) return;
  std::size_t following = following_;
  for (std::size_t channel = 0; channel < std::min(apart, kChannels); ++channel) {
    float* const piece = piece_[channel].data();
    std::int16_t* const samples = target + channel;
    for (std::size_t from = 0; from < total; from += kPiece) {
      const std::size_t count = std::min(kPiece, total - from);
      const std::size_t rest = std::min(kPiece, total - from - count);
      float* const follows = rest > 0 ? rest_.data() : follows_[channel].data();
      for (std::size_t i = 0; i < count; ++i) piece[i] = samples[(from + i) * apart];
      for (std::size_t i = 0; i < rest; ++i) rest_[i] = samples[(from + count + i) * apart];
      following =
          (*stage)[channel].Process(level, piece, count, follows, rest > 0 ? rest : following_);
      for (std::size_t i = 0; i < count; ++i) samples[(from + i) * apart] = Rounded(piece[i]);
    }
  }
  following_ = following;
}

}  // namespace vantora
