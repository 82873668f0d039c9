// Shows the spectrum on the whole screen, for the range that the wave editor has drawn last.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmSpektrum final : public VtrFenster {
 public:
  explicit frmSpektrum(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  void Form_Paint() override { picSpektrum_Paint(); }
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { cmdOK_Click(); }
  void picSpektrum_Paint();
  void cmdOK_Click();

  PictureBox picSpektrum{*this, L"picSpektrum"};
  PictureButton cmdOK{*this, L"cmdOK"};
  ControlArray<Label, 1> lblButtCaption{*this, L"lblButtCaption"};

 private:
  void Anordnen();  // places the controls over the whole screen
  void Zeichnen();
};

}  // namespace vantora
