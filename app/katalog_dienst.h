// The operations of the main window that lower windows call: those on the catalog, the preview, and
// the window itself. Programm::Katalogfenster() loads the window if needed.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

class KatalogDienst {
 public:
  virtual ~KatalogDienst() = default;

  // ---- the catalog ----
  // Appends a wave file as the last track, and shows the catalog. A file that does not exist or
  // cannot be written is not added.
  virtual void Katalog_AddWaveFile(const Text& datei, const Text& titel) = 0;
  // Rebuilds the list, and removes tracks whose files are missing or invalid.
  virtual void KatalogShow() = 0;
  virtual void KatalogNeu() = 0;             // empties the list and the times; the tracks stay
  virtual void KatalogInitialisieren() = 0;  // makes an empty catalog with the usual title
  // These functions fill lists with the shown tracks, from index 1; index 0 is unused. Lengths are
  // in seconds and include the pause after the track, except for the last track. While the list is
  // empty, GetKatInfos does not change its arguments.
  virtual void GetFileNames(std::vector<Text>& dateien) const = 0;
  virtual void GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                           std::vector<std::int32_t>& laengen, Text& katalogTitel,
                           Text& katalogInterpret) = 0;
  virtual Text KatalogTitel() const = 0;  // the titles that the window shows
  virtual Text KatalogInterpret() const = 0;
  // Deselects all tracks before this one, and asks the user for its properties.
  virtual void NeuenTrackBearbeiten(int nummer) = 0;

  // ---- the preview ----
  // Plays a wave file; an empty text stops.
  virtual void PlayWaveNormal(const Text& datei) = 0;
  // Plays a wave file; from its middle on, if the whole file lasts at least `sekunden`.
  virtual void PlayWaveMitte(const Text& datei, std::int32_t sekunden) = 0;
  // The flag that the main window and the medley window share: a preview has been started.
  virtual bool Spielt() const = 0;
  virtual void SpieltSetzen(bool spielt) = 0;
  virtual bool SpielerLaeuft() const = 0;  // asks the player itself, not the flag

  // ---- the window ----
  virtual bool Sichtbar() const = 0;
  virtual bool Frei() const = 0;  // the user may operate it
  virtual void FreiSetzen(bool frei) = 0;
  virtual void FokusAufListe() = 0;
  // Shows or hides the picture behind the window. The picture is the user's own, if there is one.
  virtual void Hintergrund(bool zeigen) = 0;
  virtual void Beenden() = 0;  // the exit button: asks, and ends the program
};

}  // namespace vantora
