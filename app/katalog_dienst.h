// The main window as the windows below it see it: the catalog's door, and the preview.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class KatalogDienst {
 public:
  virtual ~KatalogDienst() = default;
  // Appends a wave file as the last track, and shows the catalog. A file that is missing or cannot
  // be written is not added.
  virtual void Katalog_AddWaveFile(const Text& datei, const Text& titel) = 0;
  // Rebuilds the list, and drops tracks that are gone or invalid.
  virtual void KatalogShow() = 0;
  // Plays a wave file as preview; an empty text stops.
  virtual void PlayWaveNormal(const Text& datei) = 0;
  // The picture behind the window: the user's own where there is one, or none.
  virtual void Hintergrund(bool zeigen) = 0;
  // Plays it from its middle on, when it is long enough to be heard for so many seconds from there.
  virtual void PlayWaveMitte(const Text& datei, std::int32_t sekunden) = 0;
  // Whether the preview counts as playing, as the windows above see it too.
  virtual bool Spielt() const = 0;
  virtual void SpieltSetzen(bool spielt) = 0;
  virtual bool SpielerLaeuft() const = 0;  // the player itself
  // Gives the window back to the user when the one in front of it closes.
  virtual void Freigeben() = 0;
};

}  // namespace vantora
