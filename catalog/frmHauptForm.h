// The main window: the catalog as a list, its operations, and the twenty buttons that open all
// other functions. Only this window changes the catalog.
#pragma once

#include "app/fenster.h"
#include "app/katalog_dienst.h"
#include "app/zustand/katalog_eintrag.h"

#include "platform/edits.h"
#include "platform/mmtools.h"

#include <memory>

namespace vantora {

struct WaveBefund;  // catalog/wave_pruefung.h

class frmHauptForm final : public VtrFenster, public KatalogDienst {
 public:
  explicit frmHauptForm(Programm& programm);

  // ---- window ----
  void Form_Load() override;
  void Form_Unload() override;
  void Form_GotFocus() override;
  void Form_Paint() override;
  void Form_Close() override { imgÜberblenden_MouseUp(); }
  void SetTexte() override;
  void Init_Prog();

  bool Soundkarte = false;  // at least one wave output device was found

  // ---- buttons, in the order of their captions ----
  void imgCDKopieren_MouseUp();
  void imgCDAuslesen_MouseUp();
  void imgLPKopieren_MouseUp();
  void imgLPAufnehmen_MouseUp();
  void imgLiedImport_MouseUp();
  void imgLiedKatalog_MouseUp();
  void imgDatenBank_MouseUp();
  void imgExtras_MouseUp();
  void imgNeuerKatalog_MouseUp();
  void imgKatalogÖffnen_MouseUp();
  void imgKatalogSpeichern_MouseUp();
  void imgKatalogAnhaengen_MouseUp();
  void imgPrintCover_MouseUp();
  void imgTitel_MouseUp();
  void imgDeleteTitel_MouseUp();
  void imgÜberblenden_MouseUp();
  void imgBrennen_MouseUp();
  void imgMixer_MouseUp();
  void imgAssistent_MouseUp();
  void imgWaveEdit_MouseUp();
  void mnuWAVEditor_Click();
  void mnuWaveAssistent_Click();  // starts the batch
  void imgAbspielen_MouseUp();
  void imgStop_MouseUp();
  void imgMove_MouseUp(int index);  // 0 up, 1 down
  void imgDelTitel_MouseUp();
  void imgTitelBearb_MouseUp();
  void imgMinimize_MouseUp();
  void Logo_Click();
  void lvwKatalog_ItemClick(int zeile);
  void lvwKatalog_KeyUp(int taste);
  void lvwKatalog_MouseUp(int taste);
  // Dropped files do not enter the catalog: only the import button adds files.
  bool lvwKatalog_OLEDragOver(const std::vector<Text>& dateien) const;
  void lvwKatalog_OLEDragDrop(const std::vector<Text>& dateien);
  void lvwKatalog_DragDrop() {}

  // ---- catalog operations ----
  void KatalogNeu();                         // empties the view only
  void KatalogInitialisieren();              // begins a new catalog
  void KatalogGeaendertFragen();             // offers to save a changed catalog
  bool KatalogSpeichern(const Text& datei);  // false: the user refused to replace a file
  std::int64_t KatalogLaengeBerechnen(Text& text) const;  // returns ms; `text` becomes "hh:mm:ss"
  void ObInZeitGrenzen(std::int64_t ms);
  void Katalog_AddWaveFile(const Text& datei, const Text& titel) override;
  void KatRowDelete();
  void SetNewPos(std::int16_t von, std::int16_t nach);
  void KatalogLastStepSave();
  void KatalogUndo();
  void KatalogAnfuegen(const KatalogFeld& quelle);
  void LoadLastCat();
  void KatalogTitelSuchen(const Text& datei, const Text& datum, Text& titel, Text& interpret,
                          Text& pause);
  // Fills the lists from index 1; index 0 is unused. Lengths are in seconds.
  void GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                   std::vector<std::int32_t>& laengen, Text& katalogTitel, Text& katalogInterpret);
  void GetFileNames(std::vector<Text>& dateien) const;
  // Rebuilds the list, rereads changed files, and removes tracks whose files are missing or
  // invalid.
  void KatalogShow() override;
  void MedleyFunktion();
  void TrackDatenAendern(bool ohneUndo = false);
  void KatalogDatenAendern(bool ohneUndo = false);
  void LiedAusKatalogAnzeige();
  void LiedAusKatalogImport();

  // Plays a wave file as preview; an empty text stops.
  void PlayWaveNormal(const Text& datei) override;
  void Hintergrund(bool zeigen) override;
  void PlayWaveMitte(const Text& datei, std::int32_t sekunden) override;
  bool Spielt() const override { return Abspielen; }
  void SpieltSetzen(bool spielt) override { Abspielen = spielt; }
  bool SpielerLaeuft() const override { return WavePlayer->Playing(); }
  void Freigeben() override { Window.Enabled = true; }

  std::int16_t AktuellerTitel = 0;  // selected track, 0 for none
  bool Abspielen = false;
  bool KatalogAnzeigenInteraktiv = true;
  bool KatalogGeladen = false;  // the next display leaves lblKatalogDatei unchanged
  std::int16_t DateienGesamt = 0, DateienOffen = 0, DateiNummer = 0;  // of one import

  // ---- controls ----
  PictureButton Logo{*this, L"Logo"};
  Label lblVersion{*this, L"lblVersion"};
  PictureButton imgMinimize{*this, L"imgMinimize"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Label lblKatalogTitel{*this, L"lblKatalogTitel"};
  Label lblKatalogInterpret{*this, L"lblKatalogInterpret"};
  Label lblKatalogDatei{*this, L"lblKatalogDatei"};
  Shape shpStapel{*this, L"shpStapel"};  // over the file's name: the progress of a batch
  Label lblKatalogLaenge{*this, L"lblKatalogLaenge"};
  Label lblRestzeitCD{*this, L"lblRestzeitCD"};
  Label lblTimeOver{*this, L"lblTimeOver"};
  LevelMeter Level{*this, L"Level"};
  ListView lvwKatalog{*this, L"lvwKatalog"};
  ControlArray<PictureButton, 2> imgMove{*this, L"imgMove"};
  PictureButton imgAbspielen{*this, L"imgAbspielen"};
  PictureButton imgStop{*this, L"imgStop"};
  PictureButton imgTitelBearb{*this, L"imgTitelBearb"};
  PictureButton imgDelTitel{*this, L"imgDelTitel"};
  PictureButton imgCDKopieren{*this, L"imgCDKopieren"};
  PictureButton imgCDAuslesen{*this, L"imgCDAuslesen"};
  PictureButton imgLPKopieren{*this, L"imgLPKopieren"};
  PictureButton imgLPAufnehmen{*this, L"imgLPAufnehmen"};
  PictureButton imgLiedImport{*this, L"imgLiedImport"};
  PictureButton imgLiedKatalog{*this, L"imgLiedKatalog"};
  PictureButton imgDatenBank{*this, L"imgDatenBank"};
  PictureButton imgExtras{*this, L"imgExtras"};
  PictureButton imgNeuerKatalog{*this, L"imgNeuerKatalog"};
  PictureButton imgKatalogÖffnen{*this, L"imgKatalogÖffnen"};
  PictureButton imgKatalogSpeichern{*this, L"imgKatalogSpeichern"};
  PictureButton imgKatalogAnhaengen{*this, L"imgKatalogAnhaengen"};
  PictureButton imgPrintCover{*this, L"imgPrintCover"};
  PictureButton imgTitel{*this, L"imgTitel"};
  PictureButton imgDeleteTitel{*this, L"imgDeleteTitel"};
  PictureButton imgÜberblenden{*this, L"imgÜberblenden"};
  PictureButton imgBrennen{*this, L"imgBrennen"};
  PictureButton imgMixer{*this, L"imgMixer"};
  PictureButton imgAssistent{*this, L"imgAssistent"};
  PictureButton imgWaveEdit{*this, L"imgWaveEdit"};
  ControlArray<Label, 20> lblButtCaption{*this, L"lblButtCaption"};

  // ---- components ----
  std::unique_ptr<MMWavePlayerX> WavePlayer;
  std::unique_ptr<MMWave> MMWaveFileX1;

 private:
  Text grundbild_;  // the background when the user has chosen no picture
  // start-up
  void BildschirmPruefen();
  void GrossesLayout();
  void StartAssistentZeigen();
  MendedEdits Ausgebessert;  // what the start has repaired after a program was killed
  void AusgebessertZeigen();
  void Schritt(const std::function<void()>& anweisung);
  bool NochmalNachFehler(int nummer, const Text& beschreibung);
  void StartKomponenten();
  void StartSoundkarte();
  void StartOptionen();
  void StartBrenner();
  void Status(int text);
  void KnoepfeEinrichten();
  void MenueEinrichten();
  void MMConnectorX1();  // connects the player with the level meter

  // texts
  struct TabellenKnopf {
    PictureButton* Knopf;
    void (frmHauptForm::*Aktion)();
  };
  std::vector<TabellenKnopf> KnopfTabelle();

  // display
  void ZeileFuellen(int i, const Text& datei, const WaveBefund& befund);
  void PauseBestimmen(int i);
  void DateiNachlesen(KatalogEintrag& eintrag, const Text& datei, const WaveBefund& befund);
  bool UngueltigeEntfernen(const std::vector<WaveBefund>& befunde);
  void RestzeitZeigen(std::int64_t restMs, bool gruen);
  void ZeigeLaengeNachOeffnen();
  void MixerFragen();
  int GewaehlteZeile() const;

  // operations
  struct KatalogNamen {
    Text Datei, Letzter;
  };
  enum class Sicherung { Fertig, Abgelehnt, Abgebrochen };
  Sicherung KatalogSichern();  // asks once for a name
  bool KatalogWaehlen(int mehrere, KatalogNamen& gewaehlt);
  void NeuerKatalog();  // begins an empty catalog without a file
  KatalogNamen Namen() const;
  void NamenSetzen(const KatalogNamen& namen);
  KatalogNamen KatalogDialog(int modus);
  // Returns the present number of a record that was at `nummer`. Removed records above it may have
  // moved it up; 0 when the record itself was removed.
  int Wiederfinden(const KatalogEintrag& eintrag, int nummer) const;
  void TitelUndInterpret(const Text& datei, const Text& datum, const Text& vorschlag, Text& titel,
                         Text& interpret);

  // import
  enum class Einfuhr { Fertig, Weiter, Ende };  // what becomes of the rest of the files
  Einfuhr EineDatei(const Text& datei, bool mehrere);
  Einfuhr WaveDatei(const Text& datei, bool mehrere, Text& fertig);
  Einfuhr Mp3Datei(const Text& datei, Text& fertig);
  bool VonCDKopieren(Text& datei);
  Einfuhr Mp3Ziel(const Text& datei, Text& ziel);
  Einfuhr Mp3Konvertieren(const Text& quelle, const Text& ziel);
  void Aufnehmen(const Text& datei);

  // copying a CD
  bool KopieLaeuft = false;  // from the button to the burn window
  void CDKopieren();
  Text QuellLaufwerk();
  bool QuellDiscOeffnen(const Text& laufwerk);
  bool KopieVorbereiten();
  bool KopieLesen();
  void KopieBrennen();

  // recording
  void AufnahmeOeffnen(std::int16_t lpModus);

  // a batch in the wave editor
  void StapelLaufen(const std::vector<Text>& dateien);
  void StapelBeenden();

  // burning
  bool BrennDateienPruefen();
};

}  // namespace vantora
