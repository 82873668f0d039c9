// The main window: the catalog as a list, its operations, and the twenty buttons that open all
// other functions. Only this window changes the catalog.
//
// The window holds the controls and forwards: each handler hands the work to one of the parts,
// which keep their state to themselves (preview, list, times, edits, files, import, copy of a disc,
// batch, start).
#pragma once

#include "app/fenster.h"
#include "app/katalog_dienst.h"
#include "catalog/cd_kopie.h"
#include "catalog/effekt_stapel.h"
#include "catalog/haupt_fenster.h"
#include "catalog/katalog_ablage.h"
#include "catalog/katalog_bearbeitung.h"
#include "catalog/katalog_liste.h"
#include "catalog/katalog_zeiten.h"
#include "catalog/lied_import.h"
#include "catalog/programm_start.h"
#include "catalog/vorschau.h"

#include "platform/mmtools.h"

#include <memory>

namespace vantora {

class frmHauptForm final : public VtrFenster, public KatalogDienst, private HauptFenster {
 public:
  explicit frmHauptForm(Programm& programm);

  // ---- window ----
  void Form_Load() override;
  void Form_Unload() override;
  void Form_GotFocus() override;
  void Form_Paint() override;
  void Form_Close() override { imgÜberblenden_MouseUp(); }
  void SetTexte() override;
  void Init_Prog() { start_.Init_Prog(); }

  // ---- buttons, in the order of their captions ----
  void imgCDKopieren_MouseUp() { kopie_.Kopieren(); }
  void imgCDAuslesen_MouseUp();
  void imgLPKopieren_MouseUp();
  void imgLPAufnehmen_MouseUp();
  void imgLiedImport_MouseUp() { import_.Importieren(); }
  void imgLiedKatalog_MouseUp() { ablage_.LiedKatalog(); }
  void imgDatenBank_MouseUp();
  void imgExtras_MouseUp();
  void imgNeuerKatalog_MouseUp();
  void imgKatalogÖffnen_MouseUp() { ablage_.Oeffnen(); }
  void imgKatalogSpeichern_MouseUp() { ablage_.Speichern(); }
  void imgKatalogAnhaengen_MouseUp() { ablage_.Anhaengen(); }
  void imgPrintCover_MouseUp();
  void imgTitel_MouseUp();
  void imgDeleteTitel_MouseUp();
  void imgÜberblenden_MouseUp();
  void imgBrennen_MouseUp() override;
  void imgMixer_MouseUp();
  void imgAssistent_MouseUp() { mnuWaveAssistent_Click(); }
  void imgWaveEdit_MouseUp();
  void mnuWAVEditor_Click();
  void mnuWaveAssistent_Click() { stapel_.Beginnen(); }
  void imgAbspielen_MouseUp();
  void imgStop_MouseUp() { vorschau_.Stop(); }
  void imgMove_MouseUp(int index) { bearbeitung_.Verschieben(index == 0 ? -1 : 1); }  // 0 up
  void imgDelTitel_MouseUp() { KatRowDelete(); }
  void imgTitelBearb_MouseUp() { bearbeitung_.Eigenschaften(); }
  void imgMinimize_MouseUp();
  void Logo_Click();
  void lvwKatalog_ItemClick(int zeile);
  void lvwKatalog_KeyUp(int taste);
  void lvwKatalog_MouseUp(int taste);
  // Dropped files do not enter the catalog: only the import button adds files, because it asks the
  // user about them.
  bool lvwKatalog_OLEDragOver(const std::vector<Text>& dateien) const;
  void lvwKatalog_OLEDragDrop(const std::vector<Text>& /*dateien*/) {}
  void lvwKatalog_DragDrop() {}

  // ---- catalog operations ----
  void KatalogNeu() override { liste_.KatalogNeu(); }
  void KatalogInitialisieren() override { ablage_.KatalogInitialisieren(); }
  void KatalogGeaendertFragen() { ablage_.KatalogGeaendertFragen(); }
  bool KatalogSpeichern(const Text& datei) { return ablage_.KatalogSpeichern(datei); }
  std::int64_t KatalogLaengeBerechnen(Text& text) const;  // returns ms; `text` becomes "hh:mm:ss"
  void ObInZeitGrenzen(std::int64_t ms) { zeiten_.ObInZeitGrenzen(ms); }
  void Katalog_AddWaveFile(const Text& datei, const Text& titel) override;
  void KatRowDelete() { liste_.KatRowDelete(); }
  void SetNewPos(std::int16_t von, std::int16_t nach) { bearbeitung_.SetNewPos(von, nach); }
  void KatalogLastStepSave() { liste_.KatalogLastStepSave(); }
  void KatalogUndo() { liste_.KatalogUndo(); }
  void LoadLastCat() { ablage_.LoadLastCat(); }
  void GetKatInfos(std::vector<Text>& interpreten, std::vector<Text>& titel,
                   std::vector<std::int32_t>& laengen, Text& katalogTitel,
                   Text& katalogInterpret) override;
  void GetFileNames(std::vector<Text>& dateien) const override { liste_.GetFileNames(dateien); }
  Text KatalogTitel() const override { return liste_.KatalogTitel(); }
  Text KatalogInterpret() const override { return liste_.KatalogInterpret(); }
  void KatalogShow() override { liste_.KatalogShow(); }
  void MedleyFunktion();
  void TrackDatenAendern(bool ohneUndo = false) { bearbeitung_.TrackDatenAendern(ohneUndo); }
  void NeuenTrackBearbeiten(int nummer) override { bearbeitung_.NeuenTrackBearbeiten(nummer); }
  void KatalogDatenAendern(bool ohneUndo = false) { bearbeitung_.KatalogDatenAendern(ohneUndo); }
  void LiedAusKatalogAnzeige() { ablage_.LiedAusKatalogAnzeige(); }
  void LiedAusKatalogImport() { bearbeitung_.LiedAusKatalogImport(); }

  // ---- preview and window, for lower windows ----
  void PlayWaveNormal(const Text& datei) override { vorschau_.PlayWaveNormal(datei); }
  void PlayWaveMitte(const Text& datei, std::int32_t sekunden) override;
  bool Spielt() const override { return vorschau_.Spielt(); }
  void SpieltSetzen(bool spielt) override { vorschau_.SpieltSetzen(spielt); }
  bool SpielerLaeuft() const override { return vorschau_.SpielerLaeuft(); }
  void Hintergrund(bool zeigen) override;
  bool Sichtbar() const override { return Visible(); }
  bool Frei() const override { return Window.Enabled; }
  void FreiSetzen(bool frei) override { Window.Enabled = frei; }
  void FokusAufListe() override;
  void Beenden() override { imgÜberblenden_MouseUp(); }

  // ---- state ----
  bool Soundkarte() const { return vorschau_.Soundkarte(); }
  int AktuellerTitel() const { return liste_.AktuellerTitel(); }
  const LiedImport& Import() const { return import_; }

  // ---- controls ----
  PictureButton Logo{*this, L"Logo"};
  Label lblVersion{*this, L"lblVersion"};
  PictureButton imgMinimize{*this, L"imgMinimize"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Label lblKatalogTitel{*this, L"lblKatalogTitel"};
  Label lblKatalogInterpret{*this, L"lblKatalogInterpret"};
  Label lblKatalogDatei{*this, L"lblKatalogDatei"};
  Shape shpStapel{*this, L"shpStapel"};  // the progress of a batch; lies over the file's name
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

  std::unique_ptr<MMWave> MMWaveFileX1;  // measures and checks wave files

 private:
  struct TabellenKnopf {
    PictureButton* Knopf;
    void (frmHauptForm::*Aktion)();
  };

  // A command of the list's menu, and the key that does the same.
  struct Befehl {
    Text Name;  // of its menu item
    int Wort;   // number of its text; 0 for a line between items
    Shortcut Taste;
    std::function<void()> Klick;
  };

  // HauptFenster
  void KnoepfeZeigen() override;
  void EndeErlauben(bool erlaubt) override { CloseWhileDisabled = erlaubt; }

  // construction
  std::vector<TabellenKnopf> KnopfTabelle();
  void KnoepfeEinrichten();
  std::vector<Befehl> Befehle();
  void MenueEinrichten();
  void MenueBeschriften();
  void GroesseAnpassen();

  void VorspielUmschalten();

  // other windows
  void StartAssistentZeigen();
  void AufnahmeOeffnen(std::int16_t lpModus);
  bool BrennDateienPruefen();

  Text grundbild_;  // the background when the user has chosen no picture

  Vorschau vorschau_;
  KatalogZeiten zeiten_;
  KatalogListe liste_;
  KatalogBearbeitung bearbeitung_;
  KatalogAblage ablage_;
  LiedImport import_;
  CDKopie kopie_;
  EffektStapel stapel_;
  ProgrammStart start_;
};

}  // namespace vantora
