// Shows the tracks of another catalog. The user chooses the tracks that are added to the open
// catalog.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmLiedAusKatalog final : public VtrFenster {
 public:
  explicit frmLiedAusKatalog(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgControl_MouseUp(1); }
  void imgControl_MouseUp(int index);  // 0 OK, 1 cancel
  void lstLiedAusKatalog_Click();

  Label lblTitel{*this, L"lblTitel"};
  ListBox lstLiedAusKatalog{*this, L"lstLiedAusKatalog"};
  ControlArray<PictureButton, 2> imgControl{*this, L"imgControl"};
  ControlArray<Label, 2> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};
};

}  // namespace vantora
