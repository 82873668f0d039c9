// A linear change of gain over frames of sound, as the fades use it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// Multiplies both samples of each stereo frame by a gain. The gain is `start` at frame 0 and grows
// by `schritt` a frame; `erster` is the number of the first frame in `werte`. Computes in double
// precision and rounds once to nearest, ties to even. The gain must stay between 0 and 1.
void Rampe(std::int16_t* werte, std::size_t frames, std::int64_t erster, double start,
           double schritt);

}  // namespace vantora
