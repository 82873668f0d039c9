// The state of the open catalog that several windows use.
#pragma once

#include "app/zustand/katalog_eintrag.h"

namespace vantora {

struct KatalogZustand {
  KatalogFeld Katalog;
  KatalogFeld KatalogBackup;  // the one-step undo copy
  bool KatalogGeaendert = false;
  Text KatalogDatei;                // path shown in lblKatalogDatei
  Text LetzterKatalog;              // path of the catalog opened or saved last
  bool KatalogUeberLaenge = false;  // longer than 74 minutes

  KatalogFeld QuellKatalog;                // another catalog, from which tracks are taken
  std::vector<std::int16_t> QuellAuswahl;  // record numbers of the tracks to take from QuellKatalog

  // Results of the track properties window; blank when there are none to take over.
  Text NeuInterpret, NeuTitel, NeuPause;
  bool DialogBestaetigt = false;
};

// The purpose of the file dialog.
enum DateiModus : int { kModusOeffnen = 1, kModusSichern = 2 };

// Request to the file dialog, and its result.
struct DialogFelder {
  std::int16_t DialogModus = kModusOeffnen;
  Text DialogPfad;      // start directory; afterwards the chosen directory
  Text DialogMuster;    // "*.vtr"
  Text DialogName;      // name in the text box
  Text GewaehlteDatei;  // full path, or several with "/" behind each
  Text DialogVerzeichnis;
  bool DialogAbbruch = false;
  bool MehrfachAuswahl = false;
};

// The job whose progress the progress window shows.
enum FortschrittModi : std::int32_t { kModusMp3 = 0, kModusGrab = 1, kModusBrennen = 2 };

// The state of a burn that several windows use.
struct BrennZustand {
  std::vector<Text> BrennDateien;  // wave files in catalog order, from index 1; 0 is unused
  std::int32_t FortschrittModus = kModusMp3;
  float BurnStartZeit = 0;  // seconds of the system timer
  float TrackStartZeit = 0;
  bool CDKopieAktiv = false;  // from the end of the read of a CD copy until its waves are removed

  bool BrennerBereit = false;  // the last Init_Brenner found a usable burner
  bool BrennerFensterGeschlossen = false;
  bool BrennerFensterGeladen = false;
  bool ZeigeTAOHinweis = true;  // string 4021 is still shown
};

}  // namespace vantora
