// The dialog for a font: family, size, bold and italic, with a sample. It begins with a given font
// and holds the chosen one.
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
  bool Gewaehlt = false;  // set by OK
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

  Text anfang_;     // the family at the start
  int zeile_ = -1;  // its line in the list; -1 if the system lacks it
};

}  // namespace vantora
