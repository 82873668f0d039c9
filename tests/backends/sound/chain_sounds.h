// Sounds for a chain, and measurements of its output.
#pragma once

#include "tests/backends/mpg123/tones.h"

#include "platform/mmchain.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <random>
#include <vector>

namespace vantora::test {

using Sound = std::vector<std::int16_t>;  // left, right, left …

// A source that plays one sound.
class Source final : public MMComponentX {
 public:
  explicit Source(Sound sound) : sound_(std::move(sound)) {}
  void Pull(MMData& data) override {
    const std::size_t some = std::min(kBufferBytes / 2, sound_.size() - place_);
    FillWaveHeader(data, sound_.data() + place_, some * 2);
    place_ += some;
  }
  void Rewind() override { place_ = 0; }

 private:
  Sound sound_;
  std::size_t place_ = 0;
};

inline std::int16_t Sample(double value) {
  return static_cast<std::int16_t>(std::lrint(std::clamp(value, -32768.0, 32767.0)));
}

// A sine, equal in both channels.
inline Sound Sine(double hertz, double amplitude, std::size_t frames) {
  Sound sound;
  for (std::size_t n = 0; n < frames; ++n) {
    const double turn = hertz * static_cast<double>(n) / 44100;
    sound.insert(sound.end(), 2, Sample(amplitude * std::sin(2 * std::numbers::pi * turn)));
  }
  return sound;
}

// Noise, independent in the two channels.
inline Sound Hiss(double amplitude, std::size_t frames, std::uint32_t seed = 1) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> value(-amplitude, amplitude);
  Sound sound(2 * frames);
  for (std::int16_t& sample : sound) sample = Sample(value(random));
  return sound;
}

// The output of an effect behind its source. `before` is called with the first frame of each
// buffer.
template <class Before>
Sound Behind(MMComponentX& effect, MMComponentX& source, Before before) {
  effect.SetInput(&source);
  Sound out;
  for (MMData data;;) {
    before(out.size() / 2);
    effect.Pull(data);
    if (data.Bytes == 0) break;
    std::transform(data.Samples.begin(),
                   data.Samples.begin() + static_cast<std::ptrdiff_t>(data.Bytes / 2),
                   std::back_inserter(out), ToSample);
  }
  effect.SetInput(nullptr);
  return out;
}
// The output of an effect for `sound`.
template <class Before>
Sound Through(MMComponentX& effect, const Sound& sound, Before before) {
  Source source(sound);
  return Behind(effect, source, before);
}
inline Sound Through(MMComponentX& effect, const Sound& sound) {
  return Through(effect, sound, [](std::size_t) {});
}

// Amplitude of a frequency in a range of frames; `ear` 0 is the left channel, 1 the right.
inline double Amplitude(const Sound& sound, double hertz, std::size_t from, std::size_t to,
                        std::size_t ear = 0) {
  return 32768 * std::abs(ToneIn(ChannelOf(sound, ear), hertz, 44100, from, to));
}

// How much of a soft tone is heard at other frequencies while `turn` changes the effect, in dB.
template <class Turn>
double Rattle(MMComponentX& effect, double hertz, Turn turn) {
  const Sound out = Through(effect, Sine(hertz, 3000, 90'112), turn);
  double most = 0;
  for (const double far : {4000.0, 7001.0, 9000.0, 11'003.0}) {
    most = std::max(most, Amplitude(out, far, 0, out.size() / 2) / 3000);
  }
  return Decibels(most);
}

// Root mean square of both channels together.
inline double Loudness(const Sound& sound, std::size_t from, std::size_t to) {
  double sum = 0;
  for (std::size_t i = 2 * from; i < 2 * to; ++i) sum += double{1} * sound[i] * sound[i];
  return std::sqrt(sum / static_cast<double>(2 * (to - from)));
}

}  // namespace vantora::test
