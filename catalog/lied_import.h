// The import of audio files into the catalog, one or many at a time. An MP3 file is converted to a
// wave file first, and a file on a CD-ROM is copied to the disk.
#pragma once

#include "platform/mmtools.h"
#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

class HauptFenster;
class KatalogBearbeitung;
class KatalogListe;
class Vorschau;
struct Programm;

class LiedImport {
 public:
  // The other parts of the main window that an import uses. `Wave` checks and measures the files.
  struct Teile {
    KatalogListe& Liste;
    KatalogBearbeitung& Bearbeitung;
    vantora::Vorschau& Vorschau;
    MMWave& Wave;
  };
  LiedImport(Programm& programm, Teile teile, HauptFenster& fenster);

  void Importieren();  // asks for files, and appends them to the catalog
  // Returns true if all these files can be imported.
  static bool NurMusik(const std::vector<Text>& dateien);

  // Numbers of files in the present import, or in the last one.
  std::int16_t DateienGesamt() const { return DateienGesamt_; }
  std::int16_t DateienOffen() const { return DateienOffen_; }  // not yet in the catalog

 private:
  enum class Einfuhr { Fertig, Weiter, Ende };  // whether the import goes on with the other files
  void VieleDateien();
  Einfuhr EineDatei(const Text& datei, bool mehrere);
  Einfuhr WaveDatei(const Text& datei, bool mehrere, Text& fertig);
  Einfuhr Mp3Datei(const Text& datei, Text& fertig);
  bool VonCDKopieren(Text& datei);
  Einfuhr Mp3Ziel(const Text& datei, Text& ziel);
  Einfuhr Mp3Konvertieren(const Text& quelle, const Text& ziel);
  void Aufnehmen(const Text& datei);

  Programm& prog;
  Teile t_;
  HauptFenster& fenster_;
  std::int16_t DateienGesamt_ = 0, DateienOffen_ = 0;
  std::int16_t DateiNummer = 0;  // number of the present file among several, from 0
};

}  // namespace vantora
