// Counts beats: a track plays, the user taps along, and every second tap shows the tempo between
// the last two measured ones. OK hands it to the selected row of the medley.
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
  void imgAbbrechen_MouseUp();  // closes, and the medley keeps the tempo that it had
  void tmrWaveAbspielen_Timer();
  // The length of a bar that has grown for so long; `Richtung` is -1, or 0 for one that shrinks.
  static void BalkenAktualisieren(float Verstrichen, std::int32_t Gesamt, std::int32_t Breite,
                                  std::int32_t Start, std::int16_t Richtung,
                                  std::int32_t& Ergebnis);

  std::int32_t Spielzeit = 0;  // seconds, set by who opens the window
  float Startzeit = 0;         // seconds since midnight
  std::int32_t BalkenBreite = 0, BalkenStart = 0;
  bool TasteUnten = false;  // a tap has not been let go

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  PictureButton imgBeat{*this, L"imgBeat"};
  Label lblHinweis{*this, L"lblHinweis"};
  Label lblTempo{*this, L"lblTempo"};  // head of the display
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
