#include "backends/sound/edits/scale.h"

#include "backends/sound/edits/vector_unit.h"

#include <bit>

namespace vantora {

namespace {

// Added to a number, it leaves no room for digits behind the point, and the whole number stands in
// the lowest bits. No conversion of the processor's is as fast, and single precision goes twice as
// fast as double.
constexpr float kRounding = 12582912.0F;

}  // namespace

VANTORA_VECTOR_UNIT void ScaleSamples(std::int16_t* samples, std::size_t count, float factor) {
  for (std::size_t i = 0; i < count; ++i) {
    const float rounded = static_cast<float>(samples[i]) * factor + kRounding;
    samples[i] = static_cast<std::int16_t>(std::bit_cast<std::int32_t>(rounded));
  }
}

}  // namespace vantora
