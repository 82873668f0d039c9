// The dialog for a font: family, size, bold and italic, with a sample. Begins with what it is given
// and holds what was chosen.
#pragma once

#include "app/fenster.h"
#include "dialogs/druck_dialoge.h"

namespace vantora {

class frmSchrift final : public VtrFenster {
 public:
  explicit frmSchrift(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { pbButton_MouseUp(1); }

  void Beginnen(const Schriftart& schrift);
  bool Gewaehlt = false;  // by OK
  Schriftart Wahl() const;

  void lstGroesse_Click();
  void txtGroesse_Change();
  void pbButton_MouseUp(int index);  // 0 OK, 1 cancel

  Label lblTitel{*this, L"lblTitel"};
  Label lblName{*this, L"lblName"};
  ListBox lstName{*this, L"lstName"};
  Label lblGroesse{*this, L"lblGroesse"};
  TextBox txtGroesse{*this, L"txtGroesse"};
  ListBox lstGroesse{*this, L"lstGroesse"};
  CheckBox chkFett{*this, L"chkFett"};
  CheckBox chkKursiv{*this, L"chkKursiv"};
  Label lblMuster{*this, L"lblMuster"};
  PictureBox picMuster{*this, L"picMuster"};
  ControlArray<PictureButton, 2> pbButton{*this, L"pbButton"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  void MusterZeichnen();
  bool GroesseGueltig() const;

  Text anfang_;  // the family that it began with, and its line in the list: it need not be one of
  int zeile_ = -1;  // the machine's
};

}  // namespace vantora
