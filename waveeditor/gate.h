// The gate: silences sound that stays soft. The gate closes with the buffer in which the sound has
// been soft for longer than the hold time. It stays closed while the sound is soft, and opens with
// the first loud buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantora {

class Gate {
 public:
  bool An = false;
  int Schwelle = 0;                           // sample units; 0 never closes
  int HalteMs = 0;                            // the hold time
  std::function<void(bool offen)> OnZustand;  // for each buffer that is loud or is silenced

  // Silences a buffer of 16-bit samples or leaves it. `spitzen` is the sum of its two peaks.
  void Anwenden(std::int16_t* klang, std::size_t bytes, int spitzen);
  void Auffrischen() { GateZaehler = 0; }  // opens the gate

 private:
  std::int32_t GateZaehler = 0;  // frames under the threshold; 0: open, and not counting
};

}  // namespace vantora
