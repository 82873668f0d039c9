// The linear crossfade of two stretches of sound. The amplitudes add up to 1, so two equal
// stretches stay unchanged.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// Mixes `anfang` into `ende`: each stereo frame becomes (1 - f) * `ende` + f * `anfang`, where f is
// the number of its first sample divided by `werte`. Computes in double precision and rounds once
// to nearest, ties to even. `werte` counts the samples of both channels and is even.
void LinearMischen(std::int16_t* ende, const std::int16_t* anfang, std::size_t werte);

}  // namespace vantora
