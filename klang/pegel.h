// How the needle of a level meter falls.
#pragma once

namespace vantora {

// The level after so many steps in which it loses so many percent of its height each; a level that
// nobody can hear any more, 54 dB below the loudest, is 0.
inline int PegelNach(int pegel, int schritte, int prozent) {
  constexpr int kUnhoerbar = 64;
  for (int i = 0; i < schritte; ++i) pegel -= pegel * prozent / 100;
  return pegel < kUnhoerbar ? 0 : pegel;
}

}  // namespace vantora
