#include "backends/sound/audio_library.h"

#include "platform/chain/component.h"

#include <algorithm>

namespace vantora {

void AudioLibrary::func_01(int /*size*/) {
  for (Ear& ear : ears_) {
    for (std::vector<float>* part : {&ear.Piece, &ear.Rest, &ear.Follows}) part->resize(kPiece);
    ear.Following = 0;
  }
  side_.emplace();
}

void AudioLibrary::func_02() {
  func_11();
  func_09();
  func_10();
  side_.reset();
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
  if (!side_ || channels <= 0) return;
  const auto apart = static_cast<std::size_t>(channels);
  const std::size_t count = std::min(static_cast<std::size_t>(std::max(frames, 0)), kPiece);
  for (std::size_t channel = 0; channel < std::min(apart, kChannels); ++channel) {
    Ear& ear = ears_[channel];
    ear.Following = count;
    for (std::size_t i = 0; i < count; ++i) ear.Follows[i] = samples[i * apart + channel];
  }
}

// The two channels are computed side by side.
template <class Filter>
void AudioLibrary::Run(Stage<Filter>& stage, float level, int channels, const std::int16_t* source,
                       std::int16_t* target, int frames) {
  if (frames <= 0 || channels <= 0) return;
  const auto total = static_cast<std::size_t>(frames), apart = static_cast<std::size_t>(channels);
  std::copy_n(source, total * apart, target);
  if (!stage || !side_) return;
  const auto run = [&](std::size_t channel) {
    RunEar((*stage)[channel], ears_[channel], level, target + channel, apart, total);
  };
  if (channels == 1) return run(0);
  side_->Both([&] { run(0); }, [&] { run(1); });
}

// What a filter has seen of what follows, the next filter gets in its final form.
template <class Filter>
void AudioLibrary::RunEar(Filter& filter, Ear& ear, float level, std::int16_t* samples,
                          std::size_t apart, std::size_t frames) {
  for (std::size_t from = 0; from < frames; from += kPiece) {
    const std::size_t count = std::min(kPiece, frames - from);
    const std::size_t rest = std::min(kPiece, frames - from - count);
    for (std::size_t i = 0; i < count; ++i) ear.Piece[i] = samples[(from + i) * apart];
    for (std::size_t i = 0; i < rest; ++i) ear.Rest[i] = samples[(from + count + i) * apart];
    float* const follows = rest > 0 ? ear.Rest.data() : ear.Follows.data();
    const std::size_t following =
        filter.Process(level, ear.Piece.data(), count, follows, rest > 0 ? rest : ear.Following);
    for (std::size_t i = 0; i < count; ++i) samples[(from + i) * apart] = ToSample(ear.Piece[i]);
    if (rest > 0) continue;
    ear.Following = following;
    // Rounded, as they come to the next filter.
    for (std::size_t i = 0; i < following; ++i) follows[i] = ToSample(follows[i]);
  }
}

}  // namespace vantora
