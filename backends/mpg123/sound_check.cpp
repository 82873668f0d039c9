#include "backends/mpg123/sound_check.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace vantora {

namespace {

constexpr std::size_t kGranule = 576;

template <typename Sample>
bool Silent(const Sample* from, const Sample* to) {
  return std::all_of(from, to, [](Sample s) { return s == 0; });
}

// The peak of the samples just before `end`.
template <typename Sample>
float LevelBefore(const Sample* sound, std::size_t end) {
  constexpr std::size_t kFrames = 32;
  constexpr float kFull = std::is_same_v<Sample, float> ? 1.0F : 32768.0F;
  float most = 0;
  for (std::size_t i = 2 * (end - std::min(end, kFrames)); i < 2 * end; ++i) {
    most = std::max(most, std::abs(static_cast<float>(sound[i])) / kFull);
  }
  return most;
}

}  // namespace

// The decoder gives up a frame that asks for more bits than it has, and fills the rest of it with
// zeros from the start of a granule. Real sound never becomes digital silence from one sample to
// the next.
template <typename Sample>
bool SoundCheck::Sound(const Sample* sound, std::size_t frames) {
  constexpr float kHeard = 0.01F;
  const Sample* end = sound + 2 * frames;
  const bool givenUp = (frames >= kGranule && lastLevel_ > kHeard && Silent(sound, end)) ||
                       (frames == 2 * kGranule && LevelBefore(sound, kGranule) > kHeard &&
                        Silent(sound + 2 * kGranule, end));
  if (frames > 0) lastLevel_ = LevelBefore(sound, frames);
  return !givenUp;
}

template bool SoundCheck::Sound(const std::int16_t*, std::size_t);
template bool SoundCheck::Sound(const float*, std::size_t);

}  // namespace vantora
