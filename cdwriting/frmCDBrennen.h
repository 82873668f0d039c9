// The burner window: the writer, the speed, the method and the number of copies; and the run that
// burns the catalog to audio discs.
#pragma once

#include "app/fenster.h"

#include <cstdint>
#include <vector>

namespace vantora {

class frmCDBrennen final : public VtrFenster {
 public:
  explicit frmCDBrennen(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  bool Init_Brenner();        // looks for burners; returns true when one can be used
  void SetBurnerParameter();  // applies the window's options to the burner
  bool NumCDWriter() const;   // whether an entry of the list is selected
  void LadeBrennOptionen();
  void CloseMe();  // leaves the window without burning

  void lstCDRecorder_Click();
  void imgBrennen_MouseUp();
  void imgAbbrechen_MouseUp();
  void txtKopienAnzahl_LostFocus();

  void BurnCD();
  void DBEintrag();       // enters the disc just burnt in the CD database
  void DeleteTempWavs();  // deletes the waves of a CD copy

  bool ModusDAO = false, ModusTAO = false;  // read again in every pass
  std::int16_t KopienAnzahl = 1;
  std::int16_t KopieNr = 1;  // from 1
  bool Simulation = false;

  ControlArray<Shape, 4> picPanel{*this, L"picPanel"};
  Label lblTitel{*this, L"lblTitel"};
  Label lblHinweis{*this, L"lblHinweis"};
  Label lblRecorder{*this, L"lblRecorder"};
  ControlArray<Label, 5> lblKopf{*this, L"lblKopf"};  // the heads of the list
  ListBox lstCDRecorder{*this, L"lstCDRecorder"};
  Label lblMethode{*this, L"lblMethode"};
  OptionButton optTrackAtOnce{*this, L"optTrackAtOnce", -1, 1};
  OptionButton optDiscAtOnce{*this, L"optDiscAtOnce", -1, 1};
  Label lblGeschwindigkeit{*this, L"lblGeschwindigkeit"};
  ControlArray<OptionButton, 5> optBurnSpeed{*this, L"optBurnSpeed", 2};
  CheckBox chkSimulation{*this, L"chkSimulation"};
  Label lblKopien{*this, L"lblKopien"};
  TextBox txtKopienAnzahl{*this, L"txtKopienAnzahl"};
  Label lblStatusBurner{*this, L"lblStatusBurner"};
  Label lblAblage{*this, L"lblAblage"};
  PictureButton imgBrennen{*this, L"imgBrennen"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  PictureButton imgHelp{*this, L"imgHelp"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};

 private:
  void BrennerAufnehmen(int index);
  void BrennerWaehlen();  // makes the device of the selected line the current one
  int Geraet(int zeile) const;

  // The stages of one pass, that is, of one disc.
  enum class Ergebnis { Gebrannt, Fehlgeschlagen };
  enum class Danach { NaechsteKopie, Fenster, Schluss };
  void PassVorbereiten();
  bool TracksAnmelden();
  bool AufDiscWarten();
  void LaufwerkBestimmen();
  void FortschrittZeigen();
  int SchreibenStarten();
  void StartFehlerMelden(int ergebnis);
  void AufEndeWarten();
  void CdTextAnmelden();
  Danach NachDemBrennen();
  void ErgebnisMelden();
  Danach WeitereKopie();
  void ProtokollSchreiben();
  void Aufraeumen();
  void Zeiger(const wchar_t* datei);
  void Melde(const Text& text);
  void Auskunft(const Text& text);
  void Gelungen(const Text& text);
  void AblageZeigen();  // the place of the image that was made last
  bool Frage(const Text& text);
  void Spur(const Text& text);

  std::vector<int> geraete_;  // the device of each line of the list; some devices have no line
  bool eingetragen_ = false;  // this run has entered a disc in the database
  Text meldung_;  // the last message of the run, which is shown again when a start fails
};

}  // namespace vantora
