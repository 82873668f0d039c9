#include "backends/sound/edits/scale.h"

#include "backends/sound/edits/vector_unit.h"

#include <bit>

namespace vantora {

namespace {

// Adding this constant rounds to an integer, which is then in the lowest bits of the sum. This is
// faster than the processor's conversion instructions, and single precision is twice as fast as
// double.
constexpr float kRounding = 12582912.0F;

}  // namespace

VANTORA_VECTOR_UNIT void ScaleSamples(std::int16_t* samples, std::size_t count, float factor) {
  for (std::size_t i = 0; i < count; ++i) {
    const float rounded = static_cast<float>(samples[i]) * factor + kRounding;
    samples[i] = static_cast<std::int16_t>(std::bit_cast<std::int32_t>(rounded));
  }
}

}  // namespace vantora
