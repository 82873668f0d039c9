// The running program: its services, its settings, the state that its windows work on, and the
// windows themselves. There is no other state, so a test can make several programs.
#pragma once

#include "app/dienste.h"
#include "app/einstellungen.h"
#include "app/fenster.h"
#include "app/zustand/aufnahme_zustand.h"
#include "app/zustand/cover.h"
#include "app/zustand/editor_zustand.h"
#include "app/zustand/grab_zustand.h"
#include "app/zustand/katalog_zustand.h"
#include "app/zustand/medley.h"
#include "app/zustand/schlag_zustand.h"

#include "platform/plattform.h"

#include <memory>
#include <vector>

namespace vantora {

class frmStartUp;
class frmHauptForm;
class frmKomponenten;
class frmMBox;
class frmAbout;
class frmNeuerInterpret;
class frmLiedAusKatalog;
class frmCDBrennen;
class frmSchreibFortschritt;
class frmLoadSave;
class frmExtrasMenue;
class frmSchrift;
class frmFarbe;
class frmDrucken;
class frmStartAssistent;
class frmMixer;
class frmCDPlayer;
class frmDatenbank;
class frmWaveEditor;
class frmSpektrum;
class frmAufnehmen;
class frmPrintStart;
class frmPrint;
class frmMedley;
class frmBeatCounter;
class KatalogDienst;

// Flags of a message box; only those in use.
enum MeldungsArt : int {
  kOk = 0,
  kJaNein = 4,
  kStopp = 16,
  kFrage = 36,
  kWarnung = 48,
  kHinweis = 64,
  kErfolg = 128,    // one button, and the sign of success
  kAuskunft = 256,  // one button, and the sign of information
};
enum Antwort : int { kJa = 6, kNein = 7 };

struct Programm : Dienste,
                  Einstellungen,
                  KatalogZustand,
                  DialogFelder,
                  BrennZustand,
                  GrabZustand,
                  EditorZustand,
                  AufnahmeZustand,
                  MedleyZustand,
                  CoverZustand,
                  SchlagZustand {
  // Sets the makers of all windows.
  using Fenstermacher = void (*)(Programm&);

  Programm(Plattform& dienste, Fenstermacher fenster);
  ~Programm();
  Programm(const Programm&) = delete;
  Programm& operator=(const Programm&) = delete;

  // Starts the program and runs the event loop until the process ends. Returns false when an error
  // kept the main window from opening.
  bool Laufen();

  // Shows a message in the program's own window and returns 6 (yes) or 7. A blank title is the
  // program's name; `nichtMehrZeigen` offers to leave the message out in future.
  int MsgBoxen(const vantora::Text& text, int flags);
  int MsgBoxen(const vantora::Text& text, int flags, const vantora::Text& titel,
               bool nichtMehrZeigen = false);

  // These functions report in the program's words why a print job failed, why a picture could not
  // be read, or why a batch could not apply the effects to a file. Text number `danach` says what
  // became of the batch.
  void DruckFehlerMelden(const Laufzeitfehler& fehler);
  void BildFehlerMelden(const vantora::Text& datei, const Laufzeitfehler& fehler);
  void StapelFehlerMelden(const vantora::Text& datei, const Laufzeitfehler& fehler, int danach);

  // The main window, through the interface for lower windows. Loads the window if needed.
  KatalogDienst& Katalogfenster();

  void LoadLastDir();
  void LastDirSave();
  void LastCatSave();
  void LoadExtrasSet() { vantora::LoadExtrasSet(plattform, *this); }
  void SaveExtrasSet() { vantora::SaveExtrasSet(plattform, *this); }

  // Ends the program; without `ohneFrage` the user is asked first and may cancel.
  void ProgrammBeenden(bool ohneFrage = false);
  // Compares the versions of the components with the expected ones; a difference ends the program.
  // The start does not call it.
  void KomponentenPruefen();
  void Hilfe(const vantora::Text& fenster);  // opens the help at the page of a window

  void Zeigen(VtrFenster& fenster);
  void ZeigeModal(const std::shared_ptr<VtrFenster>& fenster);
  // Processes events for `ms` milliseconds inside a long job, so that the windows stay alive.
  void Pausieren(int ms);
  void Pausieren(int ms, const bool& solange);  // ends early when `solange` becomes false
  // Keeps an unloaded window alive until no handler is running.
  void Zuruecklegen(std::shared_ptr<VtrFenster> fenster);

  // Start-up results.
  vantora::Text AppPfad;
  std::int32_t BildschirmHoehe = 0, BildschirmBreite = 0;  // pixels
  bool BrennerGeladen = false;
  vantora::Text PdfOrdner;  // the folder of the last printed PDF; blank before the first

  Fenster<vantora::frmStartUp> frmStartUp{*this};
  Fenster<vantora::frmHauptForm> frmHauptForm{*this};
  Fenster<vantora::frmKomponenten> frmKomponenten{*this};
  Fenster<vantora::frmMBox> frmMBox{*this};
  Fenster<vantora::frmAbout> frmAbout{*this};
  Fenster<vantora::frmNeuerInterpret> frmNeuerInterpret{*this};
  Fenster<vantora::frmLiedAusKatalog> frmLiedAusKatalog{*this};
  Fenster<vantora::frmCDBrennen> frmCDBrennen{*this};
  Fenster<vantora::frmSchreibFortschritt> frmSchreibFortschritt{*this};
  Fenster<vantora::frmLoadSave> frmLoadSave{*this};
  Fenster<vantora::frmExtrasMenue> frmExtrasMenue{*this};
  Fenster<vantora::frmSchrift> frmSchrift{*this};
  Fenster<vantora::frmFarbe> frmFarbe{*this};
  Fenster<vantora::frmDrucken> frmDrucken{*this};
  Fenster<vantora::frmStartAssistent> frmStartAssistent{*this};
  Fenster<vantora::frmMixer> frmMixer{*this};
  Fenster<vantora::frmCDPlayer> frmCDPlayer{*this};
  Fenster<vantora::frmDatenbank> frmDatenbank{*this};
  Fenster<vantora::frmWaveEditor> frmWaveEditor{*this};
  Fenster<vantora::frmSpektrum> frmSpektrum{*this};
  Fenster<vantora::frmAufnehmen> frmAufnehmen{*this};
  Fenster<vantora::frmPrintStart> frmPrintStart{*this};
  Fenster<vantora::frmPrint> frmPrint{*this};
  Fenster<vantora::frmMedley> frmMedley{*this};
  Fenster<vantora::frmBeatCounter> frmBeatCounter{*this};

 private:
  void VerzeichnisseAnlegen(const std::vector<vantora::Text>& pfade);
  void FehlerMelden(const Laufzeitfehler& fehler);
  void FehlerVermerken(const vantora::Text& was);  // writes an error into the log
  void EinstellungenMelden(const vantora::Text& datei, const Laufzeitfehler& grund);

  // A window may be unloaded by one of its own handlers, or while a message box above it is still
  // open, so it lives on until no handler is running.
  std::vector<std::shared_ptr<VtrFenster>> entladene_;
};

}  // namespace vantora
