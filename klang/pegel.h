// The decay of a level meter's needle.
#pragma once

namespace vantora {

// The level after `schritte` steps, each of which takes `prozent` percent off it. A level 54 dB
// below full scale is inaudible and becomes 0.
inline int PegelNach(int pegel, int schritte, int prozent) {
  constexpr int kUnhoerbar = 64;
  for (int i = 0; i < schritte; ++i) pegel -= pegel * prozent / 100;
  return pegel < kUnhoerbar ? 0 : pegel;
}

}  // namespace vantora
