// The medley: the tempo of each track, the length of the crossfade into the next track, and whether
// the tempo slides during it. The controls show the row that is selected in the list; the values of
// a row belong to the transition into the next row. OK writes the crossfades into the tracks' own
// files.
#pragma once

#include "app/fenster.h"
#include "medley/streifen.h"
#include "medley/ueberblendung.h"

#include "platform/fader_knob.h"

#include <array>

namespace vantora {

class frmMedley final : public VtrFenster {
 public:
  explicit frmMedley(Programm& programm);

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  void Init_Medley();
  void EditAllowed();
  void WerteSpeichern();  // writes the controls' values to the selected row
  void ReglerSetzen(double wert, int index);
  void MedleyBeenden();  // closes the window; every button that closes it calls this

  void lstMedleyTracks_Click();
  bool txtBPM_KeyPress(int taste);
  bool txtDauer_KeyPress(int taste);
  void txtDauer_LostFocus();
  void chkPitch_Click();
  void imgMedleyKnopf_MouseMove();  // mouse or key has moved the knob
  void picWaveToFade_MouseDown(int index, int taste);
  void picWaveToFade_MouseMove(int index, int taste);
  void picWaveToFade_MouseUp(int index, int taste);
  void picWaveToFade_KeyDown(int taste);
  void imgStartStop_MouseUp();
  void imgPreview_MouseUp();
  void imgSpeedMeasure_MouseUp();
  void imgOK_MouseUp();
  void imgAbbrechen_MouseUp();

  void UeberblendungBerechnen(int Index1, int Index2);
  void UeberblendungAusfuehren(int Index1, int Index2);

  std::int16_t AktuelleZeile = -1;  // the row whose values the controls show
  int GrabOffset = 0;               // twips from the left edge of the strip that is dragged

  // ---- controls ----
  Label lblTitel{*this, L"lblTitel"};
  Label lblListe{*this, L"lblListe"};  // heading of the list
  ListBox lstMedleyTracks{*this, L"lstMedleyTracks"};
  PictureButton imgStartStop{*this, L"imgStartStop"};
  Label lblTempo{*this, L"lblTempo"};  // heading of the tempo
  Label lblBPM{*this, L"lblBPM"};
  TextBox txtBPM{*this, L"txtBPM"};
  PictureButton imgSpeedMeasure{*this, L"imgSpeedMeasure"};
  Label lblMedleySliderBack{*this, L"lblMedleySliderBack"};
  FaderKnob imgMedleyKnopf{*this, L"imgMedleyKnopf"};
  ControlArray<Label, 2> lblSkala{*this, L"lblSkala"};  // 0 the upper end of the slider
  ControlArray<Label, 2> lblSchieberBack{*this, L"lblSchieberBack"};
  ControlArray<PictureBox, 2> picWaveToFade{*this, L"picWaveToFade"};
  Shape shpUeberlappung{*this, L"shpUeberlappung"};  // the part where both strips sound
  PictureBox picRampen{*this, L"picRampen"};         // the volume of both strips in the overlap
  ControlArray<Label, 2> lblSongName{*this, L"lblSongName"};
  Label lblDauer{*this, L"lblDauer"};
  TextBox txtDauer{*this, L"txtDauer"};
  Label lblEinheit{*this, L"lblEinheit"};
  CheckBox chkPitch{*this, L"chkPitch"};
  PictureButton imgPreview{*this, L"imgPreview"};
  PictureButton imgOK{*this, L"imgOK"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 5> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
  Timer tmrSpieler{*this, L"tmrSpieler"};

  Ueberblendung Motor{prog, chkPitch};

 private:
  class Sperre;
  std::array<Control*, 4> Werte();  // the controls that are disabled without a row
  MedleyEintrag* Zeile(int index);  // null for a row that does not exist
  bool LetzteZeile(int index) const;
  void DauerKuerzen(int index);
  void StreifenSetzen(double sekunden);
  Streifen Lage() const;
  void SpielerZeigen();

  bool laeuft_ = false;  // transitions are being computed
  bool schliesst_ = false;
};

}  // namespace vantora
