// Counts beats: a track plays, the user taps along, and every second tap shows the tempo since the
// last measured tap. OK writes the tempo to the selected row of the medley.
#pragma once

#include "app/fenster.h"

#include <cstdint>

namespace vantora {

class frmBeatCounter final : public VtrFenster {
 public:
  explicit frmBeatCounter(Programm& programm);

  void Form_Load() override;
  void Form_Unload() override;
  void Form_GotFocus() override { imgBeat_MouseUp(); }
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_KeyUp(int taste) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  void Init_BeatCounter();
  void imgBeat_MouseDown();  // a tap
  void imgBeat_MouseUp();
  void imgStop_MouseUp();
  void imgOK_MouseUp();
  void imgAbbrechen_MouseUp();  // closes; the medley keeps its old tempo
  void tmrWaveAbspielen_Timer();
  // Computes the length of a time bar. `Richtung` -1 lets the bar grow; 0 lets it shrink.
  static void BalkenAktualisieren(float Verstrichen, std::int32_t Gesamt, std::int32_t Breite,
                                  std::int32_t Start, std::int16_t Richtung,
                                  std::int32_t& Ergebnis);

  std::int32_t Spielzeit = 0;  // seconds; set by the window that opens this one
  float Startzeit = 0;         // seconds since midnight
  std::int32_t BalkenBreite = 0, BalkenStart = 0;
  bool TasteUnten = false;  // the button is pressed and not yet released

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  PictureButton imgBeat{*this, L"imgBeat"};
  Label lblHinweis{*this, L"lblHinweis"};
  Label lblTempo{*this, L"lblTempo"};  // heading of the display
  Label lblBeatDisplay{*this, L"lblBeatDisplay"};
  Label lblRestzeit{*this, L"lblRestzeit"};
  Shape shpZeitBack{*this, L"shpZeitBack"};
  Shape shpZeitanzeige{*this, L"shpZeitanzeige"};
  PictureButton imgStop{*this, L"imgStop"};
  PictureButton imgOK{*this, L"imgOK"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 3> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Timer tmrWaveAbspielen{*this, L"tmrWaveAbspielen"};

 private:
  void Schliessen();
};

}  // namespace vantora
