// Multiplies 16-bit samples by a factor.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

// Computes in single precision and rounds to nearest, ties to even: the result is within 1/2 +
// 1/256 of the exact product. The products must fit into 16 bits.
void ScaleSamples(std::int16_t* samples, std::size_t count, float factor);

}  // namespace vantora
