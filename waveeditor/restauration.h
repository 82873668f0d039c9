// The three filters for old recordings. Each can be switched on and off and has a level of 0 to 1,
// which may change from buffer to buffer.
#pragma once

#include "platform/audiolib.h"
#include "platform/chain/component.h"

#include <cstddef>
#include <cstdint>

namespace vantora {

class Restauration {
 public:
  enum Filter { kDeclick, kDecrackle, kDenoiser };  // in the order in which they are applied
  static constexpr Filter kAlle[] = {kDeclick, kDecrackle, kDenoiser};
  static constexpr int kAnfang[] = {10, 30, 20};  // where the sliders of the levels start, percent

  explicit Restauration(Audiolib& bibliothek) : bibliothek_(bibliothek) {}

  void PegelSetzen(Filter filter, float pegel) { Level(filter) = pegel; }
  void Schalten(Filter filter, bool an);
  bool Aktiv() const { return an_[kDeclick] || an_[kDecrackle] || an_[kDenoiser]; }
  // Makes the filters that are on forget earlier sound.
  void Auffrischen();

  // Filters a buffer of 16-bit samples. `hilfe` has room for another buffer of that size, `folgt`
  // is the buffer that comes next, empty at the end of the sound.
  void Anwenden(std::int16_t* klang, std::int16_t* hilfe, std::size_t bytes, const PcmData& folgt);

 private:
  float& Level(Filter filter);

  Audiolib& bibliothek_;
  bool an_[3] = {};
  float DeclickLevel = 0, DecrackleLevel = 0, DenoiserLevel = 0;
};

}  // namespace vantora
