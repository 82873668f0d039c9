// The number at a place in the order of magnitudes, without sorting them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantora {

constexpr std::size_t kRankedLanes = 16;

// The magnitude with `place` smaller ones among `count`, a thousandth too small at most.
// `magnitudes` holds the bits of numbers of which none is negative, and has room for kRankedLanes
// more, which are written over.
float Ranked(std::int32_t* magnitudes, std::size_t count, std::size_t place);

}  // namespace vantora
