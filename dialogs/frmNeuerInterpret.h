// Title, performer and pause of a track, or title and performer of the whole catalog.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmNeuerInterpret final : public VtrFenster {
 public:
  explicit frmNeuerInterpret(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgControl_MouseUp(1); }

  void TrackZeigen(int nummer, const Text& titel, const Text& interpret);  // from 1
  void AufnahmeZeigen(const Text& titel, const Text& interpret);  // for a take of the recorder
  void KatalogZeigen(const Text& titel, const Text& interpret);
  void imgControl_MouseUp(int index);  // 0 OK, 1 cancel
  bool cmbPause_KeyPress(int taste);

  void DateiZeigen(const Text& pfad);

  bool Abbruch = true;  // closed by cancel

  Label lblTitel{*this, L"lblTitel"};
  ControlArray<Label, 4> lblFeld{*this, L"lblFeld"};
  Label lblDatei{*this, L"lblDatei"};  // the name of the file; its tooltip is the path
  TextBox txtTitel{*this, L"txtTitel"};
  TextBox txtInterpret{*this, L"txtInterpret"};
  ComboBox cmbPause{*this, L"cmbPause"};
  ControlArray<PictureButton, 2> imgControl{*this, L"imgControl"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  bool aufKnopf_ = false;  // a button with the focus, other than OK: Return presses this button
};

}  // namespace vantora
