// The changes that a user makes to the open catalog: adding and moving tracks, and editing the
// properties of a track or of the catalog.
#pragma once

#include "platform/mmtools.h"
#include "platform/text.h"

#include <cstdint>

namespace vantora {

class KatalogListe;
class KatalogZeiten;
class Vorschau;
struct Programm;

class KatalogBearbeitung {
 public:
  // `wave` measures new files.
  KatalogBearbeitung(Programm& programm, KatalogListe& liste, KatalogZeiten& zeiten,
                     Vorschau& vorschau, MMWave& wave);

  // ---- tracks ----
  // Appends a wave file as the last track, and shows the catalog. A file that does not exist or
  // cannot be written is not added.
  void Katalog_AddWaveFile(const Text& datei, const Text& vorschlag);
  void LiedAusKatalogImport();  // appends the tracks that the user has chosen in another catalog
  void SetNewPos(std::int16_t von, std::int16_t nach);  // exchanges two tracks
  void Verschieben(int schritt);  // moves the track in work up (-1) or down (1)
  bool KannVerschieben(int schritt) const;

  // ---- properties, which the user changes in a dialog ----
  void TrackDatenAendern(bool ohneUndo = false);  // asks for changes of the track in work
  void KatalogDatenAendern(bool ohneUndo = false);
  // Opens the dialog for the track in work if a row is selected, else for the catalog.
  void Eigenschaften();
  void NeuenTrackBearbeiten(int nummer);  // deselects all rows before the new track

 private:
  bool Beweglich(int nummer) const;  // a track that is not part of a crossfade
  void TrackUebernehmen();
  void AngabenVergessen();

  Programm& prog;
  KatalogListe& liste_;
  KatalogZeiten& zeiten_;
  Vorschau& vorschau_;
  MMWave& MMWaveFileX1;
};

}  // namespace vantora
