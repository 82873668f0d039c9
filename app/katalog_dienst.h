// The operations of the main window that lower windows call: those on the catalog, and the preview.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class KatalogDienst {
 public:
  virtual ~KatalogDienst() = default;
  // Appends a wave file as the last track, and shows the catalog. A file that does not exist or
  // cannot be written is not added.
  virtual void Katalog_AddWaveFile(const Text& datei, const Text& titel) = 0;
  // Rebuilds the list, and removes tracks whose files are missing or invalid.
  virtual void KatalogShow() = 0;
  // Plays a wave file as preview; an empty text stops.
  virtual void PlayWaveNormal(const Text& datei) = 0;
  // Shows or hides the picture behind the window. The picture is the user's own, if there is one.
  virtual void Hintergrund(bool zeigen) = 0;
  // Plays a wave file; from its middle on, if the whole file lasts at least `sekunden`.
  virtual void PlayWaveMitte(const Text& datei, std::int32_t sekunden) = 0;
  // The flag that the main window and the medley window share: a preview has been started.
  virtual bool Spielt() const = 0;
  virtual void SpieltSetzen(bool spielt) = 0;
  virtual bool SpielerLaeuft() const = 0;  // asks the player itself, not the flag
  // Lets the user operate the main window again when the window in front of it closes.
  virtual void Freigeben() = 0;
};

}  // namespace vantora
