// The progress window of all long transfers: MP3 conversion, grabbing and burning. The events of
// frmKomponenten fill its fields; the window itself only resets and closes.
#pragma once

#include "app/fenster.h"

namespace vantora {

inline constexpr int kBalkenBreite = 2370;  // twips of a full bar

class frmSchreibFortschritt final : public VtrFenster {
 public:
  explicit frmSchreibFortschritt(Programm& programm);

  void Form_Load() override;
  void Form_Unload() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }

  void init_frmSchreibFortschritt();
  // Shows or hides the row and the numbers of the current track; transfers without tracks hide
  // them.
  void TrackZeigen(bool sichtbar);
  void ReadComplete();
  // Ends the operation, cancelled or not; the effect depends on the kind of transfer.
  void CloseMe(bool abbruch);
  void imgAbbrechen_MouseUp();
  // Runs the light once through its bar; a call during a run does nothing.
  void KnightRider(PictureButton& bild, frmSchreibFortschritt& fenster);

  bool bKnightRider = false;  // false ends the run early

  PictureBox picBack{*this, L"picBack"};
  Label lblInsgKopie{*this, L"lblInsgKopie"};
  Shape shpInsgRahmen{*this, L"shpInsgRahmen"};
  Shape shpInsgKopie{*this, L"shpInsgKopie"};
  Label lblInsgKopiePro{*this, L"lblInsgKopiePro"};
  Label lblInsgKopieSpeed{*this, L"lblInsgKopieSpeed"};
  Label lblInsgKopieZeit{*this, L"lblInsgKopieZeit"};
  Label LblInsgKopieRestzeit{*this, L"LblInsgKopieRestzeit"};
  Label lblKopieTrackNr{*this, L"lblKopieTrackNr"};
  Label lblAktKopie{*this, L"lblAktKopie"};
  Shape shpAktRahmen{*this, L"shpAktRahmen"};
  Shape shpAktKopie{*this, L"shpAktKopie"};
  Label lblAktKopiePro{*this, L"lblAktKopiePro"};
  Label lblAktKopieSpeed{*this, L"lblAktKopieSpeed"};
  Label lblAktKopieZeit{*this, L"lblAktKopieZeit"};
  Label LblAktKopieRestzeit{*this, L"LblAktKopieRestzeit"};
  Label lblKopieNr{*this, L"lblKopieNr"};
  Label lblKopieInsgAnz{*this, L"lblKopieInsgAnz"};
  Label lblSonstiges{*this, L"lblSonstiges"};
  PictureButton imgKnightRider{*this, L"imgKnightRider"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 1> lblButtCaption{*this, L"lblButtCaption"};
  ControlArray<Label, 3> lblFeld{*this, L"lblFeld"};
  Timer tmrKnightRider{*this, L"tmrKnightRider"};

 private:
  void KnightRiderSchritt();
  void AnteileAnsagen();

  PictureButton* laeuftIn_ = nullptr;  // the picture in which the light runs
  int schritt_ = 0;
};

}  // namespace vantora
