// The main window as the windows below it see it: the catalog with its list, the preview, and the
// window itself. All calls load it if need be (see Programm::Katalogfenster).
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

class KatalogDienst {
 public:
  virtual ~KatalogDienst() = default;

  // ---- the catalog ----
  // Appends a wave file as the last track, and shows the catalog. A file that is missing or cannot
  // be written is not added.
  virtual void Katalog_AddWaveFile(const Text& datei, const Text& titel) = 0;
  // Rebuilds the list, and drops tracks that are gone or invalid.
  virtual void KatalogShow() = 0;
  virtual void KatalogNeu() = 0;             // empties the list and the times; the tracks stay
  virtual void KatalogInitialisieren() = 0;  // an empty catalog under the usual title
  // The shown tracks, from index 1; 0 is unused. Lengths are seconds and include the pause behind
  // all tracks but the last. An empty list leaves the arguments of GetKatInfos as they are.
  virtual void GetFileNames(std::vector<Text>& dateien) const = 0;
  virtual void GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                           std::vector<std::int32_t>& laengen, Text& katalogTitel,
                           Text& katalogInterpret) = 0;
  virtual Text KatalogTitel() const = 0;  // as the window shows them
  virtual Text KatalogInterpret() const = 0;
  // Takes the selection from the tracks before this one, and asks the user for its properties.
  virtual void NeuenTrackBearbeiten(int nummer) = 0;

  // ---- the preview ----
  // Plays a wave file; an empty text stops.
  virtual void PlayWaveNormal(const Text& datei) = 0;
  // Plays it from its middle on, when it is long enough to be heard for so many seconds from there.
  virtual void PlayWaveMitte(const Text& datei, std::int32_t sekunden) = 0;
  // Whether the preview counts as playing, as the windows above see it too.
  virtual bool Spielt() const = 0;
  virtual void SpieltSetzen(bool spielt) = 0;
  virtual bool SpielerLaeuft() const = 0;  // the player itself

  // ---- the window ----
  virtual bool Sichtbar() const = 0;
  virtual bool Frei() const = 0;  // takes keys and the mouse
  virtual void FreiSetzen(bool frei) = 0;
  virtual void FokusAufListe() = 0;
  // The picture behind the window: the user's own where there is one, or none.
  virtual void Hintergrund(bool zeigen) = 0;
  virtual void Beenden() = 0;  // the exit button: asks, and ends the program
};

}  // namespace vantora
