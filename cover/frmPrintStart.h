// The first step to a cover: its texts, their font and the colours. The second step is frmPrint.
#pragma once

#include "app/fenster.h"

#include <array>

namespace vantora {

class frmPrintStart final : public VtrFenster {
 public:
  explicit frmPrintStart(Programm& programm);

  void Form_Load() override;
  void SetTexte() override;
  bool Form_KeyDown(int taste, bool strg) override;
  void Form_Close() override { imgDruckEnde_MouseUp(); }

  void txtTitel_GotFocus(int index);
  void txtTitel_LostFocus(int index);
  void txtPrev_Click();
  void imgSchrift_MouseUp();
  void imgColor_MouseUp(int index);  // 0 text, 1 background
  void imgReady_MouseUp();           // splits the list of titles and goes on to frmPrint
  void imgDruckEnde_MouseUp();       // back to the catalog

  Label lblTitel{*this, L"lblTitel"};
  Label lblHilfe{*this, L"lblHilfe"};
  ControlArray<Label, 3> lblFeld{*this, L"lblFeld"};  // captions of the text boxes
  ControlArray<TextBox, 2> txtTitel{*this, L"txtTitel"};
  TextBox txtPrev{*this, L"txtPrev"};
  PictureButton imgSchrift{*this, L"imgSchrift"};
  ControlArray<PictureButton, 2> imgColor{*this, L"imgColor"};
  PictureButton imgDruckEnde{*this, L"imgDruckEnde"};
  PictureButton imgReady{*this, L"imgReady"};
  ControlArray<Label, 5> lblButtCaption{*this, L"lblButtCaption"};
  PictureButton imgHelp{*this, L"imgHelp"};

 private:
  void SchriftZeigen();
  void FarbenZeigen();
  void ZeilenTeilen();

  std::array<bool, 2> getippt_{};  // the text box was changed and has kept the focus
};

}  // namespace vantora
