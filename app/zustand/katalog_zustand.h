// What the windows know of the open catalog, beside its records.
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
  std::vector<std::int16_t> QuellAuswahl;  // their record numbers

  // What the track properties window hands back; blank when nothing is pending.
  Text NeuInterpret, NeuTitel, NeuPause;
  bool DialogBestaetigt = false;
};

// What the file dialog is open for.
enum DateiModus : int { kModusOeffnen = 1, kModusSichern = 2 };

// Result and request of the file dialog.
struct DialogFelder {
  std::int16_t DialogModus = kModusOeffnen;
  Text DialogPfad;      // start directory; on return the directory chosen
  Text DialogMuster;    // "*.vtr"
  Text DialogName;      // name in the text box
  Text GewaehlteDatei;  // full path, or several with "/" behind each
  Text DialogVerzeichnis;
  bool DialogAbbruch = false;
  bool MehrfachAuswahl = false;
};

// What the progress window shows the course of.
enum FortschrittModi : std::int32_t { kModusMp3 = 0, kModusGrab = 1, kModusBrennen = 2 };

// What the burn run and its neighbours share.
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
