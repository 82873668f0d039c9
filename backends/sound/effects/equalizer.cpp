#include "backends/sound/effects/equalizer.h"

namespace vantora {

void Equalizer::Add(double /*frequencyFrom*/, double /*frequencyTo*/, double gain) {
  bands_.emplace_back().SetGain(gain);
}

MMEqualizerX::Filter& Equalizer::Item(int index) {
  return bands_.at(static_cast<std::size_t>(index));
}

}  // namespace vantora
