// A linear change of gain over frames of sound, in amplitude: the arithmetic of the fades.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// Multiplies both samples of stereo frames by a gain that is `start` for the frame of number 0 and
// changes by `schritt` with each one, in double precision, and rounds once to nearest, ties to
// even. `erster` is the number of the first of the frames. The gain must stay within 0 and 1.
void Rampe(std::int16_t* werte, std::size_t frames, std::int64_t erster, double start,
           double schritt);

}  // namespace vantora
