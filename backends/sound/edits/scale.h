// Samples of 16 bits times a factor.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// In single precision, rounded to nearest with ties to even: within half a step of the sound and
// 1/256 of the exact product. The products must be within 16 bits.
void ScaleSamples(std::int16_t* samples, std::size_t count, float factor);

}  // namespace vantora
