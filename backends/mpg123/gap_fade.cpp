#include "backends/mpg123/gap_fade.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace vantora {

namespace {

template <typename Sample>
void Scale(Sample* frame, std::size_t part, std::size_t whole) {
  const float gain = static_cast<float>(part) / static_cast<float>(whole);
  for (std::size_t i = 0; i < 2; ++i) {
    frame[i] = static_cast<Sample>(static_cast<float>(frame[i]) * gain);
  }
}

}  // namespace

template <typename Sample>
void GapFade::Rise(Sample* sound, std::size_t frames) {
  if (waiting_) {
    // Floats of a silent block from the decoder may differ from 0 by rounding errors.
    constexpr Sample kSilence = std::is_same_v<Sample, float> ? Sample(1.0F / 65536) : Sample(0);
    const auto silent = [](Sample s) { return std::abs(s) <= kSilence; };
    if (std::all_of(sound, sound + 2 * frames, silent)) return;
    waiting_ = false;
    silent_ = kEcho;
    risen_ = 0;
  }
  const std::size_t silent = std::min(silent_, frames);
  std::fill_n(sound, 2 * silent, Sample{0});
  silent_ -= silent;
  for (std::size_t i = silent; i < frames && risen_ < kRamp; ++i, ++risen_) {
    Scale(sound + 2 * i, risen_, kRamp);
  }
}

template <typename Sample>
void GapFade::Fall(Sample* sound, std::size_t frames) {
  const std::size_t ramp = std::min(kRamp, frames);
  for (std::size_t i = 0; i < ramp; ++i) Scale(sound + 2 * (frames - 1 - i), i, ramp);
}

template void GapFade::Rise(std::int16_t*, std::size_t);
template void GapFade::Rise(float*, std::size_t);
template void GapFade::Fall(std::int16_t*, std::size_t);
template void GapFade::Fall(float*, std::size_t);

}  // namespace vantora
