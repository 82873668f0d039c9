// The start wizard: offers six ways to begin, right after start-up.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmStartAssistent final : public VtrFenster {
 public:
  explicit frmStartAssistent(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgAbbrechen_MouseUp(); }
  void imgOK_MouseDown();
  void imgAbbrechen_MouseUp();

  int Ergebnis = -1;  // index of the chosen option; any value outside 0 to 5 for none

  Label lblTitel{*this, L"lblTitel"};
  Label lblHilfe{*this, L"lblHilfe"};
  ControlArray<PictureButton, 6> imgSymbol{*this, L"imgSymbol"};
  ControlArray<OptionButton, 6> StartOptionen{*this, L"StartOptionen", 1};
  CheckBox chkNichtMehrZeigen{*this, L"chkNichtMehrZeigen"};
  PictureButton imgOK{*this, L"imgOK"};
  PictureButton imgAbbrechen{*this, L"imgAbbrechen"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  void Merken();

  bool aufKnopf_ = false;  // a button with the focus, other than OK: Return presses this button
};

}  // namespace vantora
