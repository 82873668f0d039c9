// The crossfade of two stretches of sound: linear in amplitude on both sides, so that two equal
// sounds stay as they are.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// `ende` becomes the mix of itself and `anfang`: each stereo frame has 1 - f of the first and f of
// the second, where f is the number of its first value divided by `werte`. In double precision,
// rounded once to nearest, ties to even. `werte` counts both channels and is even.
void LinearMischen(std::int16_t* ende, const std::int16_t* anfang, std::size_t werte);

}  // namespace vantora
