#include "backends/sound/restoration/ranked.h"

#include "backends/sound/edits/vector_unit.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace vantora {

namespace {

using Lanes [[gnu::vector_size(4 * kRankedLanes), gnu::aligned(4), gnu::may_alias]] = std::int32_t;

}  // namespace

// Bit for bit the greatest number below which no more than `place` of them lie. The bits of
// positive floats are in the order of the floats. Each bit takes a pass, which the vector unit
// makes short.
VANTORA_VECTOR_UNIT float Ranked(std::int32_t* magnitudes, std::size_t count, std::size_t place) {
  constexpr int kHighest = 30, kLowest = 13;
  std::fill_n(magnitudes + count, kRankedLanes, std::numeric_limits<std::int32_t>::max());
  std::int32_t found = 0;
  for (int bit = kHighest; bit >= kLowest; --bit) {
    const std::int32_t more = found | std::int32_t{1} << bit;
    Lanes below{};
    for (std::size_t i = 0; i < count; i += kRankedLanes) {
      below -= *reinterpret_cast<const Lanes*>(magnitudes + i) < more;  // true is -1
    }
    std::int32_t all = 0;
    for (std::size_t lane = 0; lane < kRankedLanes; ++lane) all += below[lane];
    if (all <= static_cast<std::int32_t>(place)) found = more;
  }
  return std::bit_cast<float>(found);
}

}  // namespace vantora
