// Version, credits, licence and links of the program.
#pragma once

#include "app/fenster.h"

namespace vantora {

class frmAbout final : public VtrFenster {
 public:
  explicit frmAbout(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgOK_MouseUp(); }
  void imgOK_MouseUp();

  PictureButton imgLogo{*this, L"imgLogo"};
  Label lblName{*this, L"lblName"};
  Label lblVersion{*this, L"lblVersion"};
  Label lblText{*this, L"lblText"};
  Label lblLizenz{*this, L"lblLizenz"};
  ControlArray<Label, 2> lblLink{*this, L"lblLink"};
  PictureButton imgOK{*this, L"imgOK"};
  ControlArray<Label, 1> lblButtCaption{*this, L"lblButtCaption"};
};

}  // namespace vantora
